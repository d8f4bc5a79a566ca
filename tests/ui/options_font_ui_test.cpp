// Screens: 240x320 320x240 176x220

// The page "Font": the font of both panes.

#include <set>

#include "tests/ui/options_ui.h"

namespace {

Texts EntriesOf(const Control& list) {
    Texts entries;
    for (LRESULT index = 0, count = Ask(list.Window(), LB_GETCOUNT); index < count; ++index) {
        std::wstring text(Ask(list.Window(), LB_GETTEXTLEN, index) + 1, L'\0');
        text.resize(Ask(list.Window(), LB_GETTEXT, index, reinterpret_cast<LPARAM>(text.data())));
        entries.push_back(text);
    }
    return entries;
}

std::wstring SelectedIn(const Control& list) {
    return EntriesOf(list).at(Ask(list.Window(), LB_GETCURSEL));
}

void SelectIn(const Control& list, const std::wstring& entry) {
    const Texts entries = EntriesOf(list);
    const auto found = std::ranges::find(entries, entry);
    ASSERT_NE(found, entries.end()) << Narrow(entry);
    Ask(list.Window(), LB_SETCURSEL, found - entries.begin());
}

int CALLBACK TakeName(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM name) {
    *reinterpret_cast<std::wstring*>(name) = font->lfFaceName;
    return TRUE;
}

/// A font that the phone has: the last that it tells of.
std::wstring KnownFont() {
    std::wstring name;
    HDC context = GetDC(nullptr);
    EnumFontsW(context, nullptr, TakeName, reinterpret_cast<LPARAM>(&name));
    ReleaseDC(nullptr, context);
    return name;
}

class OptionsFontUi : public OptionsUi {
  protected:
    const std::wstring knownFont = KnownFont();

