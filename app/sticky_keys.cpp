#include "app/sticky_keys.h"

#include "app/app_state.h"
#include "app/menu_state.h"

namespace {

constexpr BYTE scanCode = 30;
constexpr ULONG_PTR ownPress = 1; // tells these presses from the keyboard's

void Press(BYTE key, bool down) {
    keybd_event(key, scanCode, down ? 0 : KEYEVENTF_KEYUP, ownPress);
}

} // namespace

void ToggleStickyKey(StickyKey key) {
    const bool isCtrl = key == StickyKey::Ctrl;
    bool& latch = isCtrl ? appState.ctrlLatched : appState.shiftLatched;
    bool& otherLatch = isCtrl ? appState.shiftLatched : appState.ctrlLatched;
    if (otherLatch) {
        Press(isCtrl ? VK_SHIFT : VK_CONTROL, false);
        otherLatch = false;
    }
    latch = !latch;
    Press(isCtrl ? VK_CONTROL : VK_SHIFT, latch);
    RefreshCheckMarks();
}

void ReleaseStickyKeys() {
    if (appState.ctrlLatched)
        Press(VK_CONTROL, false);
    if (appState.shiftLatched)
        Press(VK_SHIFT, false);
    appState.ctrlLatched = appState.shiftLatched = false;
}
