#include "platform/desktop/rooted_path.h"

#include <string>

#include <gtest/gtest.h>

namespace {

std::wstring Full(const wchar_t* path) {
    const std::vector<wchar_t> text = FullPath(path);
    return text.empty() ? std::wstring() : std::wstring(text.data());
}

TEST(RootedPath, LosesTheDevicesOwnDriveAlone) {
    EXPECT_EQ(RootedPart(L"E:\\Windows\\a.txt"), L"\\Windows\\a.txt");
    EXPECT_EQ(RootedPart(L"e:\\Windows"), L"\\Windows");
    EXPECT_EQ(RootedPart(L"E:\\"), L"\\");
    EXPECT_EQ(RootedPart(L"C:\\Windows"), L"C:\\Windows");
}

TEST(RootedPath, StaysWhatItIsWithoutADrive) {
    for (const wchar_t* path : {L"", L"\\", L"\\Windows", L"E:", L"E:name", L"EE:\\x", L"\\\\server\\share"})
        EXPECT_EQ(RootedPart(path), path);
}

TEST(RootedPath, IsMadeFullWithTheDevicesDrive) {
    EXPECT_EQ(Full(L"\\Windows\\a.txt"), L"E:\\Windows\\a.txt");
    EXPECT_EQ(Full(L"\\"), L"E:\\");
    EXPECT_EQ(Full(L"C:\\Windows"), L"C:\\Windows");
    EXPECT_EQ(Full(L""), L"");
}

TEST(RootedPath, IsSplitAtTheLastBackslash) {
    EXPECT_EQ(FolderPart(L"\\Windows\\a.txt"), L"\\Windows");
    EXPECT_EQ(FolderPart(L"\\a.txt"), L"");
    EXPECT_EQ(FolderPart(L"a.txt"), L"");
    EXPECT_EQ(NamePart(L"\\Windows\\a.txt"), L"a.txt");
    EXPECT_EQ(NamePart(L"a.txt"), L"a.txt");
    EXPECT_EQ(NamePart(L"\\Windows\\"), L"");
}

TEST(RootedPath, IsComparedWithoutRegardToCase) {
    EXPECT_TRUE(SameText(L"\\Windows", L"\\WINDOWS"));
    EXPECT_TRUE(SameText(L"\u00C4", L"\u00E4"));
    EXPECT_FALSE(SameText(L"\\Windows", L"\\Window"));
}

} // namespace
