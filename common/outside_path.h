#pragma once
// Paths that come from outside the program: typed, stored, handed over, or in a shortcut.

#include <string_view>

#include "common/path.h"

/// Becomes what `text` means on the device: "\Folder\name", the root the empty path. Letters stay as they
/// are, and so does a backslash at the end. False, with `path` as it was, when the text leads off the device
/// or is too long.
[[nodiscard]] bool TakeOutsidePath(std::wstring_view text, Path& path);

/// The same for the program that a shortcut starts, whose name alone stays a name: the shell looks for it.
[[nodiscard]] bool TakeOutsideProgram(std::wstring_view text, Path& program);
