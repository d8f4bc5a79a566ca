#include "companions/archiver/command_line.h"

#include <gtest/gtest.h>

using archiver::Action;
using archiver::CommandLine;
using archiver::ParseCommandLine;

namespace {

using Texts = std::vector<std::wstring>;

} // namespace

TEST(ArchiverCommandLine, MakesAnArchiveOfFilesAndFolders) {
    const std::optional<CommandLine> command = ParseCommandLine(
        L"a \"\\My Documents\\a b.zip\" \"\\My Documents\\\" \"\\My Documents\\Dir\\*\" \"\\My "
        L"Documents\\f.txt\" ");
    ASSERT_TRUE(command);
    EXPECT_EQ(command->action, Action::Make);
    EXPECT_EQ(command->archive, L"\\My Documents\\a b.zip");
    EXPECT_EQ(command->folder, L"\\My Documents\\");
    EXPECT_EQ(command->files, (Texts{L"\\My Documents\\Dir\\*", L"\\My Documents\\f.txt"}));
}

TEST(ArchiverCommandLine, ExtractsAnArchive) {
    const std::optional<CommandLine> command = ParseCommandLine(L"e \"\\a.zip\" \"\\\"");
    ASSERT_TRUE(command);
    EXPECT_EQ(command->action, Action::Extract);
    EXPECT_EQ(command->archive, L"\\a.zip");
    EXPECT_EQ(command->folder, L"\\");
    EXPECT_TRUE(command->files.empty());
}

TEST(ArchiverCommandLine, RefusesEverythingElse) {
    for (const wchar_t* text :
         {L"", L" ", L"a", L"e", L"a ", L"x \"\\a\" \"\\b\"", L"e\"\\a\" \"\\b\"", L"e \\a \\b", L"e \"\\a\"",
          L"e \"\\a\" \"\\b\" \"\\c\"", L"e \"\\a\" \"\\b", L"e \"\\a\" \"", L"e \"\" \"\\b\"",
          L"a \"\\a\" \"\\b\"", L"a \"\\a\" \"\\b\" c", L"ae \"\\a\" \"\\b\"", L"\"", L"e \"\\a\" \"\\b\" x",
          L"A \"\\a\" \"\\b\" \"c\""})
        EXPECT_FALSE(ParseCommandLine(text)) << text;
}
