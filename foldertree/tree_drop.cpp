// Drops onto the tree's folders, and a folder of the tree as what is dragged.

#include "app/app_state.h"
#include "common/file_facts.h"
#include "common/pointer.h"
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
    if (!node || !pathOfNode(node, target))
        return false;
    const DropAction action = DragDrop::ChooseAction();
    SetDropMark(nullptr);
    const Path began = list.CurrentFolder();
    if (action == DropAction::None || !drag.PasteInto(target, action))
        return true;
    CutToExisting(target);
    list.ShowAfterWork(began, target.View(), treeRescan);
    return true;
}

bool FolderTree::FolderToCarry(HTREEITEM node, Path& folder) const {
    return node && node != root_ && node != search_ && pathOfNode(node, folder);
}

bool FolderTree::PutOnClipboard(const Path& folder, Transfer transfer) {
    HTREEITEM node = NodeOfPath(folder);
    if (!node)
        return false;
    ready_ = false;
    Select(node);
    ready_ = true;
    appState.fileList.ShowSingleEntry(folder.View());
    return transfer == Transfer::Move ? appState.fileList.CutSelection() : appState.fileList.CopySelection();
}
