#pragma once
// Stands in for the program's view of the platform.

#include <windows.h>

#include "platform/ce_types.h"

namespace ce {

BOOL FindClose(HANDLE find);
int GetNumberFormatW(LCID locale, DWORD flags, const wchar_t* number, const NUMBERFMTW* format, wchar_t* text,
                     int capacity);

} // namespace ce
