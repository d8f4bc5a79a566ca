#include "companions/archiver/member_names.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/support/text.h"

using namespace archiver;

TEST(ArchiverNames, GoBelowTheTarget) {
    EXPECT_EQ(JudgeName(L"a.txt").path, L"a.txt");
    EXPECT_EQ(JudgeName(L"dir/sub\\a.txt").path, L"dir\\sub\\a.txt");
    EXPECT_EQ(JudgeName(L"dir/").path, L"dir");
    EXPECT_EQ(JudgeName(L"./dir//a").path, L"dir\\a");
    EXPECT_EQ(JudgeName(L"..a/b..c/...d").path, L"..a\\b..c\\...d");
    EXPECT_EQ(JudgeName(L".hidden").path, L".hidden");
    EXPECT_EQ(JudgeName(L"\u65e5\u672c \u8a9e").path, L"\u65e5\u672c \u8a9e");
}

TEST(ArchiverNames, AreRefusedWhenTheyAreNotSafe) {
    for (const wchar_t* name :
         {L"",     L".",        L"./",    L"..",    L"../a",     L"..\\a",        L"a/../b", L"/a",
          L"\\a",  L"\\\\s\\t", L"C:\\a", L"c:a",   L"C:",       L"\\\\?\\C:\\a", L"a.",     L"a ",
          L"a./b", L"a:b",      L"a\x01", L"a\x7f", L"a\n",      L"a*",           L"a?",     L"a|",
          L"a<",   L"a>",       L"a\"",   L"NUL",   L"d/con.txt"}) {
        const NameVerdict verdict = JudgeName(name);
        EXPECT_TRUE(verdict.path.empty()) << Narrow(name);
        EXPECT_FALSE(verdict.reason.empty()) << Narrow(name);
    }
    EXPECT_TRUE(JudgeName(std::wstring(L"a\0b", 3)).path.empty());
    EXPECT_TRUE(JudgeName(std::wstring(256, L'a')).path.empty());
    EXPECT_FALSE(JudgeName(std::wstring(255, L'a')).path.empty());
}

TEST(ArchiverNames, OfDevicesAreKnownInEveryDress) {
    for (const wchar_t* part : {L"CON", L"con", L"Prn.txt", L"aux.tar.gz", L"NUL .x", L"COM1", L"lpt9.log",
                                L"com0", L"COM\u00b9", L"CONIN$", L"conout$", L"clock$"})
        EXPECT_TRUE(IsDeviceName(part)) << Narrow(part);
    for (const wchar_t* part : {L"CONSOLE", L"com", L"COM10", L"LPTX", L"nulls", L"a.con", L"icon"})
        EXPECT_FALSE(IsDeviceName(part)) << Narrow(part);
}

TEST(ArchiverNames, AreTextInTheirCodePage) {
    EXPECT_EQ(DecodeName("\xC3\xBC", CP_UTF8), L"\u00fc");
    EXPECT_EQ(DecodeName("\x81", 437), L"\u00fc");
    EXPECT_EQ(DecodeName("\x93\xFA\x96\x7B", 932), L"\u65e5\u672c");
    EXPECT_FALSE(DecodeName("\xFF\xFE", CP_UTF8));
    EXPECT_EQ(EncodeName(L"\u00fc", CP_UTF8), "\xC3\xBC");
    EXPECT_FALSE(EncodeName(L"\u65e5", 437));
    EXPECT_FALSE(EncodeName(L"\xD800", CP_UTF8));
}
