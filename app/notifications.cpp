#include "app/notifications.h"

#include "app/address_bar.h"
#include "app/commands.h"
#include "app/menu_state.h"
#include "common/pointer.h"
#include "filelist/context_menu.h"
#include "filelist/list_input.h"
#include "resources/resource.h"

namespace {

void OpenSelected() {
    appState.fileList.OpenEntry(appState.fileList.FirstSelected());
}

void OpenOrShowProperties() {
    if (IsDown(VK_MENU))
        SendMessageW(appState.mainWindow, WM_COMMAND, IDM_MENU_PROPERTIES, 0);
    else
        OpenSelected();
}

void OnListContextMenu() {
    if (!appState.labelEditing && IsListFocused())
        ShowContextMenuAtPointer(appState.fileList);
}

/// Keys of the list that stand for commands.
LRESULT OnListKey(int key) {
    if (appState.dragging && key == VK_ESCAPE)
        appState.fileList.dragDrop.Cancel();
    if (appState.dragging || appState.labelEditing || !IsListFocused())
        return 0;
    const int command = TranslateListKey(key, {IsDown(VK_CONTROL), IsDown(VK_MENU)});
    if (command == keyOpensContextMenu) {
        DropTypedCharacters(appState.fileList.Window());
        ShowContextMenuAtSelection(appState.fileList);
    } else if (command == keyFocusesAddressBar)
        FocusAddressBar();
    else if (command != keyTranslatesToNothing)
        OnCommand(static_cast<WPARAM>(command), 0);
    return 0;
}

/// A tap opens when double taps are not asked for and nothing extends the selection. With Alt it is a tap of
/// the second button.
void OnListClick() {
    FileList& list = appState.fileList;
    list.tapAndHold.Cancel(list.Window());
    if (appState.labelEditing || list.tapAndHold.IsUsedUp())
        return;
    const bool ctrlOrShift = IsDown(VK_CONTROL) || IsDown(VK_SHIFT);
    const bool single = SendMessageW(list.Window(), LVM_GETSELECTEDCOUNT, 0, 0) == 1;
    const bool opens = list.options.singleTapOpens && !ctrlOrShift && !IsDown(VK_MENU) && single &&
                       !appState.marqueeStarted && list.tapAndHold.SelectedAtDown() == 0;
    appState.marqueeStarted = false;
    if (opens) {
        list.tapAndHold.NoteOpened();
        OpenSelected();
    } else if (!ctrlOrShift && IsDown(VK_MENU)) {
        OnListContextMenu();
    }
}

/// Selecting many entries reports each one: the menus follow once, after the last.
void OnListItemChanged(const NMLISTVIEW& change) {
    const UINT changed = change.uOldState ^ change.uNewState;
    if (!appState.dragging && (changed & LVIS_SELECTED) && !appState.selectionNoticePosted)
        appState.selectionNoticePosted = PostMessageW(appState.mainWindow, UM_SELECTIONCHANGED, 0, 0) != 0;
}

void OnPaneFocus(Pane pane) {
    appState.focusedPane = pane;
    UpdateMenuState();
}

LRESULT OnListNotify(NMHDR* notification, LPARAM lParam) {
    switch (notification->code) {
    case NM_CLICK:
        return OnListClick(), 0;
    case NM_DBLCLK:
        return OpenSelected(), 0;
    case NM_RETURN:
        return OpenOrShowProperties(), 0;
    case NM_RCLICK:
        return OnListContextMenu(), 0;
    case GN_CONTEXTMENU:
        if (!appState.dragging)
            OnListContextMenu();
        return 1;
    case LVN_KEYDOWN:
        return OnListKey(reinterpret_cast<NMLVKEYDOWN*>(lParam)->wVKey);
    case NM_SETFOCUS:
        return OnPaneFocus(Pane::List), 0;
    case LVN_ITEMCHANGED:
        return OnListItemChanged(*reinterpret_cast<NMLISTVIEW*>(lParam)), 0;
    case LVN_COLUMNCLICK:
        return appState.fileList.OnColumnClick(reinterpret_cast<NMLISTVIEW*>(lParam)->iSubItem), 0;
    case LVN_BEGINDRAG:
        return appState.fileList.dragDrop.BeginFromList(*reinterpret_cast<NMLISTVIEW*>(lParam)), 0;
    case LVN_MARQUEEBEGIN:
        appState.marqueeStarted = true;
        return 0;
    case LVN_GETDISPINFOW:
        return appState.fileList.OnGetDisplayInfo(reinterpret_cast<NMLVDISPINFOW*>(lParam)), 0;
    case LVN_BEGINLABELEDITW:
        return appState.fileList.OnBeginLabelEdit(reinterpret_cast<NMLVDISPINFOW*>(lParam)->item.iItem),
               FALSE;
    case LVN_ENDLABELEDITW:
        return appState.fileList.EndRename(reinterpret_cast<NMLVDISPINFOW*>(lParam)->item.pszText);
    default:
        return DefWindowProcW(appState.mainWindow, WM_NOTIFY, 0, lParam);
    }
}

LRESULT OnTreeNotify(NMHDR* notification, LPARAM lParam) {
    if (notification->code == NM_SETFOCUS) {
        OnPaneFocus(Pane::Tree);
        return 0;
    }
    if (notification->code == TVN_BEGINDRAGW)
        appState.fileList.dragDrop.BeginFromTree(*reinterpret_cast<NMTREEVIEWW*>(lParam));
    LRESULT result = 0;
    if (appState.folderTree.OnNotify(notification, &result))
        return result;
    return DefWindowProcW(appState.mainWindow, WM_NOTIFY, 0, lParam);
}

} // namespace

LRESULT OnNotify(WPARAM wParam, LPARAM lParam) {
    auto* notification = reinterpret_cast<NMHDR*>(lParam);
    if (notification && notification->hwndFrom == appState.fileList.Window())
        return OnListNotify(notification, lParam);
    if (notification && notification->hwndFrom == appState.folderTree.Window())
        return OnTreeNotify(notification, lParam);
    return DefWindowProcW(appState.mainWindow, WM_NOTIFY, wParam, lParam);
}
