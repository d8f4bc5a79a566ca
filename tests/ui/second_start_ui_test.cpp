// Screens: 240x320 176x220

// A second start while something of the program's is open over its main window: what is in front must be what
// takes the keys.

#include "tests/ui/job_ui.h"

namespace {

class SecondStartUi : public JobUi {
  protected:
    void SetUp() override {
        JobUi::SetUp();
        device.SetOption(ListOption::ViewStyle, LVS_REPORT);
        device.File(L"\\T\\a.txt", "a");
        device.File(L"\\T\\b.txt", "b");
        device.File(L"\\Other\\one.txt", "1");
        device.Folder(L"\\To");
    }

    /// Opens what a command opens, and waits until it has the keyboard.
    HWND OpenBy(UINT command) {
        program.PostCommand(command);
        return WaitForFront();
    }
    /// The window of the program's, over its main window, that is in front and has the keyboard.
    HWND WaitForFront() {
        HWND front = nullptr;
        WaitFor("for a window over the main window", [&] {
            front = GetForegroundWindow();
            return IsOverMainWindow(front) && program.Focus() && IsWindowEnabled(front);
        });
        return front;
    }
    bool IsOverMainWindow(HWND window) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        return window != program.Window() && process == program.ProcessId();
    }
    /// Whether the window is in front of all others of the program's but its soft keys, on the screen too,
    /// and has the keyboard.
    bool IsFront(HWND window) {
        const POINT middle = MiddleOf(PlaceOf(window));
        const HWND seen = GetAncestor(WindowFromPoint(middle), GA_ROOT);
        const HWND keyboard = program.Focus();
        return GetForegroundWindow() == window && seen == window && keyboard &&
               (keyboard == window || IsChild(window, keyboard));
    }
    void ExpectFrontAfterSecondStart(HWND window, const std::wstring& commandLine = L"") {
        EXPECT_EQ(Program::StartAgain(commandLine), 0u);
        EXPECT_TRUE(Eventually([&] { return IsFront(window); }));
        EXPECT_TRUE(HoldsFor(300, [&] { return IsFront(window); }));
    }
    /// Once it has closed by the Back key, arrows move in the list again.
    void ExpectListTakesKeysAfter(HWND window) {
        PressBack();
        WaitFor("for it to close", [&] { return !IsWindow(window); });
        ExpectListTakesKeys();
    }
    void ExpectListTakesKeys() {
        EXPECT_TRUE(Eventually([&] { return program.IsInFront() && program.ListHasFocus(); }));
        program.List().Select(L"..");
        PressKey(VK_DOWN);
        EXPECT_TRUE(Eventually([&] { return !program.List().IsSelected(0); }));
    }
};

TEST_F(SecondStartUi, LeavesTheQuestionInFront) {
    StartIn(L"\\T");
    program.List().Select(L"a.txt");
    const HWND question = OpenBy(IDM_FILE_DELETE);
    ExpectFrontAfterSecondStart(question);
    ExpectFrontAfterSecondStart(question, L"\\Other");
    program.WaitForFolder(L"\\Other");
    ExpectListTakesKeysAfter(question);
    EXPECT_TRUE(device.Exists(L"\\T\\a.txt"));
}

TEST_F(SecondStartUi, LeavesADialogOrAMessageInFront) {
    StartIn(L"\\T");
    for (const UINT command : {IDM_MENU_PROPERTIES, IDM_VIEW_OPTIONS, IDM_SENDTO_COPY_TO, IDM_FILE_SEARCH,
                               IDM_GOTO_USER_PATH, IDM_TOOLS_MEMORY_STATUS}) {
        SCOPED_TRACE(command);
        program.List().Select(L"a.txt");
        const HWND dialog = OpenBy(command);
        ExpectFrontAfterSecondStart(dialog);
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        WaitFor("for it to close", [&] { return !IsWindow(dialog); });
        ExpectListTakesKeys();
    }
    program.AddressBar().SetText(L"\\nothing there");
    const HWND message = OpenBy(IDM_TOOLBAR_GO_TO);
    program.WaitForMessageBox();
    ExpectFrontAfterSecondStart(message, L"\\Other");
    ExpectListTakesKeysAfter(message);
}