    void StoreFont(std::uint32_t change, const std::wstring& name, std::uint32_t size) {
        device.WriteNumber(settingsKey, L"FontChange", change);
        device.WriteText(settingsKey, L"FontName", name);
        device.WriteNumber(settingsKey, L"FontSize", size);
    }
    Dialog OpenFont() {
        Open();
        return OpenPage(IDM_OPTIONS_FONT, L"Font");
    }
    void ExpectPanes(const std::wstring& name, int points) const {
        for (HWND pane : {program.List().Window(), program.Tree().Window()}) {
            const LOGFONTW font = FontOf(pane);
            EXPECT_EQ(std::wstring(font.lfFaceName), name);
            EXPECT_EQ(font.lfHeight, points * 96 / 72);
        }
    }
    void ExpectSystemFont() const {
        const auto system = reinterpret_cast<LRESULT>(GetStockObject(SYSTEM_FONT));
        for (HWND pane : {program.List().Window(), program.Tree().Window()})
            EXPECT_EQ(AskInside(pane, WM_GETFONT), system);
    }
};

TEST_F(OptionsFontUi, ThePageOffersTheFontsThatAreThere) {
    program.Start();
    Dialog page = OpenFont();
    EXPECT_EQ(page.Item(IDC_PAGE_TITLE).Text(), L"Font");
    EXPECT_EQ(page.Item(IDC_CHANGE_FONT).Text(), L"Change the icon font");
    EXPECT_EQ(page.SoftKeys(), (Texts{L"Ok", L"Menu"}));
    EXPECT_EQ(page.SoftKeyMenu().Texts(), (Texts{L"On Font Change", L"On Type", L"On Size"}));
    ExpectUsable(program, page);

    const Control names = page.Item(IDC_FONT_NAMES);
    const Texts fonts = EntriesOf(names);
    EXPECT_EQ(fonts.front(), L"System");
    EXPECT_GT(fonts.size(), 1u);
    const std::set<std::wstring> reported(fonts.begin() + 1, fonts.end());
    EXPECT_EQ(reported.size(), fonts.size() - 1) << "a font is there twice";
    EXPECT_EQ(SelectedIn(names), L"System");
    const Control sizes = page.Item(IDC_FONT_SIZES);
    EXPECT_EQ(EntriesOf(sizes), (Texts{L"1", L"4", L"6", L"8", L"9", L"10", L"11", L"12", L"14", L"16", L"18",
                                       L"20", L"22", L"24", L"26"}));
    EXPECT_EQ(SelectedIn(sizes), L"12");
    EXPECT_FALSE(page.Item(IDC_CHANGE_FONT).IsChecked());
    EXPECT_FALSE(names.IsEnabled());
    EXPECT_FALSE(sizes.IsEnabled());
    Leave(page);
    Leave(program.WaitForDialog(L"Options"));
}

TEST_F(OptionsFontUi, TheStoredFontIsSelected) {
    StoreFont(1, knownFont, 18);
    program.Start();
    Dialog page = OpenFont();
    EXPECT_TRUE(page.Item(IDC_CHANGE_FONT).IsChecked());
    EXPECT_EQ(SelectedIn(page.Item(IDC_FONT_NAMES)), knownFont);
    EXPECT_EQ(SelectedIn(page.Item(IDC_FONT_SIZES)), L"18");
    EXPECT_TRUE(page.Item(IDC_FONT_NAMES).IsEnabled());
    EXPECT_TRUE(page.Item(IDC_FONT_SIZES).IsEnabled());
    ConfirmBoth(page);
    ExpectPanes(knownFont, 18);
}

TEST_F(OptionsFontUi, AConfirmedFontIsThePanesAtOnce) {
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    program.Start();
    Dialog page = OpenFont();
    page.Mark(IDC_CHANGE_FONT, true);
    WaitFor("for the lists", [&] { return page.Item(IDC_FONT_SIZES).IsEnabled(); });
    EXPECT_TRUE(page.Item(IDC_FONT_NAMES).IsEnabled());
    SelectIn(page.Item(IDC_FONT_NAMES), knownFont);
    SelectIn(page.Item(IDC_FONT_SIZES), L"20");
    Confirm(page);
    ExpectPanes(knownFont, 20); // with the first page still open
    Leave(program.WaitForDialog(L"Options"));
    program.Close();
    EXPECT_EQ(device.NumberValue(settingsKey, L"FontChange"), 1u);
    EXPECT_EQ(device.TextValue(settingsKey, L"FontName"), knownFont);
    EXPECT_EQ(device.NumberValue(settingsKey, L"FontSize"), 20u);
}

TEST_F(OptionsFontUi, TurnedOffInTheRunningProgramThePanesHaveTheSystemFontAgain) {
    StoreFont(1, knownFont, 18);
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    program.Start();
    ExpectPanes(knownFont, 18);
    Dialog page = OpenFont();
    page.Mark(IDC_CHANGE_FONT, false);
    WaitFor("for the lists", [&] { return !page.Item(IDC_FONT_SIZES).IsEnabled(); });
    EXPECT_FALSE(page.Item(IDC_FONT_NAMES).IsEnabled());
    ConfirmBoth(page);
    ExpectSystemFont();
    program.Close();
    EXPECT_EQ(device.NumberValue(settingsKey, L"FontChange"), 0u);
    EXPECT_EQ(device.TextValue(settingsKey, L"FontName"), knownFont);
}

TEST_F(OptionsFontUi, TheBoxCountsAtOnceAndTheListsDoNot) {
    program.Start();
    Dialog page = OpenFont();
    page.Mark(IDC_CHANGE_FONT, true);
    SelectIn(page.Item(IDC_FONT_NAMES), knownFont);
    SelectIn(page.Item(IDC_FONT_SIZES), L"26");
    PressBack();
    page.WaitUntilClosed();
    ExpectSystemFont();
    Leave(program.WaitForDialog(L"Options"));
    program.Close();
    EXPECT_EQ(device.NumberValue(settingsKey, L"FontChange"), 1u);
    EXPECT_EQ(device.TextValue(settingsKey, L"FontName"), L"");
    EXPECT_EQ(device.NumberValue(settingsKey, L"FontSize"), 12u);
}

TEST_F(OptionsFontUi, TheMenuLeadsFromControlToControl) {
    StoreFont(1, knownFont, 12);
    program.Start();
    Dialog page = OpenFont();
    const auto goTo = [&](int command, int control) {
        page.Command(command);
        WaitFor("for a control to have the keyboard", [&] { return HasFocus(page, control); });
    };
    goTo(IDM_FONT_FOCUS_SIZES, IDC_FONT_SIZES);
    PressKey(VK_DOWN);
    WaitFor("for the next size", [&] { return SelectedIn(page.Item(IDC_FONT_SIZES)) == L"14"; });
    goTo(IDM_FONT_FOCUS_NAMES, IDC_FONT_NAMES);
    goTo(IDM_FONT_FOCUS_CHANGE, IDC_CHANGE_FONT);
    PressKey(VK_RETURN);
    WaitFor("for the mark to go", [&] { return !page.Item(IDC_CHANGE_FONT).IsChecked(); });
    PressKey(VK_RETURN);
    WaitFor("for the mark", [&] { return page.Item(IDC_CHANGE_FONT).IsChecked(); });
    PressLeftSoftKey();
    page.WaitUntilClosed();
    ExpectPanes(knownFont, 14);
    Leave(program.WaitForDialog(L"Options"));
}

TEST_F(OptionsFontUi, AFontThatIsNotThereIsReplacedByTheFirst) {
    StoreFont(1, std::wstring(127, L'f'), 13);
    program.Start();
    Dialog page = OpenFont();
    EXPECT_EQ(SelectedIn(page.Item(IDC_FONT_NAMES)), L"System");
    EXPECT_EQ(SelectedIn(page.Item(IDC_FONT_SIZES)), L"1");
    ConfirmBoth(page);
    program.Close();
    EXPECT_EQ(device.TextValue(settingsKey, L"FontName"), L"System");
    EXPECT_EQ(device.NumberValue(settingsKey, L"FontSize"), 1u);
}

TEST_F(OptionsFontUi, NoStoredFontStopsTheProgram) {
    for (const std::uint32_t size : {0u, 1u, 100000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        StoreFont(1, std::wstring(600, L'%'), size);
        device.File(L"\\F\\a.txt");
        program.Start(L"\\F");
        EXPECT_EQ(program.List().Names(), (Texts{L"..", L"a"}));
        Dialog page = OpenFont();
        EXPECT_EQ(SelectedIn(page.Item(IDC_FONT_NAMES)), L"System");
        Leave(page);
        Leave(program.WaitForDialog(L"Options"));
        program.Close();
    }
}

} // namespace
