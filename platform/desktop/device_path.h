#pragma once
// Where the device ends. Every file call is given its path by this: what names another drive, the host or its
// devices never reaches the host.

#include <array>
#include <cstddef>
#include <string_view>

/// A path of the device as the host's calls take it: "\\?\E:\Folder\name", whose names they take letter for
/// letter.
class DevicePath {
  public:
    /// Any spelling of the path, with or without the device's own drive; names may be patterns.
    explicit DevicePath(const wchar_t* path);

    /// False when the path leads off the device or is too long; the last error says so.
    explicit operator bool() const { return length_ != 0; }
    /// For the host's calls; empty when the path is refused.
    const wchar_t* Text() const { return text_.data(); }
    /// As the device writes it: "\Folder\name", the root as "\".
    std::wstring_view Rooted() const;
    /// For programs of the host's side, which know the short form alone: "E:\Folder\name".
    const wchar_t* WithDrive() const;

  private:
    static constexpr std::size_t capacity = 300; // the longest path, and a pattern or a name aside behind it

    std::array<wchar_t, capacity> text_{};
    std::size_t length_ = 0;
};

/// Whether a pipe or a device of the host's has the path. To open one may wait forever, and lets those go on
/// who wait at its other end.
bool IsHostSpecial(const DevicePath& path);

/// The letter of the drive that is the device.
wchar_t DeviceDrive();
