// Screens: 240x320 320x240 176x220

// The first page of the options, what confirming it does, and the page that tells which program this is.

#include "tests/ui/options_ui.h"

namespace {

const std::vector<int> boxes = {IDC_HIDE_HIDDEN,  IDC_HIDE_ROM,        IDC_HIDE_SYSTEM,
                                IDC_NO_EXTENSION, IDC_REMEMBER_FOLDER, IDC_NO_SHORTCUT_MENTION};

TEST_F(OptionsUi, TheFirstPageHasTwoGroupsOfBoxesAndAMenuOfThePages) {
    program.Start();
    Dialog dialog = Open();
    EXPECT_EQ(dialog.TextsShown(),
              (Texts{L"Options", L"Hide:", L"Hidden Files", L"ROM Files", L"System Files", L"Other:",
                     L"No extension", L"Remember last folder", L"No Shortcut mention"}));
    EXPECT_EQ(dialog.Item(IDC_PAGE_TITLE).Text(), L"Options");
    EXPECT_EQ(dialog.Item(IDC_HIDE_CAPTION).Text(), L"Hide:");
    EXPECT_EQ(dialog.Item(IDC_OTHER_CAPTION).Text(), L"Other:");
    EXPECT_EQ(dialog.SoftKeys(), (Texts{L"Ok", L"Menu"}));
    EXPECT_EQ(dialog.SoftKeyMenu().Texts(),
              (Texts{L"Icons", L"Font", L"Controls", L"Compression", L"System Path", L"About"}));
    EXPECT_EQ(MarkedOf(dialog, boxes), (std::vector{IDC_HIDE_HIDDEN, IDC_NO_EXTENSION}));
    ExpectUsable(program, dialog);
    Leave(dialog);
}

TEST_F(OptionsUi, TheBoxesAreMarkedByTheStoredWords) {
    device.SetOption(ListOption::HideHiddenFiles, 0);
    device.SetOption(ListOption::HideRomFiles, 7); // a word that no version of the program writes
    device.SetOption(ListOption::HideSystemFiles, 0);
    ShowExtensions();
    device.SetOption(ListOption::RememberLastFolder, 1);
    device.SetOption(ListOption::NoShortcutMention, 1);
    program.Start();
    Dialog dialog = Open();
    EXPECT_EQ(MarkedOf(dialog, boxes),
              (std::vector{IDC_HIDE_ROM, IDC_REMEMBER_FOLDER, IDC_NO_SHORTCUT_MENTION}));
    Confirm(dialog);
    program.Close();
    EXPECT_EQ(device.StoredOption(ListOption::HideRomFiles), 1u);
    EXPECT_EQ(device.StoredOption(ListOption::HideHiddenFiles), 0u);
    EXPECT_EQ(device.StoredOption(ListOption::RememberLastFolder), 1u);
    EXPECT_EQ(device.StoredOption(ListOption::NoShortcutMention), 1u);
}

TEST_F(OptionsUi, ConfirmingShowsTheListByTheNewFilters) {
    device.File(L"\\F\\hidden.txt");
    device.File(L"\\F\\plain.txt");
    device.File(L"\\F\\system.txt");
    device.SetAttributes(L"\\F\\hidden.txt", FILE_ATTRIBUTE_HIDDEN);
    device.SetAttributes(L"\\F\\system.txt", FILE_ATTRIBUTE_SYSTEM);
    program.Start(L"\\F");
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"plain", L"system"}));
    Dialog dialog = Open();
    dialog.Mark(IDC_HIDE_HIDDEN, false);
    dialog.Mark(IDC_HIDE_SYSTEM, true);
    dialog.Mark(IDC_NO_EXTENSION, false);
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"plain", L"system"}));
    Confirm(dialog);
    program.WaitForNames({L"..", L"hidden.txt", L"plain.txt"});
    EXPECT_EQ(program.Folder(), L"\\F");
    EXPECT_TRUE(Eventually([&] { return program.ListHasFocus(); }));
    program.Close();
    EXPECT_EQ(device.StoredOption(ListOption::HideHiddenFiles), 0u);
    EXPECT_EQ(device.StoredOption(ListOption::HideSystemFiles), 1u);
    EXPECT_EQ(device.StoredOption(ListOption::NoExtension), 0u);
}

TEST_F(OptionsUi, FilesInRomAreHidden) {
    program.Start(L"\\Windows");
    ASSERT_TRUE(program.List().Has(L"Wallpaper"));
    Dialog dialog = Open();
    dialog.Mark(IDC_HIDE_ROM, true);
    Confirm(dialog);
    EXPECT_TRUE(Eventually([&] { return !program.List().Has(L"Wallpaper"); }));
}

TEST_F(OptionsUi, TheFolderIsRememberedOnceThatIsAskedFor) {
    device.Folder(L"\\F");
    program.Start(L"\\F");
    Dialog dialog = Open();
    dialog.Mark(IDC_REMEMBER_FOLDER, true);
    Confirm(dialog);
    program.Restart();
    EXPECT_EQ(program.Folder(), L"\\F");
}

TEST_F(OptionsUi, BackLeavesEverythingAsItWas) {
    device.File(L"\\F\\hidden.txt");
    device.SetAttributes(L"\\F\\hidden.txt", FILE_ATTRIBUTE_HIDDEN);
    device.WriteWords(settingsKey, L"HideFolder", {1});
    program.Start(L"\\F");
    Dialog dialog = Open();
    for (const int box : boxes)
        dialog.Mark(box, !dialog.Item(box).IsChecked());
    PressBack();
    dialog.WaitUntilClosed();
    program.WaitUntilIdle();
    EXPECT_EQ(program.List().Names(), Texts{L".."});
    dialog = Open();
    EXPECT_EQ(MarkedOf(dialog, boxes), (std::vector{IDC_HIDE_HIDDEN, IDC_NO_EXTENSION}));
    Leave(dialog);
    program.Close();
    EXPECT_EQ(device.StoredOption(ListOption::HideHiddenFiles), 1u);
    EXPECT_EQ(device.Value(settingsKey, L"HideFolder").Description(), L"words 1");
}

