#pragma once
// Opening a file as a tap on it does.

#include "common/path.h"

class FileList;

/// Opens the file: a shortcut to a folder shows that folder in `list`, everything else goes to the shell.
void OpenItem(FileList& list, const Path& path);
