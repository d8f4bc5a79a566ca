// "Copy Name" and "Copy Path": texts for other programs, on the system's clipboard.

#include "app/app_state.h"
#include "filelist/file_list.h"

namespace {

void PutOnClipboard(std::wstring_view text) {
    if (!OpenClipboard(appState.mainWindow))
        return;
    ::EmptyClipboard();
    const std::size_t length = text.size() + 1;
    HLOCAL block = LocalAlloc(LMEM_FIXED, length * sizeof(wchar_t));
    if (block) {
        CopyTextTo({static_cast<wchar_t*>(block), length}, text);
        if (!SetClipboardData(CF_UNICODETEXT, block))
            LocalFree(block);
    }
    CloseClipboard();
}

} // namespace

void FileList::CopyNameToClipboard() {
    if (const std::optional<SelectionEntry> entry = EntryAt(FirstSelected()))
        PutOnClipboard(entry->name.data());
}

void FileList::CopyPathToClipboard() {
    Path path;
    const std::optional<SelectionEntry> entry = EntryAt(FirstSelected());
    if (entry && path.AssignChild(entry->folder.data(), entry->name.data()))
        PutOnClipboard(path.View());
}
