// Screens: 240x320
// Limit: 240 seconds

// Dragging and dropping with the stylus.

#include "tests/support/other_program.h"
#include "tests/ui/job_ui.h"

namespace {

class DragUi : public JobUi {
  protected:
    void SetUp() override {
        JobUi::SetUp();
        device.SetOption(ListOption::ViewStyle, LVS_SMALLICON);
        device.File(L"\\T\\a.txt", "a");
        device.File(L"\\T\\b.txt", "b");
        device.Folder(L"\\T\\Sub");
    }

    void StartWithTree() {
        ShowTree();
        StartIn(L"\\T");
    }

    /// Presses the stylus at a point and moves it to another at a hand's speed, without lifting it.
    void Carry(POINT from, POINT to) {
        constexpr int steps = 8;
        StylusMove(from);
        WaitForStylusAt(from);
        StylusDown(from);
        for (int step = 1; step <= steps; ++step) {
            Sleep(40);
            StylusMove({from.x + (to.x - from.x) * step / steps, from.y + (to.y - from.y) * step / steps});
        }
        WaitForStylusAt(to);
    }
    /// The pointer's places come back from the screen, and late.
    void WaitForStylusAt(POINT point) {
        WaitFor("for the stylus to arrive", [&] {
            POINT now;
            GetCursorPos(&now);
            return now.x == point.x && now.y == point.y;
        });
        Sleep(60);
        program.WaitUntilIdle();
    }
    void Carry(const std::wstring& name, POINT to) { Carry(program.List().PointOf(name), to); }

    bool IsMarked(const std::wstring& name) {
        return Ask(program.List().Window(), LVM_GETITEMSTATE, static_cast<WPARAM>(program.List().Find(name)),
                   LVIS_DROPHILITED) != 0;
    }

    void DropOn(const std::wstring& name, const std::wstring& folder) {
        Carry(name, program.List().PointOf(folder));
        StylusUp();
    }
};

TEST_F(DragUi, AFileDroppedOnAFolderMovesThereAndTheFolderIsShown) {
    StartIn(L"\\T");
    DropOn(L"a.txt", L"Sub");
    program.WaitForFolder(L"\\T\\Sub");
    FinishJob();
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"a.txt"}));
    EXPECT_FALSE(device.Exists(L"\\T\\a.txt"));
}

TEST_F(DragUi, TheFolderUnderTheStylusIsMarked) {
    StartIn(L"\\T");
    Carry(L"a.txt", program.List().PointOf(L"Sub"));
    WaitFor("for the mark", [&] { return IsMarked(L"Sub"); });
    PressKey(VK_ESCAPE);
    WaitFor("for the mark to go", [&] { return !IsMarked(L"Sub"); });
    StylusUp();
    program.WaitUntilIdle();
    EXPECT_TRUE(device.Exists(L"\\T\\a.txt"));
    EXPECT_EQ(program.Folder(), L"\\T");
}

TEST_F(DragUi, DroppingOnAFileMeansTheFolderShown) {
    StartIn(L"\\T");
    DropOn(L"a.txt", L"b.txt");
    EXPECT_EQ(ReadMessage(), L"Illegal move operation.");
    EXPECT_TRUE(device.Exists(L"\\T\\a.txt"));
}

TEST_F(DragUi, TheUpLevelEntryIsNothingToDrag) {
    device.Folder(L"\\T\\Sub\\Deep");
    StartIn(L"\\T");
    Cut({L"a.txt"});
    Show(L"\\T\\Sub");
    for (const POINT target : {program.List().PointOf(L"Deep"), program.List().EmptyPoint()}) {
        Carry(L"..", target);
        EXPECT_FALSE(program.HoldsStylus());
        StylusUp();
        EXPECT_TRUE(HoldsFor(300, [&] { return program.Folder() == L"\\T\\Sub" && !program.HasDialog(); }));
    }
    EXPECT_EQ(device.NamesIn(L"\\T"), (Texts{L"Sub", L"a.txt", L"b.txt"}));
    EXPECT_TRUE(CanPaste()) << "what was cut waits for its paste";
}

