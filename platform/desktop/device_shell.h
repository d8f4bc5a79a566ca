#pragma once
// The device shell that the desktop lacks: what its parts know of one another.

#include <windows.h>

#include "platform/ce_types.h"

/// Puts the title strip on the screen and starts listening for the phone's keys. Called once, on the
/// user-interface thread, before the program's first window.
void StartDeviceShell(HINSTANCE instance);

/// The height of the title strip and of the soft-key bar.
int BarHeight();

/// The part of the screen that the programs have: all between the title strip and the soft keys.
RECT WorkArea();
