// Keys with Alt in list views and tree views.

#include "platform/ce_api.h"
#include "platform/desktop/device_shell.h"

namespace {

void Notify(HWND pane, NMHDR& notification, UINT code) {
    notification.hwndFrom = pane;
    notification.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(pane));
    notification.code = code;
    SendMessageW(GetParent(pane), WM_NOTIFY, notification.idFrom, reinterpret_cast<LPARAM>(&notification));
}

} // namespace

bool NotifyOfKeyWithAlt(HWND pane, WPARAM key) {
    bool list = IsOfClass(pane, WC_LISTVIEWW);
    if (!list && !IsOfClass(pane, WC_TREEVIEWW))
        return false;
    if (key == VK_RETURN) {
        NMHDR notification{};
        Notify(pane, notification, NM_RETURN);
        return true;
    }
    NMLVKEYDOWN notification{}; // a tree's is laid out alike
    notification.wVKey = static_cast<WORD>(key);
    Notify(pane, notification.hdr, list ? LVN_KEYDOWN : TVN_KEYDOWN);
    return true;
}
