#pragma once
// What the "User Path" dialog decides without a window.

#include <cstddef>
#include <string_view>

/// As many as "Go to" has commands for.
constexpr std::size_t userPathLimit = 16;

/// Where a path that is added begins: at the folder shown, or at the device when that is none to go back to.
std::wstring_view NewUserPath(std::wstring_view currentFolder, std::wstring_view deviceName);

/// The path that a typed text stands for: nothing typed is the device.
std::wstring_view TypedUserPath(std::wstring_view text, std::wstring_view deviceName);

/// True when `path` holds a character that no path may have. Unlike in a name, a backslash may.
bool HasForbiddenPathCharacter(std::wstring_view path);
