// Screens: 240x320 320x240 176x220

// Where the panes and bars lie, by the numbers from the live windows.

#include "tests/support/ui_test.h"

namespace {

struct Place {
    LONG x, y, width, height;
    bool operator==(const Place&) const = default;
};

void PrintTo(const Place& place, std::ostream* out) {
    *out << "(" << place.x << ", " << place.y << ") " << place.width << "x" << place.height;
}

class PaneLayoutUi : public UiTest {
  protected:
    /// A window's place in the main window.
    Place PlaceIn(HWND window) const {
        RECT rect = PlaceOf(window);
        MapWindowPoints(nullptr, program.Window(), reinterpret_cast<POINT*>(&rect), 2);
        return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
    }
    Place ListPlace() const { return PlaceIn(program.List().Window()); }
    Place TreePlace() const { return PlaceIn(program.Tree().Window()); }
    Place StatusPlace() const { return PlaceIn(program.Status().Window()); }
    LONG StatusHeight() const { return StatusPlace().height; }
    /// The bar with the address combo at the window's top.
    Place AddressPlace() const { return PlaceIn(GetParent(program.AddressBar().Window())); }

    void StartWith(std::uint32_t addressBar, std::uint32_t statusBar, std::uint32_t tree,
                   std::uint32_t side) {
        device.WriteWords(rebarKey, L"CmdBands", {0, addressBar});
        device.WriteNumber(settingsKey, L"ShowStatusWnd", statusBar);
        device.WriteNumber(settingsKey, L"ShowFolder", tree);
        device.WriteNumber(settingsKey, L"ViewSide", side);
        device.WriteNumber(settingsKey, L"TreeViewWidth", treeWidth);
        device.WriteNumber(settingsKey, L"TreeViewHeight", treeHeight);
        program.Start();
    }

    /// A point of the gap between the panes, on the screen.
    POINT GapPoint() const {
        const RECT list = PlaceOf(program.List().Window());
        const RECT tree = PlaceOf(program.Tree().Window());
        if (tree.right < list.left)
            return {(tree.right + list.left) / 2, (list.top + list.bottom) / 2};
        return {(list.left + list.right) / 2, (tree.bottom + list.top) / 2};
    }

    static constexpr LONG treeWidth = 70;
    static constexpr LONG treeHeight = 60;

