// Screens: 240x320 320x240 176x220

// The pages "Icons", "Controls" and "System Path".

#include "tests/ui/options_ui.h"

namespace {

const std::vector<int> iconBoxes = {IDC_GENERIC_ICONS, IDC_ROM_ICONS, IDC_ARCHIVE_ICONS};
const std::vector<int> controlBoxes = {IDC_UP_LEVEL, IDC_NO_COLUMN_NAMES, IDC_DOUBLE_TAP, IDC_DROP_MENU};

// The fixed images of the list's icon sets.
constexpr int startMenuImage = 3;
constexpr int fileImage = 4;
constexpr int romImage = 5;
constexpr int archiveImage = 7;

class OptionPagesUi : public OptionsUi {
  protected:
    Dialog OpenIcons() {
        Open();
        return OpenPage(IDM_OPTIONS_ICONS, L"Icons");
    }
    Dialog OpenControls() {
        Open();
        return OpenPage(IDM_OPTIONS_CONTROLS, L"Controls");
    }
    Dialog OpenPaths() {
        Open();
        return OpenPage(IDM_OPTIONS_SYSTEM_PATH, L"System Path");
    }
    int ImageOf(const std::wstring& name) const { return program.List().Image(program.List().Find(name)); }
    std::vector<std::uint32_t> StoredIcons() const {
        return device.Value(settingsKey, L"FileImageList").AsWords();
    }
    Texts Favorites() const { return program.SoftKeyMenu().Popup(L"Go to").Popup(L"Favorites").Texts(); }
};

// --- Icons ---

TEST_F(OptionPagesUi, IconsHasThreeBoxes) {
    program.Start();
    Dialog page = OpenIcons();
    EXPECT_EQ(page.TextsShown(), (Texts{L"Icons", L"Show generic icons\n(to increase display speed)",
                                        L"Use Tarvik File Manager+ icons for ROM files",
                                        L"Use Tarvik File Manager+ icons for ZIP archives"}));
    EXPECT_EQ(page.SoftKeys(), (Texts{L"Ok", L"Cancel"}));
    EXPECT_EQ(MarkedOf(page, iconBoxes), (std::vector{IDC_ROM_ICONS, IDC_ARCHIVE_ICONS}));
    ExpectUsable(program, page);
    ConfirmBoth(page);
}

TEST_F(OptionPagesUi, ChangedIconsAreShownAtOnceEvenIfTheFirstPageIsLeft) {
    device.File(L"\\F\\a.txt");
    device.File(L"\\F\\b.zip");
    program.Start(L"\\F");
    EXPECT_GT(ImageOf(L"a"), archiveImage);
    EXPECT_EQ(ImageOf(L"b"), archiveImage);
    Dialog page = OpenIcons();
    page.Mark(IDC_GENERIC_ICONS, true);
    page.Mark(IDC_ARCHIVE_ICONS, false);
    Confirm(page);
    Leave(program.WaitForDialog(L"Options"));
    program.WaitUntilIdle();
    EXPECT_EQ(ImageOf(L"a"), fileImage);
    EXPECT_EQ(ImageOf(L"b"), fileImage);
    program.Close();
    EXPECT_EQ(StoredIcons(), (std::vector<std::uint32_t>{1, 1, 0}));
}

TEST_F(OptionPagesUi, FilesInRomHaveTheirOwnIconOrNot) {
    program.Start(L"\\Windows");
    EXPECT_EQ(ImageOf(L"Wallpaper"), romImage);
    Dialog page = OpenIcons();
    page.Mark(IDC_ROM_ICONS, false);
    ConfirmBoth(page);
    EXPECT_GT(ImageOf(L"Wallpaper"), archiveImage);
}

TEST_F(OptionPagesUi, ALeftIconsPageChangesNothing) {
    device.File(L"\\F\\a.txt");
    program.Start(L"\\F");
    const int image = ImageOf(L"a");
    Dialog page = OpenIcons();
    for (const int box : iconBoxes)
        page.Mark(box, !page.Item(box).IsChecked());
    PressRightSoftKey();
    page.WaitUntilClosed();
    Confirm(program.WaitForDialog(L"Options"));
    program.WaitUntilIdle();
    EXPECT_EQ(ImageOf(L"a"), image);
    program.Close();
    EXPECT_EQ(StoredIcons(), (std::vector<std::uint32_t>{0, 1, 1}));
}

// --- Controls ---

TEST_F(OptionPagesUi, ControlsHasFourBoxes) {
    program.Start();
    Dialog page = OpenControls();
    EXPECT_EQ(page.TextsShown(),
              (Texts{L"Controls", L"Show 'up level' Icons", L"No column names in details view",
                     L"Double Tap Activation", L"Always show a context menu for 'drag and drop'"}));
    EXPECT_EQ(page.SoftKeys(), (Texts{L"Ok", L"Cancel"}));
    EXPECT_EQ(MarkedOf(page, controlBoxes), std::vector{IDC_UP_LEVEL});
    ExpectUsable(program, page);
    ConfirmBoth(page);
}

TEST_F(OptionPagesUi, ControlsAreTakenOverAndStored) {
    device.File(L"\\F\\a.txt");
    program.Start(L"\\F");
    program.Command(IDM_VIEW_DETAILED_LINE);
    ASSERT_TRUE(program.List().HasHeader());
    Dialog page = OpenControls();
    for (const int box : controlBoxes)
        page.Mark(box, box != IDC_UP_LEVEL);
    ConfirmBoth(page);
    EXPECT_EQ(program.List().Names(), Texts{L"a"});
    EXPECT_TRUE(program.List().Style() & LVS_NOCOLUMNHEADER);
    EXPECT_TRUE(program.List().ExtendedStyle() & LVS_EX_FULLROWSELECT);
    page = OpenControls();
    EXPECT_EQ(MarkedOf(page, controlBoxes),
              (std::vector{IDC_NO_COLUMN_NAMES, IDC_DOUBLE_TAP, IDC_DROP_MENU}));
    Leave(page);
    Leave(program.WaitForDialog(L"Options"));
    program.Close();
    EXPECT_EQ(device.StoredOption(ListOption::ShowUpLevel), 0u);
    EXPECT_EQ(device.StoredOption(ListOption::NoColumnNames), 1u);
    EXPECT_EQ(device.StoredOption(ListOption::SingleTapOpens), 0u);
    EXPECT_EQ(device.NumberValue(settingsKey, L"ContextMenu"), 1u);
}

TEST_F(OptionPagesUi, ALeftControlsPageChangesNothing) {
    program.Start();
    Dialog page = OpenControls();
    for (const int box : controlBoxes)
        page.Mark(box, !page.Item(box).IsChecked());
    PressBack();
    page.WaitUntilClosed();
    Confirm(program.WaitForDialog(L"Options"));
    program.WaitUntilIdle();
    program.Close();
    EXPECT_EQ(device.StoredOption(ListOption::ShowUpLevel), 1u);
    EXPECT_EQ(device.StoredOption(ListOption::NoColumnNames), 0u);
    EXPECT_EQ(device.StoredOption(ListOption::SingleTapOpens), 1u);
    EXPECT_EQ(device.NumberValue(settingsKey, L"ContextMenu"), 0u);
}

TEST_F(OptionPagesUi, WithDoubleTapsASingleOneOnlySelects) {
    device.Folder(L"\\F\\G");
    program.Start(L"\\F");
    Dialog page = OpenControls();
    page.Mark(IDC_DOUBLE_TAP, true);
    ConfirmBoth(page);
    Tap(program.List().PointOf(L"G"));
    WaitFor("for the selection", [&] { return program.List().SelectedNames() == Texts{L"G"}; });
    EXPECT_TRUE(HoldsFor(700, [&] { return program.Folder() == L"\\F"; }));
    DoubleTap(program.List().PointOf(L"G"));
    program.WaitForFolder(L"\\F\\G");
}

// --- System Path ---

TEST_F(OptionPagesUi, SystemPathHasThreeFields) {
    program.Start();
    Dialog page = OpenPaths();
    EXPECT_EQ(page.TextsShown(), (Texts{L"System Path", L"Start Menu:", L"\\Windows\\Start Menu",
                                        L"Favorites:", L"\\Windows\\Favorites", L"Network:", L"\\Network"}));
    EXPECT_EQ(page.SoftKeys(), (Texts{L"Ok", L"Cancel"}));
    ExpectUsable(program, page);
    WaitFor("for the first field", [&] { return HasFocus(page, IDC_START_MENU_PATH); });
    PressKey(VK_DOWN);
    WaitFor("for the next field", [&] { return HasFocus(page, IDC_FAVORITES_PATH); });
    PressKey(VK_UP);
    WaitFor("for the field above", [&] { return HasFocus(page, IDC_START_MENU_PATH); });
    ConfirmBoth(page);
    program.Close();
    EXPECT_EQ(device.TextValue(settingsKey, L"StartMenuPath"), L"\\Windows\\Start Menu");
    EXPECT_EQ(device.TextValue(settingsKey, L"FavoritesPath"), L"\\Windows\\Favorites");
}

TEST_F(OptionPagesUi, TheStartMenuIsWhereItIsSaidToBe) {
    device.Folder(L"\\F\\Begin");
    device.WriteText(settingsKey, L"DesktopPath", L"\\F");
    program.Start(L"\\F");
    EXPECT_NE(ImageOf(L"Begin"), startMenuImage);
    Dialog page = OpenPaths();
    page.Item(IDC_START_MENU_PATH).SetText(L"\\F\\Begin");
    page.Item(IDC_NETWORK_PATH).SetText(L"\\Net");
    ConfirmBoth(page);
    EXPECT_EQ(ImageOf(L"Begin"), startMenuImage);
    program.Command(IDM_GOTO_START_MENU);
    EXPECT_EQ(program.Folder(), L"\\F\\Begin");
    program.Close();
    EXPECT_EQ(device.TextValue(settingsKey, L"StartMenuPath"), L"\\F\\Begin");
    EXPECT_EQ(device.TextValue(settingsKey, L"NetworkPath"), L"\\Net");
    EXPECT_EQ(device.TextValue(settingsKey, L"DesktopPath"), L"\\F");
}

TEST_F(OptionPagesUi, NewFavouritesAreInTheMenuAtOnce) {
    device.File(L"\\F\\Mine.lnk", "5#\\Temp");
    program.Start();
    Dialog page = OpenPaths();
    page.Item(IDC_FAVORITES_PATH).SetText(L"\\F");
    Confirm(page);
    Leave(program.WaitForDialog(L"Options"));
    program.WaitUntilIdle();
    EXPECT_EQ(Favorites(), (Texts{L"Add", L"Organize", L"-", L"Mine"}));
    program.Command(IDM_FAVORITES_ORGANIZE);
    EXPECT_EQ(program.Folder(), L"\\F");
}

TEST_F(OptionPagesUi, AnEmptyFieldKeepsThePath) {
    program.Start();
    Dialog page = OpenPaths();
    for (const int field : {IDC_START_MENU_PATH, IDC_FAVORITES_PATH, IDC_NETWORK_PATH})
        page.Item(field).SetText(L"");
    ConfirmBoth(page);
    program.Close();
    EXPECT_EQ(device.TextValue(settingsKey, L"StartMenuPath"), L"\\Windows\\Start Menu");
    EXPECT_EQ(device.TextValue(settingsKey, L"FavoritesPath"), L"\\Windows\\Favorites");
    EXPECT_EQ(device.TextValue(settingsKey, L"NetworkPath"), L"\\Network");
}

TEST_F(OptionPagesUi, ALeftSystemPathPageChangesNothing) {
    program.Start();
    Dialog page = OpenPaths();
    for (const int field : {IDC_START_MENU_PATH, IDC_FAVORITES_PATH, IDC_NETWORK_PATH})
        page.Item(field).SetText(L"\\Temp");
    PressRightSoftKey();
    page.WaitUntilClosed();
    Confirm(program.WaitForDialog(L"Options"));
    program.Close();
    EXPECT_EQ(device.TextValue(settingsKey, L"StartMenuPath"), L"\\Windows\\Start Menu");
    EXPECT_EQ(device.TextValue(settingsKey, L"FavoritesPath"), L"\\Windows\\Favorites");
    EXPECT_EQ(device.TextValue(settingsKey, L"NetworkPath"), L"\\Network");
}

TEST_F(OptionPagesUi, TheBackKeyErasesInAField) {
    program.Start();
    Dialog page = OpenPaths();
    WaitFor("for the field", [&] { return HasFocus(page, IDC_START_MENU_PATH); });
    const Control field = page.Item(IDC_START_MENU_PATH);
    Ask(field.Window(), EM_SETSEL, 19, 19);
    PressBack();
    WaitFor("for the letter to go", [&] { return field.Text() == L"\\Windows\\Start Men"; });
    EXPECT_TRUE(page.IsOpen());
    Leave(page);
    Leave(program.WaitForDialog(L"Options"));
}

TEST_F(OptionPagesUi, TextsLongerThanAPathAreCut) {
    program.Start();
    Dialog page = OpenPaths();
    for (const int field : {IDC_START_MENU_PATH, IDC_FAVORITES_PATH, IDC_NETWORK_PATH})
        page.Item(field).SetText(std::wstring(5000, L'p'));
    ConfirmBoth(page);
    program.Close();
    EXPECT_EQ(device.TextValue(settingsKey, L"StartMenuPath"), std::wstring(259, L'p'));
}

} // namespace
