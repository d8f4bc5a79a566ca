#pragma once
// The soft-key bar at the bottom of the screen.

#include <string>
#include <vector>

#include <windows.h>

/// The bar of a window or dialog; null when it has none.
HWND SoftKeyBarOf(HWND owner);

/// The texts on the bar of a window or dialog, the left one first.
std::vector<std::wstring> SoftKeyTexts(HWND owner);

/// The popup that the soft key with this command opens.
HMENU SoftKeyPopup(HWND owner, UINT command);

bool SoftKeyIsEnabled(HWND owner, UINT command);
