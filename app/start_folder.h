#pragma once
// The folder that a start is given: by its command line, or handed over by a second start.

#include "common/path.h"
#include "platform/ce_api.h"

/// WM_COPYDATA's dwData when a second start hands its folder over.
constexpr ULONG_PTR COPYDATA_OPEN_FOLDER = 563;

/// The folder that the command line names, as a pointer into its text, or null when it names none. Cuts the
/// text at a closing quotation mark.
wchar_t* ParseCommandLine(wchar_t* commandLine);

/// Measures a hand-over before it is read: takes the path over only when the block is of the right kind,
/// whole characters, no longer than a path and ends in a zero. False otherwise.
bool ReadHandOver(const COPYDATASTRUCT* data, Path& path);
