#include "launch/mail_command.h"

#include <string>

#include <gtest/gtest.h>

TEST(MailCommand, NamesTheFileAndTheTransport) {
    EXPECT_STREQ(MailCommandLine(L"\\My Documents\\a b.txt", L"email").get(),
                 L"-attach \"\\My Documents\\a b.txt\"  -transport \"email\"");
    EXPECT_STREQ(MailCommandLine(L"", L"mms").get(), L"-attach \"\"  -transport \"mms\"");
}

TEST(MailCommand, PercentSignsAreOnlyCharacters) {
    EXPECT_STREQ(MailCommandLine(L"\\%s%n.txt", L"mms").get(), L"-attach \"\\%s%n.txt\"  -transport \"mms\"");
}

TEST(MailCommand, TakesTheLongestPath) {
    const std::wstring path(259, L'x');
    EXPECT_EQ(MailCommandLine(path, L"email").get(), L"-attach \"" + path + L"\"  -transport \"email\"");
}
