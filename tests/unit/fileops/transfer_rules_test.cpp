#include "fileops/transfer_rules.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "common/system_folder.h"
#include "common/text.h"
#include "tests/support/host.h"

namespace {

SelectionEntry Entry(ItemKind kind, const wchar_t* folder, const wchar_t* name) {
    SelectionEntry entry;
    entry.kind = kind;
    CopyTextTo(entry.folder, folder);
    CopyTextTo(entry.name, name);
    return entry;
}

std::wstring Refusal(std::vector<SelectionEntry> entries, const wchar_t* target, bool isMove) {
    const wchar_t* refusal = RefuseTransfer({entries, target, L"\\Windows", isMove});
    return refusal ? refusal : L"";
}

std::wstring CopyName(const wchar_t* folder, const wchar_t* name, int number) {
    Path path;
    return AssignCopyName(path, folder, name, number) ? path.Text() : L"(too long)";
}

constexpr auto folder = ItemKind::Folder;
constexpr auto file = ItemKind::File;

} // namespace

TEST(TransferRules, MovingWithinAFolderIsRefused) {
    EXPECT_EQ(Refusal({Entry(file, L"\\A", L"a.txt")}, L"\\A", true), L"Illegal move operation.");
    EXPECT_EQ(Refusal({Entry(file, L"\\B", L"b"), Entry(folder, L"\\A", L"a")}, L"\\A", true),
              L"Illegal move operation.");
    EXPECT_EQ(Refusal({Entry(file, L"", L"a.txt")}, L"", true), L"Illegal move operation.");
}

TEST(TransferRules, CopyingWithinAFolderIsNot) {
    EXPECT_EQ(Refusal({Entry(file, L"\\A", L"a.txt")}, L"\\A", false), L"");
}

TEST(TransferRules, OneFolderIsKnownInOtherLettersAndSpellings) {
    for (const wchar_t* target : {L"\\a", L"\\A\\", L"\\A\\.", L"\\X\\..\\A", L"/A"})
        EXPECT_EQ(Refusal({Entry(file, L"\\A", L"a.txt")}, target, true), L"Illegal move operation.");
}

TEST(TransferRules, FoldersThatDifferInCaseAloneAreTwoWhereTheHostHasTwo) {
    RunOnHost("mkdir -p Temp/Rules/one Temp/Rules/ONE Temp/Rules/one/in");
    EXPECT_EQ(Refusal({Entry(file, L"\\Temp\\Rules\\one", L"x")}, L"\\Temp\\Rules\\ONE", true), L"");
    EXPECT_EQ(Refusal({Entry(folder, L"\\Temp\\Rules", L"ONE")}, L"\\Temp\\Rules\\one\\in", false), L"");
    RunOnHost("rm -r Temp/Rules");
}

TEST(TransferRules, AFolderCannotGoIntoItselfOrBelow) {
    EXPECT_EQ(Refusal({Entry(folder, L"", L"A")}, L"\\A\\B", false), L"Illegal copy operation.");
    EXPECT_EQ(Refusal({Entry(folder, L"", L"A")}, L"\\A", false), L"Illegal copy operation.");
    EXPECT_EQ(Refusal({Entry(folder, L"", L"A")}, L"\\a\\b", true), L"Illegal move operation.");
    EXPECT_EQ(Refusal({Entry(file, L"\\X", L"x"), Entry(folder, L"", L"A")}, L"\\A\\B", false),
              L"Illegal copy operation.");
}

TEST(TransferRules, ANameThatOnlyBeginsAlikeIsAnotherFolder) {
    EXPECT_EQ(Refusal({Entry(folder, L"", L"A")}, L"\\AB", false), L"");
    EXPECT_EQ(Refusal({Entry(folder, L"", L"A")}, L"", true), L"Illegal move operation.");
    EXPECT_EQ(Refusal({Entry(folder, L"\\B", L"A")}, L"", true), L"");
}

TEST(TransferRules, TheSystemFolderIsNeverASource) {
    EXPECT_EQ(Refusal({Entry(folder, L"", L"Windows")}, L"\\Temp", false), systemFolderMessage);
    EXPECT_EQ(Refusal({Entry(folder, L"", L"WINDOWS")}, L"\\Temp", true), systemFolderMessage);
    EXPECT_EQ(Refusal({Entry(folder, L"\\Windows", L"Fonts")}, L"\\Temp", true), L"");
    EXPECT_EQ(Refusal({Entry(file, L"", L"Windows")}, L"\\Temp", true), L"");
}

TEST(TransferRules, TheFirstReasonIsTold) {
    EXPECT_EQ(Refusal({Entry(folder, L"", L"A"), Entry(folder, L"", L"Windows")}, L"\\A\\B", false),
              L"Illegal copy operation.");
    EXPECT_EQ(Refusal({Entry(folder, L"", L"Windows"), Entry(file, L"\\T", L"x")}, L"\\T", true),
              L"Illegal move operation.");
}

TEST(TransferRules, AnEmptySlotIsPassedOver) {
    EXPECT_EQ(Refusal({SelectionEntry{}}, L"", true), L"");
}

TEST(TransferRules, CaptionsAreLastComponents) {
    EXPECT_EQ(FolderCaption(L"\\My Documents\\Work"), L"Work");
    EXPECT_EQ(FolderCaption(L"\\Work"), L"Work");
    EXPECT_EQ(FolderCaption(L""), L"\\");
    EXPECT_EQ(FolderCaption(L"File Search"), L"\\");
}

TEST(TransferRules, CopiesAreNumberedFromTwo) {
    EXPECT_EQ(CopyName(L"\\A", L"a.txt", 1), L"\\A\\copy of a.txt");
    EXPECT_EQ(CopyName(L"\\A", L"a.txt", 2), L"\\A\\copy (2) of a.txt");
    EXPECT_EQ(CopyName(L"", L"a.txt", 511), L"\\copy (511) of a.txt");
}

TEST(TransferRules, ACopyNameBeyondThePathLimitIsNone) {
    const std::wstring name(250, L'n');
    EXPECT_EQ(CopyName(L"", name.c_str(), 1), L"\\copy of " + name);
    EXPECT_EQ(CopyName(L"\\A", name.c_str(), 1), L"(too long)");
}
