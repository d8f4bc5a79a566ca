// Moving between folders: history, up, typed paths, opening what is selected.

#include "app/app_state.h"
#include "app/menu_state.h"
#include "common/device_info.h"
#include "common/name_rules.h"
#include "common/outside_path.h"
#include "common/wait_cursor.h"
#include "filelist/file_list.h"
#include "filelist/navigation_rules.h"
#include "filelist/open_item.h"

namespace {

DWORD AttributesOf(const wchar_t* path) {
    const WaitCursor wait;
    return ce::GetFileAttributesW(path);
}

void ReportNotFound() {
    MessageBoxW(appState.mainWindow, L"This folder or file could not be found. Check the path or file name.",
                L"", MB_ICONHAND);
}

} // namespace

void FileList::GoBack() {
    // From search results the way back is the folder shown before them.
    const wchar_t* folder = currentFolder_.IsSearchFolder() ? history_.Current() : history_.StepBack();
    if (folder)
        GoToFolder(folder, treeRescan);
}

void FileList::GoForward() {
    const wchar_t* folder = currentFolder_.IsSearchFolder() ? history_.Current() : history_.StepForward();
    if (folder)
        GoToFolder(folder, treeRescan);
}

bool FileList::OnHistoryKey(WPARAM key) {
    if (key != VK_HOME && key != VK_END)
        return false;
    if (appState.dragging) // what is dragged would go
        return true;
    if (key == VK_HOME)
        GoBack();
    else
        GoForward();
    return true;
}

void FileList::UpOneLevel() {
    if (!currentFolder_.IsEmpty())
        GoToFolder(FolderAbove(currentFolder_.View()), treeRescan);
}

void FileList::OpenEntry(int index) {
    const std::optional<SelectionEntry> entry = EntryAt(index);
    if (!entry)
        return;
    if (entry->kind == ItemKind::UpLevel)
        return UpOneLevel();
    Path path;
    if (!path.AssignChild(entry->folder.data(), entry->name.data()))
        return ReportNotFound();
    if (entry->kind == ItemKind::Folder)
        GoToFolder(path.View(), treeRescan);
    else
        OpenItem(*this, path);
}

void FileList::GoToPath(std::wstring_view text) {
    if (NamesRoot(text, DeviceDisplayName()))
        return GoToFolder(L"", treeRescan);
    if (text == searchFolder)
        return GoToFolder(searchFolder, treeRescan);
    Path path;
    if (!TakeOutsidePath(StoredName(text), path))
        return ReportNotFound();
    if (path.IsEmpty())
        return GoToFolder(L"", treeRescan);
    const DWORD attributes = AttributesOf(path.Text());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        ReportNotFound();
    else if (attributes & FILE_ATTRIBUTE_DIRECTORY)
        GoToFolder(path.View(), treeRescan);
    else
        OpenItem(*this, path);
}

void FileList::GoToAddress() {
    wchar_t text[pathCapacity] = {};
    GetWindowTextW(appState.addressCombo, text, static_cast<int>(pathCapacity));
    GoToPath(text);
}

void FileList::GoFromAddressBar() {
    HWND combo = appState.addressCombo;
    const LRESULT selected = SendMessageW(combo, CB_GETCURSEL, 0, 0);
    if (selected == CB_ERR)
        return;
    const auto entry = static_cast<WPARAM>(selected);
    const LRESULT length = SendMessageW(combo, CB_GETLBTEXTLEN, entry, 0);
    if (length == CB_ERR || length >= static_cast<LRESULT>(pathCapacity))
        return;
    wchar_t text[pathCapacity] = {};
    SendMessageW(combo, CB_GETLBTEXT, entry, reinterpret_cast<LPARAM>(text));
    SetFocus(window_);
    GoToPath(text);
}

void FileList::OrganizeFavorites() {
    GoToPath(appState.settings.favoritesPath.data());
    UpdateMenuState();
}

void FileList::UpdateNavigationState() {
    UpdateNavigationItems(!currentFolder_.IsEmpty(), history_.HasBack(), history_.HasForward());
}
