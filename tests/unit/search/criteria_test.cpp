#include "search/criteria.h"

#include <string>

#include <gtest/gtest.h>

#include "common/text.h"
#include "search/name_match.h"

namespace {

DayKey Day(WORD year, WORD month, WORD day) {
    return DayOf({year, month, 0, day, 0, 0, 0, 0});
}

/// The time that is `hour` o'clock on that day here.
FILETIME LocalTime(WORD year, WORD month, WORD day, WORD hour) {
    const SYSTEMTIME local{year, month, 0, day, hour, 30, 0, 0};
    FILETIME time{};
    FILETIME result{};
    SystemTimeToFileTime(&local, &time);
    LocalFileTimeToFileTime(&time, &result);
    return result;
}

SearchCriteria Dated(DateMode mode, const DayKey& first, const DayKey& last = {}) {
    SearchCriteria criteria;
    criteria.dateMode = mode;
    criteria.firstDay = first;
    criteria.lastDay = last;
    return criteria;
}

SearchCriteria Sized(SizeMode mode, std::int32_t kilobytes) {
    SearchCriteria criteria;
    criteria.sizeMode = mode;
    criteria.sizeKB = kilobytes;
    return criteria;
}

SearchCriteria Named(std::wstring name) {
    SearchCriteria criteria;
    FoldCase(name);
    CopyTextTo(criteria.name, name);
    return criteria;
}

WIN32_FIND_DATAW FileNamed(std::wstring_view name, DWORD size = 0) {
    WIN32_FIND_DATAW entry{};
    entry.dwFileAttributes = FILE_ATTRIBUTE_ARCHIVE;
    CopyTextTo(entry.cFileName, name);
    entry.nFileSizeLow = size;
    entry.ftLastWriteTime = LocalTime(2006, 5, 1, 12);
    return entry;
}

WIN32_FIND_DATAW FolderNamed(std::wstring_view name) {
    WIN32_FIND_DATAW entry = FileNamed(name);
    entry.dwFileAttributes = FILE_ATTRIBUTE_DIRECTORY;
    return entry;
}

} // namespace

TEST(SearchCriteria, ModesFollowTheBoxAndItsList) {
    EXPECT_EQ(DateModeOf(false, 2), DateMode::Any);
    EXPECT_EQ(DateModeOf(true, -1), DateMode::On);
    EXPECT_EQ(DateModeOf(true, 0), DateMode::On);
    EXPECT_EQ(DateModeOf(true, 1), DateMode::Between);
    EXPECT_EQ(DateModeOf(true, 2), DateMode::Before);
    EXPECT_EQ(DateModeOf(true, 3), DateMode::After);
    EXPECT_EQ(SizeModeOf(false, 1), SizeMode::Any);
    EXPECT_EQ(SizeModeOf(true, -1), SizeMode::Equal);
    EXPECT_EQ(SizeModeOf(true, 1), SizeMode::Minimum);
    EXPECT_EQ(SizeModeOf(true, 2), SizeMode::Maximum);
}

TEST(SearchCriteria, LocationIsTheRootUnlessAFolderIsNamed) {
    EXPECT_STREQ(LocationOf(L"\\My Documents").Text(), L"\\My Documents");
    EXPECT_STREQ(LocationOf(L"\\").Text(), L"");
    EXPECT_STREQ(LocationOf(L"").Text(), L"");
    EXPECT_STREQ(LocationOf(L"\\No such folder").Text(), L"");
    EXPECT_STREQ(LocationOf(L"\\My Documents\\Welcome.txt").Text(), L"");
    EXPECT_STREQ(LocationOf(std::wstring(400, L'a')).Text(), L"");
}

TEST(SearchCriteria, DaysCompareLikeDays) {
    EXPECT_STREQ(Day(2006, 5, 1).data(), L"20060501");
    EXPECT_STREQ(LocalDayOf(LocalTime(2006, 5, 1, 0)).data(), L"20060501");
    EXPECT_STREQ(LocalDayOf(LocalTime(2006, 5, 1, 23)).data(), L"20060501");
}

TEST(SearchCriteria, OnADay) {
    const SearchCriteria criteria = Dated(DateMode::On, Day(2006, 5, 1));
    EXPECT_TRUE(MatchesDay(criteria, Day(2006, 5, 1)));
    EXPECT_FALSE(MatchesDay(criteria, Day(2006, 5, 2)));
    EXPECT_FALSE(MatchesDay(criteria, Day(2006, 4, 30)));
}

TEST(SearchCriteria, BetweenTwoDaysIncludesBoth) {
    const SearchCriteria criteria = Dated(DateMode::Between, Day(2006, 5, 1), Day(2006, 6, 1));
    EXPECT_TRUE(MatchesDay(criteria, Day(2006, 5, 1)));
    EXPECT_TRUE(MatchesDay(criteria, Day(2006, 5, 20)));
    EXPECT_TRUE(MatchesDay(criteria, Day(2006, 6, 1)));
    EXPECT_FALSE(MatchesDay(criteria, Day(2006, 4, 30)));
    EXPECT_FALSE(MatchesDay(criteria, Day(2006, 6, 2)));
}

