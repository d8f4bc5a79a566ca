// Screens: 240x320 320x240 176x220

// The properties of files, folders, shortcuts and several entries.

#include "tests/support/text.h"
#include "tests/support/ui_test.h"
#include "tests/ui/layout.h"

namespace {

const std::wstring cannotRename = L"This file cannot be renamed.";

class PropertiesUi : public UiTest {
  protected:
    std::uint32_t extensionsHidden = 0;

    /// Shows the folder with these entries selected and opens their properties.
    Dialog Open(const std::wstring& folder, const std::vector<std::wstring>& names) {
        if (!program.Process()) {
            device.SetOption(ListOption::NoExtension, extensionsHidden);
            program.Start();
        }
        program.HandOverFolder(folder);
        program.WaitForFolder(folder);
        program.List().SelectNothing();
        for (const std::wstring& name : names)
            program.List().AddToSelection(name);
        program.WaitForListFocus();
        program.PostCommand(IDM_MENU_PROPERTIES);
        return program.WaitForDialog(L"Properties");
    }
    static void Confirm(Dialog& dialog) {
        dialog.Command(IDM_PROPERTIES_OK);
        dialog.WaitUntilClosed();
        // What was changed is carried out by now or asks about itself.
    }
    void ConfirmQuietly(Dialog& dialog) {
        Confirm(dialog);
        program.WaitUntilIdle();
        EXPECT_FALSE(program.HasMessageBox());
    }
    /// The page that a menu entry of the properties opens over them.
    Dialog OpenPage(Dialog& dialog, int command) {
        dialog.Command(command);
        return program.WaitForDialogOver(dialog);
    }
    static bool StartsWith(const std::wstring& text, const std::wstring& beginning) {
        return text.compare(0, beginning.size(), beginning) == 0;
    }
};

} // namespace

TEST_F(PropertiesUi, OfAFile) {
    device.File(L"\\Temp\\p\\note.txt", std::string(1500, 'x'));
    device.SetWriteTime(L"\\Temp\\p\\note.txt", {2006, 5, 0, 1, 12, 30, 0, 0});
    Dialog dialog = Open(L"\\Temp\\p", {L"note.txt"});
    EXPECT_EQ(dialog.Item(IDC_PAGE_TITLE).Text(), L"Properties of note.txt");
    EXPECT_EQ(dialog.Item(IDC_ENTRY_NAME).Text(), L"note.txt");
    EXPECT_EQ(dialog.Item(IDC_ENTRY_LOCATION).Text(), L"");
    EXPECT_EQ(dialog.Item(IDC_ENTRY_SIZE).Text(), L"1.46 KB (1,500 bytes)");
    EXPECT_TRUE(StartsWith(dialog.Item(IDC_ENTRY_MODIFIED).Text(), L"5/1/2006 "));
    EXPECT_NE(dialog.Item(IDC_ENTRY_CREATED).Text(), L"");
    EXPECT_NE(dialog.Item(IDC_ENTRY_TYPE).Text(), L"");
    EXPECT_EQ(dialog.SoftKeys(), (std::vector<std::wstring>{L"Ok", L"Menu"}));
    EXPECT_FALSE(dialog.SoftKeyMenu().IsEnabled(IDM_PROPERTIES_SHORTCUT));
    EXPECT_FALSE(dialog.SoftKeyMenu().IsEnabled(IDM_PROPERTIES_CONTENTS));
    for (const int box : {IDC_READ_ONLY, IDC_HIDDEN, IDC_ROM, IDC_ARCHIVE})
        EXPECT_TRUE(dialog.Item(box).IsEnabled());
    ExpectGoodLayout(dialog);
}

TEST_F(PropertiesUi, TheSizeTurnsToMegabytesAtAThousandKilobytes) {
    device.FileOfSize(L"\\Temp\\p\\less.bin", 1023999);
    device.FileOfSize(L"\\Temp\\p\\more.bin", 1024000);
    Dialog less = Open(L"\\Temp\\p", {L"less.bin"});
    EXPECT_EQ(less.Item(IDC_ENTRY_SIZE).Text(), L"1,000.00 KB (1,023,999 bytes)");
    less.Command(IDCANCEL);
    less.WaitUntilClosed();
    Dialog more = Open(L"\\Temp\\p", {L"more.bin"});
    EXPECT_EQ(more.Item(IDC_ENTRY_SIZE).Text(), L"0.98 MB (1,024,000 bytes)");
}

