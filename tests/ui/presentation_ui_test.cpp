// Screens: 240x320 320x240 176x220

// The list's look: view styles, columns and their widths, the selection commands.

#include "tests/support/ui_test.h"

namespace {

constexpr DWORD commonStyle = 0x50810248;
constexpr DWORD lineSelectStyle = LVS_EX_FULLROWSELECT | LVS_EX_ONECLICKACTIVATE;

/// Sort bits and scroll bars come and go with the control's state.
constexpr DWORD ownStyleBits = ~static_cast<DWORD>(WS_HSCROLL | WS_VSCROLL);

class PresentationUi : public UiTest {
  protected:
    DWORD Style() const { return program.List().Style() & ownStyleBits; }

    Texts CheckedStyles() const {
        return program.SoftKeyMenu().Popup(L"View").Popup(L"View Style").CheckedTexts();
    }
};

TEST_F(PresentationUi, HasTheFourColumnsOfHalfTheScreensWidth) {
    device.SetOption(ListOption::ViewStyle, LVS_REPORT);
    program.Start();
    const ListView list = program.List();
    const int half = GetSystemMetrics(SM_CXSCREEN) / 2;
    const wchar_t* const titles[] = {L"Name", L"Size", L"Type", L"Modified"};
    ASSERT_EQ(list.ColumnCount(), 4);
    for (int column = 0; column < 4; ++column) {
        EXPECT_EQ(list.ColumnTitle(column), titles[column]);
        EXPECT_EQ(list.ColumnWidth(column), half);
        EXPECT_EQ(list.ColumnAlignment(column), column == 1 ? LVCFMT_RIGHT : LVCFMT_LEFT);
    }
}

TEST_F(PresentationUi, EachStyleHasItsExactWindowStyleAndCheckMark) {
    program.Start();
    const struct {
        UINT command;
        DWORD style;
        DWORD extended;
        const wchar_t* text;
    } styles[] = {
        {IDM_VIEW_LARGE, LVS_ICON, 0, L"Large"},
        {IDM_VIEW_DETAILED, LVS_REPORT, 0, L"Detailed"},
        {IDM_VIEW_DETAILED_LINE, LVS_REPORT, lineSelectStyle, L"Detailed(Line Select)"},
        {IDM_VIEW_LIST, LVS_SMALLICON, 0, L"List"},
        {IDM_VIEW_SMALL, LVS_LIST, 0, L"Small"},
    };
    for (const auto& style : styles) {
        program.Command(style.command);
        EXPECT_EQ(Style(), commonStyle | style.style);
        EXPECT_EQ(program.List().ExtendedStyle(), style.extended);
        EXPECT_EQ(CheckedStyles(), Texts{style.text});
        EXPECT_EQ(program.List().Count(), 5);
    }
}

TEST_F(PresentationUi, ListStyleStepsThroughAllFive) {
    program.Start();
    Texts seen;
    for (int step = 0; step < 6; ++step) {
        const Texts checked = CheckedStyles();
        ASSERT_EQ(checked.size(), 1u);
        seen.push_back(checked.front());
        program.Command(IDM_TOOLBAR_LIST_STYLE);
    }
    EXPECT_EQ(seen, (Texts{L"Large", L"List", L"Small", L"Detailed", L"Detailed(Line Select)", L"Large"}));
}

TEST_F(PresentationUi, LineSelectLastsUntilTheProgramEnds) {
    program.Start();
    program.Command(IDM_VIEW_DETAILED_LINE);
    program.Restart();
    EXPECT_EQ(program.List().ViewStyle(), static_cast<DWORD>(LVS_REPORT));
    EXPECT_EQ(program.List().ExtendedStyle() & lineSelectStyle, 0u);
    EXPECT_EQ(CheckedStyles(), (Texts{L"Detailed"}));
}

TEST_F(PresentationUi, ColumnTitlesAreHiddenOnlyInTheDetailsStyles) {
    device.SetOption(ListOption::NoColumnNames, 1);
    program.Start();
    EXPECT_EQ(Style(), commonStyle | LVS_ICON);
    for (const UINT command : {IDM_VIEW_DETAILED, IDM_VIEW_DETAILED_LINE}) {
        program.Command(command);
        EXPECT_EQ(Style(), commonStyle | LVS_REPORT | LVS_NOCOLUMNHEADER);
        EXPECT_FALSE(program.List().HasHeader());
    }
    program.Command(IDM_VIEW_SMALL);
    EXPECT_EQ(Style(), commonStyle | LVS_LIST);
}

TEST_F(PresentationUi, WidthsAreKeptFromTheDetailsStyles) {
    device.SetOption(ListOption::ViewStyle, LVS_REPORT);
    program.Start();
    program.List().SetColumnWidth(0, 77);
    program.List().SetColumnWidth(3, 33);
    program.Close();
    EXPECT_EQ(device.StoredOption(ListOption::NameWidth), 77u);
    EXPECT_EQ(device.StoredOption(ListOption::ModifiedWidth), 33u);
}

TEST_F(PresentationUi, WidthsChangedInAnotherStyleAreNotKept) {
    device.SetOption(ListOption::NameWidth, 55);
    program.Start();
    program.List().SetColumnWidth(0, 77);
    program.Close();
    EXPECT_EQ(device.StoredOption(ListOption::NameWidth), 55u);
}

TEST_F(PresentationUi, LargeIconsStand72PixelsApart) {
    program.Start();
    const LRESULT spacing = Ask(program.List().Window(), LVM_GETITEMSPACING, FALSE);
    EXPECT_EQ(LOWORD(spacing), 72);
    EXPECT_EQ(HIWORD(spacing), 72);
}

// --- Selection ---

class SelectionUi : public UiTest {
  protected:
    void SetUp() override {
        device.Folder(L"\\Pick\\Sub");
        device.File(L"\\Pick\\a.txt");
        device.File(L"\\Pick\\b.txt");
        program.Start(L"\\Pick");
    }
};

TEST_F(SelectionUi, SelectAllTakesTheUpLevelEntryTooAndGivesTheListTheKeyboard) {
    program.Command(IDM_VIEW_FOLDER_TREE);
    PressKey(VK_TAB);
    WaitFor("for the tree", [&] { return program.TreeHasFocus(); });
    program.Command(IDM_EDIT_SELECT_ALL);
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"..", L"Sub", L"a", L"b"}));
    EXPECT_TRUE(program.ListHasFocus());
}

