#pragma once
// What the status bar says about the folder shown.

#include <cstdint>
#include <string_view>

/// "Loading...", while a folder is read.
void ShowLoadingStatus();

/// With an address bar: files and bytes. Without one: the count, the size and the folder's name.
void ShowFolderStatus(int fileCount, std::uint32_t totalBytes, std::wstring_view folder);
