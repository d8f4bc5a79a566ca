#pragma once
// Names as the host has them, bytes, and as the phone compares them: text without regard to case.

#include <string>
#include <string_view>

/// Whether the bytes are UTF-8.
bool IsText(std::string_view name);

/// Whether the phone can tell of an entry at this path by its name.
bool CanBeTold(std::string_view path);

/// The name in upper case, to compare with others. What is no text compares by its bytes.
std::string UpperCase(std::string_view name);