TEST(SearchCriteria, BetweenDaysInTheWrongOrderIsNothing) {
    const SearchCriteria criteria = Dated(DateMode::Between, Day(2006, 6, 1), Day(2006, 5, 1));
    EXPECT_FALSE(MatchesDay(criteria, Day(2006, 5, 15)));
}

TEST(SearchCriteria, BeforeAndAfterIncludeTheDayItself) {
    const SearchCriteria before = Dated(DateMode::Before, Day(2006, 5, 1));
    EXPECT_TRUE(MatchesDay(before, Day(2006, 5, 1)));
    EXPECT_TRUE(MatchesDay(before, Day(1999, 12, 31)));
    EXPECT_FALSE(MatchesDay(before, Day(2006, 5, 2)));
    const SearchCriteria after = Dated(DateMode::After, Day(2006, 5, 1));
    EXPECT_TRUE(MatchesDay(after, Day(2006, 5, 1)));
    EXPECT_TRUE(MatchesDay(after, Day(2010, 1, 1)));
    EXPECT_FALSE(MatchesDay(after, Day(2006, 4, 30)));
}

TEST(SearchCriteria, SizesAreWholeKilobytes) {
    EXPECT_TRUE(MatchesSize(Sized(SizeMode::Equal, 0), 1023));
    EXPECT_FALSE(MatchesSize(Sized(SizeMode::Equal, 0), 1024));
    EXPECT_TRUE(MatchesSize(Sized(SizeMode::Equal, 1), 2047));
    EXPECT_TRUE(MatchesSize(Sized(SizeMode::Minimum, 0), 0));
    EXPECT_TRUE(MatchesSize(Sized(SizeMode::Minimum, 2), 2048));
    EXPECT_FALSE(MatchesSize(Sized(SizeMode::Minimum, 2), 2047));
    EXPECT_TRUE(MatchesSize(Sized(SizeMode::Maximum, 2), 3071));
    EXPECT_FALSE(MatchesSize(Sized(SizeMode::Maximum, 2), 3072));
}

TEST(SearchCriteria, SizesHaveNoSign) {
    EXPECT_TRUE(MatchesSize(Sized(SizeMode::Maximum, -1), 0xFFFFFFFF));
    EXPECT_FALSE(MatchesSize(Sized(SizeMode::Minimum, -1), 0xFFFFFFFF));
    EXPECT_FALSE(MatchesSize(Sized(SizeMode::Equal, -1), 0xFFFFFFFF));
    EXPECT_TRUE(MatchesSize(Sized(SizeMode::Equal, 0x3FFFFF), 0xFFFFFFFF));
}

TEST(SearchCriteria, WithoutANameEveryFileAndNoFolderIsFound) {
    EXPECT_TRUE(MatchesOutside({}, FileNamed(L"a.txt")));
    EXPECT_FALSE(MatchesOutside({}, FolderNamed(L"a")));
}

TEST(SearchCriteria, FilesAreFoundByNameDayAndSize) {
    EXPECT_TRUE(MatchesOutside(Named(L"txt"), FileNamed(L"ReadMe.TXT")));
    EXPECT_FALSE(MatchesOutside(Named(L"doc"), FileNamed(L"ReadMe.TXT")));
    SearchCriteria criteria = Dated(DateMode::Before, Day(2006, 5, 1));
    EXPECT_TRUE(MatchesOutside(criteria, FileNamed(L"a")));
    criteria.firstDay = Day(2006, 4, 30);
    EXPECT_FALSE(MatchesOutside(criteria, FileNamed(L"a")));
    EXPECT_TRUE(MatchesOutside(Sized(SizeMode::Minimum, 3), FileNamed(L"a", 3072)));
    EXPECT_FALSE(MatchesOutside(Sized(SizeMode::Minimum, 3), FileNamed(L"a", 3071)));
}

TEST(SearchCriteria, AFolderIsFoundByItsNameAlone) {
    SearchCriteria criteria = Named(L"rep");
    EXPECT_TRUE(MatchesOutside(criteria, FolderNamed(L"Reports")));
    EXPECT_FALSE(MatchesOutside(criteria, FolderNamed(L"Letters")));

    criteria.text[0] = L'x';
    EXPECT_FALSE(MatchesOutside(criteria, FolderNamed(L"Reports")));
    criteria.text[0] = L'\0';
    criteria.sizeMode = SizeMode::Minimum;
    EXPECT_FALSE(MatchesOutside(criteria, FolderNamed(L"Reports")));
    criteria.sizeMode = SizeMode::Any;
    criteria.dateMode = DateMode::After;
    EXPECT_FALSE(MatchesOutside(criteria, FolderNamed(L"Reports")));
}

TEST(SearchCriteria, ThePatternMayBeLongerThanAnyName) {
    EXPECT_TRUE(MatchesOutside(Named(std::wstring(500, L'*') + L"a"), FileNamed(L"a")));
    EXPECT_FALSE(MatchesOutside(Named(std::wstring(500, L'*') + L"b"), FileNamed(L"a")));
}
