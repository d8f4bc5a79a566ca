#include "foldertree/user_path_rules.h"

#include <string>

#include <gtest/gtest.h>

TEST(UserPathRules, ANewPathIsTheFolderShown) {
    EXPECT_EQ(NewUserPath(L"\\My Documents", L"My PocketPC"), L"\\My Documents");
}

TEST(UserPathRules, ANewPathIsTheDeviceWhereThereIsNoFolder) {
    EXPECT_EQ(NewUserPath(L"", L"My PocketPC"), L"My PocketPC");
    EXPECT_EQ(NewUserPath(L"File Search", L"My PocketPC"), L"My PocketPC");
    EXPECT_EQ(NewUserPath(L"file search", L"My PocketPC"), L"file search");
}

TEST(UserPathRules, NothingTypedIsTheDevice) {
    EXPECT_EQ(TypedUserPath(L"", L"My PocketPC"), L"My PocketPC");
    EXPECT_EQ(TypedUserPath(L" ", L"My PocketPC"), L" ");
    EXPECT_EQ(TypedUserPath(L"\\A", L"My PocketPC"), L"\\A");
}

TEST(UserPathRules, APathMayHoldBackslashesOnly) {
    EXPECT_FALSE(HasForbiddenPathCharacter(L"\\A\\B"));
    EXPECT_FALSE(HasForbiddenPathCharacter(L""));
    for (const wchar_t character : std::wstring_view(L"/:,;*?<>|"))
        EXPECT_TRUE(HasForbiddenPathCharacter(std::wstring(L"\\A") + character + L"B")) << char(character);
}
