#pragma once
// A drag over the panes, from a press that turned into one to the drop. The main window has the stylus
// meanwhile and passes its moves on.

#include "common/path.h"
#include "filelist/drop_rules.h"
#include "platform/handles.h"

class DragDrop {
  public:
    /// LVN_BEGINDRAG: drags the selection, or, with drag-and-drop off, a range of entries to select.
    void BeginFromList(const NMLISTVIEW& notification);
    /// TVN_BEGINDRAG: drags a folder of the tree.
    void BeginFromTree(const NMTREEVIEWW& notification);

    bool IsActive() const { return mode_ != Mode::None; }
    /// The stylus moved to a point of the main window's client area.
    void Move(POINT point);
    /// The stylus was lifted: what is under it takes the drop.
    void Drop();
    /// Escape, or the stylus was taken away.
    void Cancel();

    /// Asks, where a drop asks, what it shall do: nothing when the list has other entries by then.
    static DropAction ChooseAction();
    /// Brings what was dragged into a folder, by way of the program's clipboard. False when there is nothing
    /// to bring.
    bool PasteInto(const Path& destination, DropAction action);

  private:
    enum class Mode { None, Files, Range };

    void Begin(Mode mode, HWND source);
    void BeginImage(HIMAGELIST image, POINT screenPoint);
    Mode End();
    int EntryAt(POINT screenPoint, UINT* flags) const;
    void MarkEntry(int index);
    void SelectRangeTo(int index);
    void DropOnList();
    void DropOnEntry(int index);
    bool FillClipboard(DropAction action);

    Mode mode_ = Mode::None;
    HWND source_ = nullptr;
    Path folder_; // dragged from the tree
    ImageListHandle image_;
    int marked_ = -1;      // the entry under the stylus that would take the drop
    int rangeAnchor_ = -1; // where the selected range begins
};
