#include "common/path.h"

#include <string>

#include <gtest/gtest.h>

namespace {

TEST(Path, IsTheRootAtFirst) {
    Path path;
    EXPECT_TRUE(path.IsEmpty());
    EXPECT_EQ(path.View(), L"");
}

TEST(Path, TakesAtMost259Characters) {
    Path path;
    EXPECT_TRUE(path.Assign(std::wstring(259, L'x')));
    EXPECT_EQ(path.Length(), 259u);
    EXPECT_EQ(path.Text()[259], L'\0');
    EXPECT_FALSE(path.Assign(std::wstring(260, L'y')));
    EXPECT_EQ(path.View(), std::wstring(259, L'x')) << "what does not fit leaves the path as it was";
}

TEST(Path, AppendsOnlyWhatFits) {
    Path path;
    ASSERT_TRUE(path.Assign(std::wstring(250, L'x')));
    EXPECT_TRUE(path.Append(L"123456789"));
    EXPECT_FALSE(path.Append(L"0"));
    EXPECT_EQ(path.Length(), 259u);
}

TEST(Path, MakesAChildWithOneBackslash) {
    Path path;
    ASSERT_TRUE(path.AssignChild(L"\\Windows", L"Fonts"));
    EXPECT_EQ(path.View(), L"\\Windows\\Fonts");
    ASSERT_TRUE(path.AssignChild(L"\\Windows\\", L"Fonts"));
    EXPECT_EQ(path.View(), L"\\Windows\\Fonts");
    ASSERT_TRUE(path.AssignChild(L"", L"Windows"));
    EXPECT_EQ(path.View(), L"\\Windows");
}

TEST(Path, RefusesAChildThatIsTooLong) {
    Path path;
    ASSERT_TRUE(path.Assign(L"\\kept"));
    EXPECT_TRUE(path.AssignChild(std::wstring(255, L'x'), L"abc"));
    ASSERT_TRUE(path.Assign(L"\\kept"));
    EXPECT_FALSE(path.AssignChild(std::wstring(255, L'x'), L"abcd"));
    EXPECT_EQ(path.View(), L"\\kept");
}

TEST(Path, MakesThePatternThatEnumeratesAFolder) {
    Path path;
    ASSERT_TRUE(path.AssignPattern(L""));
    EXPECT_EQ(path.View(), L"\\*.*");
    ASSERT_TRUE(path.AssignPattern(L"\\Windows"));
    EXPECT_EQ(path.View(), L"\\Windows\\*.*");
    EXPECT_FALSE(path.AssignPattern(std::wstring(256, L'x')));
}

TEST(Path, CanBeCut) {
    Path path;
    ASSERT_TRUE(path.Assign(L"\\Windows\\Fonts"));
    path.Truncate(100);
    EXPECT_EQ(path.View(), L"\\Windows\\Fonts");
    path.Truncate(8);
    EXPECT_EQ(path.View(), L"\\Windows");
    path.Clear();
    EXPECT_TRUE(path.IsEmpty());
}

TEST(Path, TellsTheSearchFolderExactly) {
    Path path;
    ASSERT_TRUE(path.Assign(L"File Search"));
    EXPECT_TRUE(path.IsSearchFolder());
    ASSERT_TRUE(path.Assign(L"file search"));
    EXPECT_FALSE(path.IsSearchFolder());
}

TEST(Path, SplitsAtTheLastBackslash) {
    EXPECT_EQ(LeafOf(L"\\Windows\\Fonts"), L"Fonts");
    EXPECT_EQ(LeafOf(L"Fonts"), L"Fonts");
    EXPECT_EQ(LeafOf(L""), L"");
    EXPECT_EQ(ParentOf(L"\\Windows\\Fonts"), L"\\Windows");
    EXPECT_EQ(ParentOf(L"\\Windows"), L"");
    EXPECT_EQ(ParentOf(L"Windows"), L"");
}

TEST(Path, FindsTheExtensionFromTheLastDotOn) {
    EXPECT_EQ(ExtensionOf(L"a.tar.gz"), L".gz");
    EXPECT_EQ(ExtensionOf(L"name"), L"");
    EXPECT_EQ(ExtensionOf(L"name."), L".");
}

TEST(Path, ComparesWithoutRegardToCase) {
    EXPECT_TRUE(EqualNoCase(L"Recycled", L"rECYCLED"));
    EXPECT_FALSE(EqualNoCase(L"Recycled", L"Recycled2"));
    EXPECT_FALSE(EqualNoCase(L"Recycled2", L"Recycled"));
}

} // namespace
