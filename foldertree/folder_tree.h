#pragma once
// The folder tree: the pane of the device's folders, kept in step with the list. One object; its work is
// spread over the files of this folder by what it does.

#include <optional>
#include <string_view>

#include "common/path.h"
#include "filelist/drag_drop.h"
#include "fileops/transfer.h"
#include "foldertree/tree_view.h"
#include "platform/handles.h"

/// The timer of the main window after which a selection by keys is shown by the list.
constexpr UINT_PTR treeSyncTimer = 2;

class FolderTree : public TreeView {
  public:
    // --- folder_tree.cpp: the window and its messages ---

    /// Makes the tree as a child of `parent`, unplaced, filled down to the root's folders.
    void create(HWND parent);
    void Destroy();
    /// The tree's answer to a notification of its own. True when it is handled, with the answer in `result`.
    bool OnNotify(NMHDR* notification, LRESULT* result);

    // --- tree_nodes.cpp: the nodes and the folders they stand for ---

    /// Reads the whole tree anew; only the root level is open afterwards.
    void rebuild();
    /// Reads the root's folders afresh, keeping what is open.
    void RefreshRoot();

    // --- tree_selection.cpp: in step with the list ---

    /// Selects the node of a folder the list now shows, without navigating the list back. `rescan` reads its
    /// subfolders afresh, or notes that this is to be done once somebody uses the tree. A folder the tree
    /// does not hold leaves its nearest ancestor selected.
    void selectPath(std::wstring_view path, bool rescan, bool select);
    /// The tree has come into view: brings it up to date and scrolls to the selected node, for which it had
    /// no place while it was hidden.
    void OnShown();
    /// Whether the selected node is the root, which stands for the device.
    bool IsDeviceSelected() const { return root_ && Caret() == root_; }
    /// treeSyncTimer: a pending keyboard selection navigates the list.
    void onSyncTimer();
    /// Has a pending keyboard selection navigate the list now: what comes next is about what is selected.
    void FlushPendingSync();
    /// "Up Folder" with the focus here: selects the parent of the selected node and shows it in the list.
    void SelectParent();

    // --- tree_rename.cpp ---

    /// "Rename": edits the selected node's name in place.
    void BeginRename();
    /// Closes an open editor; the name stays as it was.
    void CancelEdit();
    /// Before and after every command of the main window: commits a name left in edit under a menu.
    void EndEditStep();

    // --- tree_drop.cpp: drops onto the tree ---

    /// Marks the folder at a point of the screen that would take what is dragged, if there is one.
    void MarkDropTarget(POINT screenPoint);
    void ClearDropMark();
    /// The stylus was lifted: true when it was over a folder here, which has taken the drop or declined it.
    bool TakeDrop(DragDrop& drag);
    /// The folder of a node that can be taken elsewhere. False for the device itself and the search results.
    bool FolderToCarry(HTREEITEM node, Path& folder) const;
    /// Selects the node of such a folder and puts the folder on the program's clipboard. The list is left
    /// showing that alone. False when the tree holds it no more.
    bool PutOnClipboard(const Path& folder, Transfer transfer);

    // --- tree_commands.cpp ---

    /// Runs a command of the list for the selected folder, which the list has meanwhile as its only entry,
    /// and shows in the list what is in that folder then, or in the nearest one above it that is left. When
    /// the command has taken the list elsewhere, it stays there.
    void OperateOnFolder(void (*operation)(int command), int command);

    // --- tree_menu.cpp ---

    /// WM_EXITMENULOOP of the main window.
    void OnMenuClosed();
    /// The stylus is down on the tree and it is still open what that will be.
    bool IsPressed() const;
    /// The press has had its effect, or its node may go: it becomes neither a tap nor a drag.
    bool IsPressUsedUp() const { return pressUsedUp_; }
    void AbandonPress();

  private:
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void BuildImages();
    void OnTimer(WPARAM timer);
    bool OnNodeNotify(NMTREEVIEWW* notification);
    bool OnPointerNotify(UINT code, LRESULT* result);
    bool OnListKey(WPARAM key);

    bool pathOfNode(HTREEITEM node, Path& path) const;
    HTREEITEM NodeOfPath(const Path& path) const;
    void InsertSubfolder(HTREEITEM parent, const wchar_t* name, DWORD attributes);
    void refreshChildren(HTREEITEM node);
    void OnButtonAsked(TVITEMW& node) const;
    void ForgetButton(HTREEITEM node);
    void SetButton(HTREEITEM node, bool children);

    bool IsInUse() const;
    HTREEITEM DescendTo(std::wstring_view path);
    HTREEITEM ChildOnTheWay(HTREEITEM node, std::wstring_view name);
    void RescanNode(HTREEITEM node);
    void CatchUp();
    void onSelChanged(UINT action);
    void onItemExpanded(HTREEITEM node);
    void syncListToSelection();

    void onBeginLabelEdit(HTREEITEM node);
    bool onEndLabelEdit(const wchar_t* text);
    bool RenameEdited(std::wstring_view name, bool asTyped);
    void RefuseName(const wchar_t* message);
    void EditAgain();

    HTREEITEM DropTargetAt(POINT screenPoint) const;
    void SetDropMark(HTREEITEM node);

    HTREEITEM NodeAt(POINT point) const;
    void OpenMenuAtPointer();
    void OpenMenuAtCaret();
    void OpenMenu(HTREEITEM node, POINT position);
    void OnStylusDown(LPARAM point);
    void OnHoldElapsed();
    void CancelHold();
    void onKeyDown(WORD key);

    WNDPROC controlProcedure_ = nullptr;
    ImageListHandle imageList_;
    HTREEITEM search_ = nullptr;

    bool ready_ = false;       // a change of the selection is the user's, not the program's
    bool behind_ = false;      // nodes were to be read again while nobody used the tree
    bool pendingSync_ = false; // a selection by keys waits for the timer
    bool holdPending_ = false; // the stylus is down and the timer of tap and hold runs
    POINT holdPoint_{};        // where it went down
    bool pressUsedUp_ = false; // it was held until the menu opened, or its node may have gone

    Path selectionPath_;             // of the node whose name is edited
    HTREEITEM editedNode_ = nullptr; // that node; null once it has gone
    std::optional<Path> editAgain_;  // of the one whose name was refused: the editor opens once more
    bool endEdit_ = false;           // a menu closed over what may be an open editor
    bool endEditHalfDone_ = false;   // every second step ends the matter
};
