#include "filelist/shortcut_target.h"

#include <gtest/gtest.h>

namespace {

void ExpectSplit(const wchar_t* text, const wchar_t* program, const wchar_t* parameters) {
    const ShortcutTarget target = SplitShortcutTarget(text);
    EXPECT_EQ(target.program, program);
    EXPECT_EQ(target.parameters, parameters);
}

TEST(ShortcutTarget, EndsAtTheFirstBlankWithoutQuotes) {
    ExpectSplit(L"\\windows\\solitare.exe", L"\\windows\\solitare.exe", L"");
    ExpectSplit(L"\\windows\\tmail.exe -service \"My Mail\"", L"\\windows\\tmail.exe",
                L"-service \"My Mail\"");
}

TEST(ShortcutTarget, EndsAtTheClosingQuote) {
    ExpectSplit(L"\"\\Program Files\\a b.exe\"", L"\\Program Files\\a b.exe", L"");
    ExpectSplit(L"\"\\Program Files\\a b.exe\" -x  y", L"\\Program Files\\a b.exe", L"-x  y");
    ExpectSplit(L"\"\\a b.exe\"-x", L"\\a b.exe", L"-x");
    ExpectSplit(L"\"\\a b.exe\"    -x", L"\\a b.exe", L"-x");
}

TEST(ShortcutTarget, BearsAnyText) {
    ExpectSplit(L"", L"", L"");
    ExpectSplit(L"\"", L"", L"");
    ExpectSplit(L"\"\"", L"", L"");
    ExpectSplit(L"\"never closed", L"never closed", L"");
    ExpectSplit(L"trailing ", L"trailing", L"");
    ExpectSplit(L" leading", L"", L"leading");
    ExpectSplit(L"    ", L"", L"");
}

TEST(ServerTarget, IsTwoBackslashesAndAName) {
    EXPECT_TRUE(IsServerTarget(L"\\\\server"));
    EXPECT_TRUE(IsServerTarget(L"\"\\\\server\""));
    EXPECT_TRUE(IsServerTarget(L"\\\\"));
}

TEST(ServerTarget, HoldsNoFurtherBackslash) {
    EXPECT_FALSE(IsServerTarget(L"\\\\server\\share"));
    EXPECT_FALSE(IsServerTarget(L"\\\\server\\"));
    EXPECT_FALSE(IsServerTarget(L"\\server"));
    EXPECT_FALSE(IsServerTarget(L"\"\"\\\\server"));
    EXPECT_FALSE(IsServerTarget(L"server"));
    EXPECT_FALSE(IsServerTarget(L""));
    EXPECT_FALSE(IsServerTarget(L"\""));
}

} // namespace
