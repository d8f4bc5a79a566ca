#include "search/criteria.h"

#include <algorithm>
#include <cwchar>

#include "common/outside_path.h"
#include "common/text.h"
#include "search/name_match.h"

namespace {

bool MatchesName(const SearchCriteria& criteria, const WIN32_FIND_DATAW& entry) {
    PathText name{};
    CopyTextTo(name, entry.cFileName);
    const std::size_t length = std::wcslen(name.data());
    FoldCase({name.data(), length});
    return nameMatches({name.data(), length}, criteria.name.data());
}

} // namespace

DateMode DateModeOf(bool checked, int selection) {
    return checked ? static_cast<DateMode>(std::max(selection, 0) + 1) : DateMode::Any;
}

SizeMode SizeModeOf(bool checked, int selection) {
    return checked ? static_cast<SizeMode>(std::max(selection, 0) + 1) : SizeMode::Any;
}

Path LocationOf(std::wstring_view text) {
    Path location;
    if (!TakeOutsidePath(text, location))
        return {};
    const DWORD attributes = ce::GetFileAttributesW(location.Text());
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_DIRECTORY))
        return {};
    return location;
}

DayKey DayOf(const SYSTEMTIME& time) {
    DayKey day{};
    FormatText(day, L"%04d%02d%02d", time.wYear, time.wMonth, time.wDay);
    return day;
}

DayKey LocalDayOf(const FILETIME& time) {
    FILETIME local{};
    SYSTEMTIME day{};
    FileTimeToLocalFileTime(&time, &local);
    FileTimeToSystemTime(&local, &day);
    return DayOf(day);
}

bool MatchesDay(const SearchCriteria& criteria, const DayKey& day) {
    const int toFirst = std::wcscmp(day.data(), criteria.firstDay.data());
    const int toLast = std::wcscmp(day.data(), criteria.lastDay.data());
    switch (criteria.dateMode) {
    case DateMode::On:
        return toFirst == 0;
    case DateMode::Between:
        return toFirst >= 0 && toLast <= 0;
    case DateMode::Before:
        return toFirst <= 0;
    case DateMode::After:
        return toFirst >= 0;
    default:
        return true;
    }
}

bool MatchesSize(const SearchCriteria& criteria, std::uint32_t bytes) {
    const std::uint32_t kilobytes = bytes >> 10;
    const auto asked = static_cast<std::uint32_t>(criteria.sizeKB); // below zero: more than any file has
    switch (criteria.sizeMode) {
    case SizeMode::Equal:
        return kilobytes == asked;
    case SizeMode::Minimum:
        return kilobytes >= asked;
    case SizeMode::Maximum:
        return kilobytes <= asked;
    default:
        return true;
    }
}

bool MatchesOutside(const SearchCriteria& criteria, const WIN32_FIND_DATAW& findData) {
    const bool named = criteria.name[0] != L'\0';
    if (named && !MatchesName(criteria, findData))
        return false;
    if (findData.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
        return named && criteria.dateMode == DateMode::Any && criteria.sizeMode == SizeMode::Any &&
               criteria.text[0] == L'\0';
    if (criteria.dateMode != DateMode::Any && !MatchesDay(criteria, LocalDayOf(findData.ftLastWriteTime)))
        return false;
    return MatchesSize(criteria, findData.nFileSizeLow);
}
