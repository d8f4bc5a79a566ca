#pragma once
// The main window: which message does what.

/// Loads the settings, registers the window's class and makes the window, still without panes.
void CreateMainWindow();

/// Makes the bars and panes, shows the window and lists the first folder.
void ShowMainWindow();
