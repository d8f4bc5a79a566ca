// Screens: 240x320

// The main window's own messages and commands: focus, sticky keys, refresh, the odd ones.

#include "tests/support/stand_in.h"
#include "tests/support/ui_test.h"
#include "tests/ui/folder_changes.h"

namespace {

class MainWindowUi : public UiTest {
  protected:
    void StartWithTree() {
        device.WriteNumber(settingsKey, L"ShowFolder", 1);
        program.Start();
    }
    void PressUntilTreeHasFocus(WORD key, unsigned modifiers = NoModifier) {
        PressKey(key, modifiers);
        WaitFor("for the tree", [&] { return program.TreeHasFocus(); });
    }
    void PressUntilListHasFocus(WORD key, unsigned modifiers = NoModifier) {
        PressKey(key, modifiers);
        WaitFor("for the list", [&] { return program.ListHasFocus(); });
    }
    void PressUntilAddressHasFocus(WORD key, unsigned modifiers = NoModifier) {
        PressKey(key, modifiers);
        WaitFor("for the address bar", [&] { return program.AddressBarHasFocus(); });
    }
};

// --- Focus ---

TEST_F(MainWindowUi, TheLeftSoftKeyChangesBetweenTheShownPanes) {
    StartWithTree();
    PressUntilTreeHasFocus(VK_F1);
    PressUntilListHasFocus(VK_F1);
}

TEST_F(MainWindowUi, TabGoesFromTheListToTheTreeAndBack) {
    StartWithTree();
    PressUntilTreeHasFocus(VK_TAB);
    PressUntilListHasFocus(VK_TAB);
    PressUntilTreeHasFocus(VK_TAB, Shift);
    PressUntilListHasFocus(VK_TAB, Shift);
}

TEST_F(MainWindowUi, TabTakesTheAddressBarOnItsWay) {
    ShowAddressBar();
    StartWithTree();
    PressUntilAddressHasFocus(VK_TAB);
    PressUntilTreeHasFocus(VK_TAB);
    PressUntilListHasFocus(VK_TAB);
    PressUntilTreeHasFocus(VK_TAB, Shift);
    PressUntilAddressHasFocus(VK_TAB, Shift);
    PressUntilListHasFocus(VK_TAB, Shift);
}

TEST_F(MainWindowUi, WithoutTreeTabReturnsFromTheAddressBarToTheList) {
    ShowAddressBar();
    program.Start();
    PressUntilAddressHasFocus(VK_TAB);
    PressUntilListHasFocus(VK_TAB);
    PressUntilAddressHasFocus(VK_TAB, Shift);
    PressUntilListHasFocus(VK_TAB, Shift);
}

TEST_F(MainWindowUi, TabFromTheListGoesToTheTreeEvenWhenThatIsHidden) {
    program.Start();
    program.Command(IDM_FOCUS_NEXT);
    EXPECT_TRUE(program.TreeHasFocus());
    EXPECT_FALSE(program.TreeIsShown());
    program.Command(IDM_FOCUS_NEXT);
    EXPECT_TRUE(program.ListHasFocus());
}

TEST_F(MainWindowUi, TheFocusReturnsToThePaneThatHadIt) {
    StartWithTree();
    PressUntilTreeHasFocus(VK_TAB);
    Ask(program.Window(), WM_ACTIVATE, WA_INACTIVE);
    Ask(program.Window(), WM_ACTIVATE, WA_ACTIVE);
    EXPECT_TRUE(program.TreeHasFocus());
}

// --- Sticky keys ---

TEST_F(MainWindowUi, AStickyKeyIsDownUntilItIsChosenAgainAndReleasesTheOther) {
    program.Start();
    const auto isDown = [](int key) { return GetAsyncKeyState(key) < 0; };

    program.Command(IDM_KEY_CTRL);
    EXPECT_TRUE(HoldsWithin(1000, [&] { return isDown(VK_CONTROL); }));
    program.Command(IDM_KEY_SHIFT);
    EXPECT_TRUE(HoldsWithin(1000, [&] { return !isDown(VK_CONTROL) && isDown(VK_SHIFT); }));
    program.Command(IDM_KEY_SHIFT);
    EXPECT_TRUE(HoldsWithin(1000, [&] { return !isDown(VK_CONTROL) && !isDown(VK_SHIFT); }));
}

TEST_F(MainWindowUi, AStickyKeyIsLetGoWhenTheProgramEnds) {
    const auto isDown = [](int key) { return GetAsyncKeyState(key) < 0; };
    for (const auto& [command, key] : {std::pair{IDM_KEY_CTRL, VK_CONTROL}, {IDM_KEY_SHIFT, VK_SHIFT}}) {
        program.Start();
        program.Command(command);
        EXPECT_TRUE(HoldsWithin(1000, [&] { return isDown(key); }));
        program.Close();
        EXPECT_TRUE(HoldsWithin(1000, [&] { return !isDown(key); }));
    }
}

// --- Refresh ---

TEST_F(MainWindowUi, RefreshShowsWhatOthersDid) {
    StartWithTree();
    device.Folder(L"\\Made by others");
    program.Command(IDM_MENU_REFRESH);
    EXPECT_TRUE(program.List().Has(L"Made by others"));
    EXPECT_TRUE(program.Tree().Has(L"\\Made by others"));
}

TEST_F(MainWindowUi, RefreshGoesWhereTheAddressBarSays) {
    program.Start();
    program.AddressBar().SetText(L"\\Windows");
    program.Command(IDM_MENU_REFRESH);
    EXPECT_EQ(program.Folder(), L"\\Windows");
}

TEST_F(MainWindowUi, ABurstOfChangesGivesOneRefreshTwoSecondsAfterTheLast) {
    program.Start(L"\\Temp");
    device.File(L"\\Temp\\new.txt");
    ULONGLONG last = 0;
    for (int notice = 0; notice < 10; ++notice) {
        PostMessageW(program.Window(), folderChanged, 0, 0);
        last = GetTickCount64();
        EXPECT_TRUE(HoldsFor(90, [&] { return !program.List().Has(L"new"); }));
    }
    WaitFor("for the refresh", [&] { return program.List().Has(L"new"); });
    EXPECT_GE(GetTickCount64() - last, static_cast<ULONGLONG>(refreshDelay - 100));

    // Nothing more comes of it.
    device.File(L"\\Temp\\later.txt");
    EXPECT_TRUE(HoldsFor(refreshDelay + 300, [&] { return !program.List().Has(L"later"); }));
}

TEST_F(MainWindowUi, ARemovedCardMovesTheListToTheNearestFolderThatIsThere) {
    device.StorageCard("Card", {"Photos/Summer/a.txt"});
    program.Start(L"\\Card\\Photos\\Summer");
    device.RemoveStorageCard("Card");
    Ask(program.Window(), WM_DEVICECHANGE);
    program.WaitForFolder(L"My PocketPC");
    EXPECT_FALSE(program.List().Has(L"Card"));
}

TEST_F(MainWindowUi, ADeviceChangeElsewhereRefreshesOnlyTheTree) {
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    program.Start(L"\\Temp");
    device.File(L"\\Temp\\new.txt");
    device.StorageCard("Card");
    Ask(program.Window(), WM_DEVICECHANGE);
    WaitFor("for the card in the tree", [&] { return program.Tree().Has(L"\\Card"); });
    program.WaitUntilIdle();
    EXPECT_FALSE(program.List().Has(L"new"));
}

TEST_F(MainWindowUi, ADeviceChangeAtTheTopShowsTheCard) {
    program.Start();
    device.StorageCard("Card");
    Ask(program.Window(), WM_DEVICECHANGE);
    WaitFor("for the card", [&] { return program.List().Has(L"Card"); });
}

// --- The odd ones ---

TEST_F(MainWindowUi, TheTestersHookStillAnswers) {
    program.Start();
    PostMessageW(program.Window(), WM_RBUTTONDOWN, 0, 0);
    MessageBoxShown box = program.WaitForMessageBox();
    EXPECT_EQ(box.Text(), L"CLICK");
    EXPECT_EQ(box.Caption(), L"TEST");
    box.Answer(IDOK);
}

TEST_F(MainWindowUi, AMissingManualIsReported) {
    if (const std::wstring manual = L"\\Windows\\File Manager_user_manual.htm"; device.Exists(manual))
        device.Remove(manual);
    program.Start();
    program.PostCommand(IDM_HELP_USER_MANUAL);
    MessageBoxShown box = program.WaitForMessageBox();
    EXPECT_EQ(box.Text(), L"If you can't open user manual, please open it under installation directory.");
    EXPECT_EQ(box.Caption(), L"Prompt");
    box.Answer(IDOK);
}

TEST_F(MainWindowUi, TheManualOpensInWhatShowsPages) {
    device.File(L"\\Windows\\File Manager_user_manual.htm", "<html></html>");
    const StandIn browser(L"\\Windows\\pages.exe");
    device.WriteText(L"HKCR\\.htm", L"", L"testpage");
    device.WriteText(L"HKCR\\testpage\\shell\\open\\command", L"", L"\"E:\\Windows\\pages.exe\" \"%1\" %*");
    program.Start();
    program.Command(IDM_HELP_USER_MANUAL);
    const Texts starts{L"\"E:\\Windows\\File Manager_user_manual.htm\" \\Windows\\iexplore.exe"};
    EXPECT_TRUE(Eventually([&] { return browser.Starts() == starts; }));
    EXPECT_EQ(browser.Starts(), starts);
    EXPECT_FALSE(program.HasMessageBox());
}

TEST_F(MainWindowUi, CommandsNobodyKnowsDoNothing) {
    program.Start();
    const Texts names = program.List().Names();
    for (const UINT command : {0u, 1u, 12345u, 50015u, 50016u, 50115u, 50116u, 51500u, 65535u})
        program.Command(command);
    EXPECT_EQ(program.List().Names(), names);
    EXPECT_FALSE(program.HasMessageBox());
    EXPECT_FALSE(program.HasDialog());
}

TEST_F(MainWindowUi, DragAndDropIsToggledAndKept) {
    program.Start();
    program.Command(IDM_VIEW_DRAG_DROP);
    program.Close();
    EXPECT_EQ(device.NumberValue(settingsKey, L"DragDrop"), 0u);
}

TEST_F(MainWindowUi, HidingTheToolBarClearsItsWord) {
    device.WriteWords(rebarKey, L"CmdBands", {1, 1});
    program.Start();
    program.Command(IDM_TOOLBAR_HIDE);
    program.Close();
    EXPECT_EQ(device.Value(rebarKey, L"CmdBands").AsWords().at(0), 0u);
}

// --- Keys of the list that reach commands ---

TEST_F(MainWindowUi, CtrlAndFunctionKeysReachTheirCommands) {
    program.Start();
    PressKey('A', Ctrl);
    WaitFor("for all", [&] { return program.List().SelectedNames().size() == 5; });
    PressKey('L', Ctrl);
    WaitFor("for the next style", [&] { return program.List().ViewStyle() == LVS_SMALLICON; });
    device.Folder(L"\\Made by others");
    PressKey(VK_F5);
    WaitFor("for the new folder", [&] { return program.List().Has(L"Made by others"); });
    device.Folder(L"\\Another");
    PressKey('R', Ctrl);
    WaitFor("for the other", [&] { return program.List().Has(L"Another"); });
    PressKey('Q', Ctrl);
    program.WaitForEnd();
    EXPECT_EQ(program.ExitCode(), 0u);
}

} // namespace
