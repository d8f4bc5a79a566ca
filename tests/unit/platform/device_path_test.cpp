#include "platform/desktop/device_path.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "platform/ce_api.h"
#include "platform/path_spelling.h"

namespace {

/// What a path means on a device with the drive E:, or "off".
std::wstring Spelt(const std::wstring& path, std::size_t room = 260) {
    std::wstring text(room, L'\0');
    const std::optional<std::size_t> length = SpellPath(path, L'E', text);
    return length ? text.substr(0, *length) : L"off";
}

std::wstring Resolved(const std::wstring& path, int capacity = 260) {
    std::wstring text(260, L'x');
    return ce::ResolvePath(path.c_str(), text.data(), capacity) ? std::wstring(text.c_str()) : L"off";
}

const std::wstring offTheDevice[] = {L"C:\\windows",
                                     L"c:",
                                     L"Z:\\",
                                     L"Z:/home",
                                     L"Z:tmp",
                                     L"\\\\?\\C:\\x",
                                     L"\\\\?\\unix\\tmp",
                                     L"\\\\.\\C:\\",
                                     L"\\\\.\\unix\\tmp",
                                     L"//?/unix/tmp",
                                     L"\\/?\\unix",
                                     L"\\??\\Z:\\tmp",
                                     L"/\?\?/unix/tmp",
                                     L"\\??",
                                     L"\\\\server\\share",
                                     L"\\\\?\\E:\\Temp",
                                     L"\\\\\\\\",
                                     L"\\\\",
                                     L"\\\\?",
                                     L"\\\\localhost\\c$",
                                     L"\\\\?\\UNC\\server\\share",
                                     L"\\\\?\\GLOBALROOT\\Device"};

} // namespace

TEST(PathSpelling, IsOneForAllThatMeanTheSame) {
    for (const wchar_t* path :
         {L"\\Temp\\a", L"\\Temp\\a\\", L"/Temp/a", L"\\Temp\\.\\a", L"\\Temp\\a\\.", L"\\Temp\\x\\..\\a",
          L"\\\u00C4\\..\\Temp\\\\a\\\\", L"Temp\\a", L"E:\\Temp\\a", L"e:/Temp/a", L"E:Temp\\a",
          L"\\..\\..\\Temp\\a", L"..\\Temp\\a", L"\\Temp\\a\\b\\..", L"\\Temp\\a\\b\\..\\"})
        EXPECT_EQ(Spelt(path), L"\\Temp\\a") << testing::PrintToString(std::wstring(path));
    EXPECT_EQ(Spelt(L"\\TEMP\\A"), L"\\TEMP\\A");
}

TEST(PathSpelling, IsEmptyForTheRoot) {
    for (const wchar_t* path : {L"", L"\\", L"/", L".", L"..", L"\\.", L"\\Temp\\..", L"\\a\\b\\..\\..\\..",
                                L"E:", L"E:\\", L"e:\\..\\.."})
        EXPECT_EQ(Spelt(path), L"") << testing::PrintToString(std::wstring(path));
}

TEST(PathSpelling, TakesDotsForNamesWhereTheyAreNames) {
    for (const wchar_t* path :
         {L"\\...", L"\\a.", L"\\.a", L"\\..a", L"\\a..", L"\\. ", L"\\.. \\x", L"\\???\\x", L"\\?\\x"})
        EXPECT_EQ(Spelt(path), path);
}

TEST(PathSpelling, IsRefusedToWhatLeadsElsewhere) {
    for (const std::wstring& path : offTheDevice)
        EXPECT_EQ(Spelt(path), L"off") << testing::PrintToString(path);
    std::wstring text(20, L'\0');
    EXPECT_FALSE(SpellPath(L"E:\\Temp", noDrive, text)) << "a device without drives has none of its own";
}

TEST(PathSpelling, IsRefusedToWhatDoesNotFit) {
    EXPECT_EQ(Spelt(L"\\abc\\def", 8), L"\\abc\\def");
    EXPECT_EQ(Spelt(L"\\abc\\def", 7), L"off");
    EXPECT_EQ(Spelt(L"\\abc\\..\\def", 4), L"\\def");
}

TEST(DevicePath, IsWhatTheHostsCallsTake) {
    const DevicePath path(L"/Temp/./a\\");
    ASSERT_TRUE(path);
    EXPECT_STREQ(path.Text(), L"\\\\?\\E:\\Temp\\a");
    EXPECT_STREQ(path.WithDrive(), L"E:\\Temp\\a");
    EXPECT_EQ(path.Rooted(), L"\\Temp\\a");
    EXPECT_STREQ(DevicePath(L"\\Temp\\a longer name\\..").Text(), L"\\\\?\\E:\\Temp");
    const DevicePath root(L"\\Temp\\..");
    ASSERT_TRUE(root);
    EXPECT_STREQ(root.Text(), L"\\\\?\\E:\\");
    EXPECT_EQ(root.Rooted(), L"\\");
    const DevicePath longest((L"\\" + std::wstring(258, L'x') + L"\\*.*").c_str());
    ASSERT_TRUE(longest);
    EXPECT_EQ(longest.Rooted().size(), 263u);
}

