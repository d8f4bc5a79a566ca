#pragma once
// The dialog in which the user picks a folder of the device from a tree.

#include "common/path.h"
#include "platform/ce_api.h"

struct FolderChooserRequest {
    Path folder;          // shown first; the chosen one once confirmed
    bool changed = false; // a folder was made or renamed in the dialog, confirmed or not
};

/// Runs the dialog over `owner`, the main window for null. True when the user confirmed; the folder is left
/// as it was otherwise.
bool ChooseFolder(const wchar_t* title, FolderChooserRequest& choice, HWND owner = nullptr);
