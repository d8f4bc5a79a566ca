#include "fileops/archive_commands.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

SelectionEntry Entry(ItemKind kind, std::wstring_view folder, std::wstring_view name) {
    SelectionEntry entry;
    entry.kind = kind;
    CopyTextTo(entry.folder, folder);
    CopyTextTo(entry.name, name);
    return entry;
}

SelectionEntry File(std::wstring_view folder, std::wstring_view name) {
    return Entry(ItemKind::File, folder, name);
}

SelectionEntry Folder(std::wstring_view folder, std::wstring_view name) {
    return Entry(ItemKind::Folder, folder, name);
}

std::wstring ListOf(const std::vector<SelectionEntry>& entries) {
    return ArchiverFileList(entries).get();
}

/// The target, or "too long".
std::wstring Target(std::wstring_view base, std::wstring_view name, bool ownFolder) {
    Path target;
    return AssignExtractTarget(target, base, name, ownFolder) ? target.Text() : L"too long";
}

TEST(ArchiveCommands, QuoteEveryEntryAndPutABlankBehindIt) {
    EXPECT_EQ(ListOf({}), L"");
    EXPECT_EQ(ListOf({File(L"\\Docs", L"a b.txt")}), L"\"\\Docs\\a b.txt\" ");
    EXPECT_EQ(ListOf({File(L"", L"a")}), L"\"\\a\" ");
    EXPECT_EQ(ListOf({File(L"\\Docs", L"b"), Folder(L"\\Docs", L"A"), File(L"\\E", L"a")}),
              L"\"\\Docs\\b\" \"\\Docs\\A\\*\" \"\\E\\a\" ");
}

TEST(ArchiveCommands, TakeAFolderAsAllThatIsInIt) {
    EXPECT_EQ(ListOf({Folder(L"\\Docs", L"My Things")}), L"\"\\Docs\\My Things\\*\" ");
    EXPECT_EQ(ListOf({Folder(L"", L"Docs")}), L"\"\\Docs\\*\" ");
}

TEST(ArchiveCommands, HaveRoomForAnySelection) {
    const std::wstring folder = L"\\" + std::wstring(200, L'f');
    std::vector<SelectionEntry> entries;
    std::wstring expected;
    for (int number = 0; number < 3000; ++number) {
        const std::wstring name = std::to_wstring(number) + std::wstring(50, L'n');
        entries.push_back(number % 2 ? File(folder, name) : Folder(folder, name));
        expected += L"\"" + folder + L"\\" + name + (number % 2 ? L"\" " : L"\\*\" ");
    }
    const std::wstring list = ListOf(entries);
    EXPECT_EQ(list, expected);
    EXPECT_EQ(CompressCommand(L"\\x.zip", folder, list.c_str()).get(),
              L"a \"\\x.zip\" \"" + folder + L"\\\" " + expected);
}

TEST(ArchiveCommands, LeavePercentSignsAlone) {
    EXPECT_EQ(ListOf({File(L"\\100%s", L"%d%n")}), L"\"\\100%s\\%d%n\" ");
    EXPECT_STREQ(CompressCommand(L"\\%s.zip", L"\\%n", L"\"%d\" ").get(),
                 L"a \"\\%s.zip\" \"\\%n\\\" \"%d\" ");
    EXPECT_STREQ(ExtractCommand(L"\\%s.zip", L"\\%n").get(), L"e \"\\%s.zip\" \"\\%n\\\"");
}

TEST(ArchiveCommands, NameTheArchiveAndTheBase) {
    EXPECT_STREQ(CompressCommand(L"\\Temp\\x y.zip", L"\\Docs", L"\"\\Docs\\a\" ").get(),
                 L"a \"\\Temp\\x y.zip\" \"\\Docs\\\" \"\\Docs\\a\" ");
    EXPECT_STREQ(CompressCommand(L"\\x.lzh", L"", L"\"\\a\" ").get(), L"a \"\\x.lzh\" \"\\\" \"\\a\" ");
    EXPECT_STREQ(ExtractCommand(L"\\Docs\\a.zip", L"\\Temp\\a").get(),
                 L"e \"\\Docs\\a.zip\" \"\\Temp\\a\\\"");
    EXPECT_STREQ(ExtractCommand(L"\\a.zip", L"").get(), L"e \"\\a.zip\" \"\\\"");
}

TEST(ExtractTarget, IsTheBase) {
    EXPECT_EQ(Target(L"\\Docs", L"a.zip", false), L"\\Docs");
    EXPECT_EQ(Target(L"", L"a.zip", false), L"");
}

TEST(ExtractTarget, IsNamedLikeTheArchiveWithoutItsExtension) {
    EXPECT_EQ(Target(L"\\Docs", L"a.zip", true), L"\\Docs\\a");
    EXPECT_EQ(Target(L"\\Docs", L"b.tar.zip", true), L"\\Docs\\b.tar");
    EXPECT_EQ(Target(L"", L"a.lzh", true), L"\\a");
    EXPECT_EQ(Target(L"\\Docs", L".a.zip", true), L"\\Docs\\.a");
}

TEST(ExtractTarget, NeverLiesOutsideTheBase) {
    for (const wchar_t* name : {L".zip", L"..zip", L"...zip", L"....zip", L" .zip", L". .zip"})
        EXPECT_EQ(Target(L"\\Docs", name, true), L"\\Docs") << name;
}

TEST(ExtractTarget, IsRefusedWhenItIsTooLong) {
    const std::wstring base = L"\\" + std::wstring(254, L'f');
    EXPECT_EQ(Target(base, L"abc.zip", true), base + L"\\abc");
    EXPECT_EQ(Target(base, L"abcd.zip", true), L"too long");
}

} // namespace
