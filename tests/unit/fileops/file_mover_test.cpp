#include "fileops/file_mover.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/handles.h"

namespace {

namespace fs = std::filesystem;

/// Stops after a number of questions.
class Watch final : public CopyWatch {
  public:
    bool KeepGoing() override { return --left != 0; }
    int left = -1;
};

class FileMoverTest : public testing::Test {
  protected:
    void SetUp() override {
        TearDown();
        fs::create_directories(home);
    }
    void TearDown() override {
        std::error_code ignored;
        if (fs::exists(home)) {
            for (const auto& entry : fs::recursive_directory_iterator(home))
                SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
        }
        fs::remove_all(home, ignored);
    }

    static void Write(const std::wstring& name, const std::string& content) {
        std::ofstream(home / name, std::ios::binary) << content;
    }
    static std::string Read(const std::wstring& name) {
        std::ostringstream text;
        text << std::ifstream(home / name, std::ios::binary).rdbuf();
        return text.str();
    }
    static bool Exists(const std::wstring& name) { return fs::exists(home / name); }
    static std::vector<std::wstring> Names() {
        std::vector<std::wstring> names;
        for (const auto& entry : fs::directory_iterator(home))
            names.push_back(entry.path().filename().wstring());
        std::ranges::sort(names);
        return names;
    }
    static Path At(const std::wstring& name) {
        Path path;
        EXPECT_TRUE(path.Assign((home / name).wstring()));
        return path;
    }
    static WIN32_FIND_DATAW Found(const std::wstring& name) {
        WIN32_FIND_DATAW found{};
        const FindHandle find(ce::FindFirstFileW(At(name).Text(), &found));
        EXPECT_TRUE(find);
        return found;
    }

    MoverResult Copy(const std::wstring& from, const std::wstring& to) {
        return mover.Copy(At(from), Found(from), At(to));
    }
    MoverResult CopyOver(const std::wstring& from, const std::wstring& to) {
        return mover.CopyOver(At(from), Found(from), At(to));
    }
    MoverResult Move(const std::wstring& from, const std::wstring& to) {
        return mover.Move(At(from), Found(from), At(to));
    }
    MoverResult MoveOver(const std::wstring& from, const std::wstring& to) {
        return mover.MoveOver(At(from), Found(from), At(to));
    }

    static inline const fs::path home = L"\\Temp\\FileMover";
    static inline const std::string large = std::string(1'000'003, 'L');
    Watch watch;
    FileMover mover{watch};
};

using Names = std::vector<std::wstring>;

} // namespace

TEST_F(FileMoverTest, CopiesSmallAndLargeFiles) {
    for (const std::string& content :
         {std::string(), std::string("small"), std::string(64 * 1024, 'b'), large}) {
        Write(L"a", content);
        EXPECT_EQ(Copy(L"a", L"b"), MoverResult::Done);
        EXPECT_EQ(Read(L"b"), content);
        EXPECT_EQ(Read(L"a"), content);
        EXPECT_EQ(::Names({L"a", L"b"}), Names());
        fs::remove(home / L"b");
    }
}

