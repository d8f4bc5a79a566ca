#pragma once
// What shortcuts are called and what they hold.

#include <array>
#include <string_view>

#include "common/path.h"

struct ShortcutNaming {
    bool mention = true;       // "Shortcut to" leads the name
    bool keepExtension = true; // of the target
};

constexpr int lastShortcutNumber = 511;

/// The part of the names that comes from the target's.
std::wstring_view ShortcutBase(std::wstring_view targetName, ShortcutNaming naming);

/// The shortcut file in `folder` for the given number, which is left out of the name when it is 1. False when
/// the path would be too long.
[[nodiscard]] bool AssignShortcutPath(Path& path, std::wstring_view folder, std::wstring_view base,
                                      ShortcutNaming naming, int number);

/// A shortcut's text: the target's path in quotation marks.
using ShortcutText = std::array<wchar_t, pathCapacity + 2>;
ShortcutText QuotedTarget(const Path& target);
