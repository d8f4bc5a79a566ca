// Screens: 240x320
// Limit: 240 seconds

// What a hand does with stylus and keys is about the entries it sees, whatever happens meanwhile.

#include "tests/ui/folder_changes.h"
#include "tests/ui/job_ui.h"

namespace {

class GesturesUi : public JobUi {
  protected:
    void SetUp() override {
        JobUi::SetUp();
        device.SetOption(ListOption::ViewStyle, LVS_SMALLICON);
        device.File(L"\\T\\a.txt", "a");
        device.File(L"\\T\\b.txt", "b");
        device.Folder(L"\\T\\Sub\\Deep");
        device.File(L"\\Other\\one.txt", "1");
        device.Folder(L"\\Other\\Two\\Three");
    }

    void StartWithTree(const std::wstring& folder) {
        ShowTree();
        StartIn(folder);
    }
    void FocusTree() {
        program.Command(IDM_SOFTKEY_CHANGE_VIEW);
        WaitFor("for the tree to have the keyboard", [&] { return program.TreeHasFocus(); });
    }
    /// Puts the stylus down until the context menu has opened. It stays down.
    void HoldUntilMenu(POINT point) {
        StylusDown(point);
        program.WaitForMenu();
    }
    /// Puts the stylus down on an entry that is not selected, and goes on when that has arrived.
    POINT PressOn(const std::wstring& name) {
        const POINT point = program.List().PointOf(name);
        StylusDown(point);
        WaitFor("for the press to arrive", [&] { return program.List().SelectedNames() == Texts{name}; });
        return point;
    }
    /// The same on a node; the tree takes the stylus for itself.
    void PressOnNode(const std::wstring& path) {
        HWND tree = program.Tree().Window();
        StylusDown(program.Tree().PointOf(path));
        WaitFor("for the press to arrive", [&] {
            GUITHREADINFO input{};
            input.cbSize = sizeof(input);
            GetGUIThreadInfo(GetWindowThreadProcessId(tree, nullptr), &input);
            return input.hwndCapture == tree;
        });
    }
    void DismissMenuByBack() {
        PressBack();
        WaitFor("for the menu to close", [&] { return !program.MenuIsOpen(); });
    }
    /// Another start hands this folder over; it has been shown when the start has ended.
    void SecondStart(const std::wstring& folder) {
        EXPECT_EQ(Program::StartAgain(folder), 0u);
        program.WaitForFolder(folder);
    }
    void ExpectStill(const std::wstring& folder) {
        EXPECT_TRUE(HoldsFor(500, [&] {
            return program.Folder() == folder && !program.MenuIsOpen() && !program.HasDialog() &&
                   !program.HasMessageBox() && !program.List().NameEditor();
        }));
        program.WaitUntilIdle();
    }
    /// Whether what is drawn left of and above a point has the colour of a selection behind it.
    static bool IsHighlighted(POINT point) {
        HDC screen = GetDC(nullptr);
        int highlighted = 0;
        for (int x = point.x - 8; x < point.x; ++x)
            for (int y = point.y - 5; y < point.y; ++y)
                highlighted += GetPixel(screen, x, y) == GetSysColor(COLOR_HIGHLIGHT);
        ReleaseDC(nullptr, screen);
        return highlighted > 10;
    }
    /// None opens any more. One that did before the second start was through has closed.
    void ExpectNoMenuOfAHold() {
        EXPECT_TRUE(Eventually([&] { return !program.MenuIsOpen(); }));
        EXPECT_TRUE(
            HoldsFor(static_cast<int>(GetDoubleClickTime()) + 300, [&] { return !program.MenuIsOpen(); }));
    }
    std::wstring NameInProperties() {
        Dialog properties = program.WaitForDialog(L"Properties");
        const std::wstring name = properties.Item(IDC_ENTRY_NAME).Text();
        PressLeftSoftKey();
        properties.WaitUntilClosed();
        return name;
    }
};

// --- Taps ---

TEST_F(GesturesUi, OneDoubleTapOnAnUnselectedFolderOpensItAndStaysThere) {
    StartIn(L"\\T");
    program.List().Select(L"a.txt");
    DoubleTap(program.List().PointOf(L"Sub"));
    program.WaitForFolder(L"\\T\\Sub");
    ExpectStill(L"\\T\\Sub");
    DoubleTap(program.List().PointOf(L"Deep")); // where ".." is in the next folder
    program.WaitForFolder(L"\\T\\Sub\\Deep");
    ExpectStill(L"\\T\\Sub\\Deep");
}

TEST_F(GesturesUi, OneDoubleTapOnAnUnselectedFileOpensItOnce) {
    StartIn(L"\\T");
    program.List().Select(L"Sub");
    DoubleTap(program.List().PointOf(L"a.txt"));
    WaitFor("for the file to open", [&] { return device.Exists(L"\\opened-on-host"); });
    EXPECT_TRUE(HoldsFor(1500, [&] { return device.Content(L"\\opened-on-host") == "T/a.txt\n"; }));
}

TEST_F(GesturesUi, WithDoubleTapActivationADoubleTapOpensAndASingleOneDoesNot) {
    device.SetOption(ListOption::SingleTapOpens, 0);
    StartIn(L"\\T");
    program.List().Select(L"a.txt");
    Tap(program.List().PointOf(L"Sub"));
    ExpectStill(L"\\T");
    program.List().Select(L"a.txt");
    DoubleTap(program.List().PointOf(L"Sub"));
    program.WaitForFolder(L"\\T\\Sub");
    ExpectStill(L"\\T\\Sub");
}

TEST_F(GesturesUi, TapsOneAfterTheOtherEachOpen) {
    StartIn(L"\\T\\Sub");
    Tap(program.List().PointOf(L"Deep"));
    program.WaitForFolder(L"\\T\\Sub\\Deep");
    Sleep(GetDoubleClickTime() + 100); // a tap of its own
    program.List().SelectNothing();
    Tap(program.List().PointOf(L".."));
    program.WaitForFolder(L"\\T\\Sub");
}

TEST_F(GesturesUi, ADoubleTapInTheTreeShowsTheFolderOnce) {
    StartWithTree(L"\\T");
    DoubleTap(program.Tree().PointOf(L"\\Other"));
    program.WaitForFolder(L"\\Other");
    ExpectStill(L"\\Other");
    EXPECT_TRUE(program.Tree().At(L"\\Other").expanded);
    EXPECT_EQ(program.Tree().SelectedPath(), L"\\Other");
}

// --- Tap and hold ---

TEST_F(GesturesUi, AHoldDismissedByBackOpensNothingWhenTheStylusIsLifted) {
    StartIn(L"\\T");
    program.List().Select(L"a.txt");
    HoldUntilMenu(program.List().PointOf(L"Sub"));
    DismissMenuByBack();
    StylusUp();
    ExpectStill(L"\\T");
    Sleep(GetDoubleClickTime() + 100);
    program.List().Select(L"a.txt");
    Tap(program.List().PointOf(L"Sub")); // the next tap is one
    program.WaitForFolder(L"\\T\\Sub");
}

TEST_F(GesturesUi, AHoldDismissedByBackDragsNothing) {
    StartIn(L"\\T");
    const POINT from = program.List().PointOf(L"Sub");
    HoldUntilMenu(from);
    DismissMenuByBack();
    StylusMove({from.x + 30, from.y + 30});
    StylusMove(program.List().EmptyPoint());
    EXPECT_FALSE(program.HoldsStylus());
    StylusUp();
    ExpectStill(L"\\T");
}

TEST_F(GesturesUi, AHoldInTheTreeDismissedByBackSelectsNothing) {
    StartWithTree(L"\\T");
    HoldUntilMenu(program.Tree().PointOf(L"\\Other"));
    DismissMenuByBack();
    StylusUp();
    ExpectStill(L"\\T");
    EXPECT_EQ(program.Tree().SelectedPath(), L"\\T");
}

TEST_F(GesturesUi, TheNodeThatIsHighlightedDuringAHoldIsTheOneTheMenuActsOn) {
    StartWithTree(L"\\T");
    const POINT held = program.Tree().PointOf(L"\\Other");
    HoldUntilMenu(held);
    EXPECT_TRUE(Eventually([&] { return IsHighlighted(program.Tree().PointOf(L"\\T")); }));
    EXPECT_FALSE(IsHighlighted(held));
    StylusUp();
    PressKey(VK_UP); // from the end
    PressKey(VK_RETURN);
    EXPECT_EQ(NameInProperties(), L"T");
}

TEST_F(GesturesUi, AHoldIsForgottenWhenTheListGoesElsewhere) {
    StartIn(L"\\T");
    program.List().Select(L"a.txt");
    PressOn(L"Sub");
    SecondStart(L"\\Other");
    EXPECT_TRUE(
        HoldsFor(static_cast<int>(GetDoubleClickTime()) + 300, [&] { return !program.MenuIsOpen(); }));
    StylusUp(); // over what lies there now
    ExpectStill(L"\\Other");
}

TEST_F(GesturesUi, APressBecomesNoDragWhenTheListGoesElsewhere) {
    StartIn(L"\\T");
    const POINT from = PressOn(L"Sub");
    SecondStart(L"\\Other");
    StylusMove({from.x + 30, from.y + 30});
    StylusMove(program.List().EmptyPoint());
    StylusUp();
    ExpectStill(L"\\Other");
    EXPECT_EQ(device.NamesIn(L"\\Other"), (Texts{L"Two", L"one.txt"}));
}

TEST_F(GesturesUi, APressInTheTreeIsForgottenWhenTheListGoesElsewhere) {
    StartWithTree(L"\\T");
    PressOnNode(L"\\Temp");
    SecondStart(L"\\Other");
    EXPECT_TRUE(
        HoldsFor(static_cast<int>(GetDoubleClickTime()) + 300, [&] { return !program.MenuIsOpen(); }));
    StylusUp();
    ExpectStill(L"\\Other");
}

TEST_F(GesturesUi, ARefreshWaitsForTheStylus) {
    StartIn(L"\\T");
    const POINT point = PressOn(L"b.txt");
    device.File(L"\\T\\aa.txt");
    PostMessageW(program.Window(), folderChanged, 0, 0);
    EXPECT_TRUE(HoldsFor(refreshDelay + 1000, [&] { return !program.List().Has(L"aa.txt"); }));
    Sleep(60);
    StylusMove({point.x + 15, point.y});
    StylusMove(program.List().PointOf(L"Sub")); // it has become a drag, of what it began with
    StylusUp();
    program.WaitForFolder(L"\\T\\Sub");
    FinishJob();
    EXPECT_EQ(device.NamesIn(L"\\T\\Sub"), (Texts{L"Deep", L"b.txt"}));
}

// --- Menus ---

TEST_F(GesturesUi, AContextMenuClosesWhenAnotherStartsFolderIsShown) {
    StartIn(L"\\T");
    program.List().Select(L"Sub");
    RightClick(program.List().PointOf(L"Sub"));
    program.WaitForMenu();
    SecondStart(L"\\Other");
    EXPECT_TRUE(Eventually([&] { return !program.MenuIsOpen(); }));
    PressKey(VK_UP); // to "Delete" and on it, had the menu stayed
    PressKey(VK_UP);
    PressKey(VK_UP);
    EXPECT_TRUE(HoldsFor(300, [&] { return !program.HasDialog(); }));
    EXPECT_EQ(program.Folder(), L"\\Other");
    PressRightSoftKey(); // the next one opens
    program.WaitForMenu();
    program.CloseMenus();
}

TEST_F(GesturesUi, TheMenuOfTheSoftKeyAndOfTheTreeCloseAlike) {
    StartWithTree(L"\\T");
    PressRightSoftKey();
    program.WaitForMenu();
    SecondStart(L"\\Other");
    EXPECT_TRUE(Eventually([&] { return !program.MenuIsOpen(); }));
    FocusTree();
    RightClick(program.Tree().PointOf(L"\\T"));
    program.WaitForMenu();
    SecondStart(L"\\Temp");
    EXPECT_TRUE(Eventually([&] { return !program.MenuIsOpen(); }));
    ExpectStill(L"\\Temp");
}

TEST_F(GesturesUi, AMenuOpenedRightAfterAnArrowInTheTreeStaysOpen) {
    StartWithTree(L"");
    FocusTree();
    PressKey(VK_DOWN);
    PressRightSoftKey();
    program.WaitForMenu();
    EXPECT_TRUE(HoldsFor(800, [&] { return program.MenuIsOpen(); }));
    DismissMenuByBack();
    program.WaitForFolder(L"\\My Documents");
}

// --- Names in edit ---

TEST_F(GesturesUi, ANameEditedInAPaneStaysWhenAnotherStartsFolderIsShown) {
    StartWithTree(L"\\T");
    program.List().Select(L"a.txt");
    program.PostCommand(IDM_FILE_RENAME);
    WaitFor("for the editor", [&] { return program.List().NameEditor() != nullptr; });
    TypeText(L"half");
    SecondStart(L"\\T\\Sub");
    EXPECT_TRUE(Eventually([&] { return !program.List().NameEditor(); }));
    FocusTree();
    program.PostCommand(IDM_FILE_RENAME);
    WaitFor("for the editor", [&] { return program.Tree().NameEditor() != nullptr; });
    TypeText(L"half");
    SecondStart(L"\\Other");
    EXPECT_TRUE(Eventually([&] { return !program.Tree().NameEditor(); }));
    EXPECT_FALSE(program.HasMessageBox());
    EXPECT_EQ(device.NamesIn(L"\\T"), (Texts{L"Sub", L"a.txt", L"b.txt"}));
    EXPECT_EQ(program.Folder(), L"\\Other");
}

TEST_F(GesturesUi, ANameEditedRightAfterAnArrowInTheTreeStaysInEdit) {
    StartWithTree(L"");
    FocusTree();
    PressKey(VK_DOWN);
    PressKey(VK_F2);
    WaitFor("for the editor", [&] { return program.Tree().NameEditor() != nullptr; });
    EXPECT_TRUE(HoldsFor(800, [&] { return program.Tree().NameEditor() != nullptr; }));
    PressBack();
    EXPECT_TRUE(Eventually([&] { return !program.Tree().NameEditor(); }));
    program.WaitForFolder(L"\\My Documents");
}

// --- Keys in the tree, and a command at once ---

TEST_F(GesturesUi, PropertiesRightAfterAnArrowInTheTreeAreTheSelectedFolders) {
    StartWithTree(L"");
    FocusTree();
    PressKey(VK_DOWN);
    PressKey('P', Ctrl);
    EXPECT_EQ(NameInProperties(), L"My Documents");
    PressKey(VK_UP);
    PressKey('P', Ctrl);
    EXPECT_EQ(NameInProperties(), L"My PocketPC");
}

TEST_F(GesturesUi, PasteRightAfterAnArrowInTheTreeGoesToTheSelectedFolder) {
    StartWithTree(L"\\T");
    Copy({L"a.txt"});
    program.Command(IDM_GOTO_DEVICE);
    FocusTree();
    PressKey(VK_DOWN);
    PressKey('V', Ctrl);
    WaitFor("for the copy", [&] { return device.Exists(L"\\My Documents\\a.txt"); });
    FinishJob();
    EXPECT_FALSE(device.Exists(L"\\a.txt"));
}

} // namespace
