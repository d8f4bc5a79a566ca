#pragma once
// Another process's message at a chosen moment of the program's work.

#include <string>

#include <windows.h>

/// Has the program handed `folder` over at one of the places where it lets messages in: in the midst of its
/// work, where another start's would arrive by chance. `place` counts from 0. Memory that is freed is spoilt
/// from then on, so that who still reads it is seen.
void HandOverAt(HWND window, unsigned place, const std::wstring& folder);

/// Ends that, and tells how many places the program has passed since.
unsigned PlacesPassed(HWND window);
