#include "filelist/drag_drop.h"

#include <algorithm>

#include "app/app_state.h"
#include "app/pointer.h"
#include "resources/resource.h"

namespace {

POINT ToScreen(HWND window, POINT point) {
    ClientToScreen(window, &point);
    return point;
}

void SetState(int index, UINT state, UINT mask) {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    SendMessageW(appState.fileList.Window(), LVM_SETITEMSTATE, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&item));
}

} // namespace

// --- Beginning and end ---

void DragDrop::BeginFromList(const NMLISTVIEW& notification) {
    HWND list = appState.fileList.Window();
    TapAndHold& press = appState.fileList.tapAndHold;
    if (press.IsUsedUp())
        return;
    if (!appState.settings.dragDrop && press.SelectedAtDown() == 0) {
        Begin(Mode::Range, list);
        rangeAnchor_ = notification.iItem;
        return;
    }
    // Pressed with Ctrl held it may just have left the selection.
    SetState(notification.iItem, LVIS_SELECTED, LVIS_SELECTED);
    if (appState.fileList.SelectedCount() < 1)
        return press.Abandon(list); // the up-level entry alone is nothing to carry
    Begin(Mode::Files, list);
    POINT corner{};
    BeginImage(reinterpret_cast<HIMAGELIST>(SendMessageW(list, LVM_CREATEDRAGIMAGE,
                                                         static_cast<WPARAM>(notification.iItem),
                                                         reinterpret_cast<LPARAM>(&corner))),
               ToScreen(list, notification.ptAction));
}

void DragDrop::BeginFromTree(const NMTREEVIEWW& notification) {
    HWND tree = appState.folderTree.Window();
    if (!appState.folderTree.CanCarry(notification.itemNew.hItem))
        return;
    Begin(Mode::Files, tree);
    node_ = notification.itemNew.hItem;
    BeginImage(reinterpret_cast<HIMAGELIST>(
                   SendMessageW(tree, TVM_CREATEDRAGIMAGE, 0, reinterpret_cast<LPARAM>(node_))),
               ToScreen(tree, notification.ptDrag));
}

void DragDrop::Begin(Mode mode, HWND source) {
    Cancel();
    appState.fileList.tapAndHold.Cancel(appState.fileList.Window());
    SetCapture(appState.mainWindow);
    mode_ = mode;
    source_ = source;
    appState.dragging = true;
}

void DragDrop::BeginImage(HIMAGELIST image, POINT screenPoint) {
    image_.Reset(image);
    if (image_ && ImageList_BeginDrag(image_.Get(), 0, 0, 0))
        ImageList_DragEnter(nullptr, screenPoint.x, screenPoint.y);
}

/// Ends the drag, its image with it, and tells what it was.
DragDrop::Mode DragDrop::End() {
    const Mode ended = mode_;
    mode_ = Mode::None; // first: giving the stylus back reports that it was lost
    appState.dragging = false;
    if (ended == Mode::None)
        return ended;
    ReleaseCapture();
    if (image_) {
        ImageList_DragLeave(nullptr);
        ImageList_EndDrag();
        image_.Reset();
    }
    return ended;
}

void DragDrop::Cancel() {
    if (End() == Mode::Files) {
        MarkEntry(-1);
        appState.folderTree.ClearDropMark();
    }
}

// --- On the way ---

void DragDrop::Move(POINT point) {
    const POINT screenPoint = ToScreen(appState.mainWindow, point);
    const int index = EntryAt(screenPoint, nullptr);
    if (mode_ == Mode::Range)
        return SelectRangeTo(index);
    if (image_)
        ImageList_DragLeave(nullptr);
    const FileItem* item = appState.fileList.ItemAt(index);
    MarkEntry(item && item->kind == ItemKind::Folder ? index : -1);
    UpdateWindow(appState.fileList.Window());
    appState.folderTree.MarkDropTarget(screenPoint);
    if (image_) {
        ImageList_DragMove(screenPoint.x, screenPoint.y);
        ImageList_DragEnter(nullptr, screenPoint.x, screenPoint.y);
    }
}

/// Index of the entry whose icon or name is at a point, or -1; `flags` tells where else the point is.
int DragDrop::EntryAt(POINT screenPoint, UINT* flags) const {
    HWND list = appState.fileList.Window();
    LVHITTESTINFO test{};
    test.pt = screenPoint;
    ScreenToClient(list, &test.pt);
    SendMessageW(list, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&test));
    if (flags)
        *flags = test.flags;
    return test.flags & LVHT_ONITEM ? test.iItem : -1;
}

void DragDrop::MarkEntry(int index) {
    if (marked_ == index)
        return;
    if (marked_ >= 0)
        SetState(marked_, 0, LVIS_DROPHILITED);
    if (index >= 0)
        SetState(index, LVIS_DROPHILITED, LVIS_DROPHILITED);
    marked_ = index;
}

void DragDrop::SelectRangeTo(int index) {
    if (index < 0 || rangeAnchor_ < 0)
        return;
    const auto [first, last] = std::minmax(rangeAnchor_, index);
    SetState(-1, 0, LVIS_SELECTED);
    for (int entry = first; entry <= last; ++entry)
        SetState(entry, LVIS_SELECTED, LVIS_SELECTED);
}

// --- The drop ---

void DragDrop::Drop() {
    if (End() != Mode::Files)
        return;
    if (appState.folderTree.TakeDrop(*this)) {
        MarkEntry(-1);
        return;
    }
    appState.folderTree.ClearDropMark();
    DropOnList();
}

void DragDrop::DropOnList() {
    UINT flags = 0;
    const int index = EntryAt(MessagePoint(), &flags);
    if (index >= 0 || (flags & LVHT_NOWHERE))
        DropOnEntry(index);
    MarkEntry(-1);
}

DropAction DragDrop::ChooseAction() {
    DropKeys keys = CurrentDropKeys();
    if (!DropAsks(keys))
        return DropActionOf(0, keys);
    const POINT point = MessagePoint();
    HMENU menu = appState.fileList.ContextPopupMenu(POPUP_DROP);
    appState.menuOpen = true; // this menu is the list's own: the main window hears nothing of it
    const int choice =
        TrackPopupMenuEx(menu, TPM_RETURNCMD, point.x, point.y, appState.fileList.Window(), nullptr);
    appState.menuOpen = false;
    return DropActionOfMenu(choice, CurrentDropKeys());
}

void DragDrop::DropOnEntry(int index) {
    FileList& list = appState.fileList;
    const DropAction action = ChooseAction();
    MarkEntry(-1);
    const FileItem* item = list.ItemAt(index);
    const Path shown = list.CurrentFolder();
    Path destination = shown;
    if (item && item->kind == ItemKind::Folder && !destination.AssignChild(item->folder, item->name.get()))
        return;
    if (action == DropAction::None || destination.IsSearchFolder()) // results are no folder to put things in
        return;
    FillClipboard(action);
    if (source_ != list.Window())
        list.GoToFolder(shown.View(), treeSelectOnly);
    list.SetCurrentFolder(destination);
    if (action == DropAction::Shortcut)
        list.PasteShortcut(false);
    else
        list.Paste(false);
    list.GoToFolder(destination.View(), treeSelectOnly);
}

void DragDrop::FillClipboard(DropAction action) {
    const Transfer transfer = action == DropAction::Move ? Transfer::Move : Transfer::Copy;
    if (source_ != appState.fileList.Window())
        appState.folderTree.PutOnClipboard(node_, transfer);
    else if (transfer == Transfer::Move)
        appState.fileList.CutSelection();
    else
        appState.fileList.CopySelection();
}
