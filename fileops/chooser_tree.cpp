#include "fileops/chooser_tree.h"

#include <algorithm>

#include "app/app_state.h"
#include "common/device_info.h"
#include "foldertree/subfolders.h"
#include "foldertree/tree_rules.h"
#include "resources/resource.h"

namespace {

constexpr int imageSize = 16;

enum ChooserImage { chooserDevice, chooserFolder, chooserFolderOpen, chooserCard, chooserDocuments };

/// By ChooserImage.
constexpr int imageResources[] = {IDI_DEVICE_SMALL, IDI_FOLDER_SMALL, IDI_FOLDER_OPEN_SMALL, IDI_CARD_SMALL,
                                  IDI_DOCUMENTS_SMALL};

constexpr int smallestScreen = 176;

SIZE TreeSize(HWND dialog) {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int bar = GetSystemMetrics(SM_CYCAPTION) + 3;
    const int bars = width == smallestScreen ? bar : 2 * bar;
    RECT client{};
    GetClientRect(dialog, &client);
    return {width, std::min<LONG>(GetSystemMetrics(SM_CYSCREEN) - bars, client.bottom)};
}

} // namespace

void ChooserTree::Create(HWND dialog) {
    constexpr DWORD style = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES |
                            TVS_EDITLABELS | TVS_SHOWSELALWAYS;
    const SIZE size = TreeSize(dialog);
    window_ = ce::CreateWindowExW(0, WC_TREEVIEWW, nullptr, style, 0, 0, size.cx, size.cy, dialog,
                                  reinterpret_cast<HMENU>(IDC_CHOOSER_TREE), appState.instance, nullptr);
    SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    LimitStarKey();
    BuildImages();
    root_ = InsertNode(nullptr, DeviceDisplayName(), chooserDevice, chooserDevice, true);
    Expand(root_, TVE_EXPAND);
}

void ChooserTree::BuildImages() {
    imageList_.Reset(ImageList_Create(imageSize, imageSize, ILC_MASK, std::size(imageResources), 0));
    for (const int resource : imageResources) {
        const IconHandle icon(
            static_cast<HICON>(LoadImageW(appState.instance, MAKEINTRESOURCEW(resource), IMAGE_ICON,
                                          imageSize, imageSize, LR_DEFAULTCOLOR)));
        ImageList_ReplaceIcon(imageList_.Get(), -1, icon.Get());
    }
    SendMessageW(window_, TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(imageList_.Get()));
}

void ChooserTree::selectPath(std::wstring_view path) {
    HTREEITEM node = root_;
    for (PathComponents components(path); components.HasNext();) {
        HTREEITEM child = FindChild(node, components.Next());
        if (!child)
            break;
        Expand(child, TVE_EXPAND);
        node = child;
    }
    Select(node);
}

void ChooserTree::onItemExpanding(const NMTREEVIEWW& notification) {
    if (notification.action == TVE_EXPAND)
        Fill(notification.itemNew.hItem);
}

void ChooserTree::onItemExpanded(const NMTREEVIEWW& notification) {
    if (notification.action == TVE_COLLAPSE)
        Empty(notification.itemNew.hItem);
}

/// Reads the node's folder. Inserted at the end and sorted once: finding each one's place would look at all
/// before it.
void ChooserTree::Fill(HTREEITEM node) {
    Path folder;
    if (!PathBelowRoot(node, folder))
        return;
    Empty(node);
    bool any = false;
    for (const Subfolder& subfolder : ReadSubfolders(folder)) {
        if (!(subfolder.attributes & FILE_ATTRIBUTE_DIRECTORY))
            continue;
        int image = chooserFolder;
        int openImage = chooserFolderOpen;
        if (subfolder.attributes & FILE_ATTRIBUTE_STORAGE_CARD)
            image = openImage = chooserCard;
        else if (EqualNoCase(subfolder.Name(), L"My Documents"))
            image = openImage = chooserDocuments;
        Path path;
        const bool children = path.AssignChild(folder.View(), subfolder.Name()) && HasSubfolder(path);
        InsertNode(node, subfolder.name.get(), image, openImage, children);
        any = true;
    }
    TVITEMW item{};
    item.mask = TVIF_CHILDREN;
    item.hItem = node;
    item.cChildren = any;
    SendMessageW(window_, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    SortChildren(node);
}

/// Forgets what the node holds, so that its next opening reads the folder again.
void ChooserTree::Empty(HTREEITEM node) {
    while (HTREEITEM child = Related(TVGN_CHILD, node))
        SendMessageW(window_, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(child));
    TVITEMW item{};
    item.mask = TVIF_STATE | TVIF_CHILDREN;
    item.hItem = node;
    item.stateMask = TVIS_EXPANDEDONCE;
    item.cChildren = 1; // deleting the last child has taken its button
    SendMessageW(window_, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void ChooserTree::AddMade(HTREEITEM parent, const wchar_t* name) {
    if (IsOpen(parent)) {
        InsertNode(parent, name, chooserFolder, chooserFolder, false);
        SortChildren(parent);
    } else {
        Empty(parent);
        Expand(parent, TVE_EXPAND);
    }
    if (HTREEITEM made = FindChild(parent, name))
        Select(made);
}
