// Screens: 240x320

// The tree's context menu in its ways of opening, and what a menu leaves behind.

#include <thread>

#include "tests/ui/tree_ui.h"

namespace {

class FolderTreeMenuUi : public TreeUi {
  protected:
    void SetUp() override {
        device.Folder(L"\\Temp\\Home");
        StartWithTree(L"\\My Documents");
        FocusTree();
    }

    /// The folder's menu is open; closes it.
    void ExpectMenu() {
        const Menu menu = program.WaitForMenu();
        EXPECT_EQ(menu.Texts(), (Texts{L"Open", L"-", L"Send To", L"-", L"Edit", L"-", L"Cut", L"Copy", L"-",
                                       L"Shortcut", L"Delete", L"Rename", L"-", L"Properties..."}));
        program.CloseMenus();
    }
    void ExpectNoMenu() {
        EXPECT_TRUE(HoldsFor(400, [&] { return !program.MenuIsOpen(); }));
    }
    /// The corner of the open menu on the screen.
    POINT MenuCorner() {
        program.WaitForMenu();
        for (HWND window : TopWindowsOf(program.ProcessId()))
            if (ClassOf(window) == L"#32768" && IsWindowVisible(window))
                return {PlaceOf(window).left, PlaceOf(window).top};
        return {-1, -1};
    }
    /// A place of the tree where no node is.
    POINT EmptyPoint() const {
        const RECT place = PlaceOf(Tree().Window());
        return {place.right - 30, place.top + 8}; // right of the root's text
    }
    void Hold(POINT from, POINT to) {
        StylusDown(from);
        StylusMove(to);
        Sleep(holdTime); // the time itself is the input
    }

