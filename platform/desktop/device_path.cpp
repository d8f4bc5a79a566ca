#include "platform/ce_api.h"

#include <algorithm>
#include <optional>
#include <span>

#include "platform/desktop/device_path.h"
#include "platform/path_spelling.h"

namespace {

constexpr std::wstring_view hostPrefix = L"\\\\?\\";
constexpr std::size_t drivePart = 2; // "E:"

/// The drive that the program's entry has made the current one.
wchar_t ReadDeviceDrive() {
    wchar_t folder[MAX_PATH] = L"";
    const DWORD length = GetCurrentDirectoryW(MAX_PATH, folder);
    return length >= drivePart && length < MAX_PATH && folder[1] == L':' ? folder[0] : noDrive;
}

} // namespace

wchar_t DeviceDrive() {
    static const wchar_t drive = ReadDeviceDrive(); // the host's dialogs may go to another one
    return drive;
}

DevicePath::DevicePath(const wchar_t* path) {
    if (path == nullptr || *path == L'\0' || DeviceDrive() == noDrive) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return;
    }
    constexpr std::size_t front = hostPrefix.size() + drivePart;
    const std::span<wchar_t> room(text_.data() + front, capacity - front - 2); // a backslash and the end
    const std::optional<std::size_t> rooted = SpellPath(path, DeviceDrive(), room);
    if (!rooted) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return;
    }
    std::ranges::copy(hostPrefix, text_.begin());
    text_[hostPrefix.size()] = DeviceDrive();
    text_[hostPrefix.size() + 1] = L':';
    length_ = front + *rooted;
    if (*rooted == 0)
        text_[length_++] = L'\\';
    text_[length_] = L'\0'; // what ".." took back lies behind it
}

std::wstring_view DevicePath::Rooted() const {
    constexpr std::size_t front = hostPrefix.size() + drivePart;
    return length_ == 0 ? std::wstring_view() : std::wstring_view(text_.data() + front, length_ - front);
}

const wchar_t* DevicePath::WithDrive() const {
    return length_ == 0 ? text_.data() : text_.data() + hostPrefix.size();
}

bool IsHostSpecial(const DevicePath& path) {
    return ::GetFileAttributesW(path.Text()) == INVALID_FILE_ATTRIBUTES &&
           GetLastError() == ERROR_INVALID_PARAMETER;
}

namespace ce {

BOOL ResolvePath(const wchar_t* path, wchar_t* resolved, int capacity) {
    if (resolved == nullptr || capacity <= 0)
        return FALSE;
    *resolved = L'\0';
    const DevicePath device(path);
    if (!device)
        return FALSE;
    const std::wstring_view rooted = device.Rooted();
    const bool keepsSlash = rooted.size() > 1 && IsSlash(std::wstring_view(path).back());
    if (rooted.size() + (keepsSlash ? 1 : 0) >= static_cast<std::size_t>(capacity)) {
        SetLastError(ERROR_FILENAME_EXCED_RANGE);
        return FALSE;
    }
    wchar_t* end = std::ranges::copy(rooted, resolved).out;
    if (keepsSlash)
        *end++ = L'\\';
    *end = L'\0';
    return TRUE;
}

} // namespace ce
