#include "filelist/icon_rules.h"

#include <string>

#include <gtest/gtest.h>

#include "filelist/icons.h"

namespace {

constexpr SpecialFolderNames special{L"My Documents", L"Start Menu", L"Network"};
constexpr DWORD folder = FILE_ATTRIBUTE_DIRECTORY;
constexpr DWORD card = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_STORAGE_CARD;
constexpr DWORD file = FILE_ATTRIBUTE_ARCHIVE;
constexpr DWORD romFile = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_INROM;

constexpr IconOptions allOff{0, 0, 0};

IconChoice Choose(std::wstring_view name, DWORD attributes, const IconOptions& options = allOff,
                  std::wstring_view in = L"\\Aa", const ArchiverAvailability& openedHere = {}) {
    return ChooseIcon(name, in, attributes, options, special, openedHere);
}

/// The key under which the shell's image is kept; fails when a fixed image was chosen.
std::wstring KeyOf(std::wstring_view name, const IconOptions& options = allOff) {
    const IconChoice choice = Choose(name, file, options);
    EXPECT_EQ(choice.image, -1);
    return choice.key.Text();
}

TEST(IconRules, GiveAFolderItsImage) {
    EXPECT_EQ(Choose(L"Aa", folder).image, 0);
    EXPECT_EQ(Choose(L"Storage Card", card).image, 1);
    EXPECT_EQ(Choose(L"anything", 0).image, 0) << "without attributes";
}

TEST(IconRules, KnowSpecialFoldersByTheirNameAnywhere) {
    EXPECT_EQ(Choose(L"My Documents", folder).image, 2);
    EXPECT_EQ(Choose(L"MY documents", folder, allOff, L"\\Elsewhere").image, 2);
    EXPECT_EQ(Choose(L"START MENU", folder).image, 3);
    EXPECT_EQ(Choose(L"network", folder).image, 6);
    EXPECT_EQ(Choose(L"My Documents", card).image, 2) << "before the card's";
    EXPECT_EQ(Choose(L"My Documents 2", folder).image, 0);
}

TEST(IconRules, GiveNoFolderImageToAFileOfThatName) {
    EXPECT_EQ(KeyOf(L"My Documents"), noExtensionKey);
}

TEST(IconRules, MarkRomFilesWhenAskedTo) {
    for (std::uint32_t generic : {0u, 1u}) {
        EXPECT_EQ(Choose(L"a.txt", romFile, {generic, 1, 0}).image, 5);
        EXPECT_EQ(Choose(L"a.zip", romFile, {generic, 1, 1}).image, 5) << "before the archive's";
    }
    EXPECT_EQ(Choose(L"a.txt", romFile, {1, 0, 0}).image, 4);
    EXPECT_EQ(Choose(L"a.txt", romFile, {0, 0, 0}).image, -1);
}

TEST(IconRules, GiveEveryFileTheGenericImageWhenAskedTo) {
    for (const wchar_t* name : {L"a.txt", L"a.zip", L"a.exe", L"a.lnk", L"plain"})
        EXPECT_EQ(Choose(name, file, {1, 1, 1}).image, 4);
    EXPECT_EQ(Choose(L"Aa", folder, {1, 1, 1}).image, 0);
}

TEST(IconRules, MarkArchivesWhenAskedTo) {
    for (const wchar_t* name : {L"a.zip", L"a.ZIP", L"a.lzh", L"a.LzH"})
        EXPECT_EQ(Choose(name, file, {0, 0, 1}).image, 7);
    EXPECT_EQ(Choose(L"a.zip.txt", file, {0, 0, 1}).image, -1);
    EXPECT_EQ(KeyOf(L"a.zip"), L".zip");
}

TEST(IconRules, MarkArchivesThatOpenHere) {
    const auto image = [](const wchar_t* name, ArchiverAvailability openedHere) {
        return Choose(name, file, allOff, L"\\Aa", openedHere).image;
    };
    EXPECT_EQ(image(L"a.ZIP", {.zipAvailable = true}), 7);
    EXPECT_EQ(image(L"a.lzh", {.zipAvailable = true}), -1);
    EXPECT_EQ(image(L"a.Lzh", {.lhaAvailable = true}), 7);
    EXPECT_EQ(image(L"a.zip", {.lhaAvailable = true}), -1);
    EXPECT_EQ(image(L"a.txt", {true, true}), -1);
    EXPECT_EQ(image(L"a.zip", {}), -1);
}

TEST(IconRules, ShareAnImageByExtension) {
    EXPECT_EQ(KeyOf(L"a.txt"), L".txt");
    EXPECT_EQ(KeyOf(L"archive.tar.gz"), L".gz");
    EXPECT_EQ(KeyOf(L".profile"), L".profile");
    EXPECT_EQ(KeyOf(L"dot."), L".");
    EXPECT_EQ(KeyOf(L"plain"), L"\\\\\\");
}

TEST(IconRules, GiveProgramsAndShortcutsAnImageOfTheirOwn) {
    EXPECT_EQ(KeyOf(L"a.exe"), L"\\Aa\\a.exe");
    EXPECT_EQ(KeyOf(L"A.EXE"), L"\\Aa\\A.EXE");
    EXPECT_EQ(KeyOf(L"a.Lnk"), L"\\Aa\\a.Lnk");
    EXPECT_TRUE(IsShortcutName(L"a.LNK"));
    EXPECT_FALSE(IsShortcutName(L"lnk"));
    EXPECT_FALSE(IsShortcutName(L"a.lnk.txt"));
}

TEST(IconRules, GiveAFileWhosePathIsTooLongTheGenericImage) {
    const std::wstring longFolder(255, L'x');
    EXPECT_EQ(Choose(L"a.exe", file, allOff, longFolder).image, 4);
    EXPECT_EQ(Choose(L"a.txt", file, allOff, longFolder).image, -1);
}

TEST(IconCache, FindsKeysWithoutRegardToCase) {
    IconCache cache;
    EXPECT_EQ(cache.Find(L".txt"), -1);
    cache.Add(L".txt", 8);
    cache.Add(L"\\Aa\\a.exe", 9);
    cache.Add(L".DOC", 10);
    EXPECT_EQ(cache.Find(L".TXT"), 8);
    EXPECT_EQ(cache.Find(L"\\AA\\A.EXE"), 9);
    EXPECT_EQ(cache.Find(L".doc"), 10);
    EXPECT_EQ(cache.Find(L".tx"), -1);
    EXPECT_EQ(cache.Find(L""), -1);
}

TEST(IconCache, KeepsTheFirstImageOfAKey) {
    IconCache cache;
    cache.Add(L".txt", 8);
    cache.Add(L".TXT", 9);
    EXPECT_EQ(cache.Find(L".txt"), 8);
    cache.Clear();
    EXPECT_EQ(cache.Find(L".txt"), -1);
}

TEST(IconCache, FindsEachOfMany) {
    IconCache cache;
    for (int number = 0; number < 1000; ++number)
        cache.Add((L"." + std::to_wstring(number * 7919 % 1000)).c_str(), number * 7919 % 1000);
    for (int number = 0; number < 1000; ++number)
        EXPECT_EQ(cache.Find((L"." + std::to_wstring(number)).c_str()), number);
}

} // namespace
