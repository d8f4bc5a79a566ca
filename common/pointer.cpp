#include "common/pointer.h"

#include <cstdlib>

namespace {

constexpr LONG holdTolerance = 6; // a stylus that moved so many pixels drags

} // namespace

POINT PointOf(LPARAM position) {
    return {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
}

POINT MessagePoint() {
    return PointOf(static_cast<LPARAM>(GetMessagePos()));
}

POINT MessagePointIn(HWND window) {
    POINT point = MessagePoint();
    ScreenToClient(window, &point);
    return point;
}

bool IsHeldStill(POINT down, POINT now) {
    return std::abs(now.x - down.x) < holdTolerance && std::abs(now.y - down.y) < holdTolerance;
}

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

bool IsStylusDown() {
    return GetAsyncKeyState(VK_LBUTTON) < 0;
}

void DropTypedCharacters(HWND window) {
    MSG message;
    while (PeekMessageW(&message, window, WM_CHAR, WM_CHAR, PM_REMOVE)) {
    }
}
