// Renaming a folder in place.

#include <utility>

#include "app/app_state.h"
#include "app/menu_state.h"
#include "common/name_rules.h"
#include "common/system_folder.h"
#include "foldertree/folder_tree.h"
#include "foldertree/tree_messages.h"

void FolderTree::BeginRename() {
    if (!Caret())
        return;
    // This edit comes after the menu: it is not one left open under it.
    KillTimer(window_, endEditTimer);
    endEdit_ = endEditHalfDone_ = false;
    ce::SipShowIM(SIPF_ON);
    SetFocus(window_);
    // Asked for only now: a name that was edited in the list may have changed the nodes on the way.
    if (HTREEITEM node = Caret())
        SendMessageW(window_, TVM_EDITLABELW, 0, reinterpret_cast<LPARAM>(node));
}

void FolderTree::onBeginLabelEdit(HTREEITEM node) {
    CancelHold();
    appState.labelEditing = true;
    UpdateMenuState();
    editedNode_ = node;
    if (!pathOfNode(node, selectionPath_))
        selectionPath_.Clear();
}

/// True when the node takes the new name. `text` is null when the edit was cancelled.
bool FolderTree::onEndLabelEdit(const wchar_t* text) {
    CancelHold();
    // In the midst of ending an edit its field loses the keyboard, for which the control ends it once more.
    if (!std::exchange(appState.labelEditing, false))
        return false;
    UpdateMenuState();
    if (!text)
        return false;
    const std::wstring_view name = StoredName(text);
    if (HasForbiddenCharacter(name))
        RefuseName(forbiddenNameMessage);
    else if (name.empty())
        RefuseName(emptyNameMessage);
    else if (selectionPath_.View().find(L'\\') == std::wstring_view::npos)
        RefuseName(renameFailedMessage); // the device itself and the search results
    else
        return RenameEdited(name, name == text);
    return false;
}

/// True when the node takes what was typed: the control gives it that. Where the name is another one, it has
/// that already.
bool FolderTree::RenameEdited(std::wstring_view name, bool asTyped) {
    if (SystemFolder(appState.settings.windowsPath.data())
            .KeepsItsName(ParentOf(selectionPath_.View()), LeafOf(selectionPath_.View()), name)) {
        MessageBoxW(appState.mainWindow, systemFolderMessage, L"", MB_ICONHAND);
        SetFocus(window_);
        return false;
    }
    const OwnedText taken = CopyText(name);
    Path renamed;
    const bool fits = renamed.AssignChild(ParentOf(selectionPath_.View()), name);
    appState.changeWatcher.PauseWatcher();
    const bool moved = fits && ce::MoveFileW(selectionPath_.Text(), renamed.Text());
    if (!moved)
        RefuseName(renameFailedMessage);
    appState.changeWatcher.ResumeWatcher();
    if (!moved)
        return false;
    // A path at the limit goes without the backslash.
    [[maybe_unused]] const bool fitsToo = renamed.Append(L"\\");
    appState.fileList.GoToFolder(renamed.View(), treeSelectOnly);
    if (!editedNode_) // its folder was read meanwhile, and another node has the new name
        return false;
    // The node gets its new name only after this, so the list could not have it selected.
    ready_ = false;
    Select(editedNode_);
    ready_ = true;
    if (!asTyped)
        SetName(editedNode_, taken.get());
    return asTyped;
}

/// Says why a name cannot be, and has the editor opened again.
void FolderTree::RefuseName(const wchar_t* message) {
    editAgain_ = selectionPath_; // known before the box, behind which the node may go
    MessageBoxW(appState.mainWindow, message, L"", MB_ICONERROR);
    SetFocus(window_);
    PostMessageW(window_, UM_EDITAGAIN, 0, 0);
}

void FolderTree::EditAgain() {
    const std::optional<Path> refused = std::exchange(editAgain_, std::nullopt);
    if (HTREEITEM node = refused ? NodeOfPath(*refused) : nullptr)
        SendMessageW(window_, TVM_EDITLABELW, 0, reinterpret_cast<LPARAM>(node));
}

void FolderTree::CancelEdit() {
    if (appState.labelEditing && SendMessageW(window_, TVM_GETEDITCONTROL, 0, 0))
        SendMessageW(window_, TVM_ENDEDITLABELNOW, TRUE, 0);
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
