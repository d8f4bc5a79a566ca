#pragma once
// The device's paths: "\Folder\name" on the one drive that is the device's root.

#include <string_view>
#include <vector>

#include <windows.h>

/// `path` without the device's own drive letter; a path elsewhere stays as it is.
std::wstring_view RootedPart(std::wstring_view path);

/// The path with its drive letter, terminated. Empty when the platform refuses it.
std::vector<wchar_t> FullPath(const wchar_t* path);

/// The text before the last backslash, empty for what lies in the root.
std::wstring_view FolderPart(std::wstring_view path);

/// The text behind the last backslash.
std::wstring_view NamePart(std::wstring_view path);

/// Equal without regard to case.
bool SameText(std::wstring_view a, std::wstring_view b);
