#include "filelist/drag_drop.h"

#include <algorithm>
#include <optional>

#include "app/app_state.h"
#include "common/pointer.h"
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
    HTREEITEM node = notification.itemNew.hItem;
    Path folder;
    if (appState.folderTree.IsPressUsedUp() || !appState.folderTree.FolderToCarry(node, folder))
        return;
    Begin(Mode::Files, tree);
    folder_ = folder;
    BeginImage(reinterpret_cast<HIMAGELIST>(
                   SendMessageW(tree, TVM_CREATEDRAGIMAGE, 0, reinterpret_cast<LPARAM>(node))),
               ToScreen(tree, notification.ptDrag));
}

void DragDrop::Begin(Mode mode, HWND source) {
    Cancel();
    appState.fileList.tapAndHold.Abandon(appState.fileList.Window()); // it is no tap, however the drag ends
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
    const std::optional<SelectionEntry> entry = appState.fileList.EntryAt(index);
    MarkEntry(entry && entry->kind == ItemKind::Folder ? index : -1);
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
    const FileList& list = appState.fileList;
    const POINT point = MessagePoint();
    const std::uint32_t listing = list.ListingNumber();
    appState.menuOpen = true; // this menu is the list's own: the main window hears nothing of it
    const int choice = TrackPopupMenuEx(list.ContextPopupMenu(POPUP_DROP), TPM_RETURNCMD, point.x, point.y,
                                        list.Window(), nullptr);
    appState.menuOpen = false;
    return list.ListingNumber() == listing ? DropActionOfMenu(choice, CurrentDropKeys()) : DropAction::None;
}

void DragDrop::DropOnEntry(int index) {
    FileList& list = appState.fileList;
    Path destination = list.CurrentFolder();
    const std::optional<SelectionEntry> entry = list.EntryAt(index);
    if (entry && entry->kind == ItemKind::Folder &&
        !destination.AssignChild(entry->folder.data(), entry->name.data()))
        return;
    const DropAction action = ChooseAction();
    MarkEntry(-1);
    if (action == DropAction::None || destination.IsSearchFolder()) // results are no folder to put things in
        return;
    const Path began = list.CurrentFolder();
    if (PasteInto(destination, action))
        list.ShowAfterWork(began, destination.View(), treeSelectOnly);
}

bool DragDrop::PasteInto(const Path& destination, DropAction action) {
    FileList& list = appState.fileList;
    const Path shown = list.CurrentFolder();
    if (!FillClipboard(action))
        return false;
    if (source_ != list.Window())
        list.GoToFolder(shown.View(), treeSelectOnly);
    if (action == DropAction::Shortcut)
        list.PasteShortcutInto(destination);
    else
        list.PasteInto(destination, false);
    return true;
}

/// False when there is nothing to put on it.
bool DragDrop::FillClipboard(DropAction action) {
    const Transfer transfer = action == DropAction::Move ? Transfer::Move : Transfer::Copy;
    if (source_ != appState.fileList.Window())
        return appState.folderTree.PutOnClipboard(folder_, transfer);
    return transfer == Transfer::Move ? appState.fileList.CutSelection() : appState.fileList.CopySelection();
}
