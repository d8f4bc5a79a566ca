#include "app/start_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// The folder a command line names; "(none)" when it names none.
std::wstring FolderOf(const wchar_t* commandLine) {
    std::vector<wchar_t> text(commandLine, commandLine + wcslen(commandLine) + 1);
    const wchar_t* folder = ParseCommandLine(text.data());
    return folder ? folder : L"(none)";
}

COPYDATASTRUCT HandOver(const void* data, DWORD bytes) {
    return {COPYDATA_OPEN_FOLDER, bytes, const_cast<void*>(data)};
}

} // namespace

TEST(CommandLine, NamesNothingWhenEmpty) {
    EXPECT_EQ(FolderOf(L""), L"(none)");
}

TEST(CommandLine, TakesWhatFollowsThePrefix) {
    EXPECT_EQ(FolderOf(L"/FOLDER:\\My Documents"), L"\\My Documents");
    EXPECT_EQ(FolderOf(L"/FOLDER:"), L"");
}

TEST(CommandLine, KeepsQuotesBehindThePrefix) {
    EXPECT_EQ(FolderOf(L"/FOLDER:\"\\My Documents\""), L"\"\\My Documents\"");
}

TEST(CommandLine, ComparesThePrefixByCase) {
    EXPECT_EQ(FolderOf(L"/folder:\\Temp"), L"/folder:\\Temp");
}

TEST(CommandLine, CutsAtTheClosingQuote) {
    EXPECT_EQ(FolderOf(L"\"\\My Documents\" and more"), L"\\My Documents");
    EXPECT_EQ(FolderOf(L"\"\""), L"");
}

TEST(CommandLine, TakesAnOpenQuoteToItsEnd) {
    EXPECT_EQ(FolderOf(L"\"\\My Documents"), L"\\My Documents");
}

TEST(CommandLine, TakesAPlainPathWhole) {
    EXPECT_EQ(FolderOf(L"\\My Documents more"), L"\\My Documents more");
}

TEST(HandOver, ReadsAPath) {
    const wchar_t text[] = L"\\Temp";
    const COPYDATASTRUCT data = HandOver(text, sizeof(text));
    Path path;
    ASSERT_TRUE(ReadHandOver(&data, path));
    EXPECT_EQ(path.View(), L"\\Temp");
}

TEST(HandOver, ReadsTheLongestPath) {
    std::wstring text(pathCapacity - 1, L'a');
    const COPYDATASTRUCT data = HandOver(text.c_str(), static_cast<DWORD>((text.size() + 1) * 2));
    Path path;
    ASSERT_TRUE(ReadHandOver(&data, path));
    EXPECT_EQ(path.Length(), pathCapacity - 1);
}

TEST(HandOver, RefusesWhatIsNotAPath) {
    const wchar_t text[] = L"\\Temp";
    Path path;
    EXPECT_FALSE(ReadHandOver(nullptr, path));
    COPYDATASTRUCT data = HandOver(nullptr, sizeof(text));
    EXPECT_FALSE(ReadHandOver(&data, path)) << "null pointer";
    data = HandOver(text, 0);
    EXPECT_FALSE(ReadHandOver(&data, path)) << "empty block";
    data = HandOver(text, 1);
    EXPECT_FALSE(ReadHandOver(&data, path)) << "half a character";
    data = HandOver(text, sizeof(text) - 1);
    EXPECT_FALSE(ReadHandOver(&data, path)) << "odd size";
    data = HandOver(text, sizeof(text) - 2);
    EXPECT_FALSE(ReadHandOver(&data, path)) << "no terminating zero";
    data = HandOver(text, 0xFFFFFFFE);
    EXPECT_FALSE(ReadHandOver(&data, path)) << "huge";
    data = HandOver(text, sizeof(text));
    data.dwData = 562;
    EXPECT_FALSE(ReadHandOver(&data, path)) << "another message";
    EXPECT_TRUE(path.IsEmpty());
}

TEST(HandOver, RefusesAPathThatIsOneTooLong) {
    std::wstring text(pathCapacity, L'a');
    const COPYDATASTRUCT data = HandOver(text.c_str(), static_cast<DWORD>((text.size() + 1) * 2));
    Path path;
    EXPECT_FALSE(ReadHandOver(&data, path));
}
