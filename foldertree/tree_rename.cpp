// Renaming a folder in place.

#include <utility>

#include "app/app_state.h"
#include "app/menu_state.h"
#include "app/name_rules.h"
#include "foldertree/folder_tree.h"
#include "foldertree/tree_messages.h"

void FolderTree::BeginRename() {
    HTREEITEM node = Caret();
    if (!node)
        return;
    // This edit comes after the menu: it is not one left open under it.
    KillTimer(window_, endEditTimer);
    endEdit_ = endEditHalfDone_ = false;
    ce::SipShowIM(SIPF_ON);
    SetFocus(window_);
    SendMessageW(window_, TVM_EDITLABELW, 0, reinterpret_cast<LPARAM>(node));
}

void FolderTree::OnBeginLabelEdit(HTREEITEM node) {
    CancelHold();
    appState.labelEditing = true;
    UpdateMenuState();
    if (!PathOfNode(node, editedPath_))
        editedPath_.Clear();
}

/// True when the node takes the new name. `text` is null when the edit was cancelled.
bool FolderTree::OnEndLabelEdit(HTREEITEM node, const wchar_t* text) {
    CancelHold();
    // In the midst of ending an edit its field loses the keyboard, for which the control ends it once more.
    if (!std::exchange(appState.labelEditing, false))
        return false;
    UpdateMenuState();
    if (!text)
        return false;
    const std::wstring_view name = StoredName(text);
    if (HasForbiddenCharacter(name))
        RefuseName(node, forbiddenNameMessage);
    else if (name.empty())
        RefuseName(node, emptyNameMessage);
    else if (editedPath_.View().find(L'\\') == std::wstring_view::npos)
        RefuseName(node, renameFailedMessage); // the device itself and the search results
    else
        return RenameEdited(node, name) && TakesNameAsTyped(node, name, text);
    return false;
}

/// The control gives the node what was typed. True when that is its folder's name; otherwise it has that now.
bool FolderTree::TakesNameAsTyped(HTREEITEM node, std::wstring_view name, std::wstring_view typed) {
    if (name == typed)
        return true;
    SetName(node, CopyText(name).get());
    return false;
}

bool FolderTree::RenameEdited(HTREEITEM node, std::wstring_view name) {
    Path renamed;
    appState.changeWatcher.PauseWatcher();
    if (!renamed.AssignChild(ParentOf(editedPath_.View()), name) ||
        !ce::MoveFileW(editedPath_.Text(), renamed.Text())) {
        RefuseName(node, renameFailedMessage);
        appState.changeWatcher.ResumeWatcher();
        return false;
    }
    appState.changeWatcher.ResumeWatcher();
    // A path at the limit goes without the backslash.
    [[maybe_unused]] const bool fits = renamed.Append(L"\\");
    appState.fileList.GoToFolder(renamed.View(), treeSelectOnly);
    // The node gets its new name only after this, so the list could not have it selected.
    ready_ = false;
    Select(node);
    ready_ = true;
    return true;
}

/// Says why a name cannot be, and has the editor opened again.
void FolderTree::RefuseName(HTREEITEM node, const wchar_t* message) {
    editAgain_ = node; // known before the box, behind which the node may go
    MessageBoxW(appState.mainWindow, message, L"", MB_ICONERROR);
    SetFocus(window_);
    PostMessageW(window_, UM_EDITAGAIN, 0, 0);
}

void FolderTree::EditAgain() {
    if (HTREEITEM node = std::exchange(editAgain_, nullptr))
        SendMessageW(window_, TVM_EDITLABELW, 0, reinterpret_cast<LPARAM>(node));
}

void FolderTree::EndEditStep() {
    if (!endEdit_)
        return;
    endEditHalfDone_ = !endEditHalfDone_;
    if (endEditHalfDone_)
        KillTimer(window_, endEditTimer);
    SendMessageW(window_, TVM_ENDEDITLABELNOW, FALSE, 0);
    if (!endEditHalfDone_)
        endEdit_ = false;
}
