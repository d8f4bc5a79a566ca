#pragma once
// The commands that the registry has for opening files.

#include <string_view>

/// Whether the program for files of this kind is named by a command with a quotation mark that is not closed.
/// Wine seeks its end for a minute.
bool HasUnclosedCommand(std::wstring_view file);
