// The C library's functions for wide texts, for characters of 16 bits.

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <string_view>

#include <windows.h>

extern "C" {

std::size_t wcslen(const wchar_t* text) {
    std::size_t length = 0;
    while (text[length] != L'\0')
        ++length;
    return length;
}

int wcscmp(const wchar_t* a, const wchar_t* b) {
    const int order = std::wstring_view(a).compare(b);
    return order;
}

wchar_t* wcschr(const wchar_t* text, wchar_t wanted) {
    for (;; ++text) {
        if (*text == wanted)
            return const_cast<wchar_t*>(text);
        if (*text == L'\0')
            return nullptr;
    }
}

wchar_t* wcsrchr(const wchar_t* text, wchar_t wanted) {
    for (std::size_t place = wcslen(text) + 1; place-- > 0;)
        if (text[place] == wanted)
            return const_cast<wchar_t*>(text) + place;
    return nullptr;
}

int wmemcmp(const wchar_t* a, const wchar_t* b, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        if (a[i] != b[i])
            return a[i] < b[i] ? -1 : 1;
    return 0;
}

wchar_t* wmemchr(const wchar_t* text, wchar_t wanted, std::size_t count) {
    const wchar_t* found = std::find(text, text + count, wanted);
    return found == text + count ? nullptr : const_cast<wchar_t*>(found);
}

wchar_t* wmemcpy(wchar_t* to, const wchar_t* from, std::size_t count) {
    std::copy_n(from, count, to);
    return to;
}

wchar_t* wmemmove(wchar_t* to, const wchar_t* from, std::size_t count) {
    __builtin_memmove(to, from, count * sizeof(wchar_t));
    return to;
}

wchar_t* wmemset(wchar_t* to, wchar_t character, std::size_t count) {
    std::fill_n(to, count, character);
    return to;
}

} // extern "C"

/// As Windows has it: what does not fit is cut and not ended, and the answer is -1 then.
int _vsnwprintf(wchar_t* text, std::size_t capacity, const wchar_t* format, __builtin_va_list arguments) {
    std::wstring out;
    while (*format != L'\0') {
        if (*format != L'%') {
            out += *format++;
            continue;
        }
        std::string one(1, static_cast<char>(*format++));
        while (one.back() < 'a' && *format != L'\0')
            one += static_cast<char>(*format++);
        if (one.back() == 's') {
            out += va_arg(arguments, const wchar_t*);
            continue;
        }
        char number[400];
        if (one.back() == 'f')
            std::snprintf(number, sizeof(number), one.c_str(), va_arg(arguments, double));
        else
            std::snprintf(number, sizeof(number), one.c_str(), va_arg(arguments, int));
        out.append(number, number + std::char_traits<char>::length(number));
    }
    std::copy_n(out.data(), std::min(out.size() + 1, capacity), text);
    return out.size() < capacity ? static_cast<int>(out.size()) : -1;
}
