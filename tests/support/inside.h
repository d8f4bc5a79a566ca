#pragma once
// What can only be found out inside the program: a library that is loaded into it tells.

#include <cstddef>

#include <windows.h>

/// Runs an export of the probe library (probe/probe.h) in the program of `window`; it reads and fills in the
/// record.
void RunInside(HWND window, const char* function, void* record, std::size_t size);

/// The answer to a message that Wine does not let out of the process, such as WM_GETICON.
LRESULT AskInside(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

/// What a list has asked the program for since the last call.
struct Asked {
    UINT texts;
    UINT icons;
};
Asked AskedByList(HWND list);

/// How many folders the program of `window` has begun to read since the last call.
UINT LooksOf(HWND window);

/// The font a window draws with.
LOGFONTW FontOf(HWND window);
