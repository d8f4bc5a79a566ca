#pragma once
// The folder chooser's tree. A node holds only its folder's name; folders are read when their node opens and
// forgotten when it closes.

#include <array>
#include <string_view>

#include "app/path.h"
#include "app/settings.h"
#include "platform/handles.h"

class ChooserTree {
  public:
    /// Makes the tree in the dialog, with the root open.
    void Create(HWND dialog);
    HWND Window() const { return window_; }

    /// Opens the folders on the way and selects the last one that there is.
    void SelectPath(std::wstring_view path);
    HTREEITEM Selected() const { return Related(TVGN_CARET, nullptr); }
    bool IsRoot(HTREEITEM node) const { return node == root_; }
    HTREEITEM Parent(HTREEITEM node) const { return Related(TVGN_PARENT, node); }
    /// The folder of a node; the root's is the empty path. False when it is too long to be one.
    bool PathOf(HTREEITEM node, Path& path) const;
    void ReadName(HTREEITEM node, PathText& name) const;
    void SetName(HTREEITEM node, const wchar_t* name);

    /// Shows a folder just made in the node's, and selects it.
    void AddMade(HTREEITEM parent, const wchar_t* name);

    /// TVN_ITEMEXPANDING and TVN_ITEMEXPANDED.
    void OnExpanding(const NMTREEVIEWW& notification);
    void OnExpanded(const NMTREEVIEWW& notification);

  private:
    void BuildImages();
    HTREEITEM Related(UINT relation, HTREEITEM node) const;
    HTREEITEM Insert(HTREEITEM parent, const wchar_t* name, int image, int openImage, bool children);
    HTREEITEM FindChild(HTREEITEM node, std::wstring_view name) const;
    bool IsOpen(HTREEITEM node) const;
    void Open(HTREEITEM node);
    void Fill(HTREEITEM node);
    void Empty(HTREEITEM node);
    void SortChildren(HTREEITEM node);
    void Select(HTREEITEM node);

    HWND window_ = nullptr;
    HTREEITEM root_ = nullptr;
    ImageListHandle images_;
};
