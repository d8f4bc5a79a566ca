#include "common/menu_text.h"

#include <algorithm>

OwnedText MenuTextOf(std::wstring_view name) {
    constexpr wchar_t keyMark = L'&';
    OwnedText text(
        new wchar_t[name.size() + static_cast<std::size_t>(std::ranges::count(name, keyMark)) + 1]);
    wchar_t* end = text.get();
    for (const wchar_t character : name) {
        if (character == keyMark)
            *end++ = keyMark;
        *end++ = character;
    }
    *end = L'\0';
    return text;
}
