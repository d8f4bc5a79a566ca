#pragma once
// The phone's shortcut files: a decimal count, "#", and that many characters of command line. In the wild
// they also have comment lines in front, an icon behind ("?module,-id"), and counts that are wrong.

#include <span>
#include <string_view>
#include <vector>

/// The target in a shortcut file's bytes, its quotes included and not terminated. Empty when there is none.
/// The count is not trusted: the target ends with its line.
std::vector<wchar_t> ReadShortcutText(std::span<const char> bytes);

/// The bytes of a shortcut file to `target`. What is not ASCII is written as UTF-8 and counted in bytes.
std::vector<char> WriteShortcutText(std::wstring_view target);
