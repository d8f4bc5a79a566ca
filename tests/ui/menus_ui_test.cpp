// Screens: 240x320 320x240 176x220

// The menus: what stands in them, in which order, and that keys alone reach every entry.

#include "tests/support/ui_test.h"

namespace {

class MenusUi : public UiTest {
  protected:
    void PressAndWait(WORD key, std::size_t openMenus) {
        PressKey(key);
        WaitFor("for " + std::to_string(openMenus) + " open menus",
                [&] { return OpenPopups(program.ProcessId()).size() == openMenus; });
    }

    /// The context menu that a tap of the second button opens at a place of the list.
    Menu ContextMenuAt(POINT point) {
        RightClick(point);
        const Menu menu = program.WaitForMenu();
        program.CloseMenus();
        return menu;
    }
};

TEST_F(MenusUi, TheSoftKeyMenuHasItsPopupsInOrder) {
    program.Start();
    const Menu menu = program.SoftKeyMenu();
    EXPECT_EQ(menu.Texts(), (Texts{L"File", L"Edit", L"Send To", L"View", L"ToolBar", L"Go to", L"Tools",
                                   L"Refresh", L"Properties...", L"-", L"Exit"}));
    EXPECT_EQ(menu.Popup(L"File").Texts(), (Texts{L"Open", L"New Folder", L"Shortcut", L"-", L"Delete",
                                                  L"Rename", L"-", L"File Search..."}));
    EXPECT_EQ(menu.Popup(L"File").Popup(L"Open").Texts(),
              (Texts{L"Open", L"-", L"Extract to...", L"Extract to here"}));
    EXPECT_EQ(menu.Popup(L"Edit").Texts(),
              (Texts{L"Copy Name", L"Copy Path", L"-", L"Select All", L"Reverse Selection"}));
    EXPECT_EQ(menu.Popup(L"View").Texts(), (Texts{L"View Style", L"Arrange Icons By", L"-", L"Address Bar",
                                                  L"Folder Tree", L"Status Bar", L"-", L"Options..."}));
    EXPECT_EQ(menu.Popup(L"View").Popup(L"View Style").Texts(),
              (Texts{L"Large", L"Small", L"List", L"Detailed", L"Detailed(Line Select)"}));
    EXPECT_EQ(menu.Popup(L"View").Popup(L"Arrange Icons By").Texts(),
              (Texts{L"Name", L"Type", L"Size", L"Date", L"-", L"Reverse"}));
    EXPECT_EQ(menu.Popup(L"ToolBar").Texts(),
              (Texts{L"Go To", L"Back", L"Forward", L"Up Folder", L"List Style", L"-", L"Cut", L"Copy",
                     L"Paste", L"Paste Shortcut"}));
    EXPECT_EQ(menu.Popup(L"Go to").Popup(L"Favorites").Texts().front(), L"Add");
}

// --- By keys alone ---

TEST_F(MenusUi, TheRightSoftKeyOpensTheMenuAndBackClosesItLevelByLevel) {
    program.Start();
    PressAndWait(VK_F10, 1);
    PressAndWait(VK_DOWN, 1); // "File"
    PressAndWait(VK_RIGHT, 2);
    PressAndWait(VK_ESCAPE, 1);
    PressAndWait(VK_ESCAPE, 0);
    EXPECT_TRUE(program.ListHasFocus());
}

TEST_F(MenusUi, NumberKeysPickAlongAPath) {
    program.Start();
    PressAndWait(VK_F10, 1);
    PressAndWait('4', 2); // "View"
    PressAndWait('1', 3); // "View Style"
    PressKey('4');        // "Detailed"
    WaitFor("for the details", [&] { return program.List().ViewStyle() == LVS_REPORT; });
    EXPECT_FALSE(program.MenuIsOpen());
}

TEST_F(MenusUi, ArrowsAndEnterPickAlongAPath) {
    program.Start();
    PressAndWait(VK_F10, 1);
    for (int step = 0; step < 3; ++step)
        PressKey(VK_DOWN);
    PressKey(VK_DOWN); // "View"
    PressAndWait(VK_RIGHT, 2);
    for (int step = 0; step < 3; ++step)
        PressKey(VK_DOWN); // past "Arrange Icons By" and "Address Bar"
    PressKey(VK_RETURN);
    WaitFor("for the folder tree", [&] { return program.TreeIsShown(); });
}

/// Every entry of the menu on the screen is picked by its number, popup by popup; nothing is lost between the
/// bars.
TEST_F(MenusUi, EveryPopupOpensByItsNumberInsideTheScreen) {
    program.Start();
    PressAndWait(VK_F10, 1);
    const LONG top = PlaceOf(program.Window()).top;
    const LONG bottom = GetSystemMetrics(SM_CYSCREEN);
    for (WORD number = 1; number <= 7; ++number) {
        PressAndWait(static_cast<WORD>('0' + number), 2);
        for (HWND popup : TopWindowsOf(program.ProcessId())) {
            if (ClassOf(popup) != L"#32768" || !IsWindowVisible(popup))
                continue;
            const RECT place = PlaceOf(popup);
            EXPECT_GE(place.left, 0);
            EXPECT_GE(place.top, top);
            EXPECT_LE(place.right, GetSystemMetrics(SM_CXSCREEN));
            EXPECT_LE(place.bottom, bottom);
        }
        PressAndWait(VK_ESCAPE, 1);
    }
}

TEST_F(MenusUi, ExitByKeysEndsTheProgram) {
    program.Start();
    PressAndWait(VK_F10, 1);
    PressKey('0'); // the tenth entry
    program.WaitForEnd();
}

// --- Context menus ---

class ContextMenusUi : public MenusUi {
  protected:
    void SetUp() override {
        device.Folder(L"\\Ctx\\Sub");
        device.File(L"\\Ctx\\a.txt");
        device.File(L"\\Ctx\\b.zip");
        device.File(L"\\Ctx\\c.ZIP");
        ShowExtensions();
        device.SetOption(ListOption::ViewStyle, LVS_LIST);
        program.Start(L"\\Ctx");
    }
};

TEST_F(ContextMenusUi, AFolderHasItsMenu) {
    EXPECT_EQ(ContextMenuAt(program.List().PointOf(L"Sub")).Texts(),
              (Texts{L"Open", L"-", L"Send To", L"-", L"Edit", L"-", L"Cut", L"Copy", L"-", L"Shortcut",
                     L"Delete", L"Rename", L"-", L"Properties..."}));
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"Sub"}));
}

