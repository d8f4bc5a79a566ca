#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include "platform/ce_api.h"
#include "platform/handles.h"
#include "tests/support/host.h"

namespace {

namespace fs = std::filesystem;

using Found = std::map<std::wstring, DWORD>; // names and attributes

class FileSystem : public testing::Test {
  protected:
    FileSystem() { RunOnHost("rm -rf Temp/Files; mkdir -p Temp/Files"); }
    ~FileSystem() override { RunOnHost("rm -rf Temp/Files 'Test Card' Outside; rm -f Windows/linked.txt"); }

    static void MakeFile(const std::wstring& path) { std::ofstream(fs::path(path)) << "x"; }

    static Found Find(const wchar_t* pattern) {
        Found found;
        WIN32_FIND_DATAW entry{};
        const FindHandle find(ce::FindFirstFileW(pattern, &entry));
        if (!find)
            return found;
        do
            EXPECT_TRUE(found.emplace(entry.cFileName, entry.dwFileAttributes).second);
        while (ce::FindNextFileW(find.Get(), &entry));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NO_MORE_FILES));
        return found;
    }

    static DWORD Attributes(const wchar_t* path) { return ce::GetFileAttributesW(path); }
};

constexpr DWORD folder = FILE_ATTRIBUTE_DIRECTORY;
constexpr DWORD link = FILE_ATTRIBUTE_REPARSE_POINT;
constexpr DWORD card = FILE_ATTRIBUTE_STORAGE_CARD;
constexpr DWORD rom = FILE_ATTRIBUTE_INROM;

TEST_F(FileSystem, FindsNeitherTheFolderItselfNorTheOneAbove) {
    fs::create_directory(L"\\Temp\\Files\\Sub");
    MakeFile(L"\\Temp\\Files\\a.txt");
    for (const wchar_t* pattern : {L"\\Temp\\Files\\*.*", L"\\Temp\\Files\\*"}) {
        const Found found = Find(pattern);
        EXPECT_EQ(found.size(), 2u);
        EXPECT_TRUE(found.contains(L"Sub"));
        EXPECT_TRUE(found.contains(L"a.txt"));
    }
    EXPECT_FALSE(Find(L"\\*.*").contains(L"."));
    EXPECT_TRUE(Find(L"\\*.*").contains(L"Temp"));
}

TEST_F(FileSystem, MakesNothingThatThePhoneWouldNotList) {
    const auto makesFile = [](const std::wstring& path, DWORD creation) {
        return static_cast<bool>(FileHandle(ce::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, creation,
                                                            FILE_ATTRIBUTE_NORMAL, nullptr)));
    };
    for (const wchar_t* name : {L"a?b", L"a*b", L"a\"b", L"a<b", L"a>b", L"a|b", L"a:b", L"dot.", L"blank ",
                                L"...", L"tab\t", L"line\n", L"bad\xFFFD"}) {
        const std::wstring path = std::wstring(L"\\Temp\\Files\\") + name;
        EXPECT_FALSE(ce::CreateDirectoryW(path.c_str(), nullptr)) << testing::PrintToString(path);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_NAME));
        for (const DWORD creation : {CREATE_NEW, CREATE_ALWAYS, OPEN_ALWAYS})
            EXPECT_FALSE(makesFile(path, creation)) << testing::PrintToString(path);
        EXPECT_FALSE(ce::SHCreateShortcut(path.c_str(), L"\\Temp")) << testing::PrintToString(path);
    }
    RunOnHost("test -z \"$(ls -A Temp/Files)\"");
    EXPECT_TRUE(ce::CreateDirectoryW(L"\\Temp\\Files\\aux.c", nullptr));
    EXPECT_TRUE(makesFile(L"\\Temp\\Files\\nul.txt", CREATE_NEW));
    EXPECT_EQ(Find(L"\\Temp\\Files\\*.c").size(), 1u);
}

