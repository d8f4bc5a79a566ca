#include "platform/desktop/open_command.h"

#include <windows.h>

#include <algorithm>
#include <vector>

#include "platform/desktop/rooted_path.h"

namespace {

using Text = std::vector<wchar_t>;

Text Joined(std::wstring_view first, std::wstring_view second) {
    Text text(first.begin(), first.end());
    text.insert(text.end(), second.begin(), second.end());
    text.push_back(L'\0');
    return text;
}

/// A key's default text without its terminator; empty when it has none.
Text DefaultOf(const Text& key) {
    DWORD size = 0;
    constexpr DWORD texts = RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND;
    if (RegGetValueW(HKEY_CLASSES_ROOT, key.data(), nullptr, texts, nullptr, nullptr, &size) != ERROR_SUCCESS)
        return {};
    Text text(size / sizeof(wchar_t) + 1);
    if (RegGetValueW(HKEY_CLASSES_ROOT, key.data(), nullptr, texts, nullptr, text.data(), &size) !=
        ERROR_SUCCESS)
        return {};
    text.erase(std::ranges::find(text, L'\0'), text.end());
    return text;
}

} // namespace

bool HasUnclosedCommand(std::wstring_view file) {
    constexpr std::wstring_view commandKey = L"\\shell\\open\\command";
    const std::wstring_view name = NamePart(file);
    const std::size_t dot = name.rfind(L'.');
    if (dot == std::wstring_view::npos)
        return false;
    const std::wstring_view extension = name.substr(dot);
    const Text type = DefaultOf(Joined(extension, {}));
    Text command = DefaultOf(Joined({type.data(), type.size()}, commandKey));
    if (type.empty() || command.empty())
        command = DefaultOf(Joined(extension, commandKey));
    return std::ranges::count(command, L'"') % 2 != 0;
}
