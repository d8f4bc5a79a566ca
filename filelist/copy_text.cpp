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
    if (const FileItem* item = ItemAt(FirstSelected()))
        PutOnClipboard(item->name.get());
}

void FileList::CopyPathToClipboard() {
    Path path;
    const FileItem* item = ItemAt(FirstSelected());
    if (item && path.AssignChild(item->folder, item->name.get()))
        PutOnClipboard(path.View());
}