TEST_F(OptionsUi, ConfirmingEndsTheTwoSettingsThatHaveNoControls) {
    device.Folder(L"\\F\\G");
    device.WriteWords(settingsKey, L"HideFolder", {1});
    device.WriteWords(settingsKey, L"TimeStump", {1});
    program.Start(L"\\F");
    EXPECT_EQ(program.List().Names(), Texts{L".."});
    Confirm(Open());
    program.WaitForNames({L"..", L"G"});
    program.Close();
    EXPECT_EQ(device.Value(settingsKey, L"HideFolder").Description(), L"words 0");
    EXPECT_EQ(device.Value(settingsKey, L"TimeStump").Description(), L"words 0");
}

TEST_F(OptionsUi, DetailsKeepTheirKindOfSelection) {
    device.File(L"\\F\\a.txt");
    program.Start(L"\\F");
    program.Command(IDM_VIEW_DETAILED_LINE);
    Confirm(Open());
    program.WaitUntilIdle();
    EXPECT_EQ(program.List().ViewStyle(), static_cast<DWORD>(LVS_REPORT));
    EXPECT_TRUE(program.List().ExtendedStyle() & LVS_EX_FULLROWSELECT);
    EXPECT_TRUE(program.SoftKeyMenu().IsChecked(IDM_VIEW_DETAILED_LINE));
    program.Command(IDM_VIEW_DETAILED);
    Confirm(Open());
    program.WaitUntilIdle();
    EXPECT_FALSE(program.List().ExtendedStyle() & LVS_EX_FULLROWSELECT);
    program.Command(IDM_VIEW_SMALL);
    Confirm(Open());
    program.WaitUntilIdle();
    EXPECT_EQ(program.List().ViewStyle(), static_cast<DWORD>(LVS_LIST));
}

TEST_F(OptionsUi, NewFavouritesAreInTheMenuAfterwards) {
    program.Start();
    device.File(L"\\Windows\\Favorites\\New.lnk", "5#\\Temp");
    Confirm(Open());
    program.WaitUntilIdle();
    const Texts favorites = program.SoftKeyMenu().Popup(L"Go to").Popup(L"Favorites").Texts();
    EXPECT_NE(std::ranges::find(favorites, L"New"), favorites.end());
}

TEST_F(OptionsUi, ThePadAndTheSoftKeysAreEnough) {
    program.Start();
    program.WaitForListFocus();
    PressKey(VK_F4);
    Dialog dialog = program.WaitForDialog(L"Options");
    WaitFor("for the first box", [&] { return HasFocus(dialog, IDC_HIDE_HIDDEN); });
    for (std::size_t next = 1; next < boxes.size(); ++next) {
        PressKey(VK_DOWN);
        WaitFor("for the next box", [&] { return HasFocus(dialog, boxes[next]); });
    }
    PressKey(VK_RETURN);
    WaitFor("for the mark", [&] { return dialog.Item(IDC_NO_SHORTCUT_MENTION).IsChecked(); });
    PressKey(VK_UP);
    WaitFor("for the box above", [&] { return HasFocus(dialog, IDC_REMEMBER_FOLDER); });
    PressRightSoftKey();
    program.WaitForMenu();
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    Dialog page = program.WaitForDialog(L"Icons");
    PressRightSoftKey();
    page.WaitUntilClosed();
    EXPECT_TRUE(dialog.IsOpen());
    PressLeftSoftKey();
    dialog.WaitUntilClosed();
    EXPECT_TRUE(Eventually([&] { return program.ListHasFocus(); }));
    program.Close();
    EXPECT_EQ(device.StoredOption(ListOption::NoShortcutMention), 1u);
    EXPECT_EQ(device.StoredOption(ListOption::RememberLastFolder), 0u);
}

TEST_F(OptionsUi, AFolderThatIsGoneByThenIsLeft) {
    device.Folder(L"\\F\\G");
    program.Start(L"\\F\\G");
    Dialog dialog = Open();
    device.Remove(L"\\F\\G");
    Confirm(dialog);
    program.WaitUntilIdle();
    EXPECT_TRUE(program.IsRunning());
    EXPECT_FALSE(program.HasMessageBox());
}

TEST_F(OptionsUi, AboutTellsWhichProgramThisIs) {
    program.Start();
    Open();
    Dialog about = OpenPage(IDM_OPTIONS_ABOUT, L"About");
    EXPECT_EQ(about.Item(IDC_PAGE_TITLE).Text(), L"About");
    const Texts texts = about.TextsShown();
    for (const wchar_t* text : {L"Tarvik File Manager", L"Version 1.20 ", L"Build 1.2.0.4688"})
        EXPECT_NE(std::ranges::find(texts, text), texts.end()) << Narrow(text);
    EXPECT_EQ(about.SoftKeys(), Texts{L"Ok"});
    ExpectUsable(program, about);
    PressBack();
    about.WaitUntilClosed();
    about = OpenPage(IDM_OPTIONS_ABOUT, L"About");
    PressLeftSoftKey();
    about.WaitUntilClosed();
    Leave(program.WaitForDialog(L"Options"));
}

} // namespace
