#pragma once
// The folder chooser's tree. Folders are read when their node opens and forgotten when it closes.

#include <string_view>

#include "common/path.h"
#include "foldertree/tree_view.h"
#include "platform/handles.h"

class ChooserTree : public TreeView {
  public:
    /// Makes the tree in the dialog, with the root open.
    void Create(HWND dialog);

    /// Opens the folders on the way and selects the last one that there is.
    void selectPath(std::wstring_view path);
    bool IsRoot(HTREEITEM node) const { return node == root_; }

    /// Shows a folder just made in the node's, and selects it.
    void AddMade(HTREEITEM parent, const wchar_t* name);

    /// TVN_ITEMEXPANDING and TVN_ITEMEXPANDED.
    void onItemExpanding(const NMTREEVIEWW& notification);
    void onItemExpanded(const NMTREEVIEWW& notification);

  private:
    void BuildImages();
    void Fill(HTREEITEM node);
    void Empty(HTREEITEM node);

    ImageListHandle imageList_;
};
