#pragma once
// The names that "New Folder" tries one after another.

#include "common/path.h"

constexpr int lastNewFolderNumber = 4096;

/// "New Folder" for the number 1, "New Folder(2)" for 2 and so on, without a blank.
Path NewFolderName(int number);