TEST_F(FileMoverTest, ACopyHasTheTimeAndTheAttributes) {
    Write(L"a", "a");
    const SYSTEMTIME time{2005, 4, 0, 1, 12, 30, 10, 0};
    FILETIME written{};
    SystemTimeToFileTime(&time, &written);
    {
        const FileHandle file(
            CreateFileW(At(L"a").Text(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        SetFileTime(file.Get(), nullptr, nullptr, &written);
    }
    ce::SetFileAttributesW(At(L"a").Text(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(Copy(L"a", L"b"), MoverResult::Done);
    const WIN32_FIND_DATAW found = Found(L"b");
    EXPECT_TRUE(found.dwFileAttributes & FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(CompareFileTime(&found.ftLastWriteTime, &written), 0);
}

TEST_F(FileMoverTest, ATakenNameIsLeftAlone) {
    Write(L"b", "old");
    for (const std::string& content : {std::string("small"), large}) {
        Write(L"a", content);
        EXPECT_EQ(Copy(L"a", L"b"), MoverResult::Exists);
        EXPECT_EQ(Move(L"a", L"b"), MoverResult::Exists);
        EXPECT_EQ(Read(L"b"), "old");
        EXPECT_EQ(Read(L"a"), content);
    }
}

TEST_F(FileMoverTest, ReplacesReadOnlyFiles) {
    for (const std::string& content : {std::string("small"), large}) {
        Write(L"a", content);
        Write(L"b", "old");
        SetFileAttributesW(At(L"b").Text(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_SYSTEM);
        EXPECT_EQ(CopyOver(L"a", L"b"), MoverResult::Done);
        EXPECT_EQ(Read(L"b"), content);
        EXPECT_EQ(Names(), ::Names({L"a", L"b"}));
        SetFileAttributesW(At(L"b").Text(), FILE_ATTRIBUTE_READONLY);
        EXPECT_EQ(MoveOver(L"a", L"b"), MoverResult::Done);
        EXPECT_EQ(Names(), ::Names({L"b"}));
        EXPECT_EQ(Read(L"b"), content);
        SetFileAttributesW(At(L"b").Text(), FILE_ATTRIBUTE_NORMAL);
    }
}

TEST_F(FileMoverTest, AStoppedCopyLeavesNothing) {
    Write(L"a", large);
    Write(L"b", "old");
    watch.left = 2;
    EXPECT_EQ(Copy(L"a", L"c"), MoverResult::Stopped);
    watch.left = 2;
    EXPECT_EQ(CopyOver(L"a", L"b"), MoverResult::Stopped);
    EXPECT_EQ(Names(), ::Names({L"a", L"b"}));
    EXPECT_EQ(Read(L"b"), "old");
}

TEST_F(FileMoverTest, ALockedTargetStaysWhatItIs) {
    Write(L"a", "new");
    Write(L"b", "old");
    {
        const FileHandle lock(
            CreateFileW(At(L"b").Text(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(lock);
        EXPECT_EQ(CopyOver(L"a", L"b"), MoverResult::Failed);
        EXPECT_EQ(MoveOver(L"a", L"b"), MoverResult::Failed);
    }
    EXPECT_EQ(Names(), ::Names({L"a", L"b"}));
    EXPECT_EQ(Read(L"a"), "new");
    EXPECT_EQ(Read(L"b"), "old");
}

TEST_F(FileMoverTest, ALockedSourceStaysWhereItIs) {
    Write(L"a", "new");
    Write(L"b", "old");
    const WIN32_FIND_DATAW found = Found(L"a");
    {
        const FileHandle lock(
            CreateFileW(At(L"a").Text(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(lock);
        EXPECT_EQ(mover.Copy(At(L"a"), found, At(L"c")), MoverResult::Failed);
        EXPECT_EQ(mover.Move(At(L"a"), found, At(L"c")), MoverResult::Failed);
        EXPECT_EQ(mover.CopyOver(At(L"a"), found, At(L"b")), MoverResult::Failed);
        EXPECT_EQ(mover.MoveOver(At(L"a"), found, At(L"b")), MoverResult::Failed);
    }
    EXPECT_EQ(Names(), ::Names({L"a", L"b"}));
    EXPECT_EQ(Read(L"b"), "old");
}

TEST_F(FileMoverTest, AVanishedSourceTouchesNothing) {
    Write(L"a", "new");
    Write(L"b", "old");
    const WIN32_FIND_DATAW found = Found(L"a");
    fs::remove(home / L"a");
    EXPECT_EQ(mover.Copy(At(L"a"), found, At(L"c")), MoverResult::Failed);
    EXPECT_EQ(mover.Move(At(L"a"), found, At(L"c")), MoverResult::Failed);
    EXPECT_EQ(mover.CopyOver(At(L"a"), found, At(L"b")), MoverResult::Failed);
    EXPECT_EQ(mover.MoveOver(At(L"a"), found, At(L"b")), MoverResult::Failed);
    EXPECT_EQ(Names(), ::Names({L"b"}));
    EXPECT_EQ(Read(L"b"), "old");
}

TEST_F(FileMoverTest, AFolderIsNeverReplacedByAFile) {
    Write(L"a", "new");
    fs::create_directories(home / L"b" / L"inner");
    EXPECT_EQ(Copy(L"a", L"b"), MoverResult::Exists);
    EXPECT_EQ(CopyOver(L"a", L"b"), MoverResult::Failed);
    EXPECT_EQ(MoveOver(L"a", L"b"), MoverResult::Failed);
    EXPECT_TRUE(Exists(L"b\\inner"));
    EXPECT_EQ(Names(), ::Names({L"a", L"b"}));
}

TEST_F(FileMoverTest, AFileReplacedByItselfIsStillThere) {
    Write(L"a", "same");
    EXPECT_EQ(CopyOver(L"a", L"A"), MoverResult::Done);
    EXPECT_EQ(Read(L"a"), "same");
    MoveOver(L"a", L"A");
    EXPECT_EQ(Read(L"a"), "same");
    EXPECT_EQ(Names().size(), 1u);
}
