// Screens: 240x320
// Limit: 180 seconds

// Places that may not be written: a disk mounted to be read, and folders without the right to change them.
// Nothing is called done that is not.

#include "tests/ui/job_ui.h"

namespace {

class ReadOnlyUi : public TransferUi {
  protected:
    void TearDown() override {
        TransferUi::TearDown();
        program.Kill();
        RunOnHost("chmod -R u+rwX From To");
        if (isMounted_)
            RunOnHost("rm -f Fixed; umount \"$TARVIK_WORK/fixed\"");
        RunOnHost("rm -rf Disk \"" + disk + "\"");
    }

    /// Puts a card in that can only be read. False when nobody may do so here.
    bool MountFixed() {
        try {
            RunOnHost("mkdir -p \"$TARVIK_WORK/fixed\"\n"
                      "mount -t tmpfs -o size=1m tmpfs \"$TARVIK_WORK/fixed\" 2>/dev/null");
        } catch (const std::exception&) {
            return false;
        }
        isMounted_ = true;
        RunOnHost("cd \"$TARVIK_WORK/fixed\"; mkdir Sub; echo x >x.txt; echo y >Sub/y.txt; echo a >a.txt\n"
                  "mount -o remount,ro \"$TARVIK_WORK/fixed\"; ln -s \"$PWD\" \"$TARVIK_DEVICE/Fixed\"");
        return true;
    }
    void ExpectFixed() {
        RunOnHost("cd Fixed/; test \"$(cat x.txt a.txt Sub/y.txt | tr -d '\\n')\" = xay\n"
                  "test \"$(find . | wc -l)\" = 5");
    }
    /// Puts in a card that is another disk.
    void PutInDisk() { RunOnHost("mkdir -p \"" + disk + "\"\nln -s \"" + disk + "\" Disk"); }

    void Delete(const std::wstring& name) {
        Select({name});
        Give(IDM_FILE_DELETE);
        AnswerDelete(yesKey);
    }
    void ExpectNotDeleted(const std::wstring& name) {
        Delete(name);
        EXPECT_EQ(ReadMessage(), L"'" + name + L"' cannot be deleted.");
        FinishJob();
        EXPECT_TRUE(program.List().Has(name));
    }
    /// What is on the screen after the job is what a new look at the folder shows.
    void ExpectListIsTrue() {
        const Texts names = program.List().Names();
        program.Command(IDM_MENU_REFRESH);
        EXPECT_EQ(program.List().Names(), names);
    }

    const std::string disk = "/dev/shm/$(basename \"$(dirname \"$TARVIK_WORK\")\")-card";

  private:
    bool isMounted_ = false;
};

TEST_F(ReadOnlyUi, NothingIsDeletedOnADiskMountedToBeRead) {
    if (!MountFixed())
        GTEST_SKIP() << "only the superuser can mount a disk";
    StartIn(L"\\Fixed");
    ExpectNotDeleted(L"x.txt");
    ExpectNotDeleted(L"Sub");
    ExpectListIsTrue();
    ExpectFixed();
}

TEST_F(ReadOnlyUi, WhatIsMovedFromSuchADiskStaysThereAndNowhereElse) {
    if (!MountFixed())
        GTEST_SKIP() << "only the superuser can mount a disk";
    for (const wchar_t* name : {L"x.txt", L"Sub"}) {
        program.IsRunning() ? Show(L"\\Fixed") : StartIn(L"\\Fixed");
        Cut({name});
        Show(L"\\To");
        Paste();
        EXPECT_TRUE(
            ReadMessage().starts_with(L"'" + std::wstring(name) + L"' cannot be removed from 'Fixed'."));
        FinishJob();
        EXPECT_EQ(device.NamesIn(L"\\To"), Texts{});
    }
    ExpectFixed();
}

TEST_F(ReadOnlyUi, NothingIsBroughtToSuchADisk) {
    if (!MountFixed())
        GTEST_SKIP() << "only the superuser can mount a disk";
    StartIn(L"\\From");
    for (const UINT command : {IDM_TOOLBAR_COPY, IDM_TOOLBAR_CUT}) {
        for (const wchar_t* name : {L"b.txt", L"a.txt"}) {
            Show(L"\\From");
            Select({name});
            program.Command(command);
            Show(L"\\Fixed");
            Paste();
            if (std::wstring_view(name) == L"a.txt")
                AnswerFile(yesKey);
            EXPECT_EQ(ReadMessage(), L"'" + std::wstring(name) + L"' cannot be copied.");
            FinishJob();
            EXPECT_TRUE(device.Exists(std::wstring(L"\\From\\") + name));
        }
    }
    ExpectFixed();
}

TEST_F(ReadOnlyUi, AFolderInWhichOneMayNotBeChangedStaysWithIt) {
    RunOnHost("mkdir -p From/Box/Locked; echo kept >From/Box/Locked/f; echo loose >From/Box/loose\n"
              "chmod 555 From/Box/Locked");
    StartIn(L"\\From");
    ExpectNotDeleted(L"Box");
    ExpectListIsTrue();
    EXPECT_EQ(device.Content(L"\\From\\Box\\Locked\\f"), "kept\n");
}

/// To another disk, each file is at its old place or its new one, and what was said holds.
TEST_F(ReadOnlyUi, AMovedFolderLeavesWhatCannotGo) {
    RunOnHost("mkdir -p From/Box/Locked; echo kept >From/Box/Locked/f; echo loose >From/Box/loose\n"
              "chmod 555 From/Box/Locked");
    PutInDisk();
    StartIn(L"\\From");
    Cut({L"Box"});
    Show(L"\\Disk");
    Paste();
    EXPECT_EQ(ReadMessage(),
              L"'Box' cannot be removed from 'From'. What could not be removed is still there.");
    FinishJob();
    EXPECT_EQ(device.Content(L"\\From\\Box\\Locked\\f"), "kept\n");
    EXPECT_FALSE(device.Exists(L"\\Disk\\Box\\Locked"));
    EXPECT_NE(device.Exists(L"\\From\\Box\\loose"), device.Exists(L"\\Disk\\Box\\loose"));
}

/// The right to remove it goes while it is copied.
TEST_F(ReadOnlyUi, WhatReplacedSomethingAndCannotGoIsAtBothPlaces) {
    PutInDisk();
    RunOnHost("echo new >From/waits.txt; echo old >Disk/waits.txt");
    const SlowDisk slow;
    StartIn(L"\\From");
    Cut({L"waits.txt"});
    Show(L"\\Disk");
    Paste();
    AnswerFile(yesKey);
    WaitFor("for the copy to begin", [&] { return device.Exists(L"\\Disk\\~job000.tmp"); });
    RunOnHost("chmod 555 From; touch go");
    EXPECT_EQ(ReadMessage(),
              L"'waits.txt' cannot be removed from 'From'. What could not be removed is at both places.");
    FinishJob();
    EXPECT_EQ(device.Content(L"\\From\\waits.txt"), "new\n");
    EXPECT_EQ(device.Content(L"\\Disk\\waits.txt"), "new\n");
}

} // namespace
