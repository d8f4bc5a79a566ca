#include "filelist/text_pool.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

TEST(TextPool, KeepsTextsWhereTheyAre) {
    TextPool pool;
    std::vector<const wchar_t*> kept;
    for (int number = 0; number < 5000; ++number)
        kept.push_back(pool.Keep(L"Entry " + std::to_wstring(number)));
    for (int number = 0; number < 5000; ++number)
        ASSERT_EQ(kept[number], L"Entry " + std::to_wstring(number));
}

TEST(TextPool, KeepsEmptyAndLongTexts) {
    TextPool pool;
    const std::wstring longText(10'000, L'x');
    const wchar_t* const empty = pool.Keep(L"");
    const wchar_t* const whole = pool.Keep(longText);
    const wchar_t* const after = pool.Keep(L"after");
    EXPECT_STREQ(empty, L"");
    EXPECT_EQ(whole, longText);
    EXPECT_STREQ(after, L"after");
}

TEST(TextPool, KeepsARunOfTheSameTextOnce) {
    TextPool pool;
    const wchar_t* const first = pool.KeepOnce(L"\\Docs");
    EXPECT_EQ(pool.KeepOnce(L"\\Docs"), first);
    EXPECT_STREQ(pool.KeepOnce(L"\\Docs\\More"), L"\\Docs\\More");
    EXPECT_STREQ(pool.KeepOnce(L"\\Docs"), L"\\Docs");
}

TEST(TextPool, BeginsAnewWhenClearedOrMovedFrom) {
    TextPool pool;
    pool.KeepOnce(L"before");
    pool.Clear();
    EXPECT_STREQ(pool.KeepOnce(L"before"), L"before");
    const TextPool taken = std::move(pool);
    pool = TextPool();
    EXPECT_STREQ(pool.KeepOnce(L"before"), L"before");
}

} // namespace
