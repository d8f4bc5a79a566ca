#pragma once
// "Options...": what the list shows and how, on a page of its own and on those its soft-key menu leads to.

/// Runs the options over the main window, and shows the list anew by them. True when the user confirmed them,
/// or icons have changed with a page that was.
bool ShowOptions();
