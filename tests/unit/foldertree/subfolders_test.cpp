#include "foldertree/subfolders.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

class Subfolders : public testing::Test {
  protected:
    void SetUp() override {
        fs::remove_all(home);
        fs::create_directories(home);
    }
    void TearDown() override { fs::remove_all(home); }

    static void MakeFolder(const std::wstring& name) { fs::create_directories(home / name); }
    static void MakeFile(const std::wstring& name) { std::ofstream(home / name) << "x"; }

    static Path Folder(std::wstring_view text = L"\\Temp\\Subfolders") {
        Path path;
        EXPECT_TRUE(path.Assign(text));
        return path;
    }

    static std::vector<std::wstring> Names(const std::vector<Subfolder>& subfolders) {
        std::vector<std::wstring> names;
        for (const Subfolder& subfolder : subfolders)
            names.emplace_back(subfolder.Name());
        return names;
    }

    static inline const fs::path home = L"\\Temp\\Subfolders";
};

using Texts = std::vector<std::wstring>;

} // namespace

TEST_F(Subfolders, AreSortedAndWithoutFiles) {
    MakeFolder(L"b");
    MakeFolder(L"a");
    MakeFolder(L"c");
    MakeFile(L"file.txt");
    EXPECT_EQ(Names(ReadSubfolders(Folder())), Texts({L"a", L"b", L"c"}));
}

TEST_F(Subfolders, HiddenAndSystemOnesAreShown) {
    MakeFolder(L"hidden");
    MakeFolder(L"system");
    SetFileAttributesW((home / L"hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
    SetFileAttributesW((home / L"system").c_str(), FILE_ATTRIBUTE_SYSTEM);
    EXPECT_EQ(Names(ReadSubfolders(Folder())), Texts({L"hidden", L"system"}));
}

TEST_F(Subfolders, RecycledIsNeverShownNorCounted) {
    MakeFolder(L"RecyCLED");
    EXPECT_TRUE(ReadSubfolders(Folder()).empty());
    EXPECT_FALSE(HasSubfolder(Folder()));
}

TEST_F(Subfolders, FilesAloneAreNoSubfolder) {
    MakeFile(L"a");
    EXPECT_FALSE(HasSubfolder(Folder()));
    MakeFolder(L"b");
    EXPECT_TRUE(HasSubfolder(Folder()));
}

TEST_F(Subfolders, MissingFolderHasNone) {
    EXPECT_TRUE(ReadSubfolders(Folder(L"\\Temp\\Missing")).empty());
    EXPECT_FALSE(HasSubfolder(Folder(L"\\Temp\\Missing")));
}

TEST_F(Subfolders, AreFoundByExactlyTheirName) {
    MakeFolder(L"Alpha");
    MakeFolder(L"beta");
    const auto subfolders = ReadSubfolders(Folder());
    EXPECT_EQ(FindSubfolder(subfolders, L"Alpha"), 0u);
    EXPECT_EQ(FindSubfolder(subfolders, L"beta"), 1u);
    EXPECT_EQ(FindSubfolder(subfolders, L"alpha"), subfolders.size());
    EXPECT_EQ(FindSubfolder(subfolders, L"gamma"), subfolders.size());
}

TEST_F(Subfolders, ThoseBeyondTheLongestPathAreLeftOut) {
    const std::wstring longName(120, L'l');
    const std::wstring deep = home.wstring() + L"\\" + longName;
    ASSERT_TRUE(CreateDirectoryW(deep.c_str(), nullptr));
    const std::size_t room = pathCapacity - 1 - deep.size() - 1;
    // Made through a shorter way in, which only the host's long names allow.
    const std::wstring fits(room, L'f');
    const std::wstring tooLong(room + 1, L't');
    const std::wstring extended = L"\\\\?\\E:" + deep + L"\\";
    ASSERT_TRUE(CreateDirectoryW((extended + fits).c_str(), nullptr));
    if (!CreateDirectoryW((extended + tooLong).c_str(), nullptr))
        GTEST_SKIP() << "no paths beyond the limit here";
    EXPECT_EQ(Names(ReadSubfolders(Folder(deep))), Texts({fits}));
    RemoveDirectoryW((extended + fits).c_str());
    EXPECT_FALSE(HasSubfolder(Folder(deep)));
    RemoveDirectoryW((extended + tooLong).c_str());
}
