#include "filelist/sorting.h"

#include <algorithm>
#include <deque>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "resources/resource.h"

namespace {

using Texts = std::vector<std::wstring>;

constexpr std::uint32_t allKeys[] = {sortByName, sortByType, sortBySize, sortByDate, 7};
constexpr bool directions[] = {true, false};

FileItem Item(ItemKind kind, const wchar_t* name, std::uint32_t size = 0, FILETIME time = {}) {
    FileItem item;
    item.kind = kind;
    item.name = CopyText(name);
    item.size = size;
    item.time = time;
    return item;
}

FileItem File(const wchar_t* name, std::uint32_t size = 0, FILETIME time = {}) {
    return Item(ItemKind::File, name, size, time);
}

FileItem Folder(const wchar_t* name, FILETIME time = {}) {
    return Item(ItemKind::Folder, name, 0, time);
}

ListOptions Order(std::uint32_t key, bool ascending) {
    ListOptions options;
    options.sortKey = key;
    options.ascending = ascending;
    return options;
}

/// Entries in the order that the options give them.
class Entries {
  public:
    void Add(FileItem item) { items_.push_back(std::move(item)); }

    Texts Sorted(std::uint32_t key, bool ascending) {
        std::vector<FileItem*> pointers;
        for (FileItem& item : items_)
            pointers.push_back(&item);
        SortItems(pointers, Order(key, ascending));
        Texts names;
        for (const FileItem* item : pointers)
            names.emplace_back(item->name.get());
        return names;
    }

