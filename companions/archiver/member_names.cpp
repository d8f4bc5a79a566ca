#include "companions/archiver/member_names.h"

#include <algorithm>
#include <array>

#include <windows.h>

namespace archiver {

namespace {

constexpr std::wstring_view climbs = L"the name leads out of the target folder";
constexpr std::wstring_view wholePath = L"the name is a whole path, not one below the target folder";
constexpr std::wstring_view deviceName = L"the name is a device's";
constexpr std::wstring_view badEnd = L"the name ends in a dot or a blank";
constexpr std::wstring_view badLetter = L"the name holds a character that file names cannot have";
constexpr std::wstring_view noName = L"without a name";
constexpr std::wstring_view tooLong = L"the name is too long";
constexpr std::size_t longestPart = 255, longestPath = 4000; // characters

bool IsBadLetter(wchar_t letter) {
    constexpr std::wstring_view forbidden = L"<>:\"|?*";
    return letter < L' ' || letter == 0x7F || forbidden.find(letter) != std::wstring_view::npos;
}

wchar_t Upper(wchar_t letter) {
    return letter >= L'a' && letter <= L'z' ? static_cast<wchar_t>(letter - L'a' + L'A') : letter;
}

/// Why a part between backslashes is not a safe one; empty when it is.
std::wstring_view FaultOfPart(std::wstring_view part) {
    if (part == L"..")
        return climbs;
    if (part.size() > longestPart)
        return tooLong;
    if (std::any_of(part.begin(), part.end(), IsBadLetter))
        return badLetter;
    if (part.back() == L'.' || part.back() == L' ')
        return badEnd;
    return IsDeviceName(part) ? deviceName : std::wstring_view();
}

bool IsWholePath(std::wstring_view name) {
    const bool drive = name.size() > 1 && name[1] == L':' && Upper(name[0]) >= L'A' && Upper(name[0]) <= L'Z';
    return drive || name.front() == L'\\' || name.front() == L'/';
}

} // namespace

bool IsDeviceName(std::wstring_view part) {
    std::wstring stem(part.substr(0, part.find_first_of(L".:")));
    while (!stem.empty() && stem.back() == L' ')
        stem.pop_back();
    std::transform(stem.begin(), stem.end(), stem.begin(), Upper);
    constexpr std::array<std::wstring_view, 7> plain = {L"CON",    L"PRN",     L"AUX",   L"NUL",
                                                        L"CONIN$", L"CONOUT$", L"CLOCK$"};
    if (std::find(plain.begin(), plain.end(), stem) != plain.end())
        return true;
    // The three superscript digits count as digits there.
    return stem.size() == 4 && (stem.starts_with(L"COM") || stem.starts_with(L"LPT")) &&
           std::wstring_view(L"0123456789\u00B9\u00B2\u00B3").find(stem[3]) != std::wstring_view::npos;
}

NameVerdict JudgeName(std::wstring_view name) {
    if (name.empty())
        return {{}, std::wstring(noName)};
    if (IsWholePath(name))
        return {{}, std::wstring(wholePath)};
    if (name.size() > longestPath)
        return {{}, std::wstring(tooLong)};
    std::wstring path;
    while (!name.empty()) {
        const std::size_t end = std::min(name.find_first_of(L"\\/"), name.size());
        const std::wstring_view part = name.substr(0, end);
        name.remove_prefix(std::min(end + 1, name.size()));
        if (part.empty() || part == L".")
            continue;
        if (const std::wstring_view fault = FaultOfPart(part); !fault.empty())
            return {{}, std::wstring(fault)};
        if (!path.empty())
            path += L'\\';
        path += part;
    }
    return path.empty() ? NameVerdict{{}, std::wstring(noName)} : NameVerdict{path, {}};
}

std::optional<std::wstring> DecodeName(std::string_view bytes, unsigned codePage) {
    const int length = static_cast<int>(bytes.size());
    if (length == 0)
        return std::wstring();
    std::wstring text(bytes.size() * 2, L'\0');
    const int count = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), length, text.data(),
                                          static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(std::max(count, 0)));
    return count > 0 ? std::optional(text) : std::nullopt;
}

std::optional<std::string> EncodeName(std::wstring_view text, unsigned codePage) {
    const int length = static_cast<int>(text.size());
    if (length == 0)
        return std::string();
    const bool utf8 = codePage == CP_UTF8;
    std::string bytes(text.size() * 4, '\0');
    BOOL lost = FALSE;
    const int count =
        WideCharToMultiByte(codePage, utf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS, text.data(), length,
                            bytes.data(), static_cast<int>(bytes.size()), nullptr, utf8 ? nullptr : &lost);
    bytes.resize(static_cast<std::size_t>(std::max(count, 0)));
    return count > 0 && !lost ? std::optional(bytes) : std::nullopt;
}

} // namespace archiver
