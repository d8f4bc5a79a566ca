#pragma once
// One spelling of a path: what the phone's file system makes of a path by itself, before it looks at any
// file.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

constexpr bool IsSlash(wchar_t character) {
    return character == L'\\' || character == L'/';
}

/// What stands for no drive.
constexpr wchar_t noDrive = L'\0';

namespace spelling {

/// The path without the drive that is the device's own. Nothing when it leads elsewhere: to another drive, to
/// a server, or to the host's own names, "\\?\", "\\.\" and "\??\".
constexpr std::optional<std::wstring_view> OnDevice(std::wstring_view path, wchar_t ownDrive) {
    if (path.size() >= 2 && IsSlash(path[0]) && IsSlash(path[1]))
        return std::nullopt;
    if (path.size() >= 3 && IsSlash(path[0]) && path[1] == L'?' && path[2] == L'?' &&
        (path.size() == 3 || IsSlash(path[3])))
        return std::nullopt;
    if (path.size() < 2 || path[1] != L':')
        return path;
    constexpr wchar_t caseBit = 0x20;
    if (ownDrive == noDrive || (path[0] | caseBit) != (ownDrive | caseBit))
        return std::nullopt;
    return path.substr(2);
}

} // namespace spelling

/// Writes what `path` means as "\Folder\name" into `room`, without a zero, and returns its length, which is 0
/// for the root: slashes are backslashes, doubled and trailing ones and "." say nothing, ".." leads up as far
/// as the root, and what begins with none of them begins there. Letters stay as they are. Nothing when the
/// path leads off the device, whose drive has the letter `ownDrive`, or does not fit.
constexpr std::optional<std::size_t> SpellPath(std::wstring_view path, wchar_t ownDrive,
                                               std::span<wchar_t> room) {
    const std::optional<std::wstring_view> onDevice = spelling::OnDevice(path, ownDrive);
    if (!onDevice)
        return std::nullopt;
    std::size_t length = 0;
    for (std::wstring_view rest = *onDevice; !rest.empty();) {
        const std::size_t end = static_cast<std::size_t>(std::ranges::find_if(rest, IsSlash) - rest.begin());
        const std::wstring_view name = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (name.empty() || name == L".")
            continue;
        if (name == L"..") {
            while (length > 0 && room[--length] != L'\\') {
            }
            continue;
        }
        if (length + 1 + name.size() > room.size())
            return std::nullopt;
        room[length] = L'\\';
        std::ranges::copy(name, room.begin() + static_cast<std::ptrdiff_t>(length) + 1);
        length += 1 + name.size();
    }
    return length;
}
