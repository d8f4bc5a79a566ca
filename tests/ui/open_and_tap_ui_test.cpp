// Screens: 240x320

// What a tap, Enter or a typed path opens, and what a tap with a key held does instead.

#include <thread>

#include "tests/support/stand_in.h"
#include "tests/support/ui_test.h"

namespace {

constexpr UINT tapAndHold = 1000; // GN_CONTEXTMENU

class OpenAndTapUi : public UiTest {
  protected:
    void SetUp() override {
        device.SetOption(ListOption::ViewStyle, LVS_SMALLICON);
        device.File(L"\\T\\a.txt", "a");
        device.Folder(L"\\T\\Sub");
        device.Folder(L"\\T\\Two");
        device.File(L"\\T\\way.lnk", "8#\\Windows");
        device.File(L"\\T\\quoted.LNK", "18#\"\\My Documents\" /x");
        device.File(L"\\T\\lost.lnk", "8#\\Missing");
        program.Start(L"\\T");
        program.WaitForFolder(L"\\T");
    }

    void Open(const std::wstring& name) {
        program.List().Select(name);
        PressKey(VK_RETURN);
    }
    /// Tells the main window something in the list's name.
    LRESULT Notify(UINT code) {
        NMLISTVIEW notification{};
        notification.hdr.hwndFrom = program.List().Window();
        notification.hdr.code = code;
        RemoteMemory memory(program.Window(), sizeof(notification));
        memory.Write(&notification, sizeof(notification));
        return AskInside(program.Window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(memory.Address()));
    }
    void ExpectMenu() {
        program.WaitForMenu();
        program.CloseMenus();
    }
    void ExpectNothing() {
        EXPECT_TRUE(HoldsFor(400, [&] { return !program.MenuIsOpen() && program.Folder() == L"\\T"; }));
    }
};

TEST_F(OpenAndTapUi, AShortcutToAFolderShowsTheFolder) {
    Open(L"way");
    program.WaitForFolder(L"\\Windows");
    program.Command(IDM_TOOLBAR_BACK);
    program.WaitForFolder(L"\\T");
    Open(L"quoted");
    program.WaitForFolder(L"\\My Documents");
}

TEST_F(OpenAndTapUi, AShortcutThatLeadsNowhereLeavesTheListWhereItIs) {
    Open(L"lost");
    ExpectNothing();
    EXPECT_FALSE(program.HasMessageBox());
}

TEST_F(OpenAndTapUi, ATypedFileLeavesTheListWhereItIs) {
    program.AddressBar().SetText(L"\\T\\lost.lnk");
    program.PostCommand(IDM_TOOLBAR_GO_TO);
    WaitFor("for the address to be gone to", [&] { return program.ListHasFocus(); });
    EXPECT_TRUE(HoldsFor(400, [&] { return !program.HasMessageBox(); }));
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"Sub", L"Two", L"a", L"lost", L"quoted", L"way"}));
}

TEST_F(OpenAndTapUi, ATapWithAKeyHeldOnlySelects) {
    Tap(program.List().PointOf(L"Sub"), Ctrl);
    ExpectNothing();
    Tap(program.List().PointOf(L"Two"), Shift);
    ExpectNothing();
    Tap(program.List().PointOf(L"Sub"), Alt | Ctrl);
    ExpectNothing();
}

TEST_F(OpenAndTapUi, ATapOnASelectedEntryDoesNotOpenIt) {
    program.List().Select(L"Sub");
    Tap(program.List().PointOf(L"Sub"));
    ExpectNothing();
}

TEST_F(OpenAndTapUi, ATapWithAltAndTheRightButtonOpenTheMenu) {
    Tap(program.List().PointOf(L"Sub"), Alt);
    ExpectMenu();
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"Sub"}));
    RightClick(program.List().PointOf(L"Two"));
    ExpectMenu();
}

TEST_F(OpenAndTapUi, ATapThatEndsARangeDoesNotOpenButTheNextDoes) {
    Notify(LVN_MARQUEEBEGIN);
    Tap(program.List().PointOf(L"Sub"));
    ExpectNothing();
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"Sub"}));
    Tap(program.List().PointOf(L"Two"));
    program.WaitForFolder(L"\\T\\Two");
}

