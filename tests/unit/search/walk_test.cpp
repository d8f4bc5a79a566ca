#include "search/walk.h"

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "platform/handles.h"
#include "search/name_match.h"
#include "tests/support/text.h"

namespace {

namespace fs = std::filesystem;
using Names = std::multiset<std::wstring>;

class SearchWalk : public testing::Test {
  protected:
    void SetUp() override {
        fs::remove_all(home);
        fs::create_directories(home);
        EXPECT_TRUE(criteria.location.Assign(home.wstring()));
        criteria.subfolders = true;
    }
    void TearDown() override { fs::remove_all(home); }

    static void MakeFile(const std::wstring& name, const std::string& content = "x") {
        fs::create_directories((home / name).parent_path());
        std::ofstream(home / name, std::ios::binary) << content;
    }
    static void MakeFolder(const std::wstring& name) { fs::create_directories(home / name); }

    void AskForName(std::wstring name) {
        FoldCase(name);
        CopyTextTo(criteria.name, name);
    }

    /// Full paths of what is found, from the test's folder on.
    Names Found() {
        results.Clear();
        SearchRun run(criteria, results);
        while (run.RunFor(1000)) {
        }
        Names names;
        for (const SearchResult* result = results.First(); result; result = result->next.get()) {
            const std::wstring path = std::wstring(result->folder) + L"\\" + result->name;
            names.insert(path.substr(std::min(path.size(), home.wstring().size() + 1)));
        }
        return names;
    }

    static inline const fs::path home = L"\\Temp\\Search";
    SearchCriteria criteria;
    SearchResults results;
};

} // namespace

TEST_F(SearchWalk, GoesThroughAllFolders) {
    MakeFile(L"a.txt");
    MakeFile(L"one\\b.txt");
    MakeFile(L"one\\two\\c.txt");
    MakeFile(L"one\\two\\d.doc");
    MakeFile(L"Recycled\\e.txt");
    AskForName(L"txt");
    EXPECT_EQ(Found(), Names({L"a.txt", L"one\\b.txt", L"one\\two\\c.txt", L"Recycled\\e.txt"}));
}

TEST_F(SearchWalk, StaysInTheFolderWhenSubfoldersAreNotAskedFor) {
    MakeFile(L"a.txt");
    MakeFile(L"one\\b.txt");
    MakeFile(L"z.txt");
    criteria.subfolders = false;
    EXPECT_EQ(Found(), Names({L"a.txt", L"z.txt"}));
    AskForName(L"one");
    EXPECT_EQ(Found(), Names({L"one"}));
}

TEST_F(SearchWalk, FindsFoldersByNameAndGoesIntoThemAllTheSame) {
    MakeFile(L"log\\log.txt");
    AskForName(L"log");
    EXPECT_EQ(Found(), Names({L"log", L"log\\log.txt"}));
    criteria.text[0] = L'x';
    EXPECT_EQ(Found(), Names({L"log\\log.txt"}));
}

TEST_F(SearchWalk, ResultsCarryWhatTheListShows) {
    MakeFile(L"sub\\five.bin", "12345");
    AskForName(L"five");
    ASSERT_EQ(Found().size(), 1u);
    const SearchResult& file = *results.First();
    EXPECT_EQ(file.folder, home.wstring() + L"\\sub");
    EXPECT_STREQ(file.name, L"five.bin");
    EXPECT_EQ(file.size, 5u);
    EXPECT_EQ(file.attributes & FILE_ATTRIBUTE_DIRECTORY, 0u);
    WIN32_FILE_ATTRIBUTE_DATA data{};
    ASSERT_TRUE(GetFileAttributesExW((home / L"sub\\five.bin").c_str(), GetFileExInfoStandard, &data));
    EXPECT_EQ(CompareFileTime(&file.time, &data.ftLastWriteTime), 0);

    AskForName(L"sub");
    ASSERT_EQ(Found().size(), 1u);
    const SearchResult& folder = *results.First();
    EXPECT_EQ(folder.size, 0u);
    EXPECT_NE(folder.attributes & FILE_ATTRIBUTE_DIRECTORY, 0u);
    ASSERT_TRUE(GetFileAttributesExW((home / L"sub").c_str(), GetFileExInfoStandard, &data));
    EXPECT_EQ(CompareFileTime(&folder.time, &data.ftCreationTime), 0);
}

TEST_F(SearchWalk, TheRootsEntriesHaveAnEmptyFolder) {
    criteria.location.Clear();
    criteria.subfolders = false;
    AskForName(L"Windows");
    Found();
    ASSERT_TRUE(results.First());
    EXPECT_STREQ(results.First()->folder, L"");
    EXPECT_STREQ(results.First()->name, L"Windows");
}

TEST_F(SearchWalk, FindsTextsInsideFiles) {
    MakeFile(L"yes.txt", "well, hello there");
    MakeFile(L"no.txt", "well, help there");
    MakeFile(L"end.txt", "well, HE");
    MakeFile(L"block.txt", std::string(4094, '.') + "he" + std::string(9000, '.'));
    MakeFile(L"far.txt", std::string(300000, '.') + "HELLO" + std::string(100, '.'));
    MakeFile(L"empty.txt", "");
    CopyTextTo(criteria.text, L"HELLO");
    EXPECT_EQ(Found(), Names({L"yes.txt", L"end.txt", L"block.txt", L"far.txt"}));
    criteria.caseSensitive = true;
    EXPECT_EQ(Found(), Names({L"end.txt", L"far.txt"}));
}

TEST_F(SearchWalk, TheNamePatternSparesFilesFromBeingRead) {
    MakeFile(L"a.txt", "hello");
    MakeFile(L"b.doc", "hello");
    CopyTextTo(criteria.text, L"hello");
    AskForName(L"txt");
    EXPECT_EQ(Found(), Names({L"a.txt"}));
}

TEST_F(SearchWalk, AFileInUseHasNoText) {
    MakeFile(L"open.txt", "hello");
    MakeFile(L"free.txt", "hello");
    const FileHandle used(CreateFileW((home / L"open.txt").c_str(), GENERIC_READ | GENERIC_WRITE,
                                      FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(used);
    CopyTextTo(criteria.text, L"hello");
    EXPECT_EQ(Found(), Names({L"free.txt"}));
}

TEST_F(SearchWalk, FoldersTooDeepForAPathEndTheWay) {
    std::wstring deep = L"\\\\?\\E:" + home.wstring();
    int levels = 0;
    while (levels < 400 && CreateDirectoryW((deep += L"\\d").c_str(), nullptr))
        ++levels;
    ASSERT_GT(levels, 200) << "no paths beyond the limit here";
    AskForName(L"d");
    const std::size_t found = Found().size();
    EXPECT_GT(found, 100u);
    EXPECT_LT(found, 130u);
    for (; levels > 0; --levels, deep.resize(deep.size() - 2))
        RemoveDirectoryW(deep.c_str());
}

TEST_F(SearchWalk, GoesOnWhereItStopped) {
    for (int file = 0; file < 60; ++file)
        MakeFile(L"sub\\" + std::to_wstring(file));
    AskForName(L"5");
    SearchRun run(criteria, results);
    EXPECT_TRUE(run.RunFor(0));
    EXPECT_EQ(results.First(), nullptr);
    while (run.RunFor(1)) {
    }
    int found = 0;
    for (const SearchResult* result = results.First(); result; result = result->next.get())
        ++found;
    EXPECT_EQ(found, 15);
    EXPECT_FALSE(run.RunFor(1000));
}