TEST_F(SecondStartUi, LeavesADialogOfADialogInFront) {
    StartIn(L"\\T");
    const HWND options = OpenBy(IDM_VIEW_OPTIONS);
    PostMessageW(options, WM_COMMAND, IDM_OPTIONS_CONTROLS, 0);
    WaitFor("for the page over it", [&] { return GetForegroundWindow() != options && program.Focus(); });
    const HWND page = WaitForFront();
    ASSERT_NE(page, options);
    ExpectFrontAfterSecondStart(page);
    PostMessageW(page, WM_COMMAND, IDCANCEL, 0);
    WaitFor("for the page to close", [&] { return !IsWindow(page); });
    EXPECT_TRUE(Eventually([&] { return IsFront(options); }));
    ExpectFrontAfterSecondStart(options);
    PostMessageW(options, WM_COMMAND, IDCANCEL, 0);
    WaitFor("for the options to close", [&] { return !IsWindow(options); });
    ExpectListTakesKeys();
}

TEST_F(SecondStartUi, LeavesAJobsProgressAndItsQuestionInFront) {
    device.File(L"\\To\\a.txt", "old");
    StartIn(L"\\T");
    Copy({L"a.txt"});
    Show(L"\\To");
    Paste();
    const Dialog question = WaitForFileQuestion();
    ASSERT_EQ(WaitForFront(), question.Window());
    ExpectFrontAfterSecondStart(question.Window(), L"\\Other");
    Answer(question, noKey);
    FinishJob();
    ExpectListTakesKeys();
    EXPECT_EQ(program.Folder(), L"\\Other") << "which was asked for after the job";
    EXPECT_EQ(device.Content(L"\\To\\a.txt"), "old");
}

TEST_F(SecondStartUi, LeavesAJobsProgressInFrontAndTheListWhereItHasGone) {
    RunOnHost("mkdir T/Many; cd T/Many; seq 20000 | xargs touch");
    StartIn(L"\\T");
    Copy({L"Many"});
    Show(L"\\To");
    Paste();
    const HWND progress = WaitForFront();
    ExpectFrontAfterSecondStart(progress, L"\\Other");
    PressLeftSoftKey(); // Cancel
    FinishJob();
    EXPECT_EQ(program.Folder(), L"\\Other");
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"one.txt"}));
    ExpectListTakesKeys();
}

TEST_F(SecondStartUi, BringsTheDialogForwardFromBehindAnotherProgram) {
    StartIn(L"\\T");
    program.List().Select(L"a.txt");
    const HWND question = OpenBy(IDM_FILE_DELETE);
    {
        const OtherProgram other;
        ExpectFrontAfterSecondStart(question);
    }
    EXPECT_TRUE(HoldsFor(300, [&] { return IsFront(question); }));
    RunOnHost("xdotool key Escape"); // where the X server has the keyboard
    WaitFor("for it to close", [&] { return !IsWindow(question); });
    ExpectListTakesKeys();
}

TEST_F(SecondStartUi, GivesTheKeyboardBackToTheTreeThatHadIt) {
    ShowTree();
    StartIn(L"\\T");
    program.Command(IDM_SOFTKEY_CHANGE_VIEW);
    const HWND properties = OpenBy(IDM_MENU_PROPERTIES);
    ExpectFrontAfterSecondStart(properties);
    PostMessageW(properties, WM_COMMAND, IDCANCEL, 0);
    WaitFor("for it to close", [&] { return !IsWindow(properties); });
    EXPECT_TRUE(Eventually([&] { return program.TreeHasFocus(); }));
}

} // namespace
