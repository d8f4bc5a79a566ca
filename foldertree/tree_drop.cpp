// Drops onto the tree's folders, and a folder of the tree as what is dragged.

#include "app/app_state.h"
#include "app/folder_refresh.h"
#include "app/pointer.h"
#include "foldertree/folder_tree.h"

/// The node at a point of the screen that takes drops, or null.
HTREEITEM FolderTree::DropTargetAt(POINT screenPoint) const {
    ScreenToClient(window_, &screenPoint);
    HTREEITEM node = IsWindowVisible(window_) ? NodeAt(screenPoint) : nullptr;
    return node == search_ ? nullptr : node;
}

void FolderTree::SetDropMark(HTREEITEM node) {
    SendMessageW(window_, TVM_SELECTITEM, TVGN_DROPHILITE, reinterpret_cast<LPARAM>(node));
}

void FolderTree::MarkDropTarget(POINT screenPoint) {
    HTREEITEM node = DropTargetAt(screenPoint);
    if (node == Related(TVGN_DROPHILITE, nullptr))
        return;
    SetDropMark(node);
    UpdateWindow(window_);
}

void FolderTree::ClearDropMark() {
    SetDropMark(nullptr);
}

bool FolderTree::TakeDrop(DragDrop& drag) {
    FileList& list = appState.fileList;
    HTREEITEM node = DropTargetAt(MessagePoint());
    Path target;
    if (!node || !PathOfNode(node, target))
        return false;
    const DropAction action = DragDrop::ChooseAction();
    SetDropMark(nullptr);
    if (action == DropAction::None)
        return true;
    drag.FillClipboard(action);
    list.SetCurrentFolder(target);
    if (action == DropAction::Shortcut)
        list.PasteShortcut(false);
    else
        list.Paste(false);
    CutToExisting(target);
    list.GoToFolder(target.View(), treeRescan);
    return true;
}

void FolderTree::PutOnClipboard(HTREEITEM node, Transfer transfer) {
    Path folder;
    if (!CanCarry(node) || !PathOfNode(node, folder))
        return;
    ready_ = false;
    Select(node);
    ready_ = true;
    appState.fileList.ShowSingleEntry(folder.View());
    if (transfer == Transfer::Move)
        appState.fileList.CutSelection();
    else
        appState.fileList.CopySelection();
}
