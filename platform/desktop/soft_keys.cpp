// The phone's keys on a desktop keyboard: F1 is the left soft key, F10 and the Menu key the right one, Escape
// is Back. The keys are taken where messages are fetched, so it does not matter which window or which modal
// loop they were meant for, nor whether a person or another process sent them.

#include "platform/ce_api.h"
#include "platform/desktop/device_shell.h"

namespace {

constexpr int NO_SOFT_KEY = -1;

// A Back key that was given to the program once already carries this bit of lParam, which the platform leaves
// unused.
constexpr LPARAM PASSED_ON = 1 << 25;
constexpr LPARAM REPEATED = 1 << 30;

int SoftKeyOf(WPARAM key) {
    switch (key) {
    case VK_F1:
        return 0;
    case VK_F10:
    case VK_APPS:
        return 1;
    }
    return NO_SOFT_KEY;
}

bool IsKeyDown(UINT message) {
    return message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
}

bool IsKeyUp(UINT message) {
    return message == WM_KEYUP || message == WM_SYSKEYUP;
}

bool MenuIsOpen() {
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    return GetGUIThreadInfo(GetCurrentThreadId(), &info) &&
           (info.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE));
}

/// Turns the message into one that does nothing.
void Swallow(MSG* message) {
    message->message = WM_NULL;
    message->wParam = 0;
    message->lParam = 0;
}

/// A soft key becomes a message to the bar in front, in the place that it has in the queue, so that the keys
/// typed after it find the menu open.
void TakeSoftKey(MSG* message, int softKey) {
    HWND bar = FrontMenuBar();
    bool pressed = IsKeyDown(message->message) && !(message->lParam & REPEATED);
    Swallow(message);
    if (!bar || !pressed)
        return;
    message->hwnd = bar;
    message->message = UM_PRESS_SOFT_KEY;
    message->wParam = static_cast<WPARAM>(softKey);
}

/// The window that asked to have the Back key for itself, if the key was meant for it.
void TakeBackKey(MSG* message) {
    HWND bar = FrontMenuBar();
    HWND parent = MenuBarParent(bar);
    UINT override = KeyOverride(bar, VK_TBACK);
    bool itsOwn = parent && GetAncestor(message->hwnd, GA_ROOT) == GetAncestor(parent, GA_ROOT);
    if (!itsOwn || override == 0 || (message->lParam & PASSED_ON))
        return;
    bool notify = IsKeyDown(message->message) && (override & SHMBOF_NOTIFY);
    Swallow(message);
    if (!notify)
        return;
    message->hwnd = parent;
    message->message = WM_HOTKEY;
    message->lParam = MAKELPARAM(0, VK_TBACK);
}

/// Whether the shell is a library's in a program that has one as well, which takes what is not for this one.
bool isGuest;

LRESULT CALLBACK OnMessageFetched(int code, WPARAM removed, LPARAM lParam) {
    auto message = reinterpret_cast<MSG*>(lParam);
    if (code == HC_ACTION && removed == PM_REMOVE &&
        (IsKeyDown(message->message) || IsKeyUp(message->message))) {
        int softKey = SoftKeyOf(message->wParam);
        if (MenuIsOpen() || (isGuest && !FrontMenuBar()))
            return CallNextHookEx(nullptr, code, removed, lParam);
        if (softKey != NO_SOFT_KEY)
            TakeSoftKey(message, softKey);
        else if (message->wParam == VK_TBACK)
            TakeBackKey(message);
        else if (IsKeyDown(message->message) && !isGuest)
            TakeNavigationKey(message);
    }
    return CallNextHookEx(nullptr, code, removed, lParam);
}

bool IsClickOnMenuBar(const MSG& message) {
    if (message.message != WM_LBUTTONDOWN && message.message != WM_LBUTTONDBLCLK)
        return false;
    // The open menu holds the mouse, so a real click names the menu; one sent by a process names the bar.
    return IsMenuBar(message.hwnd) || IsMenuBar(WindowFromPoint(message.pt));
}

/// The stylus is nowhere while it is up, so a pointer that only rests or moves above a menu opens nothing.
bool IsHover(const MSG& message) {
    return message.message == WM_MOUSEMOVE && !(message.wParam & (MK_LBUTTON | MK_RBUTTON));
}

/// While a menu is open a soft key, pressed or clicked, closes it.
LRESULT CALLBACK OnMenuMessage(int code, WPARAM wParam, LPARAM lParam) {
    auto message = reinterpret_cast<MSG*>(lParam);
    if (code == MSGF_MENU) {
        bool key = IsKeyDown(message->message) && SoftKeyOf(message->wParam) != NO_SOFT_KEY;
        if ((key && (message->lParam & REPEATED)) || IsHover(*message))
            return TRUE;
        if (key || IsClickOnMenuBar(*message)) {
            EndMenu();
            return TRUE;
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

} // namespace

KeyHooks ListenForKeys(bool asGuest) {
    isGuest = asGuest;
    return {SetWindowsHookExW(WH_GETMESSAGE, OnMessageFetched, nullptr, GetCurrentThreadId()),
            SetWindowsHookExW(WH_MSGFILTER, OnMenuMessage, nullptr, GetCurrentThreadId())};
}

void PassBackKeyOn(HWND window) {
    constexpr LPARAM RELEASED = static_cast<LPARAM>(0xC0000001);
    PostMessageW(window, WM_KEYDOWN, VK_TBACK, PASSED_ON | 1);
    PostMessageW(window, WM_KEYUP, VK_TBACK, PASSED_ON | RELEASED);
}
