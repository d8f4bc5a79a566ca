#include "tests/support/tree_view.h"

#include <stdexcept>

#include "tests/support/live_window.h"
#include "tests/support/text.h"

HTREEITEM TreeView::Next(UINT relation, HTREEITEM item) const {
    return reinterpret_cast<HTREEITEM>(
        Ask(window_, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

TreeNode TreeView::Describe(HTREEITEM item, int depth) const {
    constexpr std::size_t textAt = sizeof(TVITEMW);
    constexpr int textCapacity = 300;
    RemoteMemory memory(window_, textAt + textCapacity * sizeof(wchar_t));
    TVITEMW request{};
    request.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_STATE | TVIF_CHILDREN;
    request.hItem = item;
    request.stateMask = TVIS_EXPANDED;
    request.pszText = reinterpret_cast<wchar_t*>(memory.Address() + textAt);
    request.cchTextMax = textCapacity;
    memory.Write(&request, sizeof(request));
    Ask(window_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(memory.Address()));
    memory.Read(&request, sizeof(request));
    return {item,
            depth,
            memory.ReadText(textAt),
            (request.state & TVIS_EXPANDED) != 0,
            request.cChildren != 0,
            request.iImage};
}

void TreeView::Collect(HTREEITEM item, int depth, std::vector<TreeNode>& nodes) const {
    for (; item; item = Next(TVGN_NEXT, item)) {
        nodes.push_back(Describe(item, depth));
        Collect(Next(TVGN_CHILD, item), depth + 1, nodes);
    }
}

std::vector<TreeNode> TreeView::Nodes() const {
    std::vector<TreeNode> nodes;
    Collect(Next(TVGN_ROOT, nullptr), 0, nodes);
    return nodes;
}

/// The first of `item` and those behind it with this text, or null.
HTREEITEM TreeView::Sibling(HTREEITEM item, const std::wstring& text) const {
    while (item && Describe(item, 0).text != text)
        item = Next(TVGN_NEXT, item);
    return item;
}

HTREEITEM TreeView::Find(const std::wstring& path) const {
    HTREEITEM item = Next(TVGN_ROOT, nullptr);
    if (!path.empty() && path[0] != L'\\')
        return Sibling(item, path);
    for (std::size_t begin = path.find(L'\\'); item && begin != std::wstring::npos;) {
        const std::size_t end = path.find(L'\\', begin + 1);
        const std::wstring name = path.substr(begin + 1, end == std::wstring::npos ? end : end - begin - 1);
        item = Sibling(Next(TVGN_CHILD, item), name);
        begin = end;
    }
    return item;
}

HTREEITEM TreeView::Require(const std::wstring& path) const {
    const HTREEITEM item = Find(path);
    if (!item)
        throw std::runtime_error("the tree has no node \"" + Narrow(path) + "\"");
    return item;
}

TreeNode TreeView::At(const std::wstring& path) const {
    const HTREEITEM item = Require(path);
    int depth = 0;
    for (const wchar_t character : path)
        depth += character == L'\\';
    return Describe(item, depth);
}

std::vector<std::wstring> TreeView::ChildrenOf(const std::wstring& path) const {
    std::vector<std::wstring> texts;
    for (HTREEITEM item = Next(TVGN_CHILD, Require(path)); item; item = Next(TVGN_NEXT, item))
        texts.push_back(Describe(item, 0).text);
    return texts;
}

std::wstring TreeView::SelectedPath() const {
    std::wstring path;
    HTREEITEM item = Next(TVGN_CARET, nullptr);
    for (HTREEITEM parent; item && (parent = Next(TVGN_PARENT, item)); item = parent)
        path = L"\\" + Describe(item, 0).text + path;
    return !item || item == Next(TVGN_ROOT, nullptr) ? path : Describe(item, 0).text;
}

std::wstring TreeView::RootText() const {
    const HTREEITEM root = Next(TVGN_ROOT, nullptr);
    return root ? Describe(root, 0).text : std::wstring();
}

void TreeView::Select(const std::wstring& path) {
    Ask(window_, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(Require(path)));
}

void TreeView::Expand(const std::wstring& path) {
    Ask(window_, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(Require(path)));
}

void TreeView::Collapse(const std::wstring& path) {
    Ask(window_, TVM_EXPAND, TVE_COLLAPSE, reinterpret_cast<LPARAM>(Require(path)));
}

RECT TreeView::TextPlace(HTREEITEM item) const {
    Ask(window_, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
    RemoteMemory memory(window_, sizeof(RECT));
    memory.Write(&item, sizeof(item)); // the message takes the node at the rectangle's beginning
    Ask(window_, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(memory.Address()));
    RECT place{};
    memory.Read(&place, sizeof(place));
    RECT client{};
    GetClientRect(window_, &client);
    IntersectRect(&place, &place, &client); // a text may be wider than the tree
    MapWindowPoints(window_, nullptr, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

POINT TreeView::PointOf(const std::wstring& path) const {
    return MiddleOf(TextPlace(Require(path)));
}

POINT TreeView::ButtonPointOf(const std::wstring& path) const {
    constexpr LONG imageWidth = 16;
    const RECT place = TextPlace(Require(path));
    const auto indent = static_cast<LONG>(Ask(window_, TVM_GETINDENT));
    return {place.left - imageWidth - indent / 2, (place.top + place.bottom) / 2};
}

HWND TreeView::NameEditor() const {
    return reinterpret_cast<HWND>(Ask(window_, TVM_GETEDITCONTROL));
}
