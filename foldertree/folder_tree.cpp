#include "foldertree/folder_tree.h"

#include "app/app_state.h"
#include "common/pointer.h"
#include "foldertree/tree_messages.h"
#include "foldertree/tree_rules.h"
#include "resources/resource.h"

namespace {

constexpr int treeControlId = 1;
constexpr int imageSize = 16;

/// By TreeImage.
constexpr int imageResources[] = {IDI_DEVICE_SMALL,  IDI_FOLDER_SMALL,    IDI_FOLDER_OPEN_SMALL,
                                  IDI_CARD_SMALL,    IDI_DOCUMENTS_SMALL, IDI_STARTMENU_SMALL,
                                  IDI_NETWORK_SMALL, IDI_SEARCH_SMALL};
static_assert(std::size(imageResources) == treeImageCount);

} // namespace

void FolderTree::create(HWND parent) {
    constexpr DWORD style = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES |
                            TVS_EDITLABELS | TVS_SHOWSELALWAYS;
    window_ = ce::CreateWindowExW(0, WC_TREEVIEWW, nullptr, style, 0, 0, 0, 0, parent,
                                  reinterpret_cast<HMENU>(treeControlId), appState.instance, nullptr);
    LimitStarKey();
    controlProcedure_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProcedure)));
    BuildImages();
    rebuild();
}

void FolderTree::Destroy() {
    ready_ = pendingSync_ = false;
    DestroyWindow(window_);
    window_ = nullptr;
    imageList_.Reset();
}

void FolderTree::BuildImages() {
    imageList_.Reset(ImageList_Create(imageSize, imageSize, ILC_MASK, 1, 2));
    for (const int resource : imageResources) {
        const IconHandle icon(
            static_cast<HICON>(LoadImageW(appState.instance, MAKEINTRESOURCEW(resource), IMAGE_ICON,
                                          imageSize, imageSize, LR_DEFAULTCOLOR)));
        ImageList_ReplaceIcon(imageList_.Get(), -1, icon.Get());
    }
    SendMessageW(window_, TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(imageList_.Get()));
}

LRESULT CALLBACK FolderTree::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    FolderTree& tree = appState.folderTree;
    switch (message) {
    case WM_KEYDOWN:
        if (tree.OnListKey(wParam))
            return 0;
        break;
    case WM_SETFOCUS:
        tree.CatchUp();
        break;
    case WM_LBUTTONDOWN:
        tree.OnStylusDown(lParam);
        break;
    case WM_LBUTTONUP:
        tree.CancelHold();
        break;
    case WM_TIMER:
        if (wParam == endEditTimer || wParam == holdTimer)
            return tree.OnTimer(wParam), 0;
        break;
    case UM_EDITAGAIN:
        return tree.EditAgain(), 0;
    default:
        break;
    }
    return CallWindowProcW(tree.controlProcedure_, window, message, wParam, lParam);
}

/// Home and End walk the list's history from here too.
bool FolderTree::OnListKey(WPARAM key) {
    return appState.fileList.OnHistoryKey(key);
}

void FolderTree::OnTimer(WPARAM timer) {
    if (timer == holdTimer)
        return OnHoldElapsed();
    EndEditStep();
    EndEditStep();
}

bool FolderTree::OnNotify(NMHDR* notification, LRESULT* result) {
    switch (notification->code) {
    case TVN_SELCHANGEDW:
    case TVN_ITEMEXPANDINGW:
    case TVN_ITEMEXPANDEDW:
    case TVN_DELETEITEMW:
    case TVN_BEGINDRAGW:
        return OnNodeNotify(reinterpret_cast<NMTREEVIEWW*>(notification));
    case TVN_BEGINLABELEDITW:
        onBeginLabelEdit(reinterpret_cast<NMTVDISPINFOW*>(notification)->item.hItem);
        return true;
    case TVN_ENDLABELEDITW:
        *result = onEndLabelEdit(reinterpret_cast<NMTVDISPINFOW*>(notification)->item.pszText);
        return true;
    case TVN_GETDISPINFOW:
        OnButtonAsked(reinterpret_cast<NMTVDISPINFOW*>(notification)->item);
        return true;
    case TVN_KEYDOWN:
        onKeyDown(reinterpret_cast<NMTVKEYDOWN*>(notification)->wVKey);
        return true;
    case NM_KILLFOCUS:
        FlushPendingSync();
        return true;
    default:
        return OnPointerNotify(notification->code, result);
    }
}

bool FolderTree::OnNodeNotify(NMTREEVIEWW* notification) {
    switch (notification->hdr.code) {
    case TVN_SELCHANGEDW:
        onSelChanged(notification->action);
        return true;
    case TVN_ITEMEXPANDINGW:
        if (notification->action == TVE_EXPAND)
            refreshChildren(notification->itemNew.hItem);
        return true;
    case TVN_ITEMEXPANDEDW:
        if (notification->action == TVE_COLLAPSE &&
            notification->itemNew.hItem != notification->itemOld.hItem)
            onItemExpanded(notification->itemNew.hItem);
        return true;
    case TVN_DELETEITEMW:
        if (notification->itemOld.hItem == editedNode_)
            editedNode_ = nullptr;
        return true;
    default: // TVN_BEGINDRAGW: the drag itself is the main window's
        CancelHold();
        return false;
    }
}
