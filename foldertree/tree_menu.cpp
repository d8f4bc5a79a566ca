// The tree's context menu and its ways of opening: tap and hold, a second button, keys.

#include <utility>

#include "app/address_bar.h"
#include "app/app_state.h"
#include "app/menu_state.h"
#include "common/pointer.h"
#include "filelist/list_input.h"
#include "foldertree/folder_tree.h"
#include "foldertree/tree_messages.h"
#include "resources/resource.h"

namespace {

bool OnlyAltDown() {
    return IsDown(VK_MENU) && !IsDown(VK_CONTROL) && !IsDown(VK_SHIFT);
}

void PostCommand(int command) {
    PostMessageW(appState.mainWindow, WM_COMMAND, static_cast<WPARAM>(command), 0);
}

} // namespace

/// The node whose icon or name is at `point` of the tree, or null.
HTREEITEM FolderTree::NodeAt(POINT point) const {
    TVHITTESTINFO test{};
    test.pt = point;
    SendMessageW(window_, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&test));
    return test.flags & TVHT_ONITEM ? test.hItem : nullptr;
}

void FolderTree::OpenMenuAtPointer() {
    if (HTREEITEM node = NodeAt(MessagePointIn(window_))) {
        Select(node);
        OpenMenu(node, MessagePoint());
    }
}

/// Opens it at the middle of the selected node's name, counted from the screen's corner on purpose.
void FolderTree::OpenMenuAtCaret() {
    DropTypedCharacters(window_);
    POINT middle{};
    if (HTREEITEM node = Caret()) {
        RECT name;
        if (TreeView_GetItemRect(window_, node, &name, TRUE))
            middle = {name.left + (name.right - name.left) / 2, name.top + (name.bottom - name.top) / 2};
    }
    if (HTREEITEM node = NodeAt(middle))
        OpenMenu(node, middle);
}

void FolderTree::OpenMenu(HTREEITEM node, POINT position) {
    NodeText text;
    if (ReadText(node, text) == searchFolder)
        return;
    const MenuHandle menu(LoadMenuW(appState.instance, MAKEINTRESOURCEW(IDR_MENU_LIST)));
    HMENU popup = GetSubMenu(menu.Get(), POPUP_FOLDER);
    ApplyMenuState(popup);
    TrackPopupMenuEx(popup, 0, position.x, position.y, appState.mainWindow, nullptr);
}

void FolderTree::OnStylusDown(LPARAM point) {
    SetFocus(window_);
    if (holdPending_)
        return;
    SetTimer(window_, holdTimer, GetDoubleClickTime(), nullptr);
    holdPoint_ = PointOf(point);
    holdPending_ = true;
    pressUsedUp_ = false;
}

void FolderTree::CancelHold() {
    if (!holdPending_)
        return;
    holdPending_ = false;
    KillTimer(window_, holdTimer);
}

bool FolderTree::IsPressed() const {
    return holdPending_ && IsStylusDown();
}

void FolderTree::AbandonPress() {
    pressUsedUp_ = pressUsedUp_ || IsPressed();
    CancelHold();
}

void FolderTree::OnHoldElapsed() {
    KillTimer(window_, holdTimer);
    const POINT now = MessagePointIn(window_);
    HTREEITEM node = NodeAt(holdPoint_);
    if (!node || node != NodeAt(now) || !IsHeldStill(holdPoint_, now))
        return;
    pressUsedUp_ = true;
    ClearDropMark(); // the control highlights the node under the stylus: the menu is for the selected one
    OpenMenu(node, {holdPoint_.x + holdMenuShift, holdPoint_.y});
}

/// The stylus that opened the menu was lifted over it, where the tree did not see it.
void FolderTree::OnMenuClosed() {
    if (!holdPending_)
        return;
    holdPending_ = false;
    endEdit_ = !endEdit_;
    SetTimer(window_, endEditTimer, endEditDelay, nullptr);
}

bool FolderTree::OnPointerNotify(UINT code, LRESULT* result) {
    const bool menuAllowed = GetFocus() == window_ && !appState.labelEditing;
    switch (code) {
    case NM_CLICK:
        CancelHold(); // the control has taken the stylus' lifting for itself
        if (menuAllowed && OnlyAltDown())
            OpenMenuAtPointer();
        // What is used up is no tap: the control would select the node or edit its name.
        *result = std::exchange(pressUsedUp_, false);
        return true;
    case NM_RCLICK:
        if (menuAllowed)
            OpenMenuAtPointer();
        return true;
    case GN_CONTEXTMENU:
        if (menuAllowed && !appState.dragging)
            OpenMenuAtPointer();
        *result = 1;
        return true;
    case NM_RETURN:
        if (GetFocus() == window_ && IsDown(VK_MENU))
            PostCommand(IDM_MENU_PROPERTIES);
        return true;
    default:
        return false;
    }
}

/// Keys mean what they mean in the list. Their commands are posted, so that the control is done with the key
/// first: it moves to the parent on its own for the Back key.
void FolderTree::onKeyDown(WORD key) {
    if (appState.dragging && key == VK_ESCAPE)
        appState.fileList.dragDrop.Cancel();
    if (appState.dragging || appState.labelEditing)
        return;
    const int command = TranslateListKey(key, {IsDown(VK_CONTROL), IsDown(VK_MENU)});
    if (command == keyOpensContextMenu)
        OpenMenuAtCaret();
    else if (command == keyFocusesAddressBar)
        FocusAddressBar();
    else if (command != keyTranslatesToNothing)
        PostCommand(command);
}
