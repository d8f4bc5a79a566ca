#pragma once
// The command line that a shortcut holds.

#include <string_view>

struct ShortcutTarget {
    std::wstring_view program;
    std::wstring_view parameters; // empty when there are none
};

/// Splits a shortcut's text behind its quoted program, or at the first blank when it is not quoted.
ShortcutTarget SplitShortcutTarget(std::wstring_view text);

/// Whether the text names a network server and nothing on it, with or without an opening quote.
bool IsServerTarget(std::wstring_view text);
