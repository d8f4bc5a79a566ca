#pragma once
// Asking for a file: the dialog of the optional library "getFiles.dll" where it is installed, the platform's
// own otherwise. Both functions are true when a file was chosen.

#include "platform/ce_api.h"

bool ShowOpenFileDialog(OPENFILENAMEW& request);

/// Without the library the dialog begins where the platform chooses.
bool ShowSaveFileDialog(OPENFILENAMEW& request);
