#pragma once
// A person's hands: real keys and the stylus. What is pressed goes to whatever window is in front.

#include <string>

#include <windows.h>

/// Keys held down while another is pressed or the stylus taps.
enum Modifier : unsigned { NoModifier = 0, Shift = 1, Ctrl = 2, Alt = 4 };

void PressKey(WORD key, unsigned modifiers = NoModifier);
/// Types plain text, character by character.
void TypeText(const std::wstring& text);

// The phone's own keys, as the desktop's keyboard stands for them.
inline void PressLeftSoftKey() {
    PressKey(VK_F1);
}
inline void PressRightSoftKey() {
    PressKey(VK_F10);
}
inline void PressBack() {
    PressKey(VK_ESCAPE);
}

/// A key message straight to one window, whichever is in front.
void PostKey(HWND window, WORD key);

// The stylus, in screen coordinates.
void Tap(POINT point, unsigned modifiers = NoModifier);
void DoubleTap(POINT point);
void RightClick(POINT point);
void StylusDown(POINT point);
void StylusMove(POINT point);
void StylusUp();
/// Puts the stylus down, keeps it there for so long, and lifts it.
void TapAndHold(POINT point, DWORD milliseconds);
/// Drags in several small steps, as a hand does.
void Drag(POINT from, POINT to);