TEST_F(SelectionUi, ReverseSelectionInvertsEveryEntry) {
    program.List().Select(L"a");
    program.Command(IDM_EDIT_REVERSE_SELECTION);
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"..", L"Sub", L"b"}));
    program.Command(IDM_EDIT_REVERSE_SELECTION);
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"a"}));
}

TEST_F(SelectionUi, ReleaseSelectionSelectsNothing) {
    program.Command(IDM_EDIT_SELECT_ALL);
    program.Command(IDM_EDIT_RELEASE_SELECTION);
    EXPECT_EQ(program.List().SelectedNames(), Texts{});
}

TEST_F(SelectionUi, TheUpLevelEntryIsNoneOfTheCountedOnes) {
    program.List().Select(L"..");
    EXPECT_FALSE(program.SoftKeyMenu().IsEnabled(IDM_FILE_DELETE));
    program.List().AddToSelection(L"b");
    EXPECT_TRUE(program.SoftKeyMenu().IsEnabled(IDM_FILE_DELETE));
}

class ScrollBarsUi : public PresentationUi {
  protected:
    void SetUp() override { device.Files(L"\\Many", L"a rather long name for a file ", 60); }

    /// Where the first row lies along a scroll bar.
    LONG FirstRowAlong(int bar) const {
        RemoteMemory memory(program.List().Window(), sizeof(POINT));
        Ask(program.List().Window(), LVM_GETITEMPOSITION, 0, reinterpret_cast<LPARAM>(memory.Address()));
        POINT place{};
        memory.Read(&place, sizeof(place));
        return bar == SB_VERT ? place.y : place.x;
    }

