#pragma once
// How the program takes it that others change the folder it shows.

#include <windows.h>

constexpr UINT folderChanged = WM_USER + 1; // to the main window
constexpr int refreshDelay = 2000;          // milliseconds from the last notice to the refresh
constexpr int refreshAllowance = 2500;      // for a busy machine
