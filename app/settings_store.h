#pragma once
// The registry values the program keeps between runs. They are read once at start and written once on close.
// A value that is missing or cannot be read leaves the default; nothing is reported.

#include "app/settings.h"
#include "filelist/file_list.h"
#include "platform/ce_api.h"

/// Takes the special folders' defaults from the shell, then every stored setting over them.
void LoadSettings(Settings& settings);
void SaveSettings(const Settings& settings);

/// Stores the full path of the program's file, for others to find it. Never read by the program.
void SaveProgramPath();

/// What the command bar shows. The tool bar always starts hidden.
void LoadCommandBarState(CommandBands& bands);
void SaveCommandBarState(const CommandBands& bands);

/// The address bar's list, its first eight entries. `combo` may be null.
void LoadRecent(HWND combo);
void SaveRecent(HWND combo);

/// The list's own values. Saving reads the columns' widths back first, in the details styles.
void LoadListSettings(FileList& list);
void SaveListSettings(FileList& list);
