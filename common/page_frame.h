#pragma once
// The place of dialogs and the header that option and property pages share.

#include "platform/ce_api.h"

/// Moves `window` to the middle of the main window.
void CenterOnMainWindow(HWND window, HWND mainWindow);

/// WM_PAINT of option and property pages: the line under the page's title. Returns 1.
LRESULT PaintPageHeader(HWND page);

/// WM_CTLCOLORSTATIC of pages: title and captions stand out. Returns the brush, or 0 for other controls.
LRESULT ColorPageTitle(HDC context, HWND control);
