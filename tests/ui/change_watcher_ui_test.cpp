// Screens: 240x320
// Limit: 240 seconds

// Changes that other programs make in the shown folder: when they are noticed, and when not.

#include <atomic>
#include <thread>

#include "tests/ui/folder_changes.h"
#include "tests/ui/tree_ui.h"

namespace {

constexpr int settling = 5000; // milliseconds that a new watch rests

class ChangeWatcherUi : public TreeUi {
  protected:
    /// Selects a row that is not the first: listing the folder again selects the first one.
    void Mark(const std::wstring& name) {
        program.List().Select(name);
        marked_ = {name};
        EXPECT_FALSE(Refreshed());
    }
    bool Refreshed() const { return program.List().SelectedNames() != marked_; }

    /// Waits for the refresh and says how long that took from `start` on.
    int RefreshedAfter(ULONGLONG start) const {
        WaitFor(
            "for the refresh", [&] { return Refreshed(); }, settling + refreshDelay + 2 * refreshAllowance);
        program.WaitUntilIdle();
        return static_cast<int>(GetTickCount64() - start);
    }
    /// The time in which the watch just armed comes to rest is what is waited for.
    static void Settle() { Sleep(settling + 500); }

  private:
    Texts marked_;
};

/// Another process that never leaves two folders alone.
class BusyProgram {
  public:
    BusyProgram() : thread_([this] { Run(); }) {}
    ~BusyProgram() {
        stop_ = true;
        thread_.join();
    }

