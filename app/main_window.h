#pragma once
// The main window: which message does what.

#include "platform/ce_api.h"

/// Timers of the main window.
constexpr UINT_PTR treeSyncTimer = 2;
constexpr UINT_PTR refreshTimer = 5;
constexpr UINT refreshDelay = 2000; // milliseconds

/// Posted to itself after the list's selection changed.
constexpr UINT UM_SELECTIONCHANGED = WM_USER + 2;

/// Loads the settings, registers the window's class and makes the window, still without panes.
void CreateMainWindow();

/// Makes the bars and panes, shows the window and lists the first folder.
void ShowMainWindow();
