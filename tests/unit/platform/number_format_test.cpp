#include <string>

#include <gtest/gtest.h>

#include "platform/ce_api.h"

namespace {

std::wstring Formatted(LCID locale, const wchar_t* number, const NUMBERFMTW* format = nullptr) {
    wchar_t text[80] = L"";
    return ce::GetNumberFormatW(locale, 0, number, format, text, 80) > 0 ? text : L"-";
}

constexpr LCID english = 0x409;
constexpr LCID german = 0x407;
constexpr LCID hindi = 0x439;

TEST(NumberFormat, SetsEveryGroupApart) {
    EXPECT_EQ(Formatted(english, L"123"), L"123.00");
    EXPECT_EQ(Formatted(english, L"1234"), L"1,234.00");
    EXPECT_EQ(Formatted(english, L"1234567"), L"1,234,567.00");
    EXPECT_EQ(Formatted(english, L"-1234567890"), L"-1,234,567,890.00");
    EXPECT_EQ(Formatted(german, L"4294967295"), L"4.294.967.295,00");
}

TEST(NumberFormat, KnowsGroupsOfSeveralSizes) {
    EXPECT_EQ(Formatted(hindi, L"1234567890"), L"1,23,45,67,890.00");
}

TEST(NumberFormat, RoundsBeforeItGroups) {
    EXPECT_EQ(Formatted(english, L"999.999"), L"1,000.00");
    EXPECT_EQ(Formatted(english, L"999999.995"), L"1,000,000.00");
    EXPECT_EQ(Formatted(english, L"0.004"), L"0.00");
    EXPECT_EQ(Formatted(german, L"-999.999"), L"-1.000,00");
}

TEST(NumberFormat, GoesByTheCallersFormat) {
    wchar_t point[] = L"'";
    wchar_t space[] = L" ";
    const NUMBERFMTW format{1, 1, 2, point, space, 1};
    EXPECT_EQ(Formatted(english, L"12345.67", &format), L"1 23 45'7");
}

TEST(NumberFormat, RefusesWhatIsNoNumberOrDoesNotFit) {
    EXPECT_EQ(Formatted(english, L"none"), L"-");
    EXPECT_EQ(Formatted(english, std::wstring(200, L'1').c_str()), L"-");
    wchar_t text[8] = L"";
    EXPECT_EQ(ce::GetNumberFormatW(english, 0, L"1234", nullptr, text, 8), 0);
}

} // namespace
