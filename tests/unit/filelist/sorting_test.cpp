#include "filelist/sorting.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "resources/resource.h"

namespace {

FileItem Entry(ItemKind kind, std::wstring_view name, std::uint32_t size = 0, std::uint32_t time = 0) {
    FileItem item;
    item.kind = kind;
    item.name = CopyText(name);
    item.size = size;
    item.time.dwLowDateTime = time;
    return item;
}

FileItem File(std::wstring_view name, std::uint32_t size = 0, std::uint32_t time = 0) {
    return Entry(ItemKind::File, name, size, time);
}

FileItem Folder(std::wstring_view name, std::uint32_t time = 0) {
    return Entry(ItemKind::Folder, name, 0, time);
}

using Names = std::vector<std::wstring>;

/// The names in the order of the key and direction.
template <class... Items>
Names Sorted(std::uint32_t key, bool ascending, Items... items) {
    std::vector<FileItem> records;
    (records.push_back(std::move(items)), ...);
    std::vector<FileItem*> order;
    for (FileItem& record : records)
        order.push_back(&record);
    ListOptions options;
    options.sortKey = key;
    options.ascending = ascending;
    SortItems(order, options);
    Names names;
    for (const FileItem* item : order)
        names.emplace_back(item->name.get());
    return names;
}

} // namespace

TEST(Sorting, UpLevelThenFoldersThenFilesWhateverTheKey) {
    for (std::uint32_t key : {sortByName, sortByType, sortBySize, sortByDate}) {
        for (bool ascending : {true, false}) {
            EXPECT_EQ(
                Sorted(key, ascending, File(L"a", 1, 1), Folder(L"m", 5), Entry(ItemKind::UpLevel, L"..")),
                Names({L"..", L"m", L"a"}));
        }
    }
}

TEST(Sorting, NameUpwardsIgnoresCase) {
    EXPECT_EQ(Sorted(sortByName, true, File(L"cherry"), File(L"Banana"), File(L"apple")),
              Names({L"apple", L"Banana", L"cherry"}));
}

TEST(Sorting, NameDownwardsGoesByExactLetters) {
    EXPECT_EQ(Sorted(sortByName, false, File(L"apple"), File(L"Banana"), File(L"cherry")),
              Names({L"cherry", L"apple", L"Banana"}));
}

TEST(Sorting, TypeUpwardsLeadsWithoutExtension) {
    EXPECT_EQ(Sorted(sortByType, true, File(L"b.TXT"), File(L"README"), File(L"a.txt")),
              Names({L"README", L"a.txt", L"b.TXT"}));
}

TEST(Sorting, TypeDownwardsTrailsWithoutExtension) {
    EXPECT_EQ(Sorted(sortByType, false, File(L"README"), File(L"a.txt"), File(L"b.TXT")),
              Names({L"b.TXT", L"a.txt", L"README"}));
}

TEST(Sorting, LeadingDotBeginsAnExtension) {
    EXPECT_EQ(Sorted(sortByType, true, File(L".profile"), File(L"x.cpp"), File(L"zebra")),
              Names({L"zebra", L"x.cpp", L".profile"}));
}

TEST(Sorting, FoldersStayInNameOrderByTypeAndSize) {
    for (std::uint32_t key : {sortByType, sortBySize}) {
        for (bool ascending : {true, false})
            EXPECT_EQ(Sorted(key, ascending, Folder(L"C"), Folder(L"a"), Folder(L"B")),
                      Names({L"a", L"B", L"C"}));
    }
}

TEST(Sorting, SizeIsUnsigned) {
    EXPECT_EQ(Sorted(sortBySize, true, File(L"huge", 0xF0000000), File(L"small", 3), File(L"none")),
              Names({L"none", L"small", L"huge"}));
    EXPECT_EQ(Sorted(sortBySize, false, File(L"small", 3), File(L"huge", 0xF0000000)),
              Names({L"huge", L"small"}));
}

TEST(Sorting, DateOrdersFoldersToo) {
    EXPECT_EQ(Sorted(sortByDate, true, Folder(L"a", 9), Folder(L"b", 2), File(L"c", 0, 5), File(L"d", 0, 1)),
              Names({L"b", L"a", L"d", L"c"}));
    EXPECT_EQ(Sorted(sortByDate, false, Folder(L"b", 2), Folder(L"a", 9), File(L"d", 0, 1), File(L"c", 0, 5)),
              Names({L"a", L"b", L"c", L"d"}));
}

TEST(Sorting, UnknownKeySortsByName) {
    EXPECT_EQ(Sorted(7, true, File(L"b", 1), File(L"a", 2)), Names({L"a", L"b"}));
}

TEST(Sorting, TwoWithoutExtensionCompareAsFirstFirst) {
    const FileItem a = File(L"a");
    const FileItem b = File(L"b");
    EXPECT_LT(CompareByType(a, b, true), 0);
    EXPECT_LT(CompareByType(b, a, true), 0);
    EXPECT_GT(CompareByType(a, b, false), 0);
    EXPECT_GT(CompareByType(b, a, false), 0);
}

TEST(SortCommands, KeyKeepsTheDirectionAndReverseTurnsIt) {
    ListOptions options;
    options.ascending = 0;
    EXPECT_TRUE(ApplySortCommand(options, IDM_ARRANGE_DATE));
    EXPECT_EQ(options.sortKey, sortByDate);
    EXPECT_EQ(options.ascending, 0u);
    EXPECT_TRUE(ApplySortCommand(options, IDM_ARRANGE_REVERSE));
    EXPECT_EQ(options.ascending, 1u);
    options.ascending = 5;
    EXPECT_TRUE(ApplySortCommand(options, IDM_ARRANGE_REVERSE));
    EXPECT_EQ(options.ascending, 0u);
    EXPECT_FALSE(ApplySortCommand(options, IDM_VIEW_LARGE));
}

TEST(ColumnClick, SameKeyTurnsTheDirectionAnotherKeepsIt) {
    ListOptions options;
    options.sortKey = sortBySize;
    ApplyColumnClick(options, 1);
    EXPECT_EQ(options.ascending, 0u);
    ApplyColumnClick(options, 2);
    EXPECT_EQ(options.sortKey, sortByType);
    EXPECT_EQ(options.ascending, 0u);
    ApplyColumnClick(options, 3);
    EXPECT_EQ(options.sortKey, sortByDate);
    ApplyColumnClick(options, 0);
    EXPECT_EQ(options.sortKey, sortByName);
    ApplyColumnClick(options, 4);
    EXPECT_EQ(options.sortKey, sortByName);
    EXPECT_EQ(options.ascending, 0u);
}
