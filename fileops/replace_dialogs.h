#pragma once
// What copying and moving ask when a name is taken.

#include "platform/ce_api.h"

/// Asks about the file at `target`, which `source` would replace. Returns the job's next mode (file_job.h).
int AskReplaceFile(HWND owner, const wchar_t* target, const wchar_t* source);

constexpr int useExistingFolder = 1;
constexpr int skipExistingFolder = 2;

/// Asks whether the existing folder may be used. Returns one of the two above.
int AskReplaceFolder(HWND owner, const wchar_t* target);
