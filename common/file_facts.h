#pragma once
// What is at a path.

#include "common/path.h"

/// A file or a folder is there.
bool Exists(const wchar_t* path);

/// A folder is there; the root is one.
bool IsExistingFolder(const wchar_t* path);

/// Cuts `folder` at its last backslash until it is an existing folder or none is left.
void CutToExisting(Path& folder);
