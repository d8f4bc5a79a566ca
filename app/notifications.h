#pragma once
// WM_NOTIFY of the main window: what the panes report.

#include "platform/ce_api.h"

/// Posted to the main window after the list's selection changed.
constexpr UINT UM_SELECTIONCHANGED = WM_USER + 2;

LRESULT OnNotify(WPARAM wParam, LPARAM lParam);