TEST(DevicePath, IsRefusedToWhatLeadsElsewhere) {
    for (const std::wstring& text : offTheDevice) {
        SetLastError(ERROR_SUCCESS);
        const DevicePath path(text.c_str());
        EXPECT_FALSE(path) << testing::PrintToString(text);
        EXPECT_STREQ(path.Text(), L"");
        EXPECT_STREQ(path.WithDrive(), L"");
        EXPECT_EQ(path.Rooted(), L"");
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    }
    EXPECT_FALSE(DevicePath(nullptr));
    EXPECT_FALSE(DevicePath(L""));
    EXPECT_FALSE(DevicePath(std::wstring(400, L'x').c_str()));
}

TEST(DevicePath, IsResolvedWithItsLettersAndItsLastBackslash) {
    EXPECT_EQ(Resolved(L"/tEMP/"), L"\\tEMP\\");
    EXPECT_EQ(Resolved(L"\\a\\..\\B"), L"\\B");
    EXPECT_EQ(Resolved(L"\\Temp\\..\\"), L"\\");
    EXPECT_EQ(Resolved(L"E:"), L"\\");
    for (const std::wstring& path : offTheDevice)
        EXPECT_EQ(Resolved(path), L"off") << testing::PrintToString(path);
    EXPECT_EQ(Resolved(L""), L"off");
    EXPECT_EQ(Resolved(L"\\abc\\", 6), L"\\abc\\");
    EXPECT_EQ(Resolved(L"\\abc\\", 5), L"off");
    EXPECT_EQ(Resolved(L"\\abc", 5), L"\\abc");
    EXPECT_EQ(Resolved(L"\\abc", 4), L"off");
}

TEST(DevicePath, KeepsEveryFileCallOnTheDevice) {
    WIN32_FIND_DATAW found{};
    for (const wchar_t* path :
         {L"Z:\\", L"C:\\windows", L"\\\\?\\unix\\tmp", L"\\\\.\\unix\\tmp", L"\\??\\Z:\\tmp"}) {
        const std::wstring inside = std::wstring(path) + L"\\tarvik edge";
        const std::wstring pattern = std::wstring(path) + L"\\*.*";
        EXPECT_EQ(ce::GetFileAttributesW(path), INVALID_FILE_ATTRIBUTES);
        EXPECT_EQ(ce::FindFirstFileW(pattern.c_str(), &found), INVALID_HANDLE_VALUE);
        EXPECT_EQ(ce::CreateFileW(inside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr),
                  INVALID_HANDLE_VALUE);
        EXPECT_FALSE(ce::CreateDirectoryW(inside.c_str(), nullptr));
        EXPECT_FALSE(ce::MoveFileW(L"\\Temp", inside.c_str()));
        EXPECT_FALSE(ce::MoveFileW(path, L"\\Temp\\here"));
        EXPECT_FALSE(ce::DeleteFileW(path));
        EXPECT_FALSE(ce::RemoveDirectoryW(path));
        EXPECT_FALSE(ce::SetFileAttributesW(path, FILE_ATTRIBUTE_HIDDEN));
        EXPECT_FALSE(ce::DeleteAndRenameFile(inside.c_str(), L"\\Temp\\x"));
        EXPECT_FALSE(ce::GetDiskFreeSpaceExW(path, nullptr, nullptr, nullptr));
        EXPECT_EQ(ce::FindFirstChangeNotificationW(path, FALSE, FILE_NOTIFY_CHANGE_FILE_NAME),
                  INVALID_HANDLE_VALUE);
        EXPECT_FALSE(ce::SHCreateShortcut(inside.c_str(), L"\\Temp"));
        EXPECT_EQ(::GetFileAttributesW(inside.c_str()), INVALID_FILE_ATTRIBUTES);
    }
}

TEST(DevicePath, ReachesAllOfTheDevicesNames) {
    ASSERT_TRUE(ce::CreateDirectoryW(L"/Temp/edge test/", nullptr));
    EXPECT_FALSE(ce::CreateDirectoryW(L"E:\\Temp\\x\\..\\edge test", nullptr));
    const HANDLE file =
        ce::CreateFileW(L"\\Temp\\edge test\\nul.txt", GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    EXPECT_NE(file, INVALID_HANDLE_VALUE) << "a device of the host's must not stand in for it";
    CloseHandle(file);
    EXPECT_EQ(ce::GetFileAttributesW(L"\\Temp\\edge test\\nul.txt") & FILE_ATTRIBUTE_DIRECTORY, 0u);
    EXPECT_TRUE(ce::GetDiskFreeSpaceExW(L"\\Temp", nullptr, nullptr, nullptr));
    EXPECT_TRUE(ce::DeleteFileW(L"\\Temp\\edge test\\nul.txt"));
    EXPECT_TRUE(ce::RemoveDirectoryW(L"\\Temp\\edge test"));
    EXPECT_FALSE(ce::RemoveDirectoryW(L"\\Temp\\edge test"));
}
