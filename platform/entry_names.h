#pragma once
// The names that entries have, and those that no path can say.

#include <algorithm>
#include <string_view>

namespace names {

/// What a listing of the host's puts for bytes that are no text: many names look alike by it.
constexpr wchar_t unreadable = 0xFFFD;

constexpr bool HasOneOf(std::wstring_view name, std::wstring_view characters) {
    return name.find_first_of(characters) != std::wstring_view::npos;
}

} // namespace names

/// Whether a path that ends in the name leads to the entry that is listed so, and to no other. A name with a
/// backslash, or with a blank or dot at its end, would as a path mean another file; one with a control
/// character or a wildcard means none.
constexpr bool LeadsToEntry(std::wstring_view name) {
    return !name.empty() && name.back() != L'.' && name.back() != L' ' &&
           !names::HasOneOf(name, L"\\/*?\"<>|") && std::ranges::none_of(name, [](wchar_t character) {
               return character < L' ' || character == names::unreadable;
           });
}

/// Whether the phone takes the name for an entry that is made or renamed.
constexpr bool IsNewPhoneName(std::wstring_view name) {
    return LeadsToEntry(name) && !names::HasOneOf(name, L":");
}