TEST_F(FileSystem, FindsNothingInAnEmptyOrMissingFolder) {
    EXPECT_TRUE(Find(L"\\Temp\\Files\\*.*").empty());
    WIN32_FIND_DATAW entry{};
    EXPECT_EQ(ce::FindFirstFileW(L"\\Temp\\Files\\*.*", &entry), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NO_MORE_FILES));
    EXPECT_EQ(ce::FindFirstFileW(L"\\Temp\\Missing\\*.*", &entry), INVALID_HANDLE_VALUE);
}

TEST_F(FileSystem, FindsOneEntryByItsName) {
    MakeFile(L"\\Temp\\Files\\a.txt");
    EXPECT_EQ(Find(L"\\Temp\\Files\\a.txt").size(), 1u);
    EXPECT_TRUE(Find(L"\\Temp").contains(L"Temp"));
}

TEST_F(FileSystem, PassesOverNamesThatAPathWouldMistake) {
    RunOnHost("cd Temp/Files; touch 'dot.' 'blank ' 'back\\slash' plain");
    const Found found = Find(L"\\Temp\\Files\\*.*");
    for (const auto& [name, attributes] : found) {
        EXPECT_NE(Attributes((L"\\Temp\\Files\\" + name).c_str()), INVALID_FILE_ATTRIBUTES);
        EXPECT_EQ(name.find(L'\\'), std::wstring::npos);
    }
    EXPECT_TRUE(found.contains(L"plain"));
    EXPECT_FALSE(found.contains(L"dot."));
    EXPECT_FALSE(found.contains(L"blank "));
}

TEST_F(FileSystem, ShowsALinkedFolderOfTheRootAsACard) {
    RunOnHost("mkdir Outside; ln -sfn Outside 'Test Card'");
    EXPECT_EQ(Find(L"\\*.*").at(L"Test Card") & (folder | card | link), folder | card);
    EXPECT_EQ(Find(L"\\*.*").at(L"Outside") & (folder | card | link), folder);
    EXPECT_EQ(Attributes(L"\\Test Card") & (folder | card | link), folder | card);
    EXPECT_EQ(Attributes(L"E:\\test card") & (folder | card | link), folder | card);
}

TEST_F(FileSystem, ShowsALinkFurtherDownAsALink) {
    RunOnHost("mkdir Temp/Files/Real; ln -s Real Temp/Files/Linked");
    EXPECT_EQ(Find(L"\\Temp\\Files\\*.*").at(L"Linked") & (folder | card | link), folder | link);
    EXPECT_EQ(Attributes(L"\\Temp\\Files\\Linked") & (folder | card | link), folder | link);
    EXPECT_EQ(Attributes(L"\\Temp\\Files\\Real") & (folder | card | link), folder);
}

TEST_F(FileSystem, MarksTheFilesRightInWindowsAsInRom) {
    MakeFile(L"\\Windows\\rom test.txt");
    for (const auto& [name, attributes] : Find(L"\\Windows\\*.*"))
        EXPECT_EQ((attributes & rom) != 0, (attributes & folder) == 0) << testing::PrintToString(name);
    EXPECT_TRUE(Attributes(L"\\Windows\\rom test.txt") & rom);
    EXPECT_TRUE(Attributes(L"\\WINDOWS\\ROM TEST.txt") & rom);
    EXPECT_TRUE(Attributes(L"E:\\Windows\\rom test.txt") & rom);
    fs::remove(L"\\Windows\\rom test.txt");
    EXPECT_FALSE(Attributes(L"\\Windows\\Start Menu") & rom);
    MakeFile(L"\\Windows\\Start Menu\\rom test.txt");
    EXPECT_FALSE(Attributes(L"\\Windows\\Start Menu\\rom test.txt") & rom);
    fs::remove(L"\\Windows\\Start Menu\\rom test.txt");
    EXPECT_EQ(Attributes(L"\\Windows\\no such file"), INVALID_FILE_ATTRIBUTES);
}

TEST_F(FileSystem, TakesTheRootAsAPlainFolder) {
    for (const wchar_t* root : {L"\\", L"E:\\"})
        EXPECT_EQ(Attributes(root), folder);
    EXPECT_EQ(Attributes(L""), INVALID_FILE_ATTRIBUTES) << "no path at all";
}

