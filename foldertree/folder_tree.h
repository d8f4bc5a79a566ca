#pragma once
// The folder tree: the pane of the device's folders, kept in step with the list.

#include <string_view>

#include "platform/handles.h"

class FolderTree {
  public:
    /// Makes the tree as a child of `parent`, unplaced, filled down to the root's folders.
    void Create(HWND parent);
    void Destroy();
    /// Reads the whole tree anew; only the root level is open afterwards.
    void Rebuild();
    /// Selects the node of a folder the list now shows, without navigating the list back. `rescan` reads its
    /// subfolders afresh. A folder the tree does not hold leaves its nearest ancestor selected.
    void SelectPath(std::wstring_view path, bool rescan, bool select);
    /// The tree's answer to a notification of its own. True when it is handled, with the answer in `result`.
    bool OnNotify(NMHDR* notification, LRESULT* result);
    /// Timer 2 of the main window: a pending keyboard selection navigates the list.
    void OnSyncTimer();

    /// "Up Folder" with the focus here: selects the parent of the selected node and shows it in the list.
    void SelectParent();
    /// "Rename": edits the selected node's name in place.
    void BeginRename();
    /// Reads the root's folders afresh, keeping what is open.
    void RefreshRoot();

    HWND Window() const { return window_; }

  private:
    HWND window_ = nullptr;
    ImageListHandle images_;
};
