#include "fileops/delete_rules.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "common/text.h"
#include "fileops/file_job.h"

namespace {

SelectionEntry Entry(ItemKind kind, const wchar_t* name) {
    SelectionEntry entry;
    entry.kind = kind;
    CopyTextTo(entry.name, name);
    return entry;
}

std::wstring Opening(std::vector<SelectionEntry> entries) {
    QuestionText text{};
    WriteOpeningQuestion(text, entries);
    return text.data();
}

std::wstring FileQuestion(DWORD attributes) {
    QuestionText text{};
    return WriteFileQuestion(text, L"\\A\\a.txt", attributes) ? text.data() : L"";
}

} // namespace

TEST(DeleteRules, OpeningQuestionNamesOneEntryAndCountsMore) {
    EXPECT_EQ(Opening({Entry(ItemKind::File, L"a.txt")}), L"Do you really want to delete 'a.txt' ?");
    EXPECT_EQ(Opening({Entry(ItemKind::Folder, L"A")}),
              L"'A' is a folder. Do you really want to delete it ?");
    EXPECT_EQ(Opening({Entry(ItemKind::File, L"a"), Entry(ItemKind::Folder, L"b")}),
              L"Do you really want to delete 2 files ?");
}

TEST(DeleteRules, TheLongestNameFits) {
    const std::wstring name(259, L'n');
    EXPECT_EQ(Opening({Entry(ItemKind::Folder, name.c_str())}),
              L"'" + name + L"' is a folder. Do you really want to delete it ?");
}

TEST(DeleteRules, SystemIsAskedAboutBeforeReadOnly) {
    EXPECT_EQ(FileQuestion(FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_READONLY),
              L"'a.txt' is a System file. Do you really want to delete it ?");
    EXPECT_EQ(FileQuestion(FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE),
              L"The file 'a.txt' is READ-ONLY. Do you really want to delete it ?");
    EXPECT_EQ(FileQuestion(FILE_ATTRIBUTE_HIDDEN), L"");
}

TEST(DeleteRules, ASingleEntryIsNotAskedAboutAgain) {
    EXPECT_EQ(FirstDeleteMode(1), modeAll);
    EXPECT_EQ(FirstDeleteMode(2), modeAsk);
    EXPECT_TRUE(DeleteAsks(modeAsk));
    EXPECT_TRUE(DeleteAsks(modeSkipped));
    EXPECT_FALSE(DeleteAsks(modeAll));
    EXPECT_FALSE(DeleteAsks(modeStop));
}

TEST(DeleteRules, SoftKeysStandForAnswers) {
    EXPECT_EQ(JobAnswerOf(1008), modeAsk);
    EXPECT_EQ(JobAnswerOf(1003), modeAll);
    EXPECT_EQ(JobAnswerOf(1002), modeStop);
    EXPECT_EQ(JobAnswerOf(1007), modeSkipped);
    EXPECT_EQ(JobAnswerOf(IDCANCEL), modeSkipped);
    EXPECT_EQ(JobAnswerOf(IDOK), modeSkipped);
}
