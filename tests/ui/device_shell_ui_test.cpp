// Screens: 240x320 320x240 176x220

// The phone's shell around the program: the title strip, the soft keys and their menus, the Back key, and the
// place that is left for the program between them.

#include <algorithm>
#include <array>

#include "platform/ce_types.h"
#include "tests/support/other_program.h"
#include "tests/support/soft_keys.h"
#include "tests/support/ui_test.h"

namespace {

class DeviceShellUi : public UiTest {
  protected:
    HWND TitleStrip() const {
        for (HWND window : TopWindowsOf(program.ProcessId()))
            if (ClassOf(window) == L"title_strip")
                return window;
        throw std::runtime_error("there is no title strip");
    }
    HWND SoftKeyBar() const { return SoftKeyBarOf(program.Window()); }

    POINT LeftSoftKey() const { return {width / 4, MiddleOf(PlaceOf(SoftKeyBar())).y}; }
    POINT RightSoftKey() const { return {width * 3 / 4, MiddleOf(PlaceOf(SoftKeyBar())).y}; }

    /// The popup menus on the screen, in no order.
    std::vector<RECT> Popups() const {
        std::vector<RECT> places;
        for (HWND window : TopWindowsOf(program.ProcessId()))
            if (ClassOf(window) == L"#32768" && IsWindowVisible(window))
                places.push_back(PlaceOf(window));
        return places;
    }
    bool PopupsBecome(std::size_t count) const {
        return Eventually([&] { return Popups().size() == count; });
    }

    void CloseMenus() const {
        Ask(program.Window(), WM_CANCELMODE);
        EXPECT_TRUE(PopupsBecome(0));
    }

    void ShowTree() { device.WriteNumber(settingsKey, L"ShowFolder", 1); }

    /// A message box by the hook that testers left: a second button's click on the gap between the panes.
    void OpenMessageBox() {
        const RECT list = PlaceOf(program.List().Window());
        const RECT tree = PlaceOf(program.Tree().Window());
        RightClick(tree.right < list.left ? POINT{(tree.right + list.left) / 2, (list.top + list.bottom) / 2}
                                          : POINT{width / 2, (tree.bottom + list.top) / 2});
        program.WaitForMessageBox();
    }
    HWND MessageBoxWindow() const { return MessageBoxesOf(program.ProcessId()).front(); }

    void ExpectFrame() const {
        const LONG left = height == 220 ? 185 : height - 2 * (GetSystemMetrics(SM_CYMENU) + 3);
        const RECT strip = PlaceOf(TitleStrip());
        const RECT bar = PlaceOf(SoftKeyBar());
        const RECT window = PlaceOf(program.Window());
        EXPECT_EQ(strip.left, 0);
        EXPECT_EQ(strip.top, 0);
        EXPECT_EQ(strip.right, width);
        EXPECT_EQ(bar.left, 0);
        EXPECT_EQ(bar.right, width);
        EXPECT_EQ(bar.bottom, height);
        EXPECT_EQ(window.left, 0);
        EXPECT_EQ(window.right, width);
        EXPECT_EQ(window.top, strip.bottom);
        EXPECT_EQ(window.bottom, bar.top);
        EXPECT_EQ(window.bottom - window.top, left);
    }

