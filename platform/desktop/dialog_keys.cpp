// The navigation pad in dialogs. On the phone up and down lead from control to control, and left and right
// change what a control holds; the desktop's controls keep those keys to themselves. The pad's middle, Return
// here, presses buttons and marks boxes, as there is no space bar.

#include "platform/ce_api.h"
#include "platform/desktop/device_shell.h"

namespace {

bool IsHeld(int key) {
    return GetKeyState(key) < 0;
}

/// A control with the keyboard: the whole of a combo box, not its edit field.
HWND ControlOf(HWND focus, HWND dialog) {
    while (focus && GetParent(focus) != dialog)
        focus = GetParent(focus);
    return focus;
}

bool IsLastOrFirst(LRESULT current, LRESULT count, bool down) {
    return count <= 0 || current == (down ? count - 1 : 0);
}

bool IsAtEndOfTree(HWND tree, bool down) {
    LRESULT selected = SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0);
    WPARAM direction = down ? TVGN_NEXTVISIBLE : TVGN_PREVIOUSVISIBLE;
    return !selected || !SendMessageW(tree, TVM_GETNEXTITEM, direction, selected);
}

/// Whether up or down leads out of the control: out of a list only at its end.
bool LeadsOut(HWND control, bool down) {
    if (IsOfClass(control, WC_COMBOBOXW))
        return !SendMessageW(control, CB_GETDROPPEDSTATE, 0, 0);
    if (IsOfClass(control, WC_EDITW))
        return !(GetWindowLongW(control, GWL_STYLE) & ES_MULTILINE);
    if (IsOfClass(control, WC_LISTBOXW))
        return IsLastOrFirst(SendMessageW(control, LB_GETCURSEL, 0, 0),
                             SendMessageW(control, LB_GETCOUNT, 0, 0), down);
    if (IsOfClass(control, WC_LISTVIEWW))
        return IsLastOrFirst(SendMessageW(control, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED),
                             SendMessageW(control, LVM_GETITEMCOUNT, 0, 0), down);
    if (IsOfClass(control, WC_TREEVIEWW))
        return IsAtEndOfTree(control, down);
    return IsOfClass(control, WC_BUTTONW) || IsOfClass(control, DATETIMEPICK_CLASSW);
}

} // namespace

void TakeNavigationKey(MSG* message) {
    const WPARAM key = message->wParam;
    HWND dialog = GetAncestor(message->hwnd, GA_ROOT);
    HWND control = IsPhoneDialog(dialog) ? ControlOf(message->hwnd, dialog) : nullptr;
    if (!control || IsHeld(VK_SHIFT) || IsHeld(VK_CONTROL) || IsHeld(VK_MENU))
        return;
    bool isCombo = IsOfClass(control, WC_COMBOBOXW);
    if (control != message->hwnd && !isCombo)
        return; // an entry of the control is being named
    if ((key == VK_UP || key == VK_DOWN) && LeadsOut(control, key == VK_DOWN)) {
        message->hwnd = dialog;
        message->message = WM_NEXTDLGCTL;
        message->wParam = key == VK_UP;
        message->lParam = FALSE;
    } else if ((key == VK_LEFT || key == VK_RIGHT) && isCombo && control == message->hwnd) {
        message->wParam = key == VK_LEFT ? VK_UP : VK_DOWN;
    } else if (key == VK_RETURN && IsOfClass(control, WC_BUTTONW)) {
        message->message = BM_CLICK;
        message->wParam = 0;
        message->lParam = 0;
    }
}
