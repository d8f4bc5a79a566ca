#include "tests/support/input.h"

#include <algorithm>

#include "tests/support/waiting.h"

namespace {

constexpr DWORD stepPause = 10; // milliseconds between a drag's steps, so that each is seen
constexpr int dragSteps = 8;
constexpr int settleTime = 40; // milliseconds that the pointer has to rest where it was put

void SendKey(WORD key, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
    SendInput(1, &input, sizeof(input));
}

void SendModifiers(unsigned modifiers, bool up) {
    if (modifiers & Ctrl)
        SendKey(VK_CONTROL, up);
    if (modifiers & Shift)
        SendKey(VK_SHIFT, up);
    if (modifiers & Alt)
        SendKey(VK_MENU, up);
}

void SendMouse(DWORD flags, LONG x = 0, LONG y = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = x;
    input.mi.dy = y;
    input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof(input));
}

/// By absolute places only: SetCursorPos would come back from the X screen once more.
void MovePointer(POINT point) {
    const auto scaled = [](LONG place, int size) { return (place * 65536 + 32768) / size; };
    SendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, scaled(point.x, GetSystemMetrics(SM_CXSCREEN)),
              scaled(point.y, GetSystemMetrics(SM_CYSCREEN)));
}

} // namespace

void PressKey(WORD key, unsigned modifiers) {
    SendModifiers(modifiers, false);
    SendKey(key, false);
    SendKey(key, true);
    SendModifiers(modifiers, true);
}

void TypeText(const std::wstring& text) {
    for (const wchar_t character : text) {
        const SHORT code = VkKeyScanW(character);
        PressKey(LOBYTE(code), (HIBYTE(code) & 1) ? Shift : NoModifier);
    }
}

void PostKey(HWND window, WORD key) {
    const LPARAM scan = static_cast<LPARAM>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)) << 16;
    PostMessageW(window, WM_KEYDOWN, key, scan | 1);
    PostMessageW(window, WM_KEYUP, key, scan | 0xC0000001);
}

void StylusMove(POINT point) {
    // The X screen reports each place once more, and on a busy machine late: a press would land there.
    const POINT reachable = {std::clamp<LONG>(point.x, 0, GetSystemMetrics(SM_CXSCREEN) - 1),
                             std::clamp<LONG>(point.y, 0, GetSystemMetrics(SM_CYSCREEN) - 1)};
    WaitFor("for the stylus", [&] {
        MovePointer(reachable);
        return HoldsFor(settleTime, [&] {
            POINT now{};
            return GetCursorPos(&now) && now.x == reachable.x && now.y == reachable.y;
        });
    });
}

void StylusDown(POINT point) {
    StylusMove(point);
    SendMouse(MOUSEEVENTF_LEFTDOWN);
}

void StylusUp() {
    SendMouse(MOUSEEVENTF_LEFTUP);
}

void Tap(POINT point, unsigned modifiers) {
    // The way there comes first: where the pointer goes, the X screen has its own say on the keys.
    StylusMove(point);
    SendModifiers(modifiers, false);
    SendMouse(MOUSEEVENTF_LEFTDOWN);
    SendMouse(MOUSEEVENTF_LEFTUP);
    SendModifiers(modifiers, true);
}

void DoubleTap(POINT point) {
    Tap(point);
    // At once, however busy the machine is: where the stylus is has been seen to.
    SendMouse(MOUSEEVENTF_LEFTDOWN);
    SendMouse(MOUSEEVENTF_LEFTUP);
}

void RightClick(POINT point) {
    StylusMove(point);
    SendMouse(MOUSEEVENTF_RIGHTDOWN);
    SendMouse(MOUSEEVENTF_RIGHTUP);
}

void TapAndHold(POINT point, DWORD milliseconds) {
    StylusDown(point);
    Sleep(milliseconds); // the time itself is the input
    StylusUp();
}

void Drag(POINT from, POINT to) {
    StylusDown(from);
    for (int step = 1; step <= dragSteps; ++step) {
        MovePointer(
            {from.x + (to.x - from.x) * step / dragSteps, from.y + (to.y - from.y) * step / dragSteps});
        Sleep(stepPause);
    }
    StylusMove(to);
    StylusUp();
}