    /// A tap on the bar's end moves the rows, and one on its beginning moves them back.
    void ExpectAlive(int bar) {
        const HWND list = program.List().Window();
        SCOPED_TRACE(testing::Message()
                     << (bar == SB_VERT ? "upright" : "lying") << ", style " << program.List().ViewStyle());
        ASSERT_NE(program.List().Style() & (bar == SB_VERT ? WS_VSCROLL : WS_HSCROLL), 0u);
        RECT inside{};
        GetClientRect(list, &inside);
        MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&inside), 2);
        const LONG half = GetSystemMetrics(SM_CXVSCROLL) / 2;
        const POINT back = bar == SB_VERT ? POINT{inside.right + half, inside.top + half}
                                          : POINT{inside.left + half, inside.bottom + half};
        const POINT further =
            bar == SB_VERT ? POINT{back.x, inside.bottom - half} : POINT{inside.right - half, back.y};
        const LONG before = FirstRowAlong(bar);
        Tap(further);
        EXPECT_TRUE(Eventually([&] { return FirstRowAlong(bar) < before; }));
        Tap(back);
        EXPECT_TRUE(Eventually([&] { return FirstRowAlong(bar) == before; }));
    }
};

TEST_F(ScrollBarsUi, LiveOnWhenTheStyleStaysOfItsType) {
    device.SetOption(ListOption::ViewStyle, LVS_REPORT);
    program.Start(L"\\Many");
    ExpectAlive(SB_VERT);
    ExpectAlive(SB_HORZ);
    for (const UINT style : {IDM_VIEW_DETAILED_LINE, IDM_VIEW_DETAILED, IDM_VIEW_DETAILED}) {
        program.Command(style);
        ExpectAlive(SB_VERT);
        ExpectAlive(SB_HORZ);
    }
    program.PostCommand(IDM_VIEW_OPTIONS);
    Dialog options = program.WaitForDialog(L"Options");
    options.Command(IDOK);
    options.WaitUntilClosed();
    program.WaitUntilIdle();
    ExpectAlive(SB_VERT);
    ExpectAlive(SB_HORZ);
}

TEST_F(ScrollBarsUi, LiveOnWhenAStyleIsChosenAgain) {
    program.Start(L"\\Many");
    for (const auto& [style, bar] :
         {std::pair{IDM_VIEW_LARGE, SB_VERT}, {IDM_VIEW_LIST, SB_VERT}, {IDM_VIEW_SMALL, SB_HORZ}}) {
        program.Command(style);
        ExpectAlive(bar);
        program.Command(style);
        ExpectAlive(bar);
    }
}

TEST_F(PresentationUi, AStoredNumberBeyondTheStylesShowsOneStyleAllThrough) {
    device.SetOption(ListOption::ViewStyle, 4 | LVS_REPORT);
    program.Start();
    EXPECT_EQ(program.List().ViewStyle(), static_cast<DWORD>(LVS_REPORT));
    EXPECT_EQ(CheckedStyles(), Texts{L"Detailed"});
    program.List().SetColumnWidth(0, 111);
    program.Restart();
    EXPECT_EQ(program.List().ColumnWidth(0), 111);
    EXPECT_EQ(device.StoredOption(ListOption::ViewStyle), 4u | LVS_REPORT);
    program.Close();

    device.SetOption(ListOption::ViewStyle, 4 | LVS_ICON);
    program.Start();
    EXPECT_EQ(program.List().ViewStyle(), static_cast<DWORD>(LVS_ICON));
    EXPECT_EQ(Ask(program.List().Window(), LVM_GETITEMSPACING, FALSE), MAKELONG(72, 72));
    program.Command(IDM_TOOLBAR_LIST_STYLE);
    EXPECT_EQ(CheckedStyles(), Texts{L"List"});
}

} // namespace
