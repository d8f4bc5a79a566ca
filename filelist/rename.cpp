// Renaming an entry in place.

#include <utility>

#include "app/app_state.h"
#include "app/menu_state.h"
#include "common/name_rules.h"
#include "common/system_folder.h"
#include "filelist/file_list.h"
#include "filelist/list_input.h"
#include "filelist/rename_rules.h"

namespace {

bool MoveEntry(const SelectionEntry& entry, std::wstring_view newName) {
    Path from;
    Path to;
    return from.AssignChild(entry.folder.data(), entry.name.data()) &&
           to.AssignChild(entry.folder.data(), newName) && ce::MoveFileW(from.Text(), to.Text());
}

} // namespace

void FileList::BeginRename() {
    const std::optional<SelectionEntry> entry = EntryAt(FirstSelected());
    Path path;
    if (entry && path.AssignChild(entry->folder.data(), entry->name.data()))
        EditName(path);
}

void FileList::EditName(const Path& entry) {
    ce::SipShowIM(SIPF_ON);
    SetFocus(window_);
    // Looked for only now: a folder chosen in the tree may have been shown on the way.
    if (const int index = IndexOf(entry); index >= 0)
        SendMessageW(window_, LVM_EDITLABELW, static_cast<WPARAM>(index), 0);
}

void FileList::OnBeginLabelEdit(int index) {
    tapAndHold.Cancel(window_);
    edited_ = EntryAt(index);
    labelEdit.Begin(window_);
    appState.labelEditing = true;
    UpdateMenuState();
}

bool FileList::EndRename(const wchar_t* text) {
    const std::optional<SelectionEntry> entry = std::exchange(edited_, std::nullopt);
    const wchar_t* label = labelEdit.Finish(text);
    appState.labelEditing = false;
    UpdateMenuState();
    switch (entry ? JudgeLabel(label, entry->kind) : LabelVerdict::Keep) {
    case LabelVerdict::Forbidden:
        return RefuseLabel(*entry, forbiddenNameMessage), false;
    case LabelVerdict::Empty:
        return RefuseLabel(*entry, emptyNameMessage), false;
    case LabelVerdict::Rename:
        return RenameEntry(*entry, label);
    default:
        return false;
    }
}

/// Says why a name cannot be, and has the editor opened again once the view is done with ending the edit.
void FileList::RefuseLabel(const SelectionEntry& entry, const wchar_t* message) {
    // Known by its path: behind the box the folder may be listed anew, and other entries stand in its place.
    if (!refused_.AssignChild(entry.folder.data(), entry.name.data()))
        refused_.Clear();
    MessageBoxW(appState.mainWindow, message, L"", MB_ICONHAND);
    PostMessageW(window_, UM_EDITLABEL, 0, 0);
}

void FileList::EditAgain() {
    const Path refused = std::exchange(refused_, {});
    if (IndexOf(refused) >= 0)
        EditName(refused);
}

/// The list may be read anew, or show another folder, whenever the watcher pauses or goes on.
bool FileList::RenameEntry(const SelectionEntry& entry, std::wstring_view label) {
    if (entry.kind == ItemKind::Folder && SystemFolder(appState.settings.windowsPath.data())
                                              .KeepsItsName(entry.folder.data(), entry.name.data(), label)) {
        MessageBoxW(appState.mainWindow, systemFolderMessage, L"", MB_ICONHAND);
        return false;
    }
    Path name;
    const bool extensionHidden = options.noExtension && entry.kind == ItemKind::File;
    const bool fits = NameFromLabel(label, entry.name.data(), extensionHidden, name);
    const bool isResult = currentFolder_.IsSearchFolder();
    const std::uint32_t listing = listingNumber_;
    appState.changeWatcher.PauseWatcher();
    const bool moved = fits && MoveEntry(entry, name.View());
    if (!moved)
        MessageBoxW(appState.mainWindow, renameFailedMessage, L"", MB_ICONHAND);
    appState.changeWatcher.ResumeWatcher();
    if (!moved)
        return false;

    if (isResult) {
        if (SearchResult* result = searchResults.Find(entry.folder.data(), entry.name.data()))
            searchResults.SetName(*result, name.View());
    }
    TakeName(entry, name.View());
    appState.folderTree.selectPath(currentFolder_.View(), true, true);
    return listingNumber_ == listing;
}

/// The entry's record, if it is still listed by its old name, gets the new one.
void FileList::TakeName(const SelectionEntry& entry, std::wstring_view name) {
    FileItem* item = FindItem(entry);
    if (!item)
        return;
    item->name = CopyText(name);
    item->displayName.reset();
    item->sizeText.reset();
    item->typeText.reset();
    item->dateText.reset();
    if (item->kind != ItemKind::Folder)
        item->iconIndex = iconWhenDrawn; // it may be of another type now
    InvalidateRect(window_, nullptr, FALSE);
}
