// Message boxes as on the phone: the title strip shows their caption, soft keys answer them besides their own
// buttons, and they stand in the middle of the work area.

#include <algorithm>
#include <span>
#include <vector>

#include "platform/ce_api.h"
#include "platform/desktop/device_shell.h"
#include "platform/desktop/menu_bar_layout.h"

namespace {

constexpr UINT_PTR MESSAGE_BOX_ID = 1;
constexpr int TEXT_CONTROL = 0xFFFF;

HWND TextControl(HWND dialog) {
    return GetDlgItem(dialog, TEXT_CONTROL);
}

RECT PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

bool IsShownButton(HWND control) {
    wchar_t className[8]{};
    GetClassNameW(control, className, 8);
    return _wcsicmp(className, L"Button") == 0 && (GetWindowLongW(control, GWL_STYLE) & WS_VISIBLE);
}

/// The box's buttons from the left.
std::vector<HWND> ButtonsOf(HWND box) {
    std::vector<HWND> buttons;
    for (HWND control = GetWindow(box, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT))
        if (IsShownButton(control))
            buttons.push_back(control);
    std::ranges::sort(buttons, {}, [](HWND button) { return PlaceOf(button).left; });
    return buttons;
}

/// A key that does what `button` does.
MenuBarKey KeyFor(HWND button) {
    MenuBarKey key;
    key.command = static_cast<UINT>(GetDlgCtrlID(button));
    key.state = TBSTATE_ENABLED;
    GetWindowTextW(button, key.text.data(), static_cast<int>(key.text.size()));
    std::ranges::remove(key.text, L'&');
    return key;
}

/// What does not find a key of its own stands in the menu of the right one.
MenuBarKey MenuKeyFor(std::span<const HWND> buttons, MenuHandle* menu) {
    menu->Reset(CreatePopupMenu());
    for (HWND button : buttons) {
        MenuBarKey entry = KeyFor(button);
        AppendMenuW(menu->Get(), MF_STRING, entry.command, entry.text.data());
    }
    MenuBarKey key;
    key.state = TBSTATE_ENABLED;
    key.opensPopup = true;
    key.popup = menu->Get();
    lstrcpynW(key.text.data(), L"Menu", static_cast<int>(key.text.size()));
    return key;
}

void AddSoftKeys(HWND box) {
    std::vector<HWND> buttons = ButtonsOf(box);
    MenuBarLayout layout;
    layout.keyCount = static_cast<int>(std::min(buttons.size(), layout.keys.size()));
    for (int i = 0; i < layout.keyCount; ++i)
        layout.keys[i] = KeyFor(buttons[i]);
    if (buttons.size() > layout.keys.size())
        layout.keys[1] = MenuKeyFor(std::span(buttons).subspan(1), &layout.menu);
    MakeMenuBar(box, std::move(layout), false);
}

/// Gives the box, whose contents stay as they are, a line around and the middle of the work area.
void FrameAndCenter(HWND box) {
    RECT content{};
    GetClientRect(box, &content);
    RemoveFrame(box);
    SetWindowLongW(box, GWL_STYLE, GetWindowLongW(box, GWL_STYLE) | WS_BORDER);
    AdjustWindowRectEx(&content, WS_BORDER, FALSE, 0);
    int width = content.right - content.left;
    int height = content.bottom - content.top;
    RECT area = WorkArea();
    SetWindowPos(box, nullptr, std::max<int>((area.left + area.right - width) / 2, area.left),
                 std::max<int>((area.top + area.bottom - height) / 2, area.top), width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

LRESULT CALLBACK MessageBoxProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                DWORD_PTR) {
    bool appears = message == WM_SHOWWINDOW && wParam;
    if (appears || message == WM_NCDESTROY)
        RemoveWindowSubclass(dialog, MessageBoxProc, MESSAGE_BOX_ID);
    if (appears && TextControl(dialog)) {
        FrameAndCenter(dialog);
        AddSoftKeys(dialog);
    }
    return DefSubclassProc(dialog, message, wParam, lParam);
}

} // namespace

void FitMessageBox(HWND window, const CREATESTRUCTW& made) {
    bool dialog = GetClassLongW(window, GCW_ATOM) == reinterpret_cast<UINT_PTR>(WC_DIALOG);
    // The program's own dialogs come from its module, message boxes do not.
    if (dialog && made.hInstance != ShellInstance())
        SetWindowSubclass(window, MessageBoxProc, MESSAGE_BOX_ID, 0);
}
