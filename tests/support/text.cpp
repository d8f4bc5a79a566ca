#include "tests/support/text.h"

#include <windows.h>

std::string Narrow(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    std::string narrow(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr),
                       '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), static_cast<int>(narrow.size()),
                        nullptr, nullptr);
    return narrow;
}

std::wstring Widen(std::string_view text) {
    const int length = static_cast<int>(text.size());
    std::wstring wide(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
    return wide;
}
