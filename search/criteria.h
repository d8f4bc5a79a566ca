#pragma once
// What a search asks of files and folders.

#include <array>
#include <cstdint>

#include "common/path.h"
#include "platform/ce_api.h"

/// The order is that of the dialog's list, "Any" standing for the box not checked.
enum class DateMode : std::int32_t { Any, On, Between, Before, After };
enum class SizeMode : std::int32_t { Any, Equal, Minimum, Maximum };

/// Room for the name pattern, which may be longer than any name.
constexpr std::size_t patternCapacity = 520;

/// A day as "YYYYMMDD", which compares like the day itself. Room for any year.
using DayKey = std::array<wchar_t, 16>;

struct SearchCriteria {
    bool subfolders = false;
    bool caseSensitive = false;
    DateMode dateMode = DateMode::Any;
    SizeMode sizeMode = SizeMode::Any;
    std::int32_t sizeKB = 0;
    std::array<wchar_t, patternCapacity> name{}; // folded as nameMatches wants it
    PathText text{};
    DayKey firstDay{};
    DayKey lastDay{};
    Path location; // empty for the root
};

/// The modes that a checked box and its list's selection stand for; -1 is no selection.
DateMode DateModeOf(bool checked, int selection);
SizeMode SizeModeOf(bool checked, int selection);

/// The folder to search: the one that `text` names, or the root when it names none.
Path LocationOf(std::wstring_view text);

DayKey DayOf(const SYSTEMTIME& time);
/// The local day of a file's time.
DayKey LocalDayOf(const FILETIME& time);

/// The tests by day and by size. Before, after and between include the days they name.
bool MatchesDay(const SearchCriteria& criteria, const DayKey& day);
bool MatchesSize(const SearchCriteria& criteria, std::uint32_t bytes);

/// Whether an entry is found by all that needs no look into it: for a file all but its text, for a folder
/// everything. A folder is found by its name alone, when nothing else is asked for.
bool MatchesOutside(const SearchCriteria& criteria, const WIN32_FIND_DATAW& findData);
