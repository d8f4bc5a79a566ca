#include "foldertree/tree_view.h"

#include "foldertree/tree_rules.h"

namespace {

WNDPROC controlProcedure = nullptr; // the control's own, the same for every tree

LRESULT CALLBACK StarKeyProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool isStar = message == WM_KEYDOWN && wParam == VK_MULTIPLY;
    return CallWindowProcW(controlProcedure, window, message, isStar ? VK_ADD : wParam, lParam);
}

} // namespace

void TreeView::LimitStarKey() {
    controlProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(StarKeyProcedure)));
}

HTREEITEM TreeView::Related(UINT relation, HTREEITEM node) const {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(window_, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(node)));
}

std::wstring_view TreeView::ReadText(HTREEITEM node, NodeText& text) const {
    text[0] = L'\0';
    TVITEMW item{};
    item.mask = TVIF_TEXT;
    item.hItem = node;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageW(window_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return text.data();
}

bool TreeView::PathBelowRoot(HTREEITEM node, Path& path) const {
    UpwardPath upward;
    NodeText text;
    for (; node && node != root_; node = Related(TVGN_PARENT, node)) {
        if (!upward.Prepend(ReadText(node, text)))
            return false;
    }
    return path.Assign(upward.View());
}

void TreeView::Select(HTREEITEM node) {
    SendMessageW(window_, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(node));
}

void TreeView::SetName(HTREEITEM node, const wchar_t* name) {
    TVITEMW item{};
    item.mask = TVIF_TEXT;
    item.hItem = node;
    item.pszText = const_cast<wchar_t*>(name);
    SendMessageW(window_, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

HTREEITEM TreeView::InsertNode(HTREEITEM parent, const wchar_t* text, int image, int selectedImage,
                               int children) {
    TVINSERTSTRUCTW insertion{};
    insertion.hParent = parent;
    insertion.hInsertAfter = TVI_LAST;
    insertion.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_CHILDREN;
    insertion.item.pszText = const_cast<wchar_t*>(text);
    insertion.item.iImage = image;
    insertion.item.iSelectedImage = selectedImage;
    insertion.item.cChildren = children;
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(window_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insertion)));
}

HTREEITEM TreeView::FindChild(HTREEITEM node, std::wstring_view text) const {
    NodeText childText;
    HTREEITEM child = Related(TVGN_CHILD, node);
    while (child && ReadText(child, childText) != text)
        child = Related(TVGN_NEXT, child);
    return child;
}

HTREEITEM TreeView::NodeAtPath(std::wstring_view folder) const {
    HTREEITEM node = root_;
    for (PathComponents components(folder); node && components.HasNext();)
        node = FindChild(node, components.Next());
    return node;
}

bool TreeView::IsOpen(HTREEITEM node) const {
    return SendMessageW(window_, TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(node), TVIS_EXPANDED) &
           TVIS_EXPANDED;
}

HTREEITEM TreeView::Following(HTREEITEM node) const {
    if (HTREEITEM child = Related(TVGN_CHILD, node))
        return child;
    HTREEITEM next = nullptr;
    for (; node && !next; node = Related(TVGN_PARENT, node))
        next = Related(TVGN_NEXT, node);
    return next;
}

void TreeView::Expand(HTREEITEM node, UINT action) {
    SendMessageW(window_, TVM_EXPAND, action, reinterpret_cast<LPARAM>(node));
}

void TreeView::SortChildren(HTREEITEM node) {
    SendMessageW(window_, TVM_SORTCHILDREN, FALSE, reinterpret_cast<LPARAM>(node));
}
