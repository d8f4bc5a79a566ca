#include "fileops/fitting_text.h"

#include <array>
#include <string>

#include <gtest/gtest.h>

namespace {

std::wstring Cut(const wchar_t* name, std::size_t limit) {
    std::array<wchar_t, 260> text{};
    CutName(text, name, limit);
    return text.data();
}

TEST(FittingText, CutsNamesInTheMiddle) {
    EXPECT_EQ(Cut(L"report.txt", 10), L"report.txt");
    EXPECT_EQ(Cut(L"a long report.txt", 12), L"a lon....txt");
    EXPECT_EQ(Cut(L"a long report.txt", 8), L"a l...xt");
    EXPECT_EQ(Cut(L"", 8), L"");
}

} // namespace
