#include "common/text.h"

#include <algorithm>
#include <cstdarg>
#include <cwchar>

OwnedText CopyText(std::wstring_view text) {
    OwnedText copy(new wchar_t[text.size() + 1]);
    *std::copy(text.begin(), text.end(), copy.get()) = L'\0';
    return copy;
}

void CopyTextTo(std::span<wchar_t> out, std::wstring_view text) {
    const std::wstring_view fitting = text.substr(0, out.size() - 1);
    *std::copy(fitting.begin(), fitting.end(), out.begin()) = L'\0';
}

std::size_t FormatText(std::span<wchar_t> out, const wchar_t* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int written = _vsnwprintf(out.data(), out.size(), format, arguments);
    va_end(arguments);
    const std::size_t length =
        written < 0 ? out.size() - 1 : std::min(static_cast<std::size_t>(written), out.size() - 1);
    out[length] = L'\0';
    return length;
}
