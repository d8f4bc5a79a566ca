#include "fileops/shortcut_change.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "platform/handles.h"

namespace {

namespace fs = std::filesystem;

class ShortcutChange : public testing::Test {
  protected:
    void SetUp() override {
        fs::remove_all(home);
        fs::create_directories(home);
        std::ofstream(home / L"way.lnk", std::ios::binary) << old;
        EXPECT_TRUE(shortcut.Assign((home / L"way.lnk").wstring()));
    }
    void TearDown() override { fs::remove_all(home); }

    static std::string Content(const std::wstring& name) {
        std::ifstream file(home / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static int FileCount() {
        return static_cast<int>(std::distance(fs::directory_iterator(home), fs::directory_iterator()));
    }

    static inline const fs::path home = L"\\Temp\\Shortcut change";
    static inline const std::string old = ";a comment\n8#\\Windows?icons.dll,-3";
    Path shortcut;
};

} // namespace

TEST_F(ShortcutChange, MakesTheShortcutAnew) {
    EXPECT_TRUE(ChangeShortcutTarget(shortcut, L"\\Temp"));
    EXPECT_EQ(Content(L"way.lnk"), "5#\\Temp");
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(ShortcutChange, KeepsTheAttributes) {
    constexpr DWORD attributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN;
    ASSERT_TRUE(ce::SetFileAttributesW(shortcut.Text(), attributes));
    EXPECT_TRUE(ChangeShortcutTarget(shortcut, L"\\Temp"));
    EXPECT_EQ(ce::GetFileAttributesW(shortcut.Text()) & attributes, attributes);
    ce::SetFileAttributesW(shortcut.Text(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(ShortcutChange, AShortcutThatCannotBeMadeLeavesTheOldOneAsItWas) {
    ASSERT_TRUE(ce::SetFileAttributesW(shortcut.Text(), FILE_ATTRIBUTE_HIDDEN));
    EXPECT_FALSE(ChangeShortcutTarget(shortcut, L"")); // the platform makes none without a target
    EXPECT_EQ(Content(L"way.lnk"), old);
    EXPECT_TRUE(ce::GetFileAttributesW(shortcut.Text()) & FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(ShortcutChange, TouchesNoOtherFile) {
    std::ofstream(home / L"~1") << "one";
    std::ofstream(home / L"~2") << "two";
    EXPECT_TRUE(ChangeShortcutTarget(shortcut, L"\\Temp"));
    EXPECT_EQ(Content(L"~1"), "one");
    EXPECT_EQ(Content(L"~2"), "two");
    EXPECT_EQ(FileCount(), 3);
}

TEST_F(ShortcutChange, AShortcutInUseStays) {
    const FileHandle held(
        CreateFileW(shortcut.Text(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_FALSE(ChangeShortcutTarget(shortcut, L"\\Temp"));
    EXPECT_EQ(Content(L"way.lnk"), old);
}
