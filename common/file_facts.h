#pragma once
// What is at a path.

/// A file or a folder is there.
bool Exists(const wchar_t* path);

/// A folder is there; the root is one.
bool IsExistingFolder(const wchar_t* path);
