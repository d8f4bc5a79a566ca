#pragma once
// The command table: which number does what, in the pane that has the focus.

#include "app/app_state.h"
#include "platform/ce_api.h"

/// WM_COMMAND of the main window: menus, soft keys, accelerators, translated keys, the address bar.
LRESULT OnCommand(WPARAM wParam, LPARAM lParam);

/// Gives the focus to a pane; the list takes it for a tree that is hidden.
void FocusPane(Pane pane);

bool IsListFocused();
bool IsTreeFocused();
