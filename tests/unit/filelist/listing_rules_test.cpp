#include "filelist/listing_rules.h"

#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "common/path.h"
#include "resources/resource.h"

namespace {

constexpr DWORD folder = FILE_ATTRIBUTE_DIRECTORY;

ListOptions Hiding(bool hidden, bool system, bool rom) {
    ListOptions options;
    options.hideHiddenFiles = hidden;
    options.hideSystemFiles = system;
    options.hideRomFiles = rom;
    return options;
}

/// Every combination of the three options.
std::vector<ListOptions> AllHiding() {
    std::vector<ListOptions> all;
    for (unsigned bits = 0; bits < 8; ++bits)
        all.push_back(Hiding(bits & 1, bits & 2, bits & 4));
    return all;
}

WIN32_FIND_DATAW Found(const wchar_t* name, DWORD attributes) {
    WIN32_FIND_DATAW found{};
    CopyTextTo(found.cFileName, name);
    found.dwFileAttributes = attributes;
    found.ftCreationTime = {1, 10};
    found.ftLastAccessTime = {2, 20};
    found.ftLastWriteTime = {3000000000, 29000000};
    found.nFileSizeHigh = 1;
    found.nFileSizeLow = 0x40000000;
    return found;
}

TEST(ListingRules, HideFilesByTheirBitAndItsOptionAlone) {
    for (const ListOptions& options : AllHiding()) {
        for (DWORD bits = 0; bits < 0x100; ++bits) {
            if (bits & folder)
                continue;
            const bool hidden = (bits & 0x2 && options.hideHiddenFiles) ||
                                (bits & 0x4 && options.hideSystemFiles) ||
                                (bits & 0x40 && options.hideRomFiles);
            EXPECT_EQ(IsListed(L"name.txt", bits, options), !hidden) << "attributes " << bits;
        }
    }
}

TEST(ListingRules, HideFoldersByTheHiddenBitAlone) {
    for (const ListOptions& options : AllHiding()) {
        for (DWORD bits = 0; bits < 0x200; ++bits) {
            const bool hidden = bits & 0x2 && options.hideHiddenFiles;
            EXPECT_EQ(IsListed(L"name", bits | folder, options), !hidden) << "attributes " << bits;
        }
    }
}

TEST(ListingRules, NeverListTheRecyclersFolderButAFileOfThatName) {
    const ListOptions options = Hiding(false, false, false);
    for (const wchar_t* name : {L"Recycled", L"RECYCLED", L"recycled", L"rEcYcLeD"}) {
        EXPECT_FALSE(IsListed(name, folder, options));
        EXPECT_TRUE(IsListed(name, 0, options));
    }
    EXPECT_TRUE(IsListed(L"Recycled2", folder, options));
    EXPECT_TRUE(IsListed(L"Recycle", folder, options));
}

TEST(ListingRules, TakeAFilesWriteTimeAsLocalTime) {
    const WIN32_FIND_DATAW found = Found(L"letter.txt", FILE_ATTRIBUTE_ARCHIVE);
    const FileItem item = MakeFileItem(L"\\My Documents", found);
    FILETIME local{};
    ASSERT_TRUE(FileTimeToLocalFileTime(&found.ftLastWriteTime, &local));
    EXPECT_EQ(CompareFileTime(&item.time, &local), 0);
    EXPECT_EQ(item.kind, ItemKind::File);
    EXPECT_STREQ(item.folder, L"\\My Documents");
    EXPECT_STREQ(item.name.get(), L"letter.txt");
    EXPECT_EQ(item.attributes, static_cast<DWORD>(FILE_ATTRIBUTE_ARCHIVE));
}

TEST(ListingRules, TakeAFoldersCreationTimeAsItStands) {
    const FileItem item = MakeFileItem(L"", Found(L"Fonts", folder | FILE_ATTRIBUTE_SYSTEM));
    EXPECT_EQ(item.time.dwLowDateTime, 1u);
    EXPECT_EQ(item.time.dwHighDateTime, 10u);
    EXPECT_EQ(item.kind, ItemKind::Folder);
    EXPECT_EQ(item.size, 0u);
    EXPECT_EQ(item.attributes, folder | FILE_ATTRIBUTE_SYSTEM);
}

TEST(ListingRules, KeepTheLowWordOfALargeFilesSize) {
    EXPECT_EQ(MakeFileItem(L"", Found(L"film.avi", 0)).size, 0x40000000u) << "of 5 GB";
}

TEST(ListingRules, LeaveIconAndTextsForTheFirstDrawing) {
    for (DWORD attributes : {DWORD{0}, folder}) {
        const FileItem item = MakeFileItem(L"", Found(L"name", attributes));
        EXPECT_EQ(item.iconIndex, iconWhenDrawn);
        EXPECT_FALSE(item.displayName);
        EXPECT_FALSE(item.sizeText);
        EXPECT_FALSE(item.typeText);
        EXPECT_FALSE(item.dateText);
    }
}

TEST(ListingRules, BeginTheUpLevelEntryWithTheFirstImage) {
    const FileItem upLevel;
    EXPECT_EQ(upLevel.kind, ItemKind::UpLevel);
    EXPECT_EQ(upLevel.iconIndex, 0);
    EXPECT_EQ(std::wstring(upLevelName), L"..");
}

TEST(ListingRules, SelectTheChildOneComesFromOnTheWayUp) {
    EXPECT_EQ(NameToReselect(L"\\Windows", L"\\Windows\\Fonts"), L"Fonts");
    EXPECT_EQ(NameToReselect(L"", L"\\Windows"), L"Windows");
    EXPECT_EQ(NameToReselect(L"\\A", L"\\A\\B"), L"B");
}

TEST(ListingRules, SelectTheSameNameAfterARefresh) {
    EXPECT_EQ(NameToReselect(L"\\A\\B", L"\\A\\B"), L"B") << "matches only an entry B of B itself";
}

TEST(ListingRules, CompareOnlyTheBeginningOnTheWayUp) {
    EXPECT_EQ(NameToReselect(L"\\Apples", L"\\A\\B"), L"B") << "begins with the parent's text";
    EXPECT_EQ(NameToReselect(L"\\Anything", L"\\Windows"), L"Windows") << "the root's text is empty";
    EXPECT_EQ(NameToReselect(L"\\a", L"\\A\\B"), L"") << "case counts";
    EXPECT_EQ(NameToReselect(L"\\Temp", L"\\Windows\\Fonts"), L"");
    EXPECT_EQ(NameToReselect(L"\\Win", L"\\Windows\\Fonts"), L"") << "shorter than the parent";
}

TEST(ListingRules, SelectNothingWithoutAFolderBefore) {
    EXPECT_EQ(NameToReselect(L"\\Windows", L""), L"");
    EXPECT_EQ(NameToReselect(L"\\Windows", L"no backslash"), L"");
    EXPECT_EQ(NameToReselect(L"\\Windows", L"\\Windows\\"), L"") << "typed with a backslash at its end";
}

TEST(ListingRules, LeaveTheUpLevelEntryOutOfTheCount) {
    EXPECT_EQ(StatusFileCount(5, true, L"\\Windows"), 4);
    EXPECT_EQ(StatusFileCount(5, false, L"\\Windows"), 5);
    EXPECT_EQ(StatusFileCount(5, true, L""), 5) << "the root has none";
    EXPECT_EQ(StatusFileCount(5, true, searchFolder), 5) << "nor have search results";
    EXPECT_EQ(StatusFileCount(5, true, L"file search"), 4) << "which are told apart exactly";
}

TEST(ListingRules, TurnOffWhatMakesNoSenseAmongSearchResults) {
    const std::set<int> off = {IDM_TOOLBAR_PASTE_SHORTCUT, IDM_SENDTO_ZIP,        IDM_FILE_SHORTCUT,
                               IDM_FILE_NEW_FOLDER,        IDM_TOOLBAR_UP_FOLDER, IDM_TOOLBAR_PASTE};
    for (int command = 0; command < 0x10000; ++command)
        EXPECT_EQ(FilterForSearchResults(command), off.contains(command) ? 0 : command);
}

} // namespace