TEST_F(ContextMenusUi, AnArchiveHasItsMenu) {
    const Menu menu = ContextMenuAt(program.List().PointOf(L"b.zip"));
    EXPECT_EQ(menu.Texts(), (Texts{L"Open", L"-", L"Send To", L"-", L"Edit", L"-", L"Cut", L"Copy", L"-",
                                   L"Shortcut", L"Delete", L"Rename", L"-", L"Properties..."}));
    EXPECT_EQ(menu.Popup(L"Open").Texts(),
              (Texts{L"Extract", L"-", L"Open", L"Parameters...", L"-", L"Choose Program..."}));
    EXPECT_EQ(menu.Popup(L"Edit").Texts(), (Texts{L"Copy Name", L"Copy Path", L"-", L"Release Selection ",
                                                  L"-", L"Select All", L"Reverse Selection"}));
}

TEST_F(ContextMenusUi, OtherFilesHaveNoneAndCapitalsMakeAnArchiveOneOfThem) {
    for (const std::wstring name : {L"a.txt", L"c.ZIP"}) {
        RightClick(program.List().PointOf(name));
        WaitFor("for the selection", [&] { return program.List().SelectedNames() == Texts{name}; });
        program.WaitUntilIdle();
        EXPECT_FALSE(program.MenuIsOpen());
    }
}

