// The nodes of the tree and the folders they stand for.

#include "app/app_state.h"
#include "common/device_info.h"
#include "foldertree/folder_tree.h"
#include "foldertree/subfolders.h"
#include "foldertree/tree_rules.h"

bool FolderTree::pathOfNode(HTREEITEM node, Path& path) const {
    return node == search_ ? path.Assign(searchFolder) : PathBelowRoot(node, path);
}

/// The other way round: null when the tree does not hold it.
HTREEITEM FolderTree::NodeOfPath(const Path& path) const {
    return path.IsSearchFolder() ? search_ : NodeAtPath(path.View());
}

void FolderTree::InsertSubfolder(HTREEITEM parent, const wchar_t* name, DWORD attributes) {
    const Settings& settings = appState.settings;
    const NodeImages images =
        ImagesOf(name, attributes, {settings.networkLeaf, settings.myDocumentsLeaf, settings.startMenuLeaf});
    InsertNode(parent, name, images.normal, images.selected, I_CHILDRENCALLBACK);
}

/// The control asks for a node's expand button when it draws it: most of many are never drawn, so nobody
/// looks into them.
void FolderTree::OnButtonAsked(TVITEMW& node) const {
    if (!(node.mask & TVIF_CHILDREN))
        return;
    Path folder;
    node.cChildren = pathOfNode(node.hItem, folder) && HasSubfolder(folder);
    node.mask |= TVIF_DI_SETITEM;
}

/// Has the control ask once more: the folder may have got its first subfolder or lost the last.
void FolderTree::ForgetButton(HTREEITEM node) {
    TVITEMW item{};
    item.mask = TVIF_CHILDREN;
    item.hItem = node;
    item.cChildren = I_CHILDRENCALLBACK;
    SendMessageW(window_, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

/// Gives the node its expand button or takes it away.
void FolderTree::SetButton(HTREEITEM node, bool children) {
    TVITEMW item{};
    item.mask = TVIF_CHILDREN;
    item.hItem = node;
    SendMessageW(window_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    if ((item.cChildren != 0) == children)
        return;
    item.cChildren = children;
    SendMessageW(window_, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

/// Brings the node's children in line with its folder. Those that stay keep what is open below them.
void FolderTree::refreshChildren(HTREEITEM node) {
    Path folder;
    if (node == search_ || !pathOfNode(node, folder))
        return;
    const std::vector<Subfolder> subfolders = ReadSubfolders(folder);
    std::vector<bool> shown(subfolders.size());
    NodeText text;
    for (HTREEITEM child = Related(TVGN_CHILD, node); child;) {
        HTREEITEM next = Related(TVGN_NEXT, child);
        const std::size_t position = FindSubfolder(subfolders, ReadText(child, text));
        if (position == subfolders.size()) {
            SendMessageW(window_, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(child));
        } else {
            shown[position] = true;
            if (!IsOpen(child)) // one that is open shows what it has
                ForgetButton(child);
        }
        child = next;
    }
    // Behind the last one and sorted once: putting each at its place would look at all before it.
    for (std::size_t i = 0; i < subfolders.size(); ++i) {
        if (!shown[i])
            InsertSubfolder(node, subfolders[i].name.get(), subfolders[i].attributes);
    }
    SortChildren(node);
    SetButton(node, !subfolders.empty());
}

void FolderTree::rebuild() {
    SendMessageW(window_, TVM_ENDEDITLABELNOW, FALSE, 0); // while its node is still there
    HWND focus = GetFocus();
    const bool visible = GetWindowLongW(window_, GWL_STYLE) & WS_VISIBLE;
    KillTimer(appState.mainWindow, treeSyncTimer);
    pendingSync_ = false;
    ShowWindow(window_, SW_HIDE);

    ready_ = false;
    SendMessageW(window_, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
    root_ = InsertNode(nullptr, DeviceDisplayName(), treeImageDevice, treeImageDevice, true);
    Expand(root_, TVE_EXPAND);
    search_ = InsertNode(nullptr, searchFolder, treeImageSearch, treeImageSearch, false);
    ready_ = true;
    behind_ = false;

    if (visible)
        ShowWindow(window_, SW_SHOW);
    if (focus)
        SetFocus(focus);
}

void FolderTree::RefreshRoot() {
    refreshChildren(root_);
}
