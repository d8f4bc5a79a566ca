#include "app/notifications.h"

#include "app/commands.h"
#include "app/main_window.h"
#include "app/menu_state.h"

namespace {

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

void OpenSelected() {
    appState.fileList.OpenEntry(appState.fileList.FirstSelected());
}

/// A tap opens when double taps are not asked for and nothing extends the selection.
void OnListClick() {
    const bool plain = !IsDown(VK_CONTROL) && !IsDown(VK_SHIFT) && !IsDown(VK_MENU);
    const bool single = SendMessageW(appState.fileList.Window(), LVM_GETSELECTEDCOUNT, 0, 0) == 1;
    if (appState.fileList.options.singleTapOpens && plain && single && !appState.marqueeStarted)
        OpenSelected();
    appState.marqueeStarted = false;
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
        if (!appState.labelEditing)
            OnListClick();
        return 0;
    case NM_DBLCLK:
        return OpenSelected(), 0;
    case NM_RETURN:
        return OpenSelected(), 0;
    case NM_SETFOCUS:
        return OnPaneFocus(Pane::List), 0;
    case LVN_ITEMCHANGED:
        return OnListItemChanged(*reinterpret_cast<NMLISTVIEW*>(lParam)), 0;
    case LVN_COLUMNCLICK:
        return appState.fileList.OnColumnClick(reinterpret_cast<NMLISTVIEW*>(lParam)->iSubItem), 0;
    case LVN_MARQUEEBEGIN:
        appState.marqueeStarted = true;
        return 0;
    case LVN_GETDISPINFOW:
        return appState.fileList.OnGetDisplayInfo(reinterpret_cast<NMLVDISPINFOW*>(lParam)), 0;
    case LVN_BEGINLABELEDITW:
        return TRUE; // names are not edited here yet
    default:
        return DefWindowProcW(appState.mainWindow, WM_NOTIFY, 0, lParam);
    }
}

LRESULT OnTreeNotify(NMHDR* notification, LPARAM lParam) {
    if (notification->code == NM_SETFOCUS) {
        OnPaneFocus(Pane::Tree);
        return 0;
    }
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
