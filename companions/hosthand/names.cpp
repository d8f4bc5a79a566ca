#include "companions/hosthand/names.h"

#include <algorithm>
#include <cstdint>
#include <cwctype>

namespace {

constexpr char32_t noCharacter = 0xFFFFFFFF;

/// Takes the first character from the text, or gives noCharacter when there is none there.
char32_t TakeCharacter(std::string_view& text) {
    if (text.empty())
        return noCharacter;
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = first < 0x80   ? 1
                               : first < 0xC2 ? 0
                               : first < 0xE0 ? 2
                               : first < 0xF0 ? 3
                               : first < 0xF5 ? 4
                                              : 0;
    if (length == 0 || length > text.size())
        return noCharacter;
    char32_t character = length == 1 ? first : first & (0x7F >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80)
            return noCharacter;
        character = character << 6 | (next & 0x3F);
    }
    const bool isOverlong = (length == 3 && character < 0x800) || (length == 4 && character < 0x10000);
    if (isOverlong || character > 0x10FFFF || (character >= 0xD800 && character < 0xE000))
        return noCharacter;
    text.remove_prefix(length);
    return character;
}

void Append(std::string& text, char32_t character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
        return;
    }
    const int more = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    text += static_cast<char>((0xF00 >> more & 0xFF) | character >> 6 * more);
    for (int i = more - 1; i >= 0; --i)
        text += static_cast<char>(0x80 | (character >> 6 * i & 0x3F));
}

} // namespace

bool IsText(std::string_view name) {
    while (!name.empty())
        if (TakeCharacter(name) == noCharacter)
            return false;
    return true;
}

bool CanBeTold(std::string_view path) {
    return IsText(path) && std::ranges::none_of(path, [](char character) {
               return character == '\\' || static_cast<unsigned char>(character) < ' ';
           });
}

std::string UpperCase(std::string_view name) {
    std::string upper;
    upper.reserve(name.size());
    for (std::string_view left = name; !left.empty();) {
        const char32_t character = TakeCharacter(left);
        if (character == noCharacter)
            return std::string(name);
        Append(upper, static_cast<char32_t>(std::towupper(static_cast<std::wint_t>(character))));
    }
    return upper;
}
