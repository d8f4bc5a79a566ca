#include "platform/desktop/shortcut_text.h"

#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

std::wstring Read(const std::string& bytes) {
    const std::vector<wchar_t> text = ReadShortcutText(bytes);
    return {text.begin(), text.end()};
}

std::string Written(const std::wstring& target) {
    const std::vector<char> bytes = WriteShortcutText(target);
    return {bytes.begin(), bytes.end()};
}

TEST(ShortcutText, IsACountAndTheTarget) {
    EXPECT_EQ(Written(L"\\windows\\solitare.exe"), "21#\\windows\\solitare.exe");
    EXPECT_EQ(Read("21#\\windows\\solitare.exe"), L"\\windows\\solitare.exe");
}

TEST(ShortcutText, KeepsQuotesAndArguments) {
    EXPECT_EQ(Read("24#\"\\Program Files\\a.exe\" -x"), L"\"\\Program Files\\a.exe\" -x");
    EXPECT_EQ(Written(L"\"\\a b.exe\""), "10#\"\\a b.exe\"");
}

TEST(ShortcutText, ComesBackAsItWasWritten) {
    for (const std::wstring& target :
         {std::wstring(L"\\a"), std::wstring(L"\"\\My Documents\\notes.txt\""), std::wstring(256, L'x'),
          std::wstring(L"\\Stra\u00DFe\\\u65E5\u672C.txt"), std::wstring(L"\\a#b.txt"),
          std::wstring(L"\\what?.txt -1,x")})
        EXPECT_EQ(Read(Written(target)), target);
}

TEST(ShortcutText, DoesNotTrustItsCount) {
    EXPECT_EQ(Read("0#\\a.exe"), L"\\a.exe");
    EXPECT_EQ(Read("3#\\a.exe"), L"\\a.exe");
    EXPECT_EQ(Read("300#\\a.exe"), L"\\a.exe");
    EXPECT_EQ(Read("99999999999999999999#\\a.exe"), L"\\a.exe");
}

TEST(ShortcutText, EndsWithItsLine) {
    for (const char* end : {"\r\n", "\n", "\r", "\r\nmore\r\n"})
        EXPECT_EQ(Read(std::string("6#\\a.exe") + end), L"\\a.exe");
    EXPECT_EQ(Read(std::string("6#\\a.exe\0more", 13)), L"\\a.exe");
}

TEST(ShortcutText, PassesOverComments) {
    EXPECT_EQ(Read(";a comment\r\n6#\\a.exe"), L"\\a.exe");
    EXPECT_EQ(Read(";one\n;two\n6#\\a.exe"), L"\\a.exe");
    EXPECT_EQ(Read("\xEF\xBB\xBF;one\n6#\\a.exe"), L"\\a.exe");
    EXPECT_EQ(Read(";only a comment"), L"");
}

TEST(ShortcutText, LeavesItsIconOut) {
    EXPECT_EQ(Read("6#\\a.exe?\\windows\\shell.dll,-101"), L"\\a.exe");
    EXPECT_EQ(Read("6#\\a.exe?shell.dll,2"), L"\\a.exe");
    EXPECT_EQ(Read("6#\\a.exe?x,y"), L"\\a.exe?x,y") << "no icon's number";
    EXPECT_EQ(Read("6#\\a.exe -q?"), L"\\a.exe -q?");
    EXPECT_EQ(Read("6#\\a.exe,-1?x"), L"\\a.exe,-1?x");
}

TEST(ShortcutText, ReadsBytesThatAreNoUtf8AsThePlatformsOwn) {
    EXPECT_EQ(Read("4#\\\xE4.a"), L"\\\u00E4.a");
}

TEST(ShortcutText, IsNothingWithoutACountAndAMark) {
    for (const char* bytes : {"", "#", "12", "x#\\a", "#\\a", "-5#\\a", " 5#\\a", "\r\n6#\\a.exe", "5",
                              "\xEF\xBB\xBF", "6\\a.exe#"})
        EXPECT_EQ(Read(bytes), L"") << bytes;
    EXPECT_EQ(Read("0#"), L"");
}

TEST(ShortcutText, NeverReadsPastItsBytes) {
    std::mt19937 random(3);
    const std::string alphabet("0123456789#;?,-\\a\r\n\xEF\xBB\xBF\xE4\0", 22);
    for (int round = 0; round < 20000; ++round) {
        std::string bytes(random() % 24, '\0');
        for (char& byte : bytes)
            byte = alphabet[random() % alphabet.size()];
        // On the heap to its last byte.
        const std::vector<char> exact(bytes.begin(), bytes.end());
        EXPECT_LE(ReadShortcutText(exact).size(), bytes.size());
    }
}

} // namespace