    const LONG width = GetSystemMetrics(SM_CXSCREEN);
    const LONG height = GetSystemMetrics(SM_CYSCREEN) == 220
                            ? 185
                            : GetSystemMetrics(SM_CYSCREEN) - 2 * (GetSystemMetrics(SM_CYMENU) + 3);
};

TEST_F(PaneLayoutUi, TheListFillsTheWindowAboveTheStatusBar) {
    StartWith(0, 1, 0, 0);
    EXPECT_FALSE(program.TreeIsShown());
    EXPECT_EQ(ListPlace(), (Place{0, 0, width, height - StatusHeight()}));
    EXPECT_EQ(StatusPlace(), (Place{0, height - StatusHeight(), width, StatusHeight()}));
}

TEST_F(PaneLayoutUi, WithoutAnyBarThePaneAreaIsOnePixelTaller) {
    StartWith(0, 0, 0, 0);
    EXPECT_FALSE(program.Status().IsShown());
    EXPECT_EQ(ListPlace(), (Place{0, 0, width, height + 1}));
}

TEST_F(PaneLayoutUi, StacksTheTreeAboveTheListWithAGapOfFour) {
    StartWith(0, 1, 1, 0);
    const LONG paneHeight = height - StatusHeight();
    EXPECT_EQ(TreePlace(), (Place{0, 0, width, treeHeight}));
    EXPECT_EQ(ListPlace(), (Place{0, treeHeight + 4, width, paneHeight - treeHeight - 4}));
}

TEST_F(PaneLayoutUi, PutsTheTreeLeftOfTheListWithAGapOfFour) {
    StartWith(0, 1, 1, 1);
    const LONG paneHeight = height - StatusHeight();
    EXPECT_EQ(TreePlace(), (Place{0, 0, treeWidth, paneHeight}));
    EXPECT_EQ(ListPlace(), (Place{treeWidth + 4, 0, width - treeWidth - 4, paneHeight}));
}

TEST_F(PaneLayoutUi, LaysOutSideBySideForAnySideButNought) {
    StartWith(0, 0, 1, 2);
    EXPECT_EQ(TreePlace(), (Place{0, 0, treeWidth, height + 1}));
    EXPECT_EQ(ListPlace(), (Place{treeWidth + 4, 0, width - treeWidth - 4, height + 1}));
}

TEST_F(PaneLayoutUi, TheAddressBarTakesTheTopAndThePanesReachTwoPixelsUnderIt) {
    StartWith(1, 1, 0, 0);
    const LONG bar = AddressPlace().height;
    EXPECT_TRUE(program.AddressBarIsShown());
    EXPECT_EQ(AddressPlace(), (Place{0, 0, width, bar}));
    EXPECT_EQ(ListPlace(), (Place{0, bar - 2, width, height - bar - StatusHeight() + 2}));
}

TEST_F(PaneLayoutUi, TheAddressBarAloneTakesItsOwnHeight) {
    StartWith(1, 0, 0, 0);
    const LONG bar = AddressPlace().height;
    EXPECT_EQ(ListPlace(), (Place{0, bar - 2, width, height - bar + 2}));
}

TEST_F(PaneLayoutUi, StackedUnderTheAddressBarTheTreeKeepsItsHeightAndTheGapItsFourPixels) {
    StartWith(1, 1, 1, 0);
    const LONG bar = AddressPlace().height;
    const LONG paneHeight = height - bar - StatusHeight();
    EXPECT_EQ(TreePlace(), (Place{0, bar - 2, width, treeHeight}));
    EXPECT_EQ(ListPlace(), (Place{0, bar + treeHeight + 2, width, paneHeight - treeHeight - 2}));
}

TEST_F(PaneLayoutUi, SideBySideUnderTheAddressBarBothPanesAreTwoPixelsTaller) {
    StartWith(1, 1, 1, 1);
    const LONG bar = AddressPlace().height;
    const LONG paneHeight = height - bar - StatusHeight() + 2;
    EXPECT_EQ(TreePlace(), (Place{0, bar - 2, treeWidth, paneHeight}));
    EXPECT_EQ(ListPlace(), (Place{treeWidth + 4, bar - 2, width - treeWidth - 4, paneHeight}));
}

TEST_F(PaneLayoutUi, TheViewCommandsLayOutAgainAndTellTheirCheckMarks) {
    StartWith(0, 1, 0, 0);
    const LONG status = StatusHeight();

    program.Command(IDM_VIEW_STATUS_BAR);
    EXPECT_FALSE(program.Status().IsShown());
    EXPECT_FALSE(program.SoftKeyMenu().IsChecked(IDM_VIEW_STATUS_BAR));
    EXPECT_EQ(ListPlace().height, height + 1);

    program.Command(IDM_VIEW_FOLDER_TREE);
    EXPECT_TRUE(program.TreeIsShown());
    EXPECT_TRUE(program.SoftKeyMenu().IsChecked(IDM_VIEW_FOLDER_TREE));
    EXPECT_EQ(ListPlace().y, treeHeight + 4);

    program.Command(IDM_VIEW_SIDE);
    EXPECT_EQ(ListPlace().x, treeWidth + 4);

    program.Command(IDM_VIEW_ADDRESS_BAR);
    EXPECT_TRUE(program.AddressBarIsShown());
    EXPECT_TRUE(program.SoftKeyMenu().IsChecked(IDM_VIEW_ADDRESS_BAR));
    EXPECT_EQ(ListPlace().y, AddressPlace().height - 2);

    program.Command(IDM_VIEW_STATUS_BAR);
    EXPECT_TRUE(program.Status().IsShown());
    EXPECT_EQ(ListPlace().height, height - AddressPlace().height - status + 2);
}

TEST_F(PaneLayoutUi, AHiddenTreeGivesTheFocusToTheList) {
    StartWith(0, 1, 1, 0);
    PressKey(VK_TAB);
    WaitFor("for the tree's focus", [&] { return program.TreeHasFocus(); });
    program.Command(IDM_VIEW_FOLDER_TREE);
    EXPECT_TRUE(program.ListHasFocus());
}

TEST_F(PaneLayoutUi, AHiddenAddressBarGivesTheFocusToTheList) {
    StartWith(1, 1, 0, 0);
    PressKey(VK_TAB);
    WaitFor("for the address bar's focus", [&] { return program.AddressBarHasFocus(); });
    program.Command(IDM_VIEW_ADDRESS_BAR);
    EXPECT_TRUE(program.ListHasFocus());
}

TEST_F(PaneLayoutUi, DraggingTheGapMovesTheBorderOfTheStackedPanes) {
    StartWith(0, 1, 1, 0);
    const POINT gap = GapPoint();
    Drag(gap, {gap.x, gap.y + 15});
    WaitFor("for the border", [&] { return TreePlace().height == treeHeight + 15; });
    program.WaitUntilIdle();
    EXPECT_EQ(ListPlace().y, treeHeight + 15 + 4);
}

TEST_F(PaneLayoutUi, DraggingTheGapMovesTheBorderOfPanesSideBySide) {
    StartWith(0, 1, 1, 1);
    const POINT gap = GapPoint();
    Drag(gap, {gap.x + 20, gap.y});
    WaitFor("for the border", [&] { return TreePlace().width == treeWidth + 20; });
    program.WaitUntilIdle();
    EXPECT_EQ(ListPlace().x, treeWidth + 20 + 4);

    program.Close();
    EXPECT_EQ(device.NumberValue(settingsKey, L"TreeViewWidth"), static_cast<std::uint32_t>(treeWidth + 20));
}

// Straight to the window, so that each point counts: a hand's drag would pass through the allowed ones.
TEST_F(PaneLayoutUi, ADragBeyondALimitLeavesTheBorderWhereItWas) {
    StartWith(0, 1, 1, 1);
    const auto dragTo = [&](LONG x) {
        Ask(program.Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(treeWidth + 2, 30));
        Ask(program.Window(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, 30));
        Ask(program.Window(), WM_LBUTTONUP, 0, MAKELPARAM(x, 30));
        return TreePlace().width;
    };
    EXPECT_EQ(dragTo(20), treeWidth);
    EXPECT_EQ(dragTo(width - 20), treeWidth);
    EXPECT_EQ(dragTo(-5), treeWidth);
    EXPECT_EQ(dragTo(width - 21), width - 23);
}

TEST_F(PaneLayoutUi, AStackedDragStopsTwentyPixelsBeforeTheTreesTopAndTheListsBottom) {
    StartWith(0, 1, 1, 0);
    const auto dragTo = [&](LONG y) {
        const LONG press = TreePlace().height + 2;
        Ask(program.Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(30, press));
        Ask(program.Window(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(30, y));
        Ask(program.Window(), WM_LBUTTONUP, 0, MAKELPARAM(30, y));
        return TreePlace().height;
    };
    const LONG bottom = height - StatusHeight();
    EXPECT_EQ(dragTo(20), treeHeight);
    EXPECT_EQ(dragTo(bottom - 20), treeHeight);
    EXPECT_EQ(dragTo(21), 19);
    EXPECT_EQ(dragTo(bottom - 21), bottom - 23);
}

TEST_F(PaneLayoutUi, TheStylusIsHeldWhileTheBorderMoves) {
    StartWith(0, 1, 1, 1);
    Ask(program.Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(treeWidth + 2, 30));
    EXPECT_TRUE(program.HoldsStylus());
    Ask(program.Window(), WM_LBUTTONUP, 0, MAKELPARAM(treeWidth + 2, 30));
    EXPECT_FALSE(program.HoldsStylus());
    Ask(program.Window(), WM_MOUSEMOVE, 0, MAKELPARAM(treeWidth + 30, 30));
    EXPECT_EQ(TreePlace().width, treeWidth);
}

// --- Font ---

TEST_F(PaneLayoutUi, TheIconFontOfTheOptionsIsUsedInBothPanes) {
    device.WriteNumber(settingsKey, L"FontChange", 1);
    device.WriteText(settingsKey, L"FontName", L"Tahoma");
    device.WriteNumber(settingsKey, L"FontSize", 17);
    StartWith(0, 1, 1, 0);
    for (HWND pane : {program.List().Window(), program.Tree().Window()}) {
        const LOGFONTW font = FontOf(pane);
        EXPECT_STREQ(font.lfFaceName, L"Tahoma");
        EXPECT_EQ(font.lfHeight, 17 * 96 / 72);
        EXPECT_EQ(font.lfWeight, 1);
    }
}

TEST_F(PaneLayoutUi, WithTheOptionOffThePanesUseTheSystemFont) {
    device.WriteNumber(settingsKey, L"FontChange", 0);
    device.WriteText(settingsKey, L"FontName", L"Tahoma");
    device.WriteNumber(settingsKey, L"FontSize", 17);
    StartWith(0, 1, 1, 0);
    const auto system = reinterpret_cast<LRESULT>(GetStockObject(SYSTEM_FONT));
    EXPECT_EQ(AskInside(program.List().Window(), WM_GETFONT), system);
    EXPECT_EQ(AskInside(program.Tree().Window(), WM_GETFONT), system);
}

// --- Show states ---

TEST_F(PaneLayoutUi, OverlappedStartsMaximisedByTheDefaultState) {
    device.WriteNumber(settingsKey, L"OverLapped", 1);
    StartWith(0, 1, 0, 0);
    EXPECT_TRUE(IsZoomed(program.Window()));
    EXPECT_EQ(ListPlace(), (Place{0, 0, width, height - StatusHeight()}));
}

TEST_F(PaneLayoutUi, WithoutOverlappedTheWindowIsShownAsItIs) {
    StartWith(0, 1, 0, 0);
    EXPECT_FALSE(IsZoomed(program.Window()));
    EXPECT_TRUE(IsWindowVisible(program.Window()));
}

TEST_F(PaneLayoutUi, AStoredSizeBeyondThePanesLeavesBothInReach) {
    for (const std::uint32_t side : {0u, 1u}) {
        for (const std::uint32_t size :
             {0x7FFFFFFFu, 5000u, static_cast<std::uint32_t>(width), 0u, 0x80000000u}) {
            SCOPED_TRACE(testing::Message() << "side " << side << ", size " << size);
            device.WriteNumber(settingsKey, L"ShowFolder", 1);
            device.WriteNumber(settingsKey, L"ViewSide", side);
            device.WriteNumber(settingsKey, L"TreeViewWidth", size);
            device.WriteNumber(settingsKey, L"TreeViewHeight", size);
            program.Start();
            const auto extent = [&](const Place& place) { return side ? place.width : place.height; };
            EXPECT_GE(extent(ListPlace()), 16);
            EXPECT_GE(extent(TreePlace()), 16);
            program.Close();
            EXPECT_EQ(device.NumberValue(settingsKey, side ? L"TreeViewWidth" : L"TreeViewHeight"), size);

            program.Start();
            const POINT gap = GapPoint();
            const POINT middle =
                side ? POINT{width / 2, gap.y} : POINT{gap.x, PlaceOf(program.Window()).top + height / 2};
            const LONG before = extent(TreePlace());
            Drag(gap, middle);
            EXPECT_TRUE(Eventually([&] { return extent(TreePlace()) != before; }));
            EXPECT_GE(extent(ListPlace()), 40);
            EXPECT_GE(extent(TreePlace()), 40);
            program.Kill();
        }
    }
}

} // namespace
