#include "fileops/entry_count.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "common/text.h"
#include "tests/support/host.h"

namespace {

/// A folder of the test's own on the device.
class EntryCount : public testing::Test {
  protected:
    EntryCount() { MakeFolder(root_); }

    ~EntryCount() override {
        for (auto made = made_.rbegin(); made != made_.rend(); ++made) {
            if (!RemoveDirectoryW(made->c_str()))
                DeleteFileW(made->c_str());
        }
    }

    void MakeFolder(const std::wstring& path) {
        ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr)) << GetLastError();
        made_.push_back(path);
    }

    void MakeFile(const std::wstring& path) {
        HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
        ASSERT_NE(file, INVALID_HANDLE_VALUE) << GetLastError();
        CloseHandle(file);
        made_.push_back(path);
    }

    static SelectionEntry Entry(ItemKind kind, const wchar_t* name) {
        SelectionEntry entry;
        entry.kind = kind;
        CopyTextTo(entry.folder, L"\\elsewhere");
        CopyTextTo(entry.name, name);
        return entry;
    }

    const std::wstring root_ = L"\\Entry Count";
    std::vector<std::wstring> made_;
};

TEST_F(EntryCount, IsZeroForWhatCannotBeListed) {
    EXPECT_EQ(CountEntries(root_), 0);
    EXPECT_EQ(CountEntries(root_ + L"\\missing"), 0);
    EXPECT_EQ(CountEntries(std::wstring(300, L'x')), 0);
    EXPECT_EQ(CountEntries(std::wstring(259, L'x')), 0);
}

TEST_F(EntryCount, CountsFilesAndFoldersAtAnyDepth) {
    MakeFile(root_ + L"\\a");
    MakeFolder(root_ + L"\\one");
    MakeFile(root_ + L"\\one\\b");
    MakeFolder(root_ + L"\\one\\deeper");
    MakeFile(root_ + L"\\one\\deeper\\c");
    MakeFolder(root_ + L"\\one\\deeper\\empty");
    MakeFolder(root_ + L"\\two");
    MakeFile(root_ + L"\\two\\d");
    MakeFile(root_ + L"\\z");
    EXPECT_EQ(CountEntries(root_), 9);
    EXPECT_EQ(CountEntries(root_ + L"\\one"), 4);
    EXPECT_EQ(CountEntries(root_ + L"\\one\\deeper\\empty"), 0);
}

TEST_F(EntryCount, EndsWhenItIsToldTo) {
    MakeFile(root_ + L"\\a");
    MakeFile(root_ + L"\\b");
    LONG stop = 0;
    EXPECT_EQ(CountEntries(root_, &stop), 2);
    stop = 1;
    EXPECT_EQ(CountEntries(root_, &stop), 0);
}

TEST_F(EntryCount, GoesDownAsFarAsPathsReach) {
    std::wstring path = root_;
    int folders = 0;
    while (path.size() + 2 <= 248) { // the longest folder that the platform makes
        path += L"\\x";
        MakeFolder(path);
        ++folders;
    }
    MakeFile(path + L"\\last");
    EXPECT_GT(folders, 100);
    EXPECT_EQ(CountEntries(root_), folders + 1);
}

TEST_F(EntryCount, CountsAFolderBelowThatNoPathReaches) {
    const std::wstring first = root_ + L"\\" + std::wstring(200, L'x');
    MakeFolder(first);
    MakeFolder(first + L"\\y");
    MakeFile(first + L"\\y\\unseen");
    // Moved below a longer name, the inner folder can be named but no longer listed.
    const std::wstring longer = root_ + L"\\" + std::wstring(242, L'z');
    ASSERT_TRUE(MoveFileW(first.c_str(), longer.c_str())) << GetLastError();
    EXPECT_EQ(CountEntries(root_), 2);
    ASSERT_TRUE(MoveFileW(longer.c_str(), first.c_str())) << GetLastError();
}

TEST_F(EntryCount, CountsLinksButNeverEntersThem) {
    RunOnHost("cd 'Entry Count'; mkdir real; touch real/a real/b; ln -s real linked; ln -s .. loop");
    EXPECT_EQ(CountEntries(root_), 5) << "the folder, its two files, two links";
    RunOnHost("rm -rf 'Entry Count'/*");
}

