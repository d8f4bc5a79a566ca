#include "common/text_format.h"

#include <array>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "app/app_state.h"
#include "common/text.h"

namespace {

/// A locale, and how it writes what the tests format.
struct Writing {
    const char* name;
    LCID locale;
    const wchar_t* decimal;
    const wchar_t* grouping; // null: a blank that does not break, one of several
};

void PrintTo(const Writing& writing, std::ostream* out) {
    *out << writing.name;
}

/// The locale's own text for a kind of information.
std::wstring InfoOf(LCID locale, LCTYPE kind) {
    wchar_t text[80] = L"";
    GetLocaleInfoW(locale, kind, text, 80);
    return text;
}

class InLocale : public testing::TestWithParam<Writing> {
  protected:
    InLocale() { LoadDecimalSeparator(GetParam().locale); }
    ~InLocale() override { LoadDecimalSeparator(); }

    static std::wstring Integer(const std::wstring& plain) {
        std::array<wchar_t, 64> text;
        CopyTextTo(text, plain);
        FormatInteger(text, GetParam().locale);
        return text.data();
    }

    static std::wstring Decimal(const std::wstring& plain) {
        std::array<wchar_t, 64> text;
        CopyTextTo(text, plain);
        FormatDecimal(text, GetParam().locale);
        return text.data();
    }

    static std::wstring Size(std::uint32_t bytes) {
        std::array<wchar_t, 64> text;
        FormatSize(bytes, text, L"%s KB", L"%s MB", GetParam().locale);
        return text.data();
    }

    static std::wstring Grouping() {
        return GetParam().grouping ? GetParam().grouping : InfoOf(GetParam().locale, LOCALE_STHOUSAND);
    }