TEST_F(DragUi, AnEntryDragsAlthoughTheUpLevelEntryIsSelectedWithIt) {
    device.Folder(L"\\T\\Sub\\Deep");
    device.File(L"\\T\\Sub\\c.txt", "c");
    StartIn(L"\\T\\Sub");
    Select({L"..", L"c.txt"});
    Carry(L"..", program.List().PointOf(L"Deep"));
    StylusUp();
    program.WaitForFolder(L"\\T\\Sub\\Deep");
    FinishJob();
    EXPECT_EQ(device.Content(L"\\T\\Sub\\Deep\\c.txt"), "c");
}

TEST_F(DragUi, TheMenuOffersWhatCanBeDone) {
    device.WriteNumber(settingsKey, L"ContextMenu", 1);
    StartIn(L"\\T");
    DropOn(L"a.txt", L"Sub");
    EXPECT_EQ(program.WaitForMenu().Texts(), (Texts{L"Copy", L"Move", L"Shortcut", L"-", L"Cancel"}));
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    program.WaitForFolder(L"\\T\\Sub");
    FinishJob();
    EXPECT_EQ(device.Content(L"\\T\\Sub\\a.txt"), "a");
    EXPECT_TRUE(device.Exists(L"\\T\\a.txt"));
    EXPECT_TRUE(CanPaste());
}

TEST_F(DragUi, DismissingTheMenuDoesNothing) {
    device.WriteNumber(settingsKey, L"ContextMenu", 1);
    StartIn(L"\\T");
    DropOn(L"a.txt", L"Sub");
    program.WaitForMenu();
    PressKey(VK_ESCAPE);
    WaitFor("for the menu to close", [&] { return !program.MenuIsOpen(); });
    program.WaitUntilIdle();
    EXPECT_EQ(program.Folder(), L"\\T");
    EXPECT_TRUE(device.Exists(L"\\T\\a.txt"));
    EXPECT_FALSE(CanPaste());
}

TEST_F(DragUi, StickyCtrlCopies) {
    StartIn(L"\\T");
    Carry(L"a.txt", program.List().PointOf(L"Sub"));
    program.Command(IDM_KEY_CTRL);
    StylusUp();
    program.WaitForFolder(L"\\T\\Sub");
    FinishJob();
    program.Command(IDM_KEY_CTRL);
    EXPECT_TRUE(device.Exists(L"\\T\\a.txt"));
    EXPECT_TRUE(device.Exists(L"\\T\\Sub\\a.txt"));
}

TEST_F(DragUi, StickyCtrlMakesMoveInTheMenuACopy) {
    device.WriteNumber(settingsKey, L"ContextMenu", 1);
    StartIn(L"\\T");
    Carry(L"a.txt", program.List().PointOf(L"Sub"));
    program.Command(IDM_KEY_CTRL);
    StylusUp();
    program.WaitForMenu();
    PressKey(VK_DOWN);
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    program.WaitForFolder(L"\\T\\Sub");
    FinishJob();
    program.Command(IDM_KEY_CTRL);
    EXPECT_TRUE(device.Exists(L"\\T\\a.txt"));
    EXPECT_TRUE(device.Exists(L"\\T\\Sub\\a.txt"));
}

TEST_F(DragUi, AnotherStartsFolderEndsTheDrag) {
    device.File(L"\\Other\\one.txt", "1");
    StartIn(L"\\T");
    Carry(L"a.txt", program.List().PointOf(L"Sub"));
    WaitFor("for the mark", [&] { return IsMarked(L"Sub"); });
    EXPECT_EQ(Program::StartAgain(L"\\Other"), 0u);
    program.WaitForFolder(L"\\Other");
    EXPECT_FALSE(program.HoldsStylus());
    StylusUp();
    program.WaitUntilIdle();
    EXPECT_FALSE(CanPaste());
    EXPECT_FALSE(program.HasDialog());
    EXPECT_EQ(program.Folder(), L"\\Other");
    EXPECT_EQ(device.NamesIn(L"\\T"), (Texts{L"Sub", L"a.txt", L"b.txt"}));
    EXPECT_EQ(device.NamesIn(L"\\Other"), (Texts{L"one.txt"}));
}