TEST_F(FileSystem, HasNoAttributesForWhatIsMissing) {
    for (const wchar_t* path : {L"\\Temp\\Missing", L"\\Missing\\a", L"File Search", L"*", L"\\Temp\\*.*"})
        EXPECT_EQ(Attributes(path), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(Attributes(nullptr), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(Attributes((L"\\" + std::wstring(5000, L'x')).c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(FileSystem, KeepsTheAttributesThatFilesHave) {
    constexpr DWORD kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_READONLY;
    MakeFile(L"\\Temp\\Files\\a.txt");
    for (DWORD wanted : {DWORD{0}, DWORD{FILE_ATTRIBUTE_HIDDEN}, DWORD{FILE_ATTRIBUTE_SYSTEM},
                         DWORD{FILE_ATTRIBUTE_READONLY}, kept}) {
        EXPECT_TRUE(ce::SetFileAttributesW(L"\\Temp\\Files\\a.txt", wanted | rom | card));
        EXPECT_EQ(Attributes(L"\\Temp\\Files\\a.txt") & (kept | rom | card), wanted);
        EXPECT_EQ(Find(L"\\Temp\\Files\\a.txt").at(L"a.txt") & kept, wanted);
    }
    EXPECT_TRUE(ce::SetFileAttributesW(L"\\Temp\\Files\\a.txt", 0));
    EXPECT_FALSE(ce::SetFileAttributesW(L"\\Temp\\Files\\missing", 0));
}

TEST_F(FileSystem, RefusesHandlesThatAreNone) {
    WIN32_FIND_DATAW entry{};
    EXPECT_FALSE(ce::FindNextFileW(INVALID_HANDLE_VALUE, &entry));
    EXPECT_FALSE(ce::FindNextFileW(nullptr, &entry));
    EXPECT_FALSE(ce::FindClose(INVALID_HANDLE_VALUE));
    EXPECT_FALSE(ce::FindClose(nullptr));
}

// --- One file in the place of another ---

TEST_F(FileSystem, PutsAFileInThePlaceOfAnother) {
    MakeFile(L"\\Temp\\Files\\new.txt");
    MakeFile(L"\\Temp\\Files\\old.txt");
    fs::create_directory(L"\\Temp\\Files\\sub");
    MakeFile(L"\\Temp\\Files\\sub\\inner.txt");
    EXPECT_TRUE(ce::DeleteAndRenameFile(L"\\Temp\\Files\\old.txt", L"\\Temp\\Files\\new.txt"));
    EXPECT_FALSE(fs::exists(L"\\Temp\\Files\\new.txt"));
    EXPECT_TRUE(fs::exists(L"\\Temp\\Files\\old.txt"));
    EXPECT_FALSE(ce::DeleteAndRenameFile(L"\\Temp\\Files\\missing", L"\\Temp\\Files\\old.txt"));
    EXPECT_FALSE(ce::DeleteAndRenameFile(L"\\Temp\\Files\\sub", L"\\Temp\\Files\\old.txt"));
    EXPECT_TRUE(fs::exists(L"\\Temp\\Files\\sub\\inner.txt"));
    EXPECT_TRUE(fs::exists(L"\\Temp\\Files\\old.txt"));
}

// --- Other letters for the same name ---

TEST_F(FileSystem, RenamesWhatDiffersOnlyInCase) {
    MakeFile(L"\\Temp\\Files\\note.txt");
    fs::create_directory(L"\\Temp\\Files\\sub");
    EXPECT_TRUE(ce::MoveFileW(L"\\Temp\\Files\\note.txt", L"\\Temp\\Files\\NOTE.txt"));
    EXPECT_TRUE(ce::MoveFileW(L"\\Temp\\Files\\sub", L"\\Temp\\Files\\Sub"));
    const Found found = Find(L"\\Temp\\Files\\*");
    EXPECT_EQ(found.size(), 2u);
    EXPECT_TRUE(found.contains(L"NOTE.txt"));
    EXPECT_TRUE(found.contains(L"Sub"));
}

} // namespace
