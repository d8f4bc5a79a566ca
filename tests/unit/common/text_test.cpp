#include "common/text.h"

#include <array>
#include <string>

#include <gtest/gtest.h>

namespace {

TEST(Text, CopiesOntoTheHeap) {
    EXPECT_STREQ(CopyText(L"").get(), L"");
    EXPECT_STREQ(CopyText(L"abc").get(), L"abc");
    EXPECT_STREQ(CopyText(std::wstring_view(L"abcdef", 3)).get(), L"abc");
}

TEST(Text, CutsACopyToItsBuffer) {
    std::array<wchar_t, 5> out;
    out.fill(L'#');
    CopyTextTo(std::span(out).first(4), L"abc");
    EXPECT_STREQ(out.data(), L"abc");
    CopyTextTo(std::span(out).first(4), L"defgh");
    EXPECT_STREQ(out.data(), L"def");
    CopyTextTo(std::span(out).first(1), L"x");
    EXPECT_STREQ(out.data(), L"");
    EXPECT_EQ(out[4], L'#');
}

TEST(Text, FormatsWideTextsAndNumbers) {
    std::array<wchar_t, 32> out;
    EXPECT_EQ(FormatText(out, L"%s has %d of %u", L"Card", -1, 7u), 16u);
    EXPECT_STREQ(out.data(), L"Card has -1 of 7");
}

TEST(Text, CutsWhatIsFormattedToItsBuffer) {
    std::array<wchar_t, 5> out;
    out.fill(L'#');
    EXPECT_EQ(FormatText(std::span(out).first(4), L"%s", L"abc"), 3u);
    EXPECT_STREQ(out.data(), L"abc");
    EXPECT_EQ(FormatText(std::span(out).first(4), L"%s", L"abcd"), 3u);
    EXPECT_STREQ(out.data(), L"abc");
    EXPECT_EQ(FormatText(std::span(out).first(4), L"%s", L"abcdefgh"), 3u);
    EXPECT_STREQ(out.data(), L"abc");
    EXPECT_EQ(out[4], L'#');
}

} // namespace