TEST_F(PropertiesUi, AttributesAreShownAndChanged) {
    device.SetOption(ListOption::HideHiddenFiles, 0);
    device.File(L"\\Temp\\p\\a.txt");
    device.SetAttributes(L"\\Temp\\p\\a.txt", FILE_ATTRIBUTE_HIDDEN);
    Dialog dialog = Open(L"\\Temp\\p", {L"a.txt"});
    EXPECT_TRUE(dialog.Item(IDC_HIDDEN).IsChecked());
    EXPECT_FALSE(dialog.Item(IDC_READ_ONLY).IsChecked());
    dialog.Item(IDC_READ_ONLY).Click();
    dialog.Item(IDC_HIDDEN).Click();
    WaitFor("for the marks",
            [&] { return dialog.Item(IDC_READ_ONLY).IsChecked() && !dialog.Item(IDC_HIDDEN).IsChecked(); });
    ConfirmQuietly(dialog);
    EXPECT_TRUE(device.Attributes(L"\\Temp\\p\\a.txt") & FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(device.Attributes(L"\\Temp\\p\\a.txt") & FILE_ATTRIBUTE_HIDDEN);
}

TEST_F(PropertiesUi, RenamesTheFile) {
    device.File(L"\\Temp\\p\\old.txt");
    Dialog dialog = Open(L"\\Temp\\p", {L"old.txt"});
    dialog.Item(IDC_ENTRY_NAME).SetText(L"new.txt");
    ConfirmQuietly(dialog);
    program.WaitForNames({L"..", L"new.txt"});
    EXPECT_EQ(device.NamesIn(L"\\Temp\\p"), (std::vector<std::wstring>{L"new.txt"}));
}

TEST_F(PropertiesUi, UnderNoExtensionTheExtensionDoubles) {
    extensionsHidden = 1;
    device.File(L"\\Temp\\p\\old.txt");
    Dialog dialog = Open(L"\\Temp\\p", {L"old"});
    ConfirmQuietly(dialog);
    EXPECT_EQ(device.NamesIn(L"\\Temp\\p"), (std::vector<std::wstring>{L"old.txt.txt"}));
}

TEST_F(PropertiesUi, AnEmptyNameIsRefusedAndAttributesAreChangedAllTheSame) {
    device.File(L"\\Temp\\p\\a.txt");
    Dialog dialog = Open(L"\\Temp\\p", {L"a.txt"});
    dialog.Item(IDC_ENTRY_NAME).SetText(L"");
    dialog.Mark(IDC_READ_ONLY);
    dialog.Command(IDM_PROPERTIES_OK);
    ExpectMessage(cannotRename);
    program.WaitUntilIdle();
    EXPECT_TRUE(device.Attributes(L"\\Temp\\p\\a.txt") & FILE_ATTRIBUTE_READONLY);
}

TEST_F(PropertiesUi, ATakenNameAndOneInAnotherFolderAreRefused) {
    device.File(L"\\Temp\\p\\a.txt", "a");
    device.File(L"\\Temp\\p\\b.txt", "b");
    device.Folder(L"\\Temp\\p\\sub");
    for (const wchar_t* name : {L"b.txt", L"sub\\a.txt", L"..\\a.txt"}) {
        Dialog dialog = Open(L"\\Temp\\p", {L"a.txt"});
        dialog.Item(IDC_ENTRY_NAME).SetText(name);
        dialog.Command(IDM_PROPERTIES_OK);
        ExpectMessage(cannotRename);
        program.WaitUntilIdle();
    }
    EXPECT_EQ(device.Content(L"\\Temp\\p\\a.txt"), "a");
    EXPECT_EQ(device.Content(L"\\Temp\\p\\b.txt"), "b");
}

TEST_F(PropertiesUi, OfAFolderAndItsContents) {
    device.File(L"\\Temp\\p\\box\\one.txt", std::string(1000, 'x'));
    device.File(L"\\Temp\\p\\box\\in\\two.txt", std::string(2000, 'x'));
    device.File(L"\\Temp\\p\\box\\in\\deep\\three.txt", std::string(96, 'x'));
    Dialog dialog = Open(L"\\Temp\\p", {L"box"});
    for (const int box : {IDC_READ_ONLY, IDC_HIDDEN, IDC_ROM, IDC_ARCHIVE})
        EXPECT_FALSE(dialog.Item(box).IsEnabled());
    EXPECT_FALSE(dialog.SoftKeyMenu().IsEnabled(IDM_PROPERTIES_SHORTCUT));
    EXPECT_TRUE(dialog.SoftKeyMenu().IsEnabled(IDM_PROPERTIES_CONTENTS));

    Dialog contents = OpenPage(dialog, IDM_PROPERTIES_CONTENTS);
    EXPECT_EQ(contents.Item(IDC_PAGE_TITLE).Text(), L"Properties of box");
    EXPECT_EQ(contents.Item(IDC_FOLDER_COUNT).Text(), L"Folders : 2");
    EXPECT_EQ(contents.Item(IDC_FILE_COUNT).Text(), L"Files :     3");
    EXPECT_EQ(contents.Item(IDC_CONTENTS_SIZE).Text(), L"3.02 KB");
    EXPECT_EQ(contents.Item(IDC_CONTENTS_BYTES).Text(), L"(3,096 bytes)");
    EXPECT_EQ(contents.SoftKeys(), std::vector<std::wstring>{L"Ok"});
    ExpectGoodLayout(contents);
    Confirm(contents);
    ConfirmQuietly(dialog);
}

TEST_F(PropertiesUi, RenamesAFolderInListAndTree) {
    ShowTree();
    device.Folder(L"\\Temp\\p\\old");
    Dialog dialog = Open(L"\\Temp\\p", {L"old"});
    dialog.Item(IDC_ENTRY_NAME).SetText(L"new");
    ConfirmQuietly(dialog);
    program.WaitForNames({L"..", L"new"});
    EXPECT_EQ(program.Tree().ChildrenOf(L"\\Temp\\p"), (std::vector<std::wstring>{L"new"}));
}

TEST_F(PropertiesUi, OfSeveralEntriesAreTheirTotals) {
    device.File(L"\\Temp\\p\\a.txt", std::string(10, 'x'));
    device.File(L"\\Temp\\p\\b.txt", std::string(20, 'x'));
    device.File(L"\\Temp\\p\\box\\c.txt", std::string(30, 'x'));
    Dialog files = Open(L"\\Temp\\p", {L"a.txt", L"b.txt"});
    EXPECT_EQ(files.Item(IDC_FOLDER_COUNT).Text(), L"Folders : 0");
    EXPECT_EQ(files.Item(IDC_FILE_COUNT).Text(), L"Files :     2");
    EXPECT_EQ(files.Item(IDC_CONTENTS_BYTES).Text(), L"(30 bytes)");
    ConfirmQuietly(files);
    Dialog all = Open(L"\\Temp\\p", {L"a.txt", L"b.txt", L"box"});
    EXPECT_EQ(all.Item(IDC_FOLDER_COUNT).Text(), L"Folders : 1");
    EXPECT_EQ(all.Item(IDC_FILE_COUNT).Text(), L"Files :     3");
    EXPECT_EQ(all.Item(IDC_CONTENTS_BYTES).Text(), L"(60 bytes)");
    ConfirmQuietly(all);
    EXPECT_EQ(device.NamesIn(L"\\Temp\\p"), (std::vector<std::wstring>{L"a.txt", L"b.txt", L"box"}));
}

TEST_F(PropertiesUi, ContentsDoNotFollowLinks) {
    device.File(L"\\Temp\\p\\box\\a.txt", "12345");
    device.File(L"\\Temp\\elsewhere\\b.txt", "12345");
    device.HostLink("Temp/p/box/loop", "..");
    device.HostLink("Temp/p/box/away", "../../elsewhere");
    device.HostLink("Temp/p/away", "../elsewhere");
    Dialog dialog = Open(L"\\Temp\\p", {L"box", L"away"});
    EXPECT_EQ(dialog.Item(IDC_FOLDER_COUNT).Text(), L"Folders : 4");
    EXPECT_EQ(dialog.Item(IDC_FILE_COUNT).Text(), L"Files :     1");
    EXPECT_EQ(dialog.Item(IDC_CONTENTS_BYTES).Text(), L"(5 bytes)");
}

TEST_F(PropertiesUi, AFolderThatCannotBeReadCountsAsEmpty) {
    device.File(L"\\Temp\\p\\box\\closed\\a.txt", "12345");
    device.File(L"\\Temp\\p\\box\\b.txt", "123");
    device.Forbid("Temp/p/box/closed");
    Dialog dialog = Open(L"\\Temp\\p", {L"box"});
    Dialog contents = OpenPage(dialog, IDM_PROPERTIES_CONTENTS);
    EXPECT_EQ(contents.Item(IDC_FOLDER_COUNT).Text(), L"Folders : 1");
    EXPECT_EQ(contents.Item(IDC_FILE_COUNT).Text(), L"Files :     1");
}

TEST_F(PropertiesUi, LargeFoldersAreCountedWhileThePageAnswers) {
    for (int folder = 0; folder < 10; ++folder)
        device.Files(L"\\Temp\\p\\box\\" + std::to_wstring(folder), L"f", 300);
    Dialog dialog = Open(L"\\Temp\\p", {L"box"});
    Dialog contents = OpenPage(dialog, IDM_PROPERTIES_CONTENTS);
    EXPECT_TRUE(Answers(contents.Window()));
    WaitFor(
        "for the count", [&] { return contents.Item(IDC_FILE_COUNT).Text() == L"Files :     3000"; }, 60000);
    EXPECT_EQ(contents.Item(IDC_FOLDER_COUNT).Text(), L"Folders : 10");
    Confirm(contents);
    ConfirmQuietly(dialog);
}

TEST_F(PropertiesUi, OfAShortcutAndItsTarget) {
    device.File(L"\\Temp\\p\\way.lnk", "28#\"\\My Documents\\Welcome.txt\"");
    Dialog dialog = Open(L"\\Temp\\p", {L"way.lnk"});
    EXPECT_TRUE(dialog.SoftKeyMenu().IsEnabled(IDM_PROPERTIES_SHORTCUT));
    EXPECT_FALSE(dialog.SoftKeyMenu().IsEnabled(IDM_PROPERTIES_CONTENTS));
    Dialog page = OpenPage(dialog, IDM_PROPERTIES_SHORTCUT);
    EXPECT_EQ(page.Item(IDC_SHORTCUT_NAME).Text(), L"way.lnk");
    EXPECT_EQ(page.Item(IDC_TARGET).Text(), L"\"\\My Documents\\Welcome.txt\"");
    EXPECT_NE(page.Item(IDC_TARGET_TYPE).Text(), L"");
    EXPECT_NE(page.Item(IDC_TARGET_TYPE).Text(), L"Invalid Shortcut");
    EXPECT_EQ(page.SoftKeys(), std::vector<std::wstring>{L"Ok"});
    ExpectGoodLayout(page);
    page.Item(IDC_TARGET).SetText(L"\\Windows\\Wallpaper.png");
    Confirm(page);
    ConfirmQuietly(dialog);
    EXPECT_EQ(device.Content(L"\\Temp\\p\\way.lnk"), "22#\\Windows\\Wallpaper.png");
    EXPECT_EQ(device.NamesIn(L"\\Temp\\p"), (std::vector<std::wstring>{L"way.lnk"}));
}

TEST_F(PropertiesUi, AnEmptiedTargetIsRefused) {
    device.File(L"\\Temp\\p\\way.lnk", "8#\\Windows");
    Dialog dialog = Open(L"\\Temp\\p", {L"way.lnk"});
    Dialog page = OpenPage(dialog, IDM_PROPERTIES_SHORTCUT);
    page.Item(IDC_TARGET).SetText(L"");
    Confirm(page);
    dialog.Command(IDM_PROPERTIES_OK);
    ExpectMessage(L"No Link-Target.");
    EXPECT_EQ(device.Content(L"\\Temp\\p\\way.lnk"), "8#\\Windows");
}

TEST_F(PropertiesUi, ATargetThatIsGoneAndAFileThatIsNoShortcutAreInvalid) {
    device.File(L"\\Temp\\p\\gone.lnk", "12#\\Windows\\abc");
    device.File(L"\\Temp\\p\\none.lnk", "no shortcut at all");
    Dialog gone = Open(L"\\Temp\\p", {L"gone.lnk"});
    Dialog page = OpenPage(gone, IDM_PROPERTIES_SHORTCUT);
    EXPECT_EQ(page.Item(IDC_TARGET_TYPE).Text(), L"Invalid Shortcut");
    EXPECT_TRUE(page.Item(IDC_TARGET).IsEnabled());
    Confirm(page);
    ConfirmQuietly(gone);
    Dialog none = Open(L"\\Temp\\p", {L"none.lnk"});
    Dialog nonePage = OpenPage(none, IDM_PROPERTIES_SHORTCUT);
    EXPECT_EQ(nonePage.Item(IDC_TARGET_TYPE).Text(), L"Invalid Shortcut");
    EXPECT_FALSE(nonePage.Item(IDC_TARGET).IsEnabled());
}

TEST_F(PropertiesUi, AShortcutInUseKeepsItsTarget) {
    device.File(L"\\Temp\\p\\way.lnk", "8#\\Windows");
    Dialog dialog = Open(L"\\Temp\\p", {L"way.lnk"});
    Dialog page = OpenPage(dialog, IDM_PROPERTIES_SHORTCUT);
    page.Item(IDC_TARGET).SetText(L"\\Temp");
    Confirm(page);
    {
        const HeldFile held = device.Hold(L"\\Temp\\p\\way.lnk");
        dialog.Command(IDM_PROPERTIES_OK);
        ExpectMessage(L"This link target cannot be changed.");
    }
    EXPECT_EQ(device.Content(L"\\Temp\\p\\way.lnk"), "8#\\Windows");
}

TEST_F(PropertiesUi, OfAFileInRom) {
    Dialog dialog = Open(L"\\Windows", {L"Wallpaper.png"});
    const std::wstring type = dialog.Item(IDC_ENTRY_TYPE).Text();
    EXPECT_NE(type.find(L" (in ROM)"), std::wstring::npos);
}

TEST_F(PropertiesUi, OfTheFolderShownWhenNothingIsSelected) {
    device.Folder(L"\\Temp\\p\\here");
    Dialog dialog = Open(L"\\Temp\\p\\here", {});
    EXPECT_EQ(dialog.Item(IDC_PAGE_TITLE).Text(), L"Properties of here");
    dialog.Item(IDC_ENTRY_NAME).SetText(L"there");
    ConfirmQuietly(dialog);
    program.WaitForFolder(L"\\Temp\\p\\there");
}

TEST_F(PropertiesUi, OfTheWholeDevice) {
    program.Start();
    program.Command(IDM_VIEW_FOLDER_TREE);
    program.Command(IDM_FOCUS_PREV);
    WaitFor("for the tree to have the keyboard", [&] { return program.TreeHasFocus(); });
    program.PostCommand(IDM_MENU_PROPERTIES);
    Dialog dialog = program.WaitForDialog(L"Properties");
    EXPECT_EQ(dialog.Item(IDC_PAGE_TITLE).Text(), L"Properties of " + program.Tree().RootText());
    EXPECT_FALSE(dialog.Item(IDC_HIDDEN).IsEnabled());
    ConfirmQuietly(dialog);
}

TEST_F(PropertiesUi, TheRomBoxTellsOfSystemFilesAndTakesNoClicks) {
    device.File(L"\\Temp\\p\\a.txt");
    device.SetAttributes(L"\\Temp\\p\\a.txt", FILE_ATTRIBUTE_SYSTEM);
    Dialog dialog = Open(L"\\Temp\\p", {L"a.txt"});
    HWND rom = dialog.Item(IDC_ROM).Window();
    EXPECT_EQ(Ask(rom, BM_GETCHECK), BST_INDETERMINATE);
    dialog.Item(IDC_ROM).Click();
    program.WaitUntilIdle();
    EXPECT_EQ(Ask(rom, BM_GETCHECK), BST_INDETERMINATE);
    ConfirmQuietly(dialog);
    EXPECT_TRUE(device.Attributes(L"\\Temp\\p\\a.txt") & FILE_ATTRIBUTE_SYSTEM);
}

TEST_F(PropertiesUi, EachChangeThatFailsIsTold) {
    device.File(L"\\Temp\\p\\a.txt");
    Dialog dialog = Open(L"\\Temp\\p", {L"a.txt"});
    dialog.Mark(IDC_HIDDEN);
    dialog.Item(IDC_ENTRY_NAME).SetText(L"b.txt");
    device.Remove(L"\\Temp\\p\\a.txt");
    dialog.Command(IDM_PROPERTIES_OK);
    ExpectMessage(L"These attributes cannot be changed.");
    ExpectMessage(cannotRename);
}

TEST_F(PropertiesUi, BackErasesInTheName) {
    device.File(L"\\Temp\\p\\a.txt");
    Dialog dialog = Open(L"\\Temp\\p", {L"a.txt"});
    WaitFor("for the keyboard", [&] { return program.Focus() == dialog.Item(IDC_ENTRY_NAME).Window(); });
    Ask(dialog.Item(IDC_ENTRY_NAME).Window(), EM_SETSEL, 5, 5);
    PressBack();
    WaitFor("for the last letter to go", [&] { return dialog.Item(IDC_ENTRY_NAME).Text() == L"a.tx"; });
    EXPECT_TRUE(dialog.IsOpen());
    PressLeftSoftKey();
    dialog.WaitUntilClosed();
    WaitFor("for the new name", [&] { return device.Exists(L"\\Temp\\p\\a.tx"); });
}

TEST_F(PropertiesUi, ANameTooLongForItsFolderIsRefused) {
    device.File(L"\\Temp\\p\\a.txt");
    Dialog dialog = Open(L"\\Temp\\p", {L"a.txt"});
    dialog.Item(IDC_ENTRY_NAME).SetText(std::wstring(600, L'n'));
    dialog.Command(IDM_PROPERTIES_OK);
    ExpectMessage(cannotRename);
    EXPECT_TRUE(device.Exists(L"\\Temp\\p\\a.txt"));
}
