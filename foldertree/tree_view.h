#pragma once
// A tree of folders in a tree view: what the tree pane and the folder chooser ask of the control. A node
// holds nothing but its folder's name; its path is read off the chain of its ancestors.

#include <array>
#include <string_view>

#include "common/path.h"
#include "platform/ce_api.h"

class TreeView {
  public:
    using NodeText = std::array<wchar_t, pathCapacity>;

    HWND Window() const { return window_; }
    /// The selected node, or null.
    HTREEITEM Caret() const { return Related(TVGN_CARET, nullptr); }
    /// The node in a relation (TVGN_) to another, or null.
    HTREEITEM Related(UINT relation, HTREEITEM node) const;
    /// The node's text, which lies in `text`.
    std::wstring_view ReadText(HTREEITEM node, NodeText& text) const;
    /// The folder of a node; the root's is the empty path. False when it is too long to be one.
    bool PathBelowRoot(HTREEITEM node, Path& path) const;
    void Select(HTREEITEM node);
    void SetName(HTREEITEM node, const wchar_t* name);
    /// The node of a folder, or null when the tree does not hold it. Opens nothing.
    HTREEITEM NodeAtPath(std::wstring_view folder) const;

  protected:
    /// Has "*" open the selected folder alone. The control would open all below it, which on a device with
    /// links that lead back, or a card of a million folders, has no end.
    void LimitStarKey();
    /// Puts a node behind its siblings. `children` is 1 for an expand button, 0 for none, or
    /// I_CHILDRENCALLBACK: the control asks when it draws the node.
    HTREEITEM InsertNode(HTREEITEM parent, const wchar_t* text, int image, int selectedImage, int children);
    /// The child with exactly this text, or null.
    HTREEITEM FindChild(HTREEITEM node, std::wstring_view text) const;
    bool IsOpen(HTREEITEM node) const;
    /// The node behind this one, top down, also inside of closed ones; null behind the last.
    HTREEITEM Following(HTREEITEM node) const;
    /// Opens or closes the node by a TVE_ action.
    void Expand(HTREEITEM node, UINT action);
    void SortChildren(HTREEITEM node);

    HWND window_ = nullptr;
    HTREEITEM root_ = nullptr; // the device
};