TEST_F(DragUi, TheLeftSoftKeyEndsTheDragAndGoesUp) {
    device.File(L"\\T\\Sub\\c.txt", "c");
    StartIn(L"\\T\\Sub");
    Carry(L"c.txt", program.List().EmptyPoint());
    PressLeftSoftKey();
    program.WaitForFolder(L"\\T");
    StylusUp();
    EXPECT_TRUE(HoldsFor(300, [&] { return !program.HasDialog() && !program.HasMessageBox(); }));
    EXPECT_EQ(program.Folder(), L"\\T");
    EXPECT_EQ(device.NamesIn(L"\\T\\Sub"), (Texts{L"c.txt"}));
    EXPECT_FALSE(CanPaste());
}

TEST_F(DragUi, AnotherStartsFolderClosesTheDropMenuWithNothingDone) {
    device.WriteNumber(settingsKey, L"ContextMenu", 1);
    device.File(L"\\Other\\one.txt", "1");
    StartIn(L"\\T");
    DropOn(L"a.txt", L"Sub");
    program.WaitForMenu();
    EXPECT_EQ(Program::StartAgain(L"\\Other"), 0u);
    WaitFor("for the menu to close", [&] { return !program.MenuIsOpen(); });
    program.WaitUntilIdle();
    EXPECT_FALSE(CanPaste());
    EXPECT_EQ(program.Folder(), L"\\Other");
    EXPECT_EQ(device.NamesIn(L"\\T"), (Texts{L"Sub", L"a.txt", L"b.txt"}));
}

TEST_F(DragUi, AWindowThatComesInFrontEndsTheDrag) {
    StartIn(L"\\T");
    Carry(L"a.txt", program.List().PointOf(L"Sub"));
    WaitFor("for the mark", [&] { return IsMarked(L"Sub"); });
    {
        const OtherProgram other;
        WaitFor("for the mark to go", [&] { return !IsMarked(L"Sub"); });
    }
    StylusUp();
    program.WaitUntilIdle();
    EXPECT_TRUE(device.Exists(L"\\T\\a.txt"));
}

TEST_F(DragUi, SearchResultsAndTheDeviceItselfTakeAndGiveNothing) {
    StartWithTree();
    Carry(program.Tree().PointOf(L""), program.List().EmptyPoint());
    StylusUp();
    program.WaitUntilIdle();
    EXPECT_FALSE(CanPaste());
    EXPECT_FALSE(program.HasMessageBox());
}

TEST_F(DragUi, AFileDroppedOnTheTreeMovesThere) {
    StartWithTree();
    Carry(L"a.txt", program.Tree().PointOf(L"\\Temp"));
    StylusUp();
    program.WaitForFolder(L"\\Temp");
    FinishJob();
    EXPECT_EQ(device.Content(L"\\Temp\\a.txt"), "a");
    EXPECT_FALSE(device.Exists(L"\\T\\a.txt"));
}

TEST_F(DragUi, AFolderOfTheTreeDroppedOnTheListMovesThere) {
    device.File(L"\\Aaa\\x.txt", "x");
    StartWithTree();
    Carry(program.Tree().PointOf(L"\\Aaa"), program.List().EmptyPoint());
    StylusUp();
    WaitFor("for the folder", [&] { return device.Exists(L"\\T\\Aaa\\x.txt"); });
    FinishJob();
    EXPECT_FALSE(device.Exists(L"\\Aaa"));
    EXPECT_EQ(program.Folder(), L"\\T");
    EXPECT_TRUE(program.List().Has(L"Aaa"));
}

TEST_F(DragUi, WithDraggingOffARangeIsSelected) {
    device.WriteNumber(settingsKey, L"DragDrop", 0);
    StartIn(L"\\T");
    Select({});
    Carry(L"Sub", program.List().PointOf(L"b.txt"));
    StylusUp();
    program.WaitUntilIdle();
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"Sub", L"a.txt", L"b.txt"}));
    EXPECT_TRUE(device.Exists(L"\\T\\b.txt"));
}

} // namespace
