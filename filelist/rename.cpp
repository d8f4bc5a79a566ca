// Renaming an entry in place.

#include "app/app_state.h"
#include "app/menu_state.h"
#include "app/name_rules.h"
#include "filelist/file_list.h"
#include "filelist/list_input.h"
#include "filelist/rename_rules.h"

namespace {

bool MoveEntry(const FileItem& item, std::wstring_view newName) {
    Path from;
    Path to;
    return from.AssignChild(item.folder, item.name.get()) && to.AssignChild(item.folder, newName) &&
           ce::MoveFileW(from.Text(), to.Text());
}

void TakeName(FileItem& item, std::wstring_view name) {
    item.name = CopyText(name);
    item.displayName.reset();
    item.sizeText.reset();
    item.typeText.reset();
    item.dateText.reset();
    if (item.kind != ItemKind::Folder)
        item.iconIndex = iconWhenDrawn; // it may be of another type now
}

} // namespace

void FileList::BeginRename() {
    if (const int index = FirstSelected(); index >= 0)
        EditLabel(index);
}

void FileList::EditLabel(int index) {
    ce::SipShowIM(SIPF_ON);
    SetFocus(window_);
    SendMessageW(window_, LVM_EDITLABELW, static_cast<WPARAM>(index), 0);
}

void FileList::OnBeginLabelEdit(int index) {
    tapAndHold.Cancel(window_);
    labelEdit.Begin(window_, ItemAt(index));
    appState.labelEditing = true;
    UpdateMenuState();
}

bool FileList::OnEndLabelEdit(const wchar_t* text) {
    FileItem* item = labelEdit.Item();
    const wchar_t* label = labelEdit.Finish(text);
    appState.labelEditing = false;
    UpdateMenuState();
    switch (item ? JudgeLabel(label, item->kind) : LabelVerdict::Keep) {
    case LabelVerdict::Forbidden:
        return RefuseLabel(*item, forbiddenNameMessage), false;
    case LabelVerdict::Empty:
        return RefuseLabel(*item, emptyNameMessage), false;
    case LabelVerdict::Rename:
        return RenameEntry(*item, label);
    default:
        return false;
    }
}

/// Says why a name cannot be, and has the editor opened again once the view is done with ending the edit.
void FileList::RefuseLabel(const FileItem& item, const wchar_t* message) {
    // Known by its path: behind the box the folder may be listed anew, and other entries stand in its place.
    if (!refused_.AssignChild(item.folder, item.name.get()))
        refused_.Clear();
    MessageBoxW(appState.mainWindow, message, L"", MB_ICONHAND);
    PostMessageW(window_, UM_EDITLABEL, 0, 0);
}

void FileList::EditAgain() {
    if (const int index = IndexOf(refused_); index >= 0)
        EditLabel(index);
    refused_.Clear();
}

bool FileList::RenameEntry(FileItem& item, std::wstring_view label) {
    Path name;
    const bool extensionHidden = options.noExtension && item.kind == ItemKind::File;
    appState.changeWatcher.PauseWatcher();
    const bool moved =
        NameFromLabel(label, item.name.get(), extensionHidden, name) && MoveEntry(item, name.View());
    if (!moved)
        MessageBoxW(appState.mainWindow, renameFailedMessage, L"", MB_ICONHAND);
    appState.changeWatcher.ResumeWatcher();
    if (!moved)
        return false;

    if (currentFolder_.IsSearchFolder()) {
        if (SearchResult* result = searchResults.Find(item.folder, item.name.get()))
            searchResults.SetName(*result, name.View());
    }
    TakeName(item, name.View());
    appState.folderTree.SelectPath(currentFolder_.View(), true, true);
    return true;
}
