#pragma once
// Starting what the list's selected file is handed to.

#include <optional>

#include "filelist/selection_entry.h"
#include "platform/ce_api.h"

/// The list's first selected entry if that is a file.
std::optional<SelectionEntry> SelectedFile();

/// What the shell is to open. A null text stands for none.
struct ShellStart {
    const wchar_t* file = nullptr;
    const wchar_t* parameters = nullptr;
    const wchar_t* directory = nullptr;
    HWND owner = nullptr; // the main window when null
};

/// Opens a file or starts a program through the shell. What cannot be started is not reported.
void StartThroughShell(const ShellStart& start);
