#include "filelist/rename_rules.h"

#include <string>

#include <gtest/gtest.h>

namespace {

std::wstring NameAfter(std::wstring_view label, std::wstring_view oldName, bool extensionHidden) {
    Path name;
    return NameFromLabel(label, oldName, extensionHidden, name) ? std::wstring(name.View()) : L"(too long)";
}

} // namespace

TEST(JudgeLabel, CancelledEditKeepsTheName) {
    EXPECT_EQ(JudgeLabel(nullptr, ItemKind::File), LabelVerdict::Keep);
    EXPECT_EQ(JudgeLabel(nullptr, ItemKind::UpLevel), LabelVerdict::Keep);
}

TEST(JudgeLabel, OrdinaryNameRenames) {
    EXPECT_EQ(JudgeLabel(L"summary", ItemKind::File), LabelVerdict::Rename);
    EXPECT_EQ(JudgeLabel(L"Pictures", ItemKind::Folder), LabelVerdict::Rename);
}

TEST(JudgeLabel, EachForbiddenCharacterIsRefused) {
    for (wchar_t character : std::wstring(L"\\/:,;*?<>|")) {
        const std::wstring label = std::wstring(L"a") + character + L"b";
        EXPECT_EQ(JudgeLabel(label.c_str(), ItemKind::File), LabelVerdict::Forbidden) << label.size();
    }
}

TEST(JudgeLabel, QuotationMarkIsLeftToTheFileSystem) {
    EXPECT_EQ(JudgeLabel(L"a\"b", ItemKind::File), LabelVerdict::Rename);
}

TEST(JudgeLabel, EmptyNameIsRefused) {
    EXPECT_EQ(JudgeLabel(L"", ItemKind::File), LabelVerdict::Empty);
    EXPECT_EQ(JudgeLabel(L"", ItemKind::Folder), LabelVerdict::Empty);
}

TEST(JudgeLabel, UpLevelEntryKeepsItsNameSilently) {
    EXPECT_EQ(JudgeLabel(L"other", ItemKind::UpLevel), LabelVerdict::Keep);
    EXPECT_EQ(JudgeLabel(L"", ItemKind::UpLevel), LabelVerdict::Keep);
}

TEST(JudgeLabel, ForbiddenCharactersAreNamedEvenForTheUpLevelEntry) {
    EXPECT_EQ(JudgeLabel(L"a,b", ItemKind::UpLevel), LabelVerdict::Forbidden);
}

TEST(NameFromLabel, IsTheLabelWhenExtensionsShow) {
    EXPECT_EQ(NameAfter(L"summary", L"report.txt", false), L"summary");
    EXPECT_EQ(NameAfter(L"summary.doc", L"report.txt", false), L"summary.doc");
}

TEST(NameFromLabel, HiddenExtensionStays) {
    EXPECT_EQ(NameAfter(L"summary", L"report.txt", true), L"summary.txt");
    EXPECT_EQ(NameAfter(L"summary.doc", L"report.txt", true), L"summary.doc.txt");
    EXPECT_EQ(NameAfter(L"b", L"a.tar.gz", true), L"b.gz");
}

TEST(NameFromLabel, NameWithoutExtensionGetsNone) {
    EXPECT_EQ(NameAfter(L"CHANGES", L"README", true), L"CHANGES");
}

TEST(NameFromLabel, NameThatFitsNoPathIsRefused) {
    const std::wstring longest(259, L'x');
    EXPECT_EQ(NameAfter(longest, L"a", true), longest);
    EXPECT_EQ(NameAfter(longest + L"x", L"a", true), L"(too long)");
    EXPECT_EQ(NameAfter(longest, L"a.b", true), L"(too long)");
}
