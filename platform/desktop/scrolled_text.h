#pragma once
// A text that is longer than its place on a small screen.

#include <windows.h>

/// Puts a text that can be scrolled by the navigation pad over the static control `text`, which is hidden and
/// keeps the words. The dialog's other keys do what they did. Null when it cannot.
HWND ScrollText(HWND text, const RECT& place);
