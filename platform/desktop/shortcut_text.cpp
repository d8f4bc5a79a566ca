#include "platform/desktop/shortcut_text.h"

#include <algorithm>
#include <cstdio>

#include <windows.h>

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Cuts the first line off `text` and returns it without its end. A zero ends the text like the file's end.
std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of(std::string_view("\r\n\0", 3)), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    if (text.starts_with('\r'))
        text.remove_prefix(1);
    if (text.starts_with('\n'))
        text.remove_prefix(1);
    return line;
}

/// The text without an icon at its end. A "?" may also be part of an argument: only "?module,-id" is an icon.
std::string_view WithoutIcon(std::string_view text) {
    const std::size_t mark = text.rfind('?');
    const std::size_t comma = text.rfind(',');
    if (mark == std::string_view::npos || comma == std::string_view::npos || comma < mark)
        return text;
    std::string_view id = text.substr(comma + 1);
    if (id.starts_with('-'))
        id.remove_prefix(1);
    const bool number = !id.empty() && std::all_of(id.begin(), id.end(), IsDigit);
    return number ? text.substr(0, mark) : text;
}

std::vector<wchar_t> Decode(UINT codePage, DWORD flags, std::string_view bytes) {
    const int length = static_cast<int>(bytes.size());
    const int wide = MultiByteToWideChar(codePage, flags, bytes.data(), length, nullptr, 0);
    std::vector<wchar_t> text(static_cast<std::size_t>(std::max(wide, 0)));
    if (!text.empty())
        MultiByteToWideChar(codePage, flags, bytes.data(), length, text.data(), wide);
    return text;
}

} // namespace

std::vector<wchar_t> ReadShortcutText(std::span<const char> bytes) {
    std::string_view rest(bytes.data(), bytes.size());
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (rest.starts_with(byteOrderMark))
        rest.remove_prefix(byteOrderMark.size());
    while (rest.starts_with(';'))
        TakeLine(rest);

    const std::string_view line = TakeLine(rest);
    const std::size_t hash = line.find('#');
    if (hash == std::string_view::npos || hash == 0 ||
        !std::all_of(line.begin(), line.begin() + hash, IsDigit))
        return {};
    const std::string_view target = WithoutIcon(line.substr(hash + 1));
    std::vector<wchar_t> text = Decode(CP_UTF8, MB_ERR_INVALID_CHARS, target);
    return text.empty() ? Decode(CP_ACP, 0, target) : text;
}

std::vector<char> WriteShortcutText(std::wstring_view target) {
    const int wide = static_cast<int>(target.size());
    const int length = WideCharToMultiByte(CP_UTF8, 0, target.data(), wide, nullptr, 0, nullptr, nullptr);
    char count[16];
    const int digits = std::snprintf(count, sizeof(count), "%d#", length);
    std::vector<char> bytes(static_cast<std::size_t>(digits + length));
    std::copy_n(count, digits, bytes.begin());
    WideCharToMultiByte(CP_UTF8, 0, target.data(), wide, bytes.data() + digits, length, nullptr, nullptr);
    return bytes;
}