  private:
    std::deque<FileItem> items_;
};

Entries FilesNamed(const Texts& names) {
    Entries entries;
    for (const std::wstring& name : names)
        entries.Add(File(name.c_str()));
    return entries;
}

TEST(Comparators, PutUpLevelBeforeFoldersBeforeFilesAlways) {
    const FileItem upLevel = Item(ItemKind::UpLevel, L"..", 9, {9, 9});
    const FileItem folder = Item(ItemKind::Folder, L"m", 5, {5, 5});
    const FileItem file = Item(ItemKind::File, L"a", 1, {1, 1});
    const FileItem lateFile = Item(ItemKind::File, L"z.z", 20, {20, 20});
    for (std::uint32_t key : allKeys) {
        for (bool ascending : directions) {
            const ItemComparator compare = ComparatorOf(key);
            EXPECT_EQ(compare(upLevel, folder, ascending), -1);
            EXPECT_EQ(compare(folder, upLevel, ascending), 1);
            for (const FileItem* other : {&file, &lateFile}) {
                EXPECT_EQ(compare(upLevel, *other, ascending), -1);
                EXPECT_EQ(compare(folder, *other, ascending), -1);
                EXPECT_EQ(compare(*other, folder, ascending), 1);
                EXPECT_EQ(compare(*other, upLevel, ascending), 1);
            }
        }
    }
}

TEST(SortByName, GoesUpWithoutRegardToCase) {
    EXPECT_EQ(FilesNamed({L"cherry", L"Banana", L"apple"}).Sorted(sortByName, true),
              Texts({L"apple", L"Banana", L"cherry"}));
    EXPECT_EQ(CompareByName(File(L"SAME"), File(L"same"), true), 0);
}

TEST(SortByName, GoesDownByExactLetters) {
    EXPECT_EQ(FilesNamed({L"apple", L"Banana", L"cherry"}).Sorted(sortByName, false),
              Texts({L"cherry", L"apple", L"Banana"}));
    EXPECT_LT(CompareByName(File(L"same"), File(L"SAME"), false), 0) << "small letters have higher codes";
    EXPECT_GT(CompareByName(File(L"SAME"), File(L"same"), false), 0);
    EXPECT_LT(CompareByName(File(L"\u00E4"), File(L"z"), false), 0);
}

TEST(SortByName, OrdersFoldersLikeFiles) {
    EXPECT_LT(CompareByName(Folder(L"apple"), Folder(L"Banana"), true), 0);
    EXPECT_LT(CompareByName(Folder(L"apple"), Folder(L"Banana"), false), 0);
    EXPECT_LT(CompareByName(Folder(L"b"), Folder(L"a"), false), 0);
}

TEST(SortByType, LetsFilesWithoutExtensionLeadUpwardsAndTrailDownwards) {
    const Texts names = {L"b.TXT", L"README", L"a.txt"};
    EXPECT_EQ(FilesNamed(names).Sorted(sortByType, true), Texts({L"README", L"a.txt", L"b.TXT"}));
    EXPECT_EQ(FilesNamed(names).Sorted(sortByType, false), Texts({L"b.TXT", L"a.txt", L"README"}));
}

TEST(SortByType, ComparesExtensionsThenNames) {
    EXPECT_LT(CompareByType(File(L"z.doc"), File(L"a.TXT"), true), 0);
    EXPECT_GT(CompareByType(File(L"z.doc"), File(L"a.TXT"), false), 0);
    EXPECT_LT(CompareByType(File(L"a.TXT"), File(L"B.txt"), true), 0);
    EXPECT_GT(CompareByType(File(L"a.TXT"), File(L"B.txt"), false), 0);
    EXPECT_EQ(CompareByType(File(L"A.TXT"), File(L"a.txt"), true), 0);
    EXPECT_EQ(CompareByType(File(L"A.TXT"), File(L"a.txt"), false), 0)
        << "without regard to case in both directions";
}

TEST(SortByType, TakesTheExtensionFromTheLastDotOn) {
    EXPECT_LT(CompareByType(File(L"a.zip.doc"), File(L"b.txt"), true), 0);
    EXPECT_LT(CompareByType(File(L".doc"), File(L".profile"), true), 0) << "a name may be all extension";
    EXPECT_LT(CompareByType(File(L"dot."), File(L"a.a"), true), 0) << "a lone dot is the least extension";
    EXPECT_LT(CompareByType(File(L"plain"), File(L"dot."), true), 0);
}

TEST(SortByType, IsIrregularForFilesWithoutExtension) {
    for (const auto& [first, second] :
         {std::pair(L"a", L"b"), std::pair(L"b", L"a"), std::pair(L"a", L"a")}) {
        EXPECT_LT(CompareByType(File(first), File(second), true), 0) << "whichever is asked about first";
        EXPECT_GT(CompareByType(File(first), File(second), false), 0);
    }
    EXPECT_LT(CompareByType(File(L"z"), File(L"a.a"), true), 0);
    EXPECT_GT(CompareByType(File(L"a.a"), File(L"z"), true), 0);
    EXPECT_GT(CompareByType(File(L"z"), File(L"a.a"), false), 0);
    EXPECT_LT(CompareByType(File(L"a.a"), File(L"z"), false), 0);
}

TEST(SortByTypeAndSize, KeepFoldersInAscendingNameOrder) {
    for (std::uint32_t key : {sortByType, sortBySize}) {
        for (bool ascending : directions) {
            const ItemComparator compare = ComparatorOf(key);
            EXPECT_LT(compare(Folder(L"a.z"), Folder(L"B.a"), ascending), 0);
            EXPECT_GT(compare(Folder(L"B.a"), Folder(L"a.z"), ascending), 0);
            EXPECT_EQ(compare(Folder(L"SAME"), Folder(L"same"), ascending), 0);
        }
    }
}

TEST(SortBySize, ComparesUnsignedSizesAlone) {
    EXPECT_LT(CompareBySize(File(L"b", 1), File(L"a", 2), true), 0);
    EXPECT_GT(CompareBySize(File(L"b", 1), File(L"a", 2), false), 0);
    EXPECT_LT(CompareBySize(File(L"a", 0x7FFFFFFF), File(L"a", 0x80000000), true), 0);
    EXPECT_GT(CompareBySize(File(L"a", 0xFFFFFFFF), File(L"a", 0), true), 0);
    for (bool ascending : directions)
        EXPECT_EQ(CompareBySize(File(L"a", 5), File(L"b", 5), ascending), 0);
}

TEST(SortByDate, ComparesTimesOfFoldersAndFilesAlone) {
    for (ItemKind kind : {ItemKind::Folder, ItemKind::File}) {
        const FileItem early = Item(kind, L"z", 0, {0xFFFFFFFF, 1});
        const FileItem late = Item(kind, L"a", 0, {0, 2});
        EXPECT_LT(CompareByDate(early, late, true), 0);
        EXPECT_GT(CompareByDate(late, early, true), 0);
        EXPECT_GT(CompareByDate(early, late, false), 0);
        EXPECT_LT(CompareByDate(late, early, false), 0);
        for (bool ascending : directions)
            EXPECT_EQ(CompareByDate(Item(kind, L"a", 1, {3, 3}), Item(kind, L"b", 2, {3, 3}), ascending), 0);
    }
}

TEST(SortItems, SortsByNameForANumberThatIsNoKey) {
    EXPECT_EQ(ComparatorOf(4), CompareByName);
    EXPECT_EQ(ComparatorOf(7), CompareByName);
    EXPECT_EQ(ComparatorOf(0xFFFFFFFF), CompareByName);
    EXPECT_EQ(ComparatorOf(sortByName), CompareByName);
    EXPECT_EQ(ComparatorOf(sortByType), CompareByType);
    EXPECT_EQ(ComparatorOf(sortBySize), CompareBySize);
    EXPECT_EQ(ComparatorOf(sortByDate), CompareByDate);
}

TEST(SortItems, KeepsTheGroupsInEveryOrder) {
    Entries entries;
    entries.Add(File(L"b.txt", 2, {2, 0}));
    entries.Add(Folder(L"F1", {1, 0}));
    entries.Add(File(L"a", 3, {3, 0}));
    entries.Add(Item(ItemKind::UpLevel, L".."));
    entries.Add(Folder(L"F2", {2, 0}));
    for (std::uint32_t key : allKeys) {
        for (bool ascending : directions) {
            const Texts sorted = entries.Sorted(key, ascending);
            EXPECT_EQ(sorted[0], L"..");
            EXPECT_EQ(sorted[1][0], L'F');
            EXPECT_EQ(sorted[2][0], L'F');
        }
    }
}

TEST(SortItems, LeavesNoNeighboursInTheWrongOrder) {
    std::mt19937 random(1);
    std::deque<FileItem> items;
    std::vector<FileItem*> pointers;
    for (int number = 0; number < 500; ++number) {
        const std::wstring name = std::to_wstring(random() % 1000) + L"." + std::to_wstring(random() % 20);
        items.push_back(File(name.c_str(), static_cast<std::uint32_t>(random() % 100),
                             {static_cast<DWORD>(random()), static_cast<DWORD>(random() % 4)}));
        pointers.push_back(&items.back());
    }
    for (std::uint32_t key : allKeys) {
        for (bool ascending : directions) {
            SortItems(pointers, Order(key, ascending));
            for (std::size_t place = 0; place + 1 < pointers.size(); ++place)
                EXPECT_LE(ComparatorOf(key)(*pointers[place], *pointers[place + 1], ascending), 0);
        }
    }
}

TEST(SortItems, BearsFoldersFullOfFilesWithoutExtension) {
    for (std::size_t count : {0u, 1u, 2u, 3u, 17u, 1000u}) {
        Texts names;
        for (std::size_t number = 0; number < count; ++number)
            names.push_back(std::to_wstring(number));
        for (bool ascending : directions) {
            Texts sorted = FilesNamed(names).Sorted(sortByType, ascending);
            std::ranges::sort(sorted);
            Texts expected = names;
            std::ranges::sort(expected);
            EXPECT_EQ(sorted, expected) << "each once";
        }
    }
}

TEST(SortCommands, SetTheKeyAndKeepTheDirection) {
    const std::pair<int, std::uint32_t> keys[] = {
        {IDM_ARRANGE_NAME, 0}, {IDM_ARRANGE_TYPE, 1}, {IDM_ARRANGE_SIZE, 2}, {IDM_ARRANGE_DATE, 3}};
    for (bool ascending : directions) {
        for (const auto& [command, key] : keys) {
            ListOptions options = Order(7, ascending);
            EXPECT_TRUE(ApplySortCommand(options, command));
            EXPECT_EQ(options.sortKey, key);
            EXPECT_EQ(options.ascending, ascending ? 1u : 0u);
            EXPECT_TRUE(ApplySortCommand(options, command)) << "again";
            EXPECT_EQ(options.ascending, ascending ? 1u : 0u);
        }
    }
}

TEST(SortCommands, TurnTheDirectionRound) {
    ListOptions options = Order(sortBySize, true);
    EXPECT_TRUE(ApplySortCommand(options, IDM_ARRANGE_REVERSE));
    EXPECT_EQ(options.ascending, 0u);
    EXPECT_TRUE(ApplySortCommand(options, IDM_ARRANGE_REVERSE));
    EXPECT_EQ(options.ascending, 1u);
    options.ascending = 12;
    ApplySortCommand(options, IDM_ARRANGE_REVERSE);
    EXPECT_EQ(options.ascending, 0u) << "any number but 0 is the normal direction";
    EXPECT_EQ(options.sortKey, sortBySize);
}

TEST(SortCommands, LeaveEverythingForOtherCommands) {
    ListOptions options = Order(sortBySize, false);
    for (int command : {0, IDM_VIEW_LARGE, IDM_FILE_DELETE})
        EXPECT_FALSE(ApplySortCommand(options, command));
    EXPECT_EQ(options.sortKey, sortBySize);
    EXPECT_EQ(options.ascending, 0u);
}

TEST(ColumnClicks, SetTheColumnsKey) {
    const std::uint32_t keys[] = {sortByName, sortBySize, sortByType, sortByDate};
    for (int column = 0; column < 4; ++column) {
        ListOptions options = Order(7, false);
        ApplyColumnClick(options, column);
        EXPECT_EQ(options.sortKey, keys[column]);
        EXPECT_EQ(options.ascending, 0u);
    }
}

TEST(ColumnClicks, TurnTheDirectionRoundOnTheCurrentColumn) {
    ListOptions options = Order(sortBySize, true);
    ApplyColumnClick(options, 1);
    EXPECT_EQ(options.sortKey, sortBySize);
    EXPECT_EQ(options.ascending, 0u);
    ApplyColumnClick(options, 2);
    EXPECT_EQ(options.sortKey, sortByType);
    EXPECT_EQ(options.ascending, 0u) << "another column keeps the direction";
    ApplyColumnClick(options, 2);
    EXPECT_EQ(options.ascending, 1u);
}

TEST(ColumnClicks, IgnoreColumnsThatAreNone) {
    ListOptions options = Order(sortBySize, true);
    for (int column : {-1, 4, 1000})
        ApplyColumnClick(options, column);
    EXPECT_EQ(options.sortKey, sortBySize);
    EXPECT_EQ(options.ascending, 1u);
}

} // namespace
