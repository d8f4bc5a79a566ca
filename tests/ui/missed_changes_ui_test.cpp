// Screens: 240x320

// Changes that other programs make while nobody watches the shown folder: while it is read, and while the
// program is at work in it itself.

#include "tests/ui/folder_changes.h"
#include "tests/ui/name_editor_ui.h"

namespace {

constexpr int settling = 5000; // milliseconds that a new watch rests

class MissedChangesUi : public NameEditorUi {
  protected:
    bool Comes(const std::wstring& name) const {
        return HoldsWithin(settling + refreshDelay + refreshAllowance,
                           [&] { return program.List().Has(name); });
    }
    /// Has the folder read again and waits until that has begun.
    void BeginToRead() {
        PostMessageW(program.Window(), folderChanged, 0, 0);
        WaitFor("for the refresh to begin", [&] { return IsAtWork(); });
    }
    bool IsAtWork() const {
        DWORD_PTR answer = 0;
        return SendMessageTimeoutW(program.Window(), WM_NULL, 0, 0, SMTO_NORMAL, 20, &answer) == 0;
    }
};

TEST_F(MissedChangesUi, WhatIsMadeWhileTheFolderIsReadIsShown) {
    RunOnHost("mkdir Many && cd Many && seq -f file%g 4000 | xargs touch");
    program.Start(L"\\Many");
    BeginToRead();
    const ULONGLONG begun = GetTickCount64();
    program.WaitUntilIdle();
    const auto takes = static_cast<DWORD>(GetTickCount64() - begun);

    BeginToRead();
    Sleep(takes / 2); // its names are all read by now, its rows not all made
    device.File(L"\\Many\\late");
    program.WaitUntilIdle();
    EXPECT_TRUE(Comes(L"late"));
}

TEST_F(MissedChangesUi, WhatIsMadeBeforeARenameIsShownAfterIt) {
    device.File(L"\\T\\a.txt");
    StartIn(L"\\T"); // the watch rests
    device.File(L"\\T\\early.txt");
    Rename(L"a", L"b");
    WaitFor("for the name", [&] { return device.Exists(L"\\T\\b.txt"); });
    EXPECT_TRUE(Comes(L"early"));
    EXPECT_EQ(List().Names(), (Texts{L"..", L"b", L"early"}));
}

TEST_F(MissedChangesUi, WhatIsMadeBehindAMessageOfTheProgramsWorkIsShownAfterIt) {
    device.File(L"\\T\\a.txt");
    device.File(L"\\T\\b.txt");
    StartIn(L"\\T");
    Rename(L"a", L"b");
    program.WaitForMessageBox();
    device.File(L"\\T\\late.txt");
    ExpectMessage(renameFailedText);
    EXPECT_TRUE(Comes(L"late"));
}

TEST_F(MissedChangesUi, TheProgramsOwnWorkAloneBringsNoRefresh) {
    ShowTree();
    device.File(L"\\T\\a.txt");
    device.File(L"\\T\\c.txt");
    StartIn(L"\\T");
    Rename(L"a", L"b");
    WaitFor("for the name", [&] { return device.Exists(L"\\T\\b.txt"); });
    program.WaitUntilIdle();
    List().Select(L"c"); // reading the folder again selects the first entry
    EXPECT_TRUE(
        HoldsFor(settling + refreshDelay + 500, [&] { return List().SelectedNames() == Texts{L"c"}; }));
}

} // namespace
