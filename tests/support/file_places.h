#pragma once
// Where files lie.

#include <string>

/// The folder of a file or folder, without a backslash at its end.
std::wstring FolderOf(const std::wstring& path);

/// The full path of a file that is built with the tests and lies beside them.
std::wstring BesideTests(const std::wstring& name);
