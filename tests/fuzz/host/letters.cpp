// The code pages, near enough: UTF-8 as it is, one byte a letter in DOS, up to two in Japan. A capacity of 0
// asks for the length.

#include <windows.h>

#include <string>

DWORD GetLastError() {
    return 1;
}

DWORD FormatMessageW(DWORD, const void*, DWORD, DWORD, wchar_t*, DWORD, void*) {
    return 0;
}

namespace {

/// How many bytes the letter at `at` has in UTF-8; 0 when there is none.
int LengthOfLetter(const unsigned char* at, int left) {
    const int length = *at < 0x80 ? 1 : *at >= 0xC2 && *at < 0xE0 ? 2 : *at >= 0xE0 && *at < 0xF0 ? 3 : 0;
    for (int i = 1; i < length; ++i)
        if (i >= left || (at[i] & 0xC0) != 0x80)
            return 0;
    return length;
}

} // namespace

int MultiByteToWideChar(UINT codePage, DWORD, const char* bytes, int length, wchar_t* text, int capacity) {
    const auto* at = reinterpret_cast<const unsigned char*>(bytes);
    int count = 0;
    while (length > 0 && (capacity == 0 || count < capacity)) {
        int taken = 1;
        wchar_t letter = *at;
        if (codePage == CP_UTF8) {
            taken = LengthOfLetter(at, length);
            if (taken == 0)
                return 0;
            letter = taken == 1   ? at[0]
                     : taken == 2 ? (at[0] & 0x1F) << 6 | (at[1] & 0x3F)
                                  : (at[0] & 0xF) << 12 | (at[1] & 0x3F) << 6 | (at[2] & 0x3F);
        } else if (codePage == 932 && *at >= 0x81 && (*at < 0xA0 || *at >= 0xE0)) {
            if (length < 2 || at[1] < 0x40)
                return 0;
            taken = 2;
            letter = at[0] << 8 | at[1];
        }
        if (capacity != 0)
            text[count] = letter;
        ++count;
        at += taken;
        length -= taken;
    }
    return count;
}

int WideCharToMultiByte(UINT codePage, DWORD, const wchar_t* text, int length, char* bytes, int capacity,
                        const char*, BOOL* lost) {
    std::string out;
    for (int i = 0; i < length; ++i) {
        const auto letter = static_cast<std::uint32_t>(text[i]);
        if (codePage != CP_UTF8) {
            if (letter > 0xFF && lost)
                *lost = 1;
            out += static_cast<char>(letter);
        } else if (letter < 0x80) {
            out += static_cast<char>(letter);
        } else if (letter < 0x800) {
            out += static_cast<char>(0xC0 | letter >> 6);
            out += static_cast<char>(0x80 | (letter & 0x3F));
        } else {
            out += static_cast<char>(0xE0 | (letter >> 12 & 0xF));
            out += static_cast<char>(0x80 | (letter >> 6 & 0x3F));
            out += static_cast<char>(0x80 | (letter & 0x3F));
        }
    }
    if (capacity != 0 && static_cast<int>(out.size()) > capacity)
        return 0;
    if (capacity != 0)
        out.copy(bytes, out.size());
    return static_cast<int>(out.size());
}
