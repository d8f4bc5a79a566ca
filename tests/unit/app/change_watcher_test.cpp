#include "app/change_watcher.h"

#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "app/app_state.h"

namespace {

namespace fs = std::filesystem;

/// A watcher of its own, and the window that its notices go to.
class ChangeWatching : public testing::Test {
  protected:
    ChangeWatching() {
        fs::remove_all(home);
        fs::create_directories(home);
        appState.mainWindow = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                              GetModuleHandleW(nullptr), nullptr);
        watcher_.StartWatcher();
    }

    ~ChangeWatching() override {
        watcher_.StopWatcher();
        DestroyWindow(appState.mainWindow);
        appState.mainWindow = nullptr;
        fs::remove_all(home);
    }

    static void MakeFile(const wchar_t* name) { std::ofstream(home / name) << "x"; }

    /// Takes the notices out of the queue and counts them.
    static int TakeNotices() {
        int count = 0;
        MSG message;
        while (PeekMessageW(&message, appState.mainWindow, UM_FOLDERCHANGED, UM_FOLDERCHANGED, PM_REMOVE))
            ++count;
        return count;
    }

    /// Whether a notice comes within this time; it stays in the queue.
    static bool NoticeComes(DWORD milliseconds) {
        const DWORD start = GetTickCount();
        MSG message;
        while (GetTickCount() - start < milliseconds) {
            if (PeekMessageW(&message, appState.mainWindow, UM_FOLDERCHANGED, UM_FOLDERCHANGED, PM_NOREMOVE))
                return true;
            Sleep(20);
        }
        return false;
    }

    static inline const fs::path home = L"\\Temp\\Watched";
    ChangeWatcher watcher_;
};

TEST_F(ChangeWatching, DropsTheNoticesAlreadyOnTheirWay) {
    for (const auto change : {&ChangeWatcher::PauseWatcher, &ChangeWatcher::ResumeWatcher}) {
        for (int notice = 0; notice < 3; ++notice)
            PostMessageW(appState.mainWindow, UM_FOLDERCHANGED, 0, 0);
        PostMessageW(appState.mainWindow, UM_FOLDERCHANGED + 1, 0, 0);
        (watcher_.*change)();
        EXPECT_EQ(TakeNotices(), 0);
        MSG message;
        EXPECT_TRUE(PeekMessageW(&message, appState.mainWindow, UM_FOLDERCHANGED + 1, UM_FOLDERCHANGED + 1,
                                 PM_REMOVE))
            << "only its own";
    }
}

TEST_F(ChangeWatching, SettlesFirstAndThenReportsManyChangesOnce) {
    watcher_.WatchFolder(L"\\Temp\\Watched");
    watcher_.ResumeWatcher();
    const DWORD start = GetTickCount();
    Sleep(500);
    for (const wchar_t* name : {L"a", L"b", L"c"})
        MakeFile(name);
    ASSERT_TRUE(NoticeComes(15000));
    EXPECT_GE(GetTickCount() - start, 4900u) << "a watch just armed rests";
    EXPECT_FALSE(NoticeComes(300) && TakeNotices() > 1);
    MakeFile(L"d");
    watcher_.PauseWatcher();
    EXPECT_EQ(TakeNotices(), 0);
}

TEST_F(ChangeWatching, ReportsWhatChangesWhileTheFolderIsRead) {
    // The thread may see to the pause at once, or only when it is over.
    for (const DWORD reading : {0u, 1u, 300u}) {
        watcher_.PauseWatcher();
        watcher_.WatchFolder(L"\\Temp\\Watched");
        MakeFile(std::to_wstring(reading).c_str());
        Sleep(reading);
        watcher_.ResumeWatcher();
        EXPECT_TRUE(NoticeComes(15000)) << reading;
    }
}

TEST_F(ChangeWatching, HasTheFolderLookedAtAfterAPauseInWhichNobodyReadIt) {
    const auto isAskedFor = [] {
        MSG message;
        return PeekMessageW(&message, appState.mainWindow, UM_LOOKAGAIN, UM_LOOKAGAIN, PM_REMOVE) != FALSE;
    };
    watcher_.WatchFolder(L"\\Temp\\Watched");
    watcher_.ResumeWatcher();
    EXPECT_FALSE(isAskedFor());
    EXPECT_FALSE(watcher_.TakeUnread());

    watcher_.PauseWatcher();
    EXPECT_FALSE(watcher_.TakeUnread()) << "the pause goes on";
    watcher_.ResumeWatcher();
    EXPECT_TRUE(isAskedFor());
    EXPECT_TRUE(watcher_.TakeUnread());
    EXPECT_FALSE(watcher_.TakeUnread()) << "told once";

    watcher_.PauseWatcher();
    watcher_.WatchFolder(L"\\Temp\\Watched");
    watcher_.ResumeWatcher();
    EXPECT_FALSE(isAskedFor());
}

TEST_F(ChangeWatching, EndsWhateverItWatches) {
    for (const wchar_t* folder : {L"", L"File Search", L"\\Temp\\Missing", L"\\Temp\\Watched"}) {
        watcher_.WatchFolder(folder);
        watcher_.ResumeWatcher();
        watcher_.PauseWatcher();
    }
    watcher_.WatchFolder(std::wstring(1000, L'x'));
    watcher_.ResumeWatcher();
}

} // namespace
