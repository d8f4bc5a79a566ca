#include "app/menu_state.h"

#include <gtest/gtest.h>

#include "app/app_state.h"
#include "resources/resource.h"

namespace {

/// Stands in for the soft keys: the bar's one duty here is to give out its menu.
HMENU softKeyMenu = nullptr;

LRESULT CALLBACK BarProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == SHCMBM_GETSUBMENU && wParam == 0 && lParam == IDM_SOFTKEY_MENU)
        return reinterpret_cast<LRESULT>(softKeyMenu);
    return DefWindowProcW(window, message, wParam, lParam);
}

/// The real menus without the program's windows.
class MenuState : public testing::Test {
  protected:
    MenuState() {
        softKeyMenu = GetSubMenu(menu_.Get(), 0);
        appState.menuBar = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                           GetModuleHandleW(nullptr), nullptr);
        SetWindowLongPtrW(appState.menuBar, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(BarProcedure));
    }

    ~MenuState() override {
        UpdatePasteItems(false, true);
        DestroyWindow(appState.menuBar);
        appState.menuBar = nullptr;
        softKeyMenu = nullptr;
    }

    static bool IsIn(HMENU menu, int command, UINT state) {
        const UINT found = GetMenuState(menu, static_cast<UINT>(command), MF_BYCOMMAND);
        EXPECT_NE(found, static_cast<UINT>(-1)) << "not in the menu: " << command;
        return (found & state) != 0;
    }

    static bool Enabled(int command) { return !IsIn(softKeyMenu, command, MF_GRAYED); }
    static bool Checked(int command) { return IsIn(softKeyMenu, command, MF_CHECKED); }

    MenuHandle menu_{LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_MENU_MAIN))};
};

TEST_F(MenuState, GreysEntryCommandsDeepInTheMenu) {
    ASSERT_TRUE(softKeyMenu);
    UpdateMenuState();
    for (int command : {IDM_FILE_OPEN, IDM_FILE_DELETE, IDM_EDIT_COPY_PATH, IDM_SENDTO_ZIP, IDM_TOOLBAR_CUT,
                        IDM_MENU_PROPERTIES, IDM_FILE_EXTRACT_HERE})
        EXPECT_FALSE(Enabled(command)) << command;
    for (int command : {IDM_FILE_NEW_FOLDER, IDM_MENU_EXIT, IDM_MENU_REFRESH, IDM_VIEW_OPTIONS})
        EXPECT_TRUE(Enabled(command)) << command;
}

TEST_F(MenuState, ReachesTheBuiltSendToEntries) {
    for (int entry = 0; entry < BUILT_ENTRY_LIMIT; ++entry)
        AppendMenuW(softKeyMenu, MF_STRING, static_cast<UINT_PTR>(IDM_SENDTO_FIRST + entry), L"Application");
    UpdateMenuState();
    for (int entry = 0; entry < BUILT_ENTRY_LIMIT; ++entry)
        EXPECT_FALSE(Enabled(IDM_SENDTO_FIRST + entry)) << entry;
}

TEST_F(MenuState, AppliesToAContextMenuToo) {
    const MenuHandle menus(LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_MENU_LIST)));
    HMENU popup = GetSubMenu(menus.Get(), POPUP_ARCHIVE_FILE);
    ApplyMenuState(popup);
    EXPECT_TRUE(IsIn(popup, IDM_SENDTO_IR, MF_GRAYED));
    EXPECT_TRUE(IsIn(popup, IDM_OPEN_CHOOSE_PROGRAM, MF_GRAYED));
    EXPECT_FALSE(IsIn(popup, IDM_EDIT_SELECT_ALL, MF_GRAYED));
}

TEST_F(MenuState, MarksTheSettings) {
    appState.settings.showStatusBar = 1;
    appState.settings.showFolderTree = 0;
    appState.commandBands.addressBarShown = 1;
    appState.fileList.options.sortKey = 3;
    appState.fileList.options.ascending = 0;
    appState.fileList.options.viewStyle = 1;
    appState.fileList.options.extendedStyle = 0x20;
    RefreshCheckMarks();
    EXPECT_TRUE(Checked(IDM_VIEW_STATUS_BAR));
    EXPECT_FALSE(Checked(IDM_VIEW_FOLDER_TREE));
    EXPECT_TRUE(Checked(IDM_VIEW_ADDRESS_BAR));
    EXPECT_TRUE(Checked(IDM_ARRANGE_DATE));
    EXPECT_FALSE(Checked(IDM_ARRANGE_NAME));
    EXPECT_TRUE(Checked(IDM_ARRANGE_REVERSE));
    EXPECT_TRUE(Checked(IDM_VIEW_DETAILED_LINE));
    EXPECT_FALSE(Checked(IDM_VIEW_DETAILED));

    appState.commandBands = {};
    appState.fileList.options = {};
    RefreshCheckMarks();
    EXPECT_FALSE(Checked(IDM_VIEW_ADDRESS_BAR));
    EXPECT_TRUE(Checked(IDM_ARRANGE_NAME));
    EXPECT_TRUE(Checked(IDM_VIEW_LARGE));
}

TEST_F(MenuState, FollowsTheNavigation) {
    UpdateNavigationItems(true, false, true);
    EXPECT_TRUE(Enabled(IDM_TOOLBAR_UP_FOLDER));
    EXPECT_FALSE(Enabled(IDM_TOOLBAR_BACK));
    EXPECT_TRUE(Enabled(IDM_TOOLBAR_FORWARD));
    UpdateNavigationItems(false, true, false);
    EXPECT_FALSE(Enabled(IDM_TOOLBAR_UP_FOLDER));
    EXPECT_TRUE(Enabled(IDM_TOOLBAR_BACK));
    EXPECT_FALSE(Enabled(IDM_TOOLBAR_FORWARD));
}

TEST_F(MenuState, PastesWhatTheListsClipboardHolds) {
    UpdatePasteItems(false, true);
    EXPECT_FALSE(Enabled(IDM_TOOLBAR_PASTE));
    EXPECT_FALSE(Enabled(IDM_TOOLBAR_PASTE_SHORTCUT));
    UpdatePasteItems(true, false);
    EXPECT_TRUE(Enabled(IDM_TOOLBAR_PASTE));
    EXPECT_FALSE(Enabled(IDM_TOOLBAR_PASTE_SHORTCUT)) << "left as it was";
    UpdateMenuState();
    EXPECT_FALSE(Enabled(IDM_TOOLBAR_PASTE)) << "that was a text; the list has nothing to paste";
    UpdatePasteItems(true, true);
    UpdateMenuState();
    EXPECT_TRUE(Enabled(IDM_TOOLBAR_PASTE));
    EXPECT_TRUE(Enabled(IDM_TOOLBAR_PASTE_SHORTCUT));
}

} // namespace