    const LONG width = GetSystemMetrics(SM_CXSCREEN);
    const LONG height = GetSystemMetrics(SM_CYSCREEN);
};

// --- Places ---

TEST_F(DeviceShellUi, TheProgramFillsAllBetweenTheStripAndTheSoftKeys) {
    program.Start();
    ExpectFrame();
}

TEST_F(DeviceShellUi, TheProgramFillsNoMoreWhenItIsMaximised) {
    device.WriteNumber(settingsKey, L"OverLapped", 1);
    program.Start();
    EXPECT_TRUE(Eventually([&] { return IsZoomed(program.Window()); }));
    ExpectFrame();
}

TEST_F(DeviceShellUi, TheStripShowsTheProgramsTitle) {
    program.Start();
    EXPECT_EQ(TextOf(TitleStrip()), L"Tarvik File Manager");
    EXPECT_TRUE(IsWindowVisible(TitleStrip()));
}

TEST_F(DeviceShellUi, StripAndSoftKeysComeForwardWithTheProgram) {
    program.Start();
    const POINT onStrip = MiddleOf(PlaceOf(TitleStrip()));
    const POINT onBar = MiddleOf(PlaceOf(SoftKeyBar()));
    const OtherProgram other;
    SetWindowPos(other.Window(), HWND_TOP, 0, 0, width, height, SWP_NOACTIVATE);
    EXPECT_EQ(WindowFromPoint(onStrip), other.Window());
    EXPECT_EQ(Program::StartAgain(), 0u);
    EXPECT_TRUE(Eventually([&] { return WindowFromPoint(onStrip) == TitleStrip(); }));
    EXPECT_TRUE(Eventually([&] { return WindowFromPoint(onBar) == SoftKeyBar(); }));
}

// --- The soft keys ---

TEST_F(DeviceShellUi, F10AndTheMenuKeyOpenTheMenuUpwardAndCloseIt) {
    program.Start();
    for (const WORD key : {VK_F10, VK_APPS}) {
        PressKey(key);
        ASSERT_TRUE(PopupsBecome(1)) << key;
        const RECT menu = Popups().front();
        EXPECT_EQ(menu.right, width);
        EXPECT_EQ(menu.bottom, PlaceOf(SoftKeyBar()).top);
        EXPECT_TRUE(LiesWithin(menu, PlaceOf(program.Window())));
        PressKey(key);
        EXPECT_TRUE(PopupsBecome(0)) << key;
    }
}

TEST_F(DeviceShellUi, AClickOnTheRightSoftKeyOpensTheMenuAndClosesIt) {
    program.Start();
    Tap(RightSoftKey());
    EXPECT_TRUE(PopupsBecome(1));
    Tap(RightSoftKey());
    EXPECT_TRUE(PopupsBecome(0));
    EXPECT_TRUE(program.ListHasFocus());
}

TEST_F(DeviceShellUi, F1AndAClickAreTheLeftSoftKey) {
    ShowTree();
    program.Start();
    PressLeftSoftKey();
    EXPECT_TRUE(Eventually([&] { return program.TreeHasFocus(); }));
    Tap(LeftSoftKey());
    EXPECT_TRUE(Eventually([&] { return program.ListHasFocus(); }));
}

TEST_F(DeviceShellUi, APressThatLeavesTheSoftKeyDoesNothing) {
    ShowTree();
    program.Start();
    PostMessageW(SoftKeyBar(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(width / 4, 5));
    PostMessageW(SoftKeyBar(), WM_LBUTTONUP, 0, MAKELPARAM(width * 3 / 4, 5));
    EXPECT_TRUE(HoldsFor(300, [&] { return program.ListHasFocus() && Popups().empty(); }));
}

TEST_F(DeviceShellUi, F2IsNoSoftKey) {
    ShowTree();
    program.Start();
    PressKey(VK_F2);
    EXPECT_TRUE(HoldsFor(300, [&] { return Popups().empty() && !program.TreeHasFocus(); }));
}

// --- Menus ---

TEST_F(DeviceShellUi, DigitsPickEntriesByTheirNumber) {
    program.Start();
    ASSERT_FALSE(program.TreeIsShown());
    PressRightSoftKey();
    ASSERT_TRUE(PopupsBecome(1));
    TypeText(L"4"); // View
    ASSERT_TRUE(PopupsBecome(2));
    TypeText(L"4"); // Folder Tree
    EXPECT_TRUE(Eventually([&] { return program.TreeIsShown(); }));
    EXPECT_TRUE(PopupsBecome(0));
}

TEST_F(DeviceShellUi, MenusInMenusStayBetweenTheBars) {
    program.Start();
    PressRightSoftKey();
    ASSERT_TRUE(PopupsBecome(1));
    TypeText(L"4"); // View
    ASSERT_TRUE(PopupsBecome(2));
    TypeText(L"1"); // View Style
    ASSERT_TRUE(PopupsBecome(3));
    for (const RECT& popup : Popups())
        EXPECT_TRUE(LiesWithin(popup, PlaceOf(program.Window())));
    CloseMenus();
}

TEST_F(DeviceShellUi, BackClosesTheInnermostMenu) {
    program.Start();
    PressRightSoftKey();
    ASSERT_TRUE(PopupsBecome(1));
    TypeText(L"4"); // View
    ASSERT_TRUE(PopupsBecome(2));
    PressBack();
    EXPECT_TRUE(PopupsBecome(1));
    PressBack();
    EXPECT_TRUE(PopupsBecome(0));
    EXPECT_TRUE(program.ListHasFocus());
}

// --- Windows in front ---

TEST_F(DeviceShellUi, AMessageBoxBringsItsTitleAndItsSoftKeys) {
    ShowTree();
    program.Start();
    OpenMessageBox();
    const HWND box = MessageBoxWindow();
    EXPECT_EQ(SoftKeyTexts(box), (Texts{L"OK"}));
    EXPECT_TRUE(Eventually([&] { return TextOf(TitleStrip()) == L"TEST"; }));

    const RECT place = PlaceOf(box);
    const RECT window = PlaceOf(program.Window());
    EXPECT_TRUE(LiesWithin(place, window));
    EXPECT_NEAR(MiddleOf(place).x, MiddleOf(window).x, 1);
    EXPECT_NEAR(MiddleOf(place).y, MiddleOf(window).y, 1);
    PressLeftSoftKey();
    EXPECT_TRUE(Eventually([&] { return !program.HasMessageBox(); }));
}

TEST_F(DeviceShellUi, TheProgramsSoftKeysComeBackAfterAMessageBox) {
    ShowTree();
    program.Start();
    OpenMessageBox();
    PressBack();
    ASSERT_TRUE(Eventually([&] { return !program.HasMessageBox(); }));
    EXPECT_TRUE(Eventually([&] { return TextOf(TitleStrip()) == L"Tarvik File Manager"; }));
    EXPECT_TRUE(Eventually([&] { return program.ListHasFocus(); }));
    PressLeftSoftKey();
    EXPECT_TRUE(Eventually([&] { return program.TreeHasFocus(); }));
    PressRightSoftKey();
    EXPECT_TRUE(PopupsBecome(1));
    CloseMenus();
}

// --- Messages from other processes ---

TEST_F(DeviceShellUi, SenselessMessagesHarmNoBar) {
    program.Start();
    constexpr std::array<UINT, 6> barMessages{SHCMBM_SETSUBMENU, SHCMBM_GETSUBMENU, SHCMBM_OVERRIDEKEY,
                                              TB_SETSTATE,       TB_GETBUTTON,      TB_GETBUTTONTEXTW};
    for (const WPARAM wParam : {WPARAM{0}, WPARAM{99}, WPARAM{0x7FFFFFFF}})
        for (const UINT message : barMessages)
            Ask(SoftKeyBar(), message, wParam, 0x12345678);
    Ask(SoftKeyBar(), WM_APP + 1, 77); // a key that it does not have
    for (HWND bar : {SoftKeyBar(), TitleStrip()}) {
        Ask(bar, WM_CLOSE);
        Ask(bar, WM_SYSCOMMAND, SC_MINIMIZE);
        Ask(bar, WM_SYSCOMMAND, SC_MAXIMIZE);
        Ask(bar, WM_ACTIVATE, WA_ACTIVE);
    }
    program.WaitUntilIdle();
    ExpectFrame();
    EXPECT_EQ(program.SoftKeys(), (Texts{L"Change View", L"Menu"}));
}

TEST_F(DeviceShellUi, AnOverlongTitleIsCut) {
    program.Start();
    const std::wstring title(2000, L'W');
    Ask(program.Window(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(title.c_str()));
    program.WaitUntilIdle();
    EXPECT_EQ(TextOf(TitleStrip()), title.substr(0, 259));
    ExpectFrame();
}

} // namespace
