#pragma once
// Asks for a folder's new name.

#include "common/path.h"
#include "platform/ce_api.h"

/// `name` is the old name, and the new one once confirmed. False when the user cancelled.
bool AskFolderName(HWND owner, PathText& name);
