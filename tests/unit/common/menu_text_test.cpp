#include "common/menu_text.h"

#include <gtest/gtest.h>

TEST(MenuText, ReadsAsTheName) {
    EXPECT_STREQ(MenuTextOf(L"Music & Video").get(), L"Music && Video");
    EXPECT_STREQ(MenuTextOf(L"&").get(), L"&&");
    EXPECT_STREQ(MenuTextOf(L"R&&D&").get(), L"R&&&&D&&");
    EXPECT_STREQ(MenuTextOf(L"plain").get(), L"plain");
    EXPECT_STREQ(MenuTextOf(L"").get(), L"");
}
