// Screens: 240x320

// What the real menus let a person do, by what is selected and which pane has the keyboard.

#include "tests/support/ui_test.h"

namespace {

class MenuStateUi : public UiTest {
  protected:
    void SetUp() override {
        device.Folder(L"\\State\\Sub");
        device.File(L"\\State\\a.txt");
    }

    void ExpectEnabled(const std::vector<UINT>& commands) const {
        const Menu menu = program.SoftKeyMenu();
        for (const UINT command : commands)
            EXPECT_TRUE(menu.IsEnabled(command)) << command;
    }
    void ExpectGreyed(const std::vector<UINT>& commands) const {
        const Menu menu = program.SoftKeyMenu();
        for (const UINT command : commands)
            EXPECT_FALSE(menu.IsEnabled(command)) << command;
    }

    const std::vector<UINT> ofEntries = {IDM_FILE_SHORTCUT,   IDM_FILE_DELETE,       IDM_FILE_RENAME,
                                         IDM_MENU_PROPERTIES, IDM_TOOLBAR_CUT,       IDM_TOOLBAR_COPY,
                                         IDM_EDIT_COPY_NAME,  IDM_EDIT_COPY_PATH,    IDM_SENDTO_COPY_TO,
                                         IDM_SENDTO_MOVE_TO,  IDM_SENDTO_SHORTCUT_TO};
};

TEST_F(MenuStateUi, AnEntryEnablesWhatActsOnEntries) {
    program.Start(L"\\State");
    program.List().Select(L"a");
    program.WaitUntilIdle();
    ExpectEnabled(ofEntries);
    ExpectEnabled({IDM_FILE_OPEN, IDM_FILE_NEW_FOLDER});
    ExpectGreyed({IDM_TOOLBAR_PASTE, IDM_TOOLBAR_PASTE_SHORTCUT});
}

TEST_F(MenuStateUi, TheUpLevelEntryAloneCanOnlyBeOpened) {
    program.Start(L"\\State");
    program.List().Select(L"..");
    program.WaitUntilIdle();
    ExpectEnabled({IDM_FILE_OPEN});
    ExpectGreyed(ofEntries);
}

TEST_F(MenuStateUi, WithoutASelectionNothingActs) {
    program.Start(L"\\State");
    program.List().SelectNothing();
    program.WaitUntilIdle();
    ExpectGreyed({IDM_FILE_OPEN});
    ExpectGreyed(ofEntries);
    ExpectEnabled({IDM_FILE_NEW_FOLDER});
}

TEST_F(MenuStateUi, AmongSearchResultsNothingCanBeMade) {
    program.Start(L"\\State");
    program.Command(IDM_VIEW_ADDRESS_BAR);
    PressKey(VK_F6);
    program.AddressBar().SetText(L"File Search");
    PressKey(VK_RETURN);
    program.WaitForNames({}); // the bar's text alone would tell of the folder before it is shown
    ExpectGreyed({IDM_FILE_NEW_FOLDER, IDM_FILE_SHORTCUT, IDM_TOOLBAR_PASTE_SHORTCUT, IDM_SENDTO_ZIP});
}

TEST_F(MenuStateUi, AFolderOfTheTreeEnablesWhatActsOnFolders) {
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    program.Start(L"\\State");
    PressKey(VK_TAB);
    WaitFor("for the tree", [&] { return program.TreeHasFocus(); });
    ExpectEnabled(ofEntries);
    ExpectEnabled({IDM_FILE_OPEN});
}

TEST_F(MenuStateUi, InTheAddressBarTheClipboardIsTheTexts) {
    ShowAddressBar();
    program.Start(L"\\State");
    program.List().Select(L"a");
    PressKey(VK_F6);
    WaitFor("for the address bar's focus", [&] { return program.AddressBarHasFocus(); });
    ExpectEnabled({IDM_TOOLBAR_CUT, IDM_TOOLBAR_COPY});
    ExpectGreyed({IDM_FILE_DELETE, IDM_FILE_RENAME, IDM_FILE_OPEN, IDM_EDIT_COPY_NAME, IDM_SENDTO_COPY_TO});

    // Copying there copies text, and pasting pastes it.
    program.AddressBar().SetText(L"\\State\\Sub");
    Ask(program.Focus(), EM_SETSEL, 0, -1);
    program.Command(IDM_TOOLBAR_COPY);
    ExpectEnabled({IDM_TOOLBAR_PASTE});
    ExpectGreyed({IDM_TOOLBAR_PASTE_SHORTCUT});
    program.AddressBar().SetText(L"");
    program.Command(IDM_TOOLBAR_PASTE);
    EXPECT_EQ(program.AddressBar().Text(), L"\\State\\Sub");
    EXPECT_EQ(device.NamesIn(L"\\State"), (std::vector<std::wstring>{L"Sub", L"a.txt"}));
}

TEST_F(MenuStateUi, CheckMarksFollowTheSettingsAtStart) {
    device.WriteNumber(settingsKey, L"ShowStatusWnd", 0);
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    device.WriteWords(rebarKey, L"CmdBands", {1, 1});
    program.Start();
    const Menu menu = program.SoftKeyMenu();
    EXPECT_FALSE(menu.IsChecked(IDM_VIEW_STATUS_BAR));
    EXPECT_TRUE(menu.IsChecked(IDM_VIEW_FOLDER_TREE));
    EXPECT_TRUE(menu.IsChecked(IDM_VIEW_ADDRESS_BAR));
}

} // namespace
