#pragma once
// The folder tree as one sees it.

#include <string>
#include <vector>

#include <windows.h>

#include <commctrl.h>

struct TreeNode {
    HTREEITEM item;
    int depth; // the root has 0
    std::wstring text;
    bool expanded;
    bool hasButton; // may have folders inside
    int image;
};

class TreeView {
  public:
    explicit TreeView(HWND window) : window_(window) {}
    HWND Window() const { return window_; }

    /// Every node there is, top down, also those inside collapsed ones.
    std::vector<TreeNode> Nodes() const;
    /// The texts of a node's children. `path` names the node by its texts from below the root:
    /// "\Windows\Fonts"; the root is the empty path. Without a backslash it names a node beside the root:
    /// "File Search".
    std::vector<std::wstring> ChildrenOf(const std::wstring& path) const;
    /// The node at `path`; the test ends by exception when there is none.
    TreeNode At(const std::wstring& path) const;
    bool Has(const std::wstring& path) const { return Find(path) != nullptr; }

    /// The selected node's path, as above.
    std::wstring SelectedPath() const;
    std::wstring RootText() const;

    void Select(const std::wstring& path);
    void Expand(const std::wstring& path);
    void Collapse(const std::wstring& path);

    /// Where to click a node's text, or its expand button, on the screen.
    POINT PointOf(const std::wstring& path) const;
    POINT ButtonPointOf(const std::wstring& path) const;

    /// The edit field of a name being edited, or null.
    HWND NameEditor() const;

  private:
    HTREEITEM Next(UINT relation, HTREEITEM item) const;
    HTREEITEM Sibling(HTREEITEM item, const std::wstring& text) const;
    HTREEITEM Find(const std::wstring& path) const;
    HTREEITEM Require(const std::wstring& path) const;
    TreeNode Describe(HTREEITEM item, int depth) const;
    RECT TextPlace(HTREEITEM item) const;
    void Collect(HTREEITEM item, int depth, std::vector<TreeNode>& nodes) const;

    HWND window_;
};