    const DWORD holdTime = GetDoubleClickTime() + 300;
};

TEST_F(FolderTreeMenuUi, TheSecondButtonSelectsTheNodeAndOpensItsMenu) {
    RightClick(Tree().PointOf(L"\\Temp"));
    EXPECT_EQ(program.WaitForMenu().Popup(L"Send To").Texts(),
              (Texts{L"ZIP Archive...", L"-", L"Copy To...", L"Move To...", L"Send Shortcut To..."}));
    EXPECT_EQ(program.WaitForMenu().Popup(L"Edit").Texts(),
              (Texts{L"Copy Name", L"Copy Path", L"-", L"Release Selection", L"-", L"Select All",
                     L"Reverse Selection"}));
    ExpectMenu();
    EXPECT_EQ(Tree().SelectedPath(), L"\\Temp");
    RightClick(Tree().PointOf(L"File Search"));
    ExpectNoMenu();
    RightClick(EmptyPoint());
    ExpectNoMenu();
}

TEST_F(FolderTreeMenuUi, ATapWithAltOpensIt) {
    Tap(Tree().PointOf(L"\\Temp"), Alt);
    ExpectMenu();
    Tap(Tree().PointOf(L"\\Windows"), Alt | Shift);
    ExpectNoMenu();
    Tap(Tree().PointOf(L"\\Temp"));
    ExpectNoMenu();
}

TEST_F(FolderTreeMenuUi, TheShellsTapAndHoldOpensIt) {
    StylusMove(Tree().PointOf(L"\\Temp"));
    program.WaitUntilIdle();
    RemoteMemory memory(program.Window(), sizeof(NMHDR) + 64);
    NMHDR notification{};
    notification.hwndFrom = Tree().Window();
    notification.idFrom = 1;
    notification.code = 1000; // GN_CONTEXTMENU
    memory.Write(&notification, sizeof(notification));
    LRESULT answer = 0;
    std::jthread shell([&] {
        answer = AskInside(program.Window(), WM_NOTIFY, 1, reinterpret_cast<LPARAM>(memory.Address()));
    });
    ExpectMenu();
    shell.join();
    EXPECT_EQ(answer, 1);
    EXPECT_EQ(Tree().SelectedPath(), L"\\Temp");
}

TEST_F(FolderTreeMenuUi, KeysOpenItAtTheSelectedNodeCountedFromTheScreensCorner) {
    const POINT node = Tree().PointOf(L"\\My Documents");
    POINT client = node;
    ScreenToClient(Tree().Window(), &client);
    PressKey('M', Ctrl);
    const POINT corner = MenuCorner();
    EXPECT_NEAR(corner.x, client.x, 1);
    ExpectMenu();
    PressKey(VK_CONTROL, Alt);
    ExpectMenu();
    Tree().Select(L"File Search");
    PressKey('M', Ctrl);
    ExpectNoMenu();
}

TEST_F(FolderTreeMenuUi, AHeldStylusOpensItWithoutSelecting) {
    const POINT point = Tree().PointOf(L"\\My Documents");
    POINT client = point;
    ScreenToClient(Tree().Window(), &client);
    Hold(point, {point.x + 2, point.y + 2});
    EXPECT_NEAR(MenuCorner().x, client.x + 10, 1);
    StylusUp();
    ExpectMenu();
    EXPECT_TRUE(HoldsFor(1200, [&] { return !Tree().NameEditor(); })) << "the hold was no tap on the name";
    // And again: the first hold left nothing pending. Another node is not selected by it either.
    const POINT other = Tree().PointOf(L"\\Temp");
    Hold(other, other);
    program.WaitForMenu();
    StylusUp();
    ExpectMenu();
    EXPECT_EQ(Tree().SelectedPath(), L"\\My Documents");
    EXPECT_EQ(program.Folder(), L"\\My Documents");
}

TEST_F(FolderTreeMenuUi, AStylusThatMovesOrIsLiftedOpensNone) {
    const POINT point = Tree().PointOf(L"\\My Documents");
    Hold(point, {point.x + 7, point.y});
    EXPECT_FALSE(program.MenuIsOpen());
    StylusUp();
    Tap(point);
    Sleep(holdTime);
    EXPECT_FALSE(program.MenuIsOpen());
    TapAndHold(EmptyPoint(), holdTime);
    EXPECT_FALSE(program.MenuIsOpen());
    TapAndHold(Tree().PointOf(L"File Search"), holdTime);
    EXPECT_FALSE(program.MenuIsOpen());
    // Nothing of all that is in the way of the next hold.
    PressKey(VK_ESCAPE);
    Hold(point, point);
    ExpectMenu();
    StylusUp();
}

TEST_F(FolderTreeMenuUi, AnEditorLeftOpenUnderAMenuIsClosedSoonAfterIt) {
    const POINT point = Tree().PointOf(L"\\My Documents");
    Hold(point, point);
    program.WaitForMenu();
    StylusUp();
    Ask(Tree().Window(), TVM_EDITLABELW, 0, reinterpret_cast<LPARAM>(Tree().At(L"\\My Documents").item));
    ASSERT_NE(Tree().NameEditor(), nullptr);
    Control(Tree().NameEditor()).SetText(L"Papers");
    program.CloseMenus();
    EXPECT_TRUE(Eventually([&] { return !Tree().NameEditor(); }));
    EXPECT_FALSE(program.HasMessageBox());
    EXPECT_TRUE(Tree().Has(L"\\Papers"));
    EXPECT_TRUE(device.IsFolder(L"\\Papers"));
}

TEST_F(FolderTreeMenuUi, RenameChosenInAHeldMenuStaysOpen) {
    const POINT point = Tree().PointOf(L"\\My Documents");
    Hold(point, point);
    program.WaitForMenu();
    StylusUp();
    PressKey(VK_UP); // from the end: Properties
    PressKey(VK_UP);
    PressKey(VK_RETURN);
    WaitFor("for the editor", [&] { return Tree().NameEditor() != nullptr; });
    EXPECT_TRUE(HoldsFor(1200, [&] { return Tree().NameEditor() != nullptr; }));
}

} // namespace
