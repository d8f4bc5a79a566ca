#pragma once
// Subclassing windows of this thread. The common controls' own subclassing makes Wine ask its server two or
// three times for every message of a window, which is a quarter of all that a dialog asks while it comes up
// and goes.

#include <windows.h>

/// Gives the window another procedure, until it is destroyed. A second call with the same one does nothing.
void Subclass(HWND window, WNDPROC procedure);

/// For that procedure: what the window does without it. WM_NCDESTROY has to be passed on as well.
LRESULT CallNextProc(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
