#pragma once
// WM_NOTIFY of the main window: what the panes report.

#include "platform/ce_api.h"

LRESULT OnNotify(WPARAM wParam, LPARAM lParam);
