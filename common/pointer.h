#pragma once
// The stylus (or mouse) and the modifier keys, as both panes read them.

#include "platform/ce_api.h"

/// The timer of tap and hold, on either pane's own window.
constexpr UINT_PTR holdTimer = 4;
/// A menu opens so many pixels beside the stylus, not under it.
constexpr LONG holdMenuShift = 10;

/// The point that a mouse message carries; may be negative while the mouse is captured.
POINT PointOf(LPARAM position);
/// The pointer's place on the screen when the current message was sent.
POINT MessagePoint();
/// The same in a window's client coordinates.
POINT MessagePointIn(HWND window);
/// Whether a stylus that went down at one point and is at another now is held still.
bool IsHeldStill(POINT down, POINT now);
/// Whether a key is down, for the message being handled.
bool IsDown(int key);
/// Whether the stylus is down now, whatever message is being handled.
bool IsStylusDown();
/// Takes the characters of the key being handled out of `window`'s queue: a menu opened by the key would take
/// them for its own.
void DropTypedCharacters(HWND window);