TEST_F(OpenAndTapUi, TheShellsTapAndHoldIsAnsweredWithOrWithoutAMenu) {
    program.List().Select(L"a");
    EXPECT_EQ(Notify(tapAndHold), 1);
    EXPECT_FALSE(program.MenuIsOpen()); // single files have none
    program.List().Select(L"Sub");
    LRESULT answer = 0;
    std::jthread shell([&] { answer = Notify(tapAndHold); });
    ExpectMenu();
    shell.join();
    EXPECT_EQ(answer, 1);
}

TEST_F(OpenAndTapUi, CtrlPressedUnderAltOpensTheMenu) {
    program.List().Select(L"Sub");
    PressKey(VK_CONTROL, Alt);
    ExpectMenu();
}

TEST_F(OpenAndTapUi, EnterWithAltShowsTheProperties) {
    program.List().Select(L"a");
    PressKey(VK_RETURN, Alt);
    program.WaitForDialog(L"Properties");
    PressKey(VK_ESCAPE);
    EXPECT_EQ(program.Folder(), L"\\T");
}

TEST_F(OpenAndTapUi, ADoubleTapOpens) {
    program.List().Select(L"Sub");
    DoubleTap(program.List().PointOf(L"Sub"));
    program.WaitForFolder(L"\\T\\Sub");
}

TEST_F(OpenAndTapUi, ShortcutsToShortcutsAreFollowed) {
    device.File(L"\\T\\first.lnk", "10#\\T\\way.lnk");
    device.File(L"\\T\\before.lnk", "14#\"\\T\\first.lnk\"");
    device.File(L"\\T\\top.lnk", "3#\"\\\"");
    program.Command(IDM_MENU_REFRESH);
    for (const wchar_t* name : {L"first", L"before"}) {
        Open(name);
        program.WaitForFolder(L"\\Windows");
        program.Command(IDM_TOOLBAR_BACK);
        program.WaitForFolder(L"\\T");
    }
    Open(L"top");
    program.WaitForFolder(L"My PocketPC");
    EXPECT_TRUE(program.List().Has(L"My Documents"));
}

TEST_F(OpenAndTapUi, AShortcutToAShortcutStartsItsProgram) {
    StandIn tool(L"\\T\\tool.exe");
    device.File(L"\\T\\inner.lnk", "18#\\T\\tool.exe inner");
    device.File(L"\\T\\plain.lnk", "12#\\T\\inner.lnk");
    device.File(L"\\T\\outer.lnk", "18#\\T\\inner.lnk outer");
    program.Command(IDM_MENU_REFRESH);
    Open(L"plain");
    EXPECT_TRUE(Eventually([&] { return tool.Starts() == Texts{L"inner"}; }));
    Open(L"outer");
    EXPECT_TRUE(Eventually([&] { return tool.Starts() == Texts{L"inner", L"outer"}; }));
}

TEST_F(OpenAndTapUi, ShortcutsThatLeadRoundInACircleLeadNowhere) {
    device.File(L"\\T\\one.lnk", "10#\\T\\two.lnk");
    device.File(L"\\T\\two.lnk", "10#\\T\\one.lnk");
    program.Command(IDM_MENU_REFRESH);
    Open(L"one");
    ExpectNothing();
    EXPECT_FALSE(program.HasMessageBox());
}

TEST_F(OpenAndTapUi, AFileWhoseCommandLacksAQuoteIsRefusedAtOnce) {
    device.WriteText(L"HKCR\\.odd", L"", L"oddfile");
    device.WriteText(L"HKCR\\oddfile\\Shell\\Open\\Command", L"", L"\"E:\\Windows\\odd.exe %1");
    device.File(L"\\T\\file.odd");
    program.Command(IDM_MENU_REFRESH);
    Open(L"file");
    ExpectMessage(L"This file cannot be opened: the command for files of its kind lacks a quotation mark.");
    EXPECT_TRUE(Answers(program.Window()));
}

} // namespace
