// List and tree in step. What the list shows is selected here without an echo; what is selected here is shown
// by the list: at once for the stylus, after a rest for the keys, so that scrolling lists no folder passed.

#include <utility>

#include "app/app_state.h"
#include "app/gestures.h"
#include "foldertree/folder_tree.h"
#include "foldertree/tree_rules.h"

namespace {

constexpr UINT syncDelay = 500; // milliseconds

} // namespace

/// Whether anybody sees the tree or has the keyboard in it.
bool FolderTree::IsInUse() const {
    return (GetWindowLongW(window_, GWL_STYLE) & WS_VISIBLE) || GetFocus() == window_;
}

/// The child of this name. A tree that is behind looks again before it says that there is none.
HTREEITEM FolderTree::ChildOnTheWay(HTREEITEM node, std::wstring_view name) {
    HTREEITEM child = FindChild(node, name);
    if (child || !behind_)
        return child;
    refreshChildren(node);
    return FindChild(node, name);
}

/// Opens the nodes along the path as far as the tree holds them and returns the last.
HTREEITEM FolderTree::DescendTo(std::wstring_view path) {
    HTREEITEM node = root_;
    Expand(node, TVE_EXPAND);
    for (PathComponents components(path); components.HasNext();) {
        HTREEITEM child = ChildOnTheWay(node, components.Next());
        if (!child)
            break;
        node = child;
        if (components.HasNext())
            Expand(node, TVE_EXPAND);
    }
    return node;
}

/// Reads the node's subfolders afresh and leaves it open if it was and still has any.
void FolderTree::RescanNode(HTREEITEM node) {
    const bool wasOpen = IsOpen(node);
    refreshChildren(node);
    const bool open = wasOpen && Related(TVGN_CHILD, node);
    Expand(node, open ? TVE_EXPAND : TVE_COLLAPSE);
}

/// What selectPath has put off while nobody used the tree.
void FolderTree::CatchUp() {
    if (!std::exchange(behind_, false))
        return;
    const bool ready = std::exchange(ready_, false);
    for (HTREEITEM node = root_; node; node = Following(node)) {
        if (Related(TVGN_CHILD, node))
            RescanNode(node);
    }
    ready_ = ready;
}

void FolderTree::selectPath(std::wstring_view path, bool rescan, bool select) {
    ready_ = false;
    if (path == searchFolder) {
        Expand(root_, TVE_EXPAND);
        Select(search_);
    } else {
        HTREEITEM node = DescendTo(path);
        if (rescan && IsInUse()) {
            RescanNode(node);
        } else if (rescan) {
            ForgetButton(node);
            behind_ = true;
        }
        if (select)
            Select(node);
    }
    ready_ = true;
}

void FolderTree::OnShown() {
    CatchUp();
    if (HTREEITEM node = Caret())
        SendMessageW(window_, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(node));
}

void FolderTree::onSelChanged(UINT action) {
    if (!ready_)
        return;
    KillTimer(appState.mainWindow, treeSyncTimer);
    if (action == TVC_BYKEYBOARD) {
        SetTimer(appState.mainWindow, treeSyncTimer, syncDelay, nullptr);
        pendingSync_ = true;
    } else if (action == TVC_BYMOUSE) {
        syncListToSelection();
    }
}

/// A selection below moves up to the collapsed node. Controls differ in whether that has happened by now.
void FolderTree::onItemExpanded(HTREEITEM node) {
    if (!ready_)
        return;
    HTREEITEM selected = Caret();
    while (selected && selected != node)
        selected = Related(TVGN_PARENT, selected);
    if (selected)
        Select(node);
    syncListToSelection();
}

void FolderTree::onSyncTimer() {
    if (!IsGestureRunning()) // it comes again
        FlushPendingSync();
}

void FolderTree::FlushPendingSync() {
    KillTimer(appState.mainWindow, treeSyncTimer);
    if (pendingSync_)
        syncListToSelection();
}

void FolderTree::syncListToSelection() {
    pendingSync_ = false;
    HTREEITEM node = Caret();
    Path path;
    if (node && pathOfNode(node, path))
        appState.fileList.GoToFolder(path.View(), treeSelectOnly);
}

void FolderTree::SelectParent() {
    // The control has moved to the parent by itself when the command comes from the Back key held down.
    HTREEITEM parent = Related(TVGN_PARENT, Caret());
    if (parent && GetKeyState(VK_BACK) >= 0)
        Select(parent);
    syncListToSelection();
}
