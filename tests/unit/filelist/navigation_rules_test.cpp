#include "filelist/navigation_rules.h"

#include <gtest/gtest.h>

namespace {

TEST(NamesRoot, AcceptsEverySpelling) {
    for (const wchar_t* spelling : {L"", L"\\", L"\\\\", L"/", L"My Phone"})
        EXPECT_TRUE(NamesRoot(spelling, L"My Phone"));
}

TEST(NamesRoot, ComparesExactly) {
    for (const wchar_t* path : {L"my phone", L"My Phone ", L"\\My Phone", L" ", L"//", L"\\\\\\", L"/\\",
                                L".", L"\\Windows", L"File Search"})
        EXPECT_FALSE(NamesRoot(path, L"My Phone"));
}

TEST(FolderAbove, CutsAtTheLastBackslash) {
    EXPECT_EQ(FolderAbove(L"\\Aa\\Bb\\Cc"), L"\\Aa\\Bb");
    EXPECT_EQ(FolderAbove(L"\\Aa"), L"");
    EXPECT_EQ(FolderAbove(L"\\Aa\\"), L"\\Aa") << "a typed backslash at the end counts";
}

TEST(FolderAbove, EndsAtTheRootFromAServer) {
    EXPECT_EQ(FolderAbove(L"\\\\server\\share"), L"\\\\server");
    EXPECT_EQ(FolderAbove(L"\\\\server"), L"");
}

TEST(FolderAbove, EndsAtTheRootWithoutABackslash) {
    EXPECT_EQ(FolderAbove(L"File Search"), L"");
    EXPECT_EQ(FolderAbove(L"Aa"), L"");
}

} // namespace
