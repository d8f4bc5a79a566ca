#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "platform/ce_api.h"

namespace {

namespace fs = std::filesystem;

class Shortcuts : public testing::Test {
  protected:
    Shortcuts() {
        fs::remove_all(home);
        fs::create_directories(home);
    }
    ~Shortcuts() override { fs::remove_all(home); }

    static void WriteFile(const std::string& bytes) {
        std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

    static std::string FileBytes() {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    /// What the shortcut holds; "-" when it cannot be read, in which case nothing may be left in the buffer.
    static std::wstring Target(int capacity = 260) {
        std::wstring buffer(600, L'#');
        if (ce::SHGetShortcutTarget(file.c_str(), buffer.data(), capacity)) {
            EXPECT_LT(std::wcslen(buffer.c_str()), static_cast<std::size_t>(capacity));
            return buffer.c_str();
        }
        EXPECT_EQ(buffer[0], capacity > 0 ? L'\0' : L'#');
        EXPECT_EQ(buffer[1], L'#');
        return L"-";
    }

    static inline const fs::path home = L"\\Temp\\Shortcuts";
    static inline const fs::path file = home / L"a.lnk";
};

TEST_F(Shortcuts, AreWrittenAsThePhonesText) {
    ASSERT_TRUE(ce::SHCreateShortcut(file.c_str(), L"\"\\My Documents\\a b.txt\""));
    EXPECT_EQ(FileBytes(), "23#\"\\My Documents\\a b.txt\"");
    EXPECT_EQ(Target(), L"\"\\My Documents\\a b.txt\"");
}

TEST_F(Shortcuts, NeverReplaceAFile) {
    WriteFile("6#\\a.exe");
    EXPECT_FALSE(ce::SHCreateShortcut(file.c_str(), L"\\b.exe"));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_EXISTS));
    EXPECT_EQ(Target(), L"\\a.exe");
}

TEST_F(Shortcuts, AreNotMadeWithoutATargetOrAFolder) {
    EXPECT_FALSE(ce::SHCreateShortcut(file.c_str(), L""));
    EXPECT_FALSE(ce::SHCreateShortcut(file.c_str(), nullptr));
    EXPECT_FALSE(ce::SHCreateShortcut(nullptr, L"\\a.exe"));
    EXPECT_FALSE(ce::SHCreateShortcut((home / L"missing" / L"a.lnk").c_str(), L"\\a.exe"));
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(Shortcuts, FitTheReadersBufferOrAreNotRead) {
    ASSERT_TRUE(ce::SHCreateShortcut(file.c_str(), std::wstring(256, L'x').c_str()));
    EXPECT_EQ(Target(260), std::wstring(256, L'x'));
    EXPECT_EQ(Target(257), std::wstring(256, L'x'));
    EXPECT_EQ(Target(256), L"-");
    EXPECT_EQ(Target(1), L"-");
    EXPECT_EQ(Target(0), L"-");
    EXPECT_EQ(Target(-1), L"-");
}

TEST_F(Shortcuts, OfAnyLengthAreMeasuredFirst) {
    for (int length : {259, 260, 510, 511, 512, 5000, 100000}) {
        WriteFile(std::to_string(length) + "#" + std::string(static_cast<std::size_t>(length), 'x'));
        EXPECT_EQ(Target(260), length < 260 ? std::wstring(static_cast<std::size_t>(length), L'x') : L"-")
            << length;
        EXPECT_EQ(Target(512), length < 512 ? std::wstring(static_cast<std::size_t>(length), L'x') : L"-")
            << length;
    }
}

TEST_F(Shortcuts, AreNotReadFromOtherFiles) {
    EXPECT_EQ(Target(), L"-") << "missing";
    for (const char* bytes : {"", "MZ", "no shortcut at all", "#"}) {
        WriteFile(bytes);
        EXPECT_EQ(Target(), L"-") << bytes;
    }
    wchar_t buffer[8] = L"#######";
    EXPECT_FALSE(ce::SHGetShortcutTarget(nullptr, buffer, 8));
    EXPECT_FALSE(ce::SHGetShortcutTarget(home.c_str(), buffer, 8));
    EXPECT_FALSE(ce::SHGetShortcutTarget(file.c_str(), nullptr, 8));
}

} // namespace