TEST_F(ContextMenusUi, SeveralEntriesHaveTheirMenu) {
    program.List().Select(L"a.txt");
    program.List().AddToSelection(L"b.zip");
    EXPECT_EQ(ContextMenuAt(program.List().PointOf(L"b.zip")).Texts(),
              (Texts{L"Send To", L"-", L"Edit", L"-", L"Cut", L"Copy", L"-", L"Shortcut", L"Delete", L"-",
                     L"Properties..."}));
}

TEST_F(ContextMenusUi, TheFolderItselfHasItsMenu) {
    program.List().SelectNothing();
    const Menu menu = ContextMenuAt(program.List().EmptyPoint());
    EXPECT_EQ(menu.Texts(), (Texts{L"Arrange Icons By", L"Refresh", L"-", L"New Folder", L"-", L"Paste",
                                   L"Paste Shortcut", L"Select All", L"-", L"Properties..."}));
    EXPECT_FALSE(menu.IsEnabled(IDM_TOOLBAR_PASTE));
    EXPECT_FALSE(menu.IsEnabled(IDM_TOOLBAR_PASTE_SHORTCUT));
    EXPECT_TRUE(menu.IsEnabled(IDM_FILE_NEW_FOLDER));
    EXPECT_TRUE(menu.IsEnabled(IDM_MENU_PROPERTIES));
    EXPECT_TRUE(menu.IsChecked(IDM_ARRANGE_NAME));
}

TEST_F(ContextMenusUi, TheTopOfTheDeviceHasNoPropertiesOfItsOwn) {
    program.Command(IDM_GOTO_DEVICE);
    program.List().SelectNothing();
    EXPECT_FALSE(ContextMenuAt(program.List().EmptyPoint()).IsEnabled(IDM_MENU_PROPERTIES));
}

TEST_F(ContextMenusUi, TheUpLevelEntryAloneHasNone) {
    RightClick(program.List().PointOf(L".."));
    WaitFor("for the selection", [&] { return program.List().SelectedNames() == Texts{L".."}; });
    program.WaitUntilIdle();
    EXPECT_FALSE(program.MenuIsOpen());
}

TEST_F(ContextMenusUi, CtrlMOpensItAtTheSelectedEntry) {
    program.List().Select(L"Sub");
    PressKey('M', Ctrl);
    EXPECT_EQ(program.WaitForMenu().Texts().front(), L"Open");
    program.CloseMenus();
}

// --- Tap and hold ---

constexpr DWORD longHold = 900; // well over the double-tap time

TEST_F(ContextMenusUi, AHoldOpensTheMenu) {
    const POINT point = program.List().PointOf(L"Sub");
    StylusDown(point);
    EXPECT_EQ(program.WaitForMenu().Texts().front(), L"Open");
    StylusUp();
    program.CloseMenus();
}

TEST_F(ContextMenusUi, AHoldThatDriftsSixPixelsOpensNone) {
    device.WriteNumber(settingsKey, L"DragDrop", 0);
    const POINT point = program.List().EmptyPoint();
    program.List().SelectNothing();
    StylusDown(point);
    StylusMove({point.x - 6, point.y});
    EXPECT_TRUE(HoldsFor(longHold, [&] { return !program.MenuIsOpen(); }));
    StylusUp();
}

TEST_F(ContextMenusUi, ACommandAfterAHoldActsOnTheWholeSelection) {
    program.List().Select(L"a.txt");
    program.List().AddToSelection(L"b.zip");
    program.List().AddToSelection(L"c.ZIP");
    StylusDown(program.List().PointOf(L"b.zip"));
    program.WaitForMenu();
    StylusUp();
    PressBack(); // comes after the stylus, which is lifted over the menu
    WaitFor("for the selection's return", [&] {
        return program.List().SelectedNames() == Texts{L"a.txt", L"b.zip", L"c.ZIP"};
    });
}

} // namespace