  private:
    void Run() {
        for (int i = 0; !stop_; ++i) {
            const std::wstring folder = std::wstring(i % 2 ? L"\\Temp\\a" : L"\\Temp\\b") + L"\\busy";
            CreateDirectoryW(folder.c_str(), nullptr);
            RemoveDirectoryW(folder.c_str());
            Sleep(1);
        }
    }

    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

TEST_F(ChangeWatcherUi, WhatOthersDoAtTheTopIsRightInBothPanesAfterTheRefresh) {
    StartWithTree();
    ULONGLONG start = GetTickCount64();
    Mark(L"Windows");
    device.Folder(L"\\Fresh\\inner");
    int after = RefreshedAfter(start); // reported when the settling time ends
    EXPECT_GT(after, settling);
    EXPECT_LT(after, settling + refreshDelay + refreshAllowance);
    EXPECT_TRUE(program.List().Has(L"Fresh"));
    EXPECT_TRUE(Tree().Has(L"\\Fresh"));
    EXPECT_TRUE(Tree().At(L"\\Fresh").hasButton);

    Mark(L"Windows");
    Settle();
    EXPECT_FALSE(Refreshed());
    start = GetTickCount64();
    device.Remove(L"\\Network");
    MoveFileW(L"\\Fresh", L"\\Renamed");
    after = RefreshedAfter(start); // the watch was at rest: two seconds later
    EXPECT_GE(after, refreshDelay - 100);
    EXPECT_LT(after, refreshDelay + refreshAllowance);
    const Texts names = {L"My Documents", L"Program Files", L"Renamed", L"Temp", L"Windows"};
    EXPECT_EQ(program.List().Names(), names);
    EXPECT_EQ(Tree().ChildrenOf(L""), names);
    EXPECT_EQ(Tree().SelectedPath(), L"");
}

TEST_F(ChangeWatcherUi, TheProgramsOwnWorkIsNotReported) {
    device.Folder(L"\\Temp\\a");
    device.Files(L"\\Temp\\b", L"file", 100);
    StartWithTree(L"\\Temp");
    FocusTree();
    Tree().Select(L"\\Temp\\a"); // the list stays
    Settle();
    device.Folder(L"\\Zoo"); // a refresh would bring it into the tree
    program.Command(IDM_FILE_RENAME);
    WaitFor("for the editor", [&] { return Tree().NameEditor() != nullptr; });
    Control(Tree().NameEditor()).SetText(L"renamed");
    PressKey(VK_RETURN);
    WaitFor("for the new name", [&] { return Tree().Has(L"\\Temp\\renamed"); });
    EXPECT_TRUE(HoldsFor(refreshDelay + 1000, [&] { return !Tree().Has(L"\\Zoo"); }));

    // A hundred files copied into the shown folder.
    program.HandOverFolder(L"\\Temp\\b");
    program.Command(IDM_EDIT_SELECT_ALL);
    program.Command(IDM_TOOLBAR_COPY);
    program.HandOverFolder(L"\\Temp\\renamed");
    Settle();
    program.PostCommand(IDM_TOOLBAR_PASTE);
    WaitFor("for the copies", [&] { return program.List().Count() >= 100 && !program.HasDialog(); });
    EXPECT_TRUE(HoldsFor(refreshDelay + 1000, [&] { return !Tree().Has(L"\\Zoo"); }));
}

TEST_F(ChangeWatcherUi, ManyNoticesAndDeviceChangesGiveOneRefresh) {
    device.File(L"\\Temp\\a");
    device.File(L"\\Temp\\b");
    device.StorageCard("Storage Card", {"Pictures/1.jpg"});
    StartWithTree(L"\\Temp");
    Mark(L"b");
    for (int i = 0; i < 10; ++i) {
        PostMessageW(program.Window(), folderChanged, 0, 0);
        Sleep(100); // a notice now and then
        EXPECT_FALSE(Refreshed());
    }
    const ULONGLONG last = GetTickCount64() - 100;
    const int after = RefreshedAfter(last);
    EXPECT_GE(after, refreshDelay - 100);
    EXPECT_LT(after, refreshDelay + refreshAllowance);
    Mark(L"b");

    // A card comes and goes while another folder is shown: the tree alone follows.
    device.StorageCard("Second Card");
    PostMessageW(program.Window(), WM_DEVICECHANGE, 0, 0);
    WaitFor("for the card", [&] { return Tree().Has(L"\\Second Card"); });
    program.WaitUntilIdle();
    EXPECT_FALSE(Refreshed());

    // The shown card goes.
    program.HandOverFolder(L"\\Storage Card\\Pictures");
    device.RemoveStorageCard("Storage Card");
    PostMessageW(program.Window(), WM_DEVICECHANGE, 0, 0);
    program.WaitForFolder(L"My PocketPC");
    EXPECT_FALSE(program.List().Has(L"Storage Card"));
    EXPECT_FALSE(Tree().Has(L"\\Storage Card"));
}

TEST_F(ChangeWatcherUi, IsIdleAtSearchResultsAndLosesNothingInAThousandNavigations) {
    device.Folder(L"\\Temp\\a");
    device.File(L"\\Temp\\b\\1");
    device.File(L"\\Temp\\b\\2");
    StartWithTree(L"\\Temp");
    Tap(Tree().PointOf(L"File Search"));
    program.WaitForFolder(L"File Search");
    device.Folder(L"\\Zoo"); // a refresh would bring it into the tree
    device.File(L"\\Temp\\unseen.txt");
    EXPECT_TRUE(HoldsFor(settling + refreshDelay + 500, [&] { return !Tree().Has(L"\\Zoo"); }));

    {
        const BusyProgram busy;
        for (int i = 0; i < 1000; ++i)
            program.HandOverFolder(i % 2 ? L"\\Temp\\b" : L"\\Temp\\a");
    }
    EXPECT_EQ(program.Folder(), L"\\Temp\\b");
    // Notices of the busy time may still be under way: the one awaited comes after a listing of its own.
    program.HandOverFolder(L"\\Temp\\b");
    Mark(L"2");
    device.File(L"\\Temp\\b\\0");
    WaitFor(
        "for the refresh", [&] { return program.List().Has(L"0"); },
        settling + refreshDelay + 2 * refreshAllowance);
    program.Close(); // the watcher ends too
}

} // namespace