TEST_F(EntryCount, EntersAStorageCard) {
    RunOnHost("cd 'Entry Count'; mkdir -p behind/folder; touch behind/a behind/folder/b\n"
              "ln -s 'Entry Count/behind' '../Count Card'");
    const SelectionEntry entries[] = {Entry(ItemKind::Folder, L"Count Card")};
    EXPECT_EQ(CountSelection(L"", entries), 4) << "the card, a folder, two files";
    RunOnHost("rm -rf 'Entry Count'/* 'Count Card'");
}

TEST_F(EntryCount, CountsASelectionByKind) {
    MakeFolder(root_ + L"\\one");
    MakeFile(root_ + L"\\one\\b");
    MakeFile(root_ + L"\\one\\c");
    EXPECT_EQ(CountSelection(root_, {}), 0);
    const SelectionEntry entries[] = {
        Entry(ItemKind::UpLevel, L".."),
        Entry(ItemKind::Folder, L"one"),
        Entry(ItemKind::File, L"missing file"),
        Entry(ItemKind::Folder, L"missing folder"),
    };
    EXPECT_EQ(CountSelection(root_, entries), 5) << "3 for the folder, 1 for each of the missing";
}

TEST_F(EntryCount, EndsWithWhatItHasWhenItIsStopped) {
    MakeFolder(root_ + L"\\one");
    MakeFile(root_ + L"\\one\\b");
    const SelectionEntry entries[] = {Entry(ItemKind::Folder, L"one"), Entry(ItemKind::File, L"a")};
    const volatile LONG goOn = 0, stop = 1;
    EXPECT_EQ(CountEntries(root_, &goOn), 2);
    EXPECT_EQ(CountEntries(root_, &stop), 0);
    EXPECT_EQ(CountSelection(root_, entries, &goOn), 3);
    EXPECT_EQ(CountSelection(root_, entries, &stop), 0);
}

class Lengths final : public LengthCheck {
  public:
    explicit Lengths(std::size_t target) : target_(target) {}

  private:
    std::size_t TargetLength(const SelectionEntry&) override { return target_; }

    std::size_t target_;
};

TEST_F(EntryCount, FindsWhatGetsTooLong) {
    MakeFolder(root_ + L"\\one");
    MakeFile(root_ + L"\\one\\" + std::wstring(100, L'x'));
    MakeFolder(root_ + L"\\two");
    std::vector<SelectionEntry> entries{Entry(ItemKind::Folder, L"two"), Entry(ItemKind::Folder, L"one"),
                                        Entry(ItemKind::File, L"a"), Entry(ItemKind::UpLevel, L"")};
    for (SelectionEntry& entry : entries)
        CopyTextTo(entry.folder, root_);
    const auto tooLong = [&](std::size_t target) {
        Lengths lengths(target);
        EXPECT_EQ(CountSelection(root_, entries, nullptr, &lengths), 4);
        return lengths.TooLong() ? lengths.TooLong() - entries.data() : -1;
    };
    EXPECT_EQ(tooLong(0), -1);
    EXPECT_EQ(tooLong(158), -1);
    EXPECT_EQ(tooLong(159), 1);
    EXPECT_EQ(tooLong(260), 0);
}

TEST_F(EntryCount, FindsWhatIsTooLongAlreadyAndWhereItLies) {
    RunOnHost("cd 'Entry Count'; d=$(printf 'd%.0s' $(seq 120)); mkdir -p tree/$d/$d/deep; touch "
              "tree/$d/$d/deep/x");
    SelectionEntry entry = Entry(ItemKind::Folder, L"tree");
    CopyTextTo(entry.folder, root_);
    const SelectionEntry entries[] = {entry};
    for (const wchar_t* base : {L"\\Entry Count", L"File Search"}) {
        Lengths lengths(0);
        CountSelection(base, entries, nullptr, &lengths);
        EXPECT_EQ(lengths.TooLong(), entries);
    }
    RunOnHost("rm -rf 'Entry Count'/*");
}

} // namespace
