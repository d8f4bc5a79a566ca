#include "fileops/contents_count.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "common/device_info.h"

namespace {

namespace fs = std::filesystem;

class ContentsCounting : public testing::Test {
  protected:
    void SetUp() override {
        fs::remove_all(home);
        fs::create_directories(home);
    }
    void TearDown() override { fs::remove_all(home); }

    static void MakeFile(const std::wstring& name, std::size_t size) {
        fs::create_directories((home / name).parent_path());
        std::ofstream(home / name, std::ios::binary) << std::string(size, 'x');
    }
    void Select(ItemKind kind, const std::wstring& name) {
        SelectionEntry& entry = entries.emplace_back();
        entry.kind = kind;
        CopyTextTo(entry.folder, home.wstring());
        CopyTextTo(entry.name, name);
    }
    void ExpectTotals(std::int32_t folders, std::int32_t files, std::uint32_t bytes) const {
        ContentsCount count(entries);
        while (count.CountFor(1000)) {
        }
        EXPECT_EQ(count.Totals().folders, folders);
        EXPECT_EQ(count.Totals().files, files);
        EXPECT_EQ(count.Totals().bytes, bytes);
    }

    static inline const fs::path home = L"\\Temp\\Counting";
    std::vector<SelectionEntry> entries;
};

} // namespace

TEST_F(ContentsCounting, ASingleFolderDoesNotCountItself) {
    MakeFile(L"box\\a", 10);
    MakeFile(L"box\\in\\b", 20);
    fs::create_directories(home / L"box\\empty");
    Select(ItemKind::Folder, L"box");
    ExpectTotals(2, 2, 30);
}

TEST_F(ContentsCounting, AmongSeveralFoldersCountThemselves) {
    MakeFile(L"box\\a", 10);
    MakeFile(L"other\\b", 20);
    MakeFile(L"c", 5);
    Select(ItemKind::Folder, L"box");
    Select(ItemKind::Folder, L"other");
    Select(ItemKind::File, L"c");
    ExpectTotals(2, 3, 35);
}

TEST_F(ContentsCounting, AFileThatCannotBeOpenedCountsWithoutItsSize) {
    MakeFile(L"a", 10);
    MakeFile(L"b", 20);
    const FileHandle held(
        CreateFileW((home / L"a").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    Select(ItemKind::File, L"a");
    Select(ItemKind::File, L"b");
    ExpectTotals(0, 2, 20);
}

TEST_F(ContentsCounting, NothingIsLeftOfAFolderThatIsGone) {
    Select(ItemKind::Folder, L"gone");
    ExpectTotals(0, 0, 0);
}

TEST_F(ContentsCounting, GoesOnWhereItStopped) {
    for (int file = 0; file < 50; ++file)
        MakeFile(L"box\\" + std::to_wstring(file), 1);
    Select(ItemKind::Folder, L"box");
    ContentsCount count(entries);
    int steps = 1;
    while (count.CountFor(0))
        ++steps;
    EXPECT_GT(steps, 50);
    EXPECT_EQ(count.Totals().files, 50);
    EXPECT_FALSE(count.CountFor(0));
}

TEST_F(ContentsCounting, TheDevicesNameStandsForTheRoot) {
    SelectionEntry entry;
    entry.kind = ItemKind::Folder;
    CopyTextTo(entry.name, DeviceDisplayName());
    Path path;
    ASSERT_TRUE(PathOfEntry(entry, path));
    EXPECT_TRUE(path.IsEmpty());
    CopyTextTo(entry.name, L"Windows");
    ASSERT_TRUE(PathOfEntry(entry, path));
    EXPECT_STREQ(path.Text(), L"\\Windows");
}
