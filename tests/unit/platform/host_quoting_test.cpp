#include "platform/desktop/host_quoting.h"

#include <string>

#include <gtest/gtest.h>

namespace {

std::wstring Undone(std::wstring commandLine) {
    UndoHostQuoting(commandLine.data());
    return commandLine.c_str();
}

TEST(HostQuoting, IsUndoneForAnArgumentWithBlanks) {
    EXPECT_EQ(Undone(L"\"\\My Documents\""), L"\\My Documents");
    EXPECT_EQ(Undone(L"\"/FOLDER:\\My Documents\""), L"/FOLDER:\\My Documents");
}

TEST(HostQuoting, IsUndoneForEscapedQuotes) {
    EXPECT_EQ(Undone(L"\\\"\\Windows\\\""), L"\"\\Windows\"");
    EXPECT_EQ(Undone(L"\"\\\"\\My Documents\\\" more words\""), L"\"\\My Documents\" more words");
}

TEST(HostQuoting, HalvesBackslashesBeforeAQuoteAlone) {
    EXPECT_EQ(Undone(L"\"\\My Documents\\\\\""), L"\\My Documents\\");
    EXPECT_EQ(Undone(L"\"\\\\server\\a b\""), L"\\\\server\\a b");
    EXPECT_EQ(Undone(L"\"a b\\\\\\\"\""), L"a b\\\"");
}

TEST(HostQuoting, LeavesWhatTheHostDidNotQuote) {
    for (const wchar_t* text :
         {L"", L"\\Windows", L"/FOLDER:\\My Documents", L"two words", L"a\"b\"", L"\"quoted\" and more",
          L"\"never closed", L"\"a\" \"b\"", L"\\\"first\\\" second", L"\"", L"\"\""})
        EXPECT_EQ(Undone(text), text);
}

} // namespace
