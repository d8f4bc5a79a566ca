#pragma once
// Asking for a file.

#include "platform/ce_api.h"

/// Shows the open-file dialog: that of the optional library "getFiles.dll" where it is installed, the
/// platform's own otherwise. True when a file was chosen.
bool ShowOpenFileDialog(OPENFILENAMEW& request);