    /// The number with "." as the locale's decimal separator and "," as its grouping.
    static std::wstring Written(const std::wstring& number) {
        std::wstring text;
        for (wchar_t character : number)
            text += character == L'.'   ? GetParam().decimal
                    : character == L',' ? Grouping()
                                        : std::wstring(1, character);
        return text;
    }
};

TEST_P(InLocale, IsWrittenAsTheTestsSay) {
    EXPECT_EQ(InfoOf(GetParam().locale, LOCALE_SDECIMAL), GetParam().decimal);
    EXPECT_EQ(InfoOf(GetParam().locale, LOCALE_STHOUSAND), Grouping());
    if (!GetParam().grouping) {
        EXPECT_TRUE(Grouping() == L"\u00A0" || Grouping() == L"\u202F") << testing::PrintToString(Grouping());
    }
    EXPECT_EQ(InfoOf(GetParam().locale, LOCALE_IDIGITS), L"2");
}

TEST_P(InLocale, GroupsIntegersWithoutDecimals) {
    EXPECT_EQ(Integer(L"0"), L"0");
    EXPECT_EQ(Integer(L"999"), L"999");
    EXPECT_EQ(Integer(L"1234567"), Written(L"1,234,567"));
    EXPECT_EQ(Integer(L"4294967295"), Written(L"4,294,967,295"));
    EXPECT_EQ(Integer(L"-1234"), Written(L"-1,234"));
}

TEST_P(InLocale, KeepsTheDecimalsOfFractions) {
    EXPECT_EQ(Decimal(L"0.000000"), Written(L"0.00"));
    EXPECT_EQ(Decimal(L"1234.500000"), Written(L"1,234.50"));
    EXPECT_EQ(Decimal(L"0.996000"), Written(L"1.00"));
}

TEST_P(InLocale, ChangesTheUnitAtOneThousandKilobytes) {
    EXPECT_EQ(Size(0), Written(L"0.00 KB"));
    EXPECT_EQ(Size(1), Written(L"0.00 KB"));
    EXPECT_EQ(Size(1024), Written(L"1.00 KB"));
    EXPECT_EQ(Size(1536), Written(L"1.50 KB"));
    EXPECT_EQ(Size(1'000'000), Written(L"976.56 KB"));
    EXPECT_EQ(Size(1'023'999), Written(L"1,000.00 KB"));
    EXPECT_EQ(Size(1'024'000), Written(L"0.98 MB"));
    EXPECT_EQ(Size(1'048'576), Written(L"1.00 MB"));
    EXPECT_EQ(Size(0xFFFFFFFF), Written(L"4,096.00 MB"));
}

TEST_P(InLocale, WritesDateAndTimeInModeZero) {
    const SYSTEMTIME time{2006, 3, 0, 9, 14, 5, 7, 0};
    std::array<wchar_t, 64> date;
    std::array<wchar_t, 64> clock;
    ASSERT_GT(GetDateFormatW(GetParam().locale, DATE_SHORTDATE, &time, nullptr, date.data(), 64), 0);
    ASSERT_GT(GetTimeFormatW(GetParam().locale, 0, &time, nullptr, clock.data(), 64), 0);
    std::array<wchar_t, 64> text;
    FormatDateTime(time, text, 0, GetParam().locale);
    EXPECT_EQ(text.data(), std::wstring(date.data()) + L" " + clock.data());
}

INSTANTIATE_TEST_SUITE_P(TextFormat, InLocale,
                         testing::Values(Writing{"UsEnglish", 0x409, L".", L","},
                                         Writing{"German", 0x407, L",", L"."},
                                         Writing{"French", 0x40C, L",", nullptr}),
                         testing::PrintToStringParamName());

TEST(TextFormat, WritesADayAsTheLocaleDoes) {
    const SYSTEMTIME time{2006, 10, 0, 19, 14, 5, 7, 0};
    std::array<wchar_t, 32> text;
    FormatDateTime(time, text, 0, 0x407);
    EXPECT_STREQ(text.data(), L"19.10.2006 14:05:07");
    FormatDateTime(time, text, 0, 0x409);
    EXPECT_STREQ(text.data(), L"10/19/2006 2:05:07 PM");
}

TEST(TextFormat, TakesAnyUnitFormat) {
    std::array<wchar_t, 64> text;
    FormatSize(2048, text, L"[%sKB]", L"[%sMB]", 0x409);
    EXPECT_STREQ(text.data(), L"[2.00KB]");
    FormatSize(2'097'152, text, L"[%sKB]", L"[%sMB]", 0x409);
    EXPECT_STREQ(text.data(), L"[2.00MB]");
    FormatSize(2'097'152, text, L"%s", L"%s", 0x409);
    EXPECT_STREQ(text.data(), L"2.00");
}

TEST(TextFormat, LeavesATextThatIsNoNumber) {
    std::array<wchar_t, 16> text{L"none"};
    FormatInteger(text, 0x409);
    EXPECT_STREQ(text.data(), L"none");
    FormatDecimal(text, 0x409);
    EXPECT_STREQ(text.data(), L"none");
}

TEST(TextFormat, LeavesANumberThatWouldNotFitGrouped) {
    LoadDecimalSeparator(0x409);
    std::array<wchar_t, 10> text{L"1234567"};
    FormatInteger(std::span(text).first(9), 0x409);
    EXPECT_STREQ(text.data(), L"1234567");
    FormatInteger(text, 0x409);
    EXPECT_STREQ(text.data(), L"1,234,567");
    LoadDecimalSeparator();
}

TEST(TextFormat, CutsASizeToItsBuffer) {
    std::array<wchar_t, 5> text;
    FormatSize(1024, text, L"%s KB", L"%s MB", 0x409);
    EXPECT_STREQ(text.data(), L"1.00");
}

TEST(TextFormat, GivesTodaysTimesWithoutTheDate) {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    SYSTEMTIME earlier = now;
    earlier.wHour = 0;
    earlier.wMinute = 0;
    earlier.wSecond = 1;
    std::array<wchar_t, 32> text;
    for (std::uint32_t mode : {1u, 2u, 0xFFFFFFFFu}) {
        FormatDateTime(earlier, text, mode, 0x407);
        EXPECT_STREQ(text.data(), L"00:00:01");
    }
}

TEST(TextFormat, GivesOtherDaysWithoutTheTime) {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    FILETIME ticks{};
    ASSERT_TRUE(SystemTimeToFileTime(&now, &ticks));
    ULARGE_INTEGER day{{ticks.dwLowDateTime, ticks.dwHighDateTime}};
    day.QuadPart -= 24ull * 60 * 60 * 10'000'000;
    ticks = {day.LowPart, day.HighPart};
    SYSTEMTIME yesterday{};
    ASSERT_TRUE(FileTimeToSystemTime(&ticks, &yesterday));

    SYSTEMTIME lastYear = now;
    --lastYear.wYear;
    lastYear.wDay = 1; // a day that every year has
    for (const SYSTEMTIME& time : {yesterday, lastYear}) {
        std::array<wchar_t, 32> date;
        std::array<wchar_t, 32> text;
        ASSERT_GT(GetDateFormatW(0x407, DATE_SHORTDATE, &time, nullptr, date.data(), 32), 0);
        FormatDateTime(time, text, 1, 0x407);
        EXPECT_STREQ(text.data(), date.data());
    }
}

TEST(TextFormat, WritesNothingForATimeThatIsNone) {
    std::array<wchar_t, 32> text{L"old"};
    FormatDateTime(SYSTEMTIME{}, text, 1, 0x409);
    EXPECT_STREQ(text.data(), L"");
}

TEST(TextFormat, StaysInsideASmallBuffer) {
    const SYSTEMTIME time{2006, 3, 0, 9, 14, 5, 7, 0};
    for (std::size_t capacity = 1; capacity <= 20; ++capacity) {
        std::array<wchar_t, 24> text;
        text.fill(L'#');
        FormatDateTime(time, std::span(text).first(capacity), 0, 0x407);
        EXPECT_LT(std::wstring(text.data()).size(), capacity);
        EXPECT_EQ(text[capacity], L'#') << capacity;
    }
}

TEST(TextFormat, CutsTheLastExtension) {
    wchar_t archive[] = L"archive.tar.gz";
    EXPECT_EQ(CutExtension(archive), archive + 11);
    EXPECT_STREQ(archive, L"archive.tar");
    wchar_t dotFile[] = L".profile";
    EXPECT_EQ(CutExtension(dotFile), dotFile);
    EXPECT_STREQ(dotFile, L"");
    wchar_t plain[] = L"plain";
    EXPECT_EQ(CutExtension(plain), nullptr);
    EXPECT_STREQ(plain, L"plain");
    wchar_t trailing[] = L"trailing.";
    CutExtension(trailing);
    EXPECT_STREQ(trailing, L"trailing");
}

TEST(TextFormat, AppendsTheLastExtension) {
    std::array<wchar_t, 12> text{L"copy"};
    AppendExtension(text, L"archive.tar.gz");
    EXPECT_STREQ(text.data(), L"copy.gz");
    AppendExtension(text, L"plain");
    EXPECT_STREQ(text.data(), L"copy.gz");
    AppendExtension(text, L"long.extension");
    EXPECT_STREQ(text.data(), L"copy.gz.ext") << "cut to fit";
    AppendExtension(text, L"a.b");
    EXPECT_STREQ(text.data(), L"copy.gz.ext");
}

} // namespace
