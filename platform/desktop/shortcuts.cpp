#include "platform/ce_api.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/desktop/rooted_path.h"
#include "platform/desktop/shell_link.h"
#include "platform/desktop/shortcut_text.h"
#include "platform/handles.h"

namespace {

/// The file's beginning, which holds all that a shortcut is; empty when it cannot be read.
std::vector<char> ReadBeginning(const wchar_t* path) {
    constexpr DWORD most = 64 * 1024;
    const FileHandle file(ce::CreateFileW(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                          OPEN_EXISTING, 0, nullptr));
    if (!file)
        return {};
    LARGE_INTEGER size{};
    GetFileSizeEx(file.Get(), &size);
    std::vector<char> bytes(static_cast<std::size_t>(std::min<LONGLONG>(size.QuadPart, most)));
    DWORD read = 0;
    if (bytes.empty() ||
        !ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr))
        return {};
    bytes.resize(read);
    return bytes;
}

/// A shell link as a phone's shortcut would say it: the quoted path, then the arguments.
std::vector<wchar_t> PhoneTarget(const ShellLink& link) {
    const std::wstring_view path = RootedPart({link.path.data(), link.path.size()});
    std::vector<wchar_t> target{L'"'};
    target.insert(target.end(), path.begin(), path.end());
    target.push_back(L'"');
    if (!link.arguments.empty())
        target.push_back(L' ');
    target.insert(target.end(), link.arguments.begin(), link.arguments.end());
    return target;
}

std::vector<wchar_t> ReadTarget(const wchar_t* shortcut) {
    const std::vector<char> bytes = ReadBeginning(shortcut);
    const std::optional<ShellLink> link = ReadShellLink(bytes);
    return link ? PhoneTarget(*link) : ReadShortcutText(bytes);
}

} // namespace

namespace ce {

BOOL SHCreateShortcut(const wchar_t* shortcut, const wchar_t* target) {
    if (shortcut == nullptr || target == nullptr || *target == L'\0') {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    FileHandle file(
        ce::CreateFileW(shortcut, GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        return FALSE;
    const std::vector<char> bytes = WriteShortcutText(target);
    DWORD written = 0;
    if (WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
        written == bytes.size())
        return TRUE;
    file.Reset();
    ce::DeleteFileW(shortcut); // half a shortcut leads nowhere
    return FALSE;
}

BOOL SHGetShortcutTarget(const wchar_t* shortcut, wchar_t* target, int capacity) {
    if (target == nullptr || capacity <= 0)
        return FALSE;
    *target = L'\0';
    if (shortcut == nullptr)
        return FALSE;
    const std::vector<wchar_t> text = ReadTarget(shortcut);
    if (text.empty() || text.size() >= static_cast<std::size_t>(capacity))
        return FALSE;
    *std::copy(text.begin(), text.end(), target) = L'\0';
    return TRUE;
}

} // namespace ce
