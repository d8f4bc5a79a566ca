// Screens: 240x320

// Start, the command line, and the end.

#include "tests/support/ui_test.h"

namespace {

const std::wstring rootName = L"My PocketPC";

class StartUpUi : public UiTest {
  protected:
    /// Starts the program with this command line and tells the folder it shows.
    std::wstring FolderShownBy(const std::wstring& commandLine) {
        program.Start(commandLine);
        return program.Folder();
    }
};

// --- What comes up ---

TEST_F(StartUpUi, ShowsTheTopOfTheDevice) {
    EXPECT_EQ(FolderShownBy(L""), rootName);
    EXPECT_EQ(program.List().Names(),
              (Texts{L"My Documents", L"Network", L"Program Files", L"Temp", L"Windows"}));
    EXPECT_EQ(program.Status().Texts(), (Texts{L"5", L"0.00KB", L"My PocketPC"}));
    EXPECT_EQ(program.SoftKeys(), (Texts{L"Change View", L"Menu"}));
    EXPECT_EQ(TextOf(program.Window()), L"Tarvik File Manager");
}

TEST_F(StartUpUi, GivesTheKeyboardToTheListWithItsFirstRowSelected) {
    program.Start();
    EXPECT_TRUE(program.ListHasFocus());
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"My Documents"}));
    EXPECT_EQ(program.List().FocusedName(), L"My Documents");
}

TEST_F(StartUpUi, HasItsSmallAndItsBigIcon) {
    program.Start();
    EXPECT_NE(AskInside(program.Window(), WM_GETICON, ICON_SMALL), 0);
    EXPECT_NE(AskInside(program.Window(), WM_GETICON, ICON_BIG), 0);
}

TEST_F(StartUpUi, StartsOnADeviceThatHasNothing) {
    device.RemoveAll();
    EXPECT_EQ(FolderShownBy(L""), rootName);
    EXPECT_EQ(program.List().Names(), (Texts{L"Program Files"}));
}

// --- The command line ---

TEST_F(StartUpUi, PrefixNamesTheFolder) {
    EXPECT_EQ(FolderShownBy(L"/FOLDER:\\My Documents"), L"\\My Documents");
    EXPECT_EQ(program.List().Names().front(), L"..");
}

TEST_F(StartUpUi, PrefixKeepsQuotesAndSoFallsBackToTheLastFolder) {
    device.WriteText(settingsKey, L"LastFolder", L"\\Windows");
    EXPECT_EQ(FolderShownBy(L"/FOLDER:\"\\My Documents\""), L"\\Windows");
}

TEST_F(StartUpUi, PrefixInOtherLettersIsNoPrefix) {
    device.WriteText(settingsKey, L"LastFolder", L"\\Windows");
    EXPECT_EQ(FolderShownBy(L"/folder:\\My Documents"), L"\\Windows");
}

TEST_F(StartUpUi, PrefixAloneFallsBackToTheLastFolder) {
    device.WriteText(settingsKey, L"LastFolder", L"\\Windows");
    EXPECT_EQ(FolderShownBy(L"/FOLDER:"), L"\\Windows");
}

TEST_F(StartUpUi, PlainPathIsTheWholeCommandLine) {
    EXPECT_EQ(FolderShownBy(L"\\My Documents"), L"\\My Documents");
}

TEST_F(StartUpUi, PlainPathWithWordsBehindItIsNoFolder) {
    EXPECT_EQ(FolderShownBy(L"\\My Documents and more"), rootName);
}

TEST_F(StartUpUi, QuotedPathNamesTheFolder) {
    EXPECT_EQ(FolderShownBy(L"\"\\My Documents\""), L"\\My Documents");
}

TEST_F(StartUpUi, QuotedPathIsCutAtTheClosingQuote) {
    EXPECT_EQ(FolderShownBy(L"\"\\My Documents\" and \"more\" words"), L"\\My Documents");
}

TEST_F(StartUpUi, QuotedPathWithoutClosingQuoteIsTakenToItsEnd) {
    EXPECT_EQ(FolderShownBy(L"\"\\My Documents"), L"\\My Documents");
}

TEST_F(StartUpUi, AQuoteAloneFallsBackToTheLastFolder) {
    device.WriteText(settingsKey, L"LastFolder", L"\\Windows");
    EXPECT_EQ(FolderShownBy(L"\""), L"\\Windows");
}

TEST_F(StartUpUi, AFileIsNoFolderToStartIn) {
    EXPECT_EQ(FolderShownBy(L"\\My Documents\\Welcome.txt"), rootName);
    EXPECT_FALSE(program.HasMessageBox());
}

TEST_F(StartUpUi, AMissingFolderFallsBackToTheLastFolderUnchecked) {
    device.WriteText(settingsKey, L"LastFolder", L"\\Gone");
    EXPECT_EQ(FolderShownBy(L"\\Nowhere"), L"\\Gone");
    EXPECT_EQ(program.List().Names(), (Texts{L".."}));
    EXPECT_FALSE(program.HasMessageBox());
}

TEST_F(StartUpUi, AnEndlessCommandLineDoesNoHarm) {
    EXPECT_EQ(FolderShownBy(std::wstring(20000, L'\\')), rootName);
    EXPECT_EQ(FolderShownBy(L"/FOLDER:\\" + std::wstring(20000, L'x')), rootName);
}

TEST_F(StartUpUi, FormatCharactersInACommandLineStandForThemselves) {
    device.Folder(L"\\%s%n%d");
    EXPECT_EQ(FolderShownBy(L"\\%s%n%d"), L"\\%s%n%d");
}

TEST_F(StartUpUi, WithoutACommandLineTheLastFolderCountsOnlyWhenItIsToBeRemembered) {
    device.WriteText(settingsKey, L"LastFolder", L"\\My Documents");
    EXPECT_EQ(FolderShownBy(L""), rootName);
    device.SetOption(ListOption::RememberLastFolder, 1);
    EXPECT_EQ(FolderShownBy(L""), L"\\My Documents");
}

TEST_F(StartUpUi, ALastFolderThatIsGoneOrAFileIsNotRemembered) {
    device.SetOption(ListOption::RememberLastFolder, 1);
    device.WriteText(settingsKey, L"LastFolder", L"\\Gone");
    EXPECT_EQ(FolderShownBy(L""), rootName);
    device.WriteText(settingsKey, L"LastFolder", L"\\My Documents\\Welcome.txt");
    EXPECT_EQ(FolderShownBy(L""), rootName);
}

TEST_F(StartUpUi, TheCommandLineComesBeforeTheRememberedFolder) {
    device.SetOption(ListOption::RememberLastFolder, 1);
    device.WriteText(settingsKey, L"LastFolder", L"\\My Documents");
    EXPECT_EQ(FolderShownBy(L"\\Temp"), L"\\Temp");
}

TEST_F(StartUpUi, EverySpellingOfTheRootStartsThere) {
    device.WriteText(settingsKey, L"LastFolder", L"\\Windows");
    for (const wchar_t* root : {L"\\", L"\"\\\"", L"/", L"/FOLDER:\\"}) {
        EXPECT_EQ(FolderShownBy(root), rootName) << Narrow(root);
        EXPECT_EQ(program.List().Names(),
                  (Texts{L"My Documents", L"Network", L"Program Files", L"Temp", L"Windows"}));
        program.Kill();
    }
}

TEST_F(StartUpUi, AnEmptyPathFallsBackToTheLastFolder) {
    device.WriteText(settingsKey, L"LastFolder", L"\\Windows");
    EXPECT_EQ(FolderShownBy(L"\"\""), L"\\Windows");
}

// --- Keys of the frame ---

TEST_F(StartUpUi, TabGoesThroughThePanes) {
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    program.Start();
    PressKey(VK_TAB);
    EXPECT_TRUE(Eventually([&] { return program.TreeHasFocus(); }));
    PressKey(VK_TAB);
    EXPECT_TRUE(Eventually([&] { return program.ListHasFocus(); }));
    PressKey(VK_TAB, Shift);
    EXPECT_TRUE(Eventually([&] { return program.TreeHasFocus(); }));
    PressKey(VK_TAB, Shift);
    EXPECT_TRUE(Eventually([&] { return program.ListHasFocus(); }));
}

TEST_F(StartUpUi, TheBackKeyInTheListLeavesTheProgramAsItIs) {
    program.Start(L"\\Temp");
    PressBack();
    EXPECT_TRUE(HoldsFor(150, [&] { return program.Folder() == L"\\Temp" && program.ListHasFocus(); }));
    EXPECT_TRUE(program.IsRunning());
}

TEST_F(StartUpUi, TheBackKeyClosesTheMenu) {
    program.Start();
    PressRightSoftKey();
    program.WaitForMenu();
    PressBack();
    EXPECT_TRUE(Eventually([&] { return !program.MenuIsOpen(); }));
    EXPECT_TRUE(program.IsRunning());
}

// --- The end ---

TEST_F(StartUpUi, ExitEndsTheProgramAndSaves) {
    program.Start(L"\\Temp");
    program.PostCommand(IDM_MENU_EXIT);
    program.WaitForEnd();
    EXPECT_EQ(program.ExitCode(), 0u);
    EXPECT_EQ(device.TextValue(settingsKey, L"LastFolder"), L"\\Temp");
}

TEST_F(StartUpUi, ClosingFromOutsideEndsTheProgramAndSaves) {
    program.Start(L"\\Temp");
    program.Close();
    EXPECT_EQ(program.ExitCode(), 0u);
    EXPECT_EQ(device.TextValue(settingsKey, L"LastFolder"), L"\\Temp");
}

TEST_F(StartUpUi, ClosingTwiceIsClosingOnce) {
    program.Start();
    PostMessageW(program.Window(), WM_CLOSE, 0, 0);
    PostMessageW(program.Window(), WM_CLOSE, 0, 0);
    program.WaitForEnd();
    EXPECT_EQ(program.ExitCode(), 0u);
}

TEST_F(StartUpUi, ClosingWhileAMenuIsOpenEndsTheProgram) {
    program.Start();
    PressRightSoftKey();
    program.WaitForMenu();
    program.Close();
    EXPECT_EQ(program.ExitCode(), 0u);
}

TEST_F(StartUpUi, ClosingWhileADialogIsOpenEndsTheProgramAndSaves) {
    device.File(L"\\A\\file");
    for (const UINT command : {IDM_FILE_SEARCH, IDM_MENU_PROPERTIES, IDM_SENDTO_COPY_TO, IDM_FILE_DELETE}) {
        program.Start(L"\\A");
        program.List().Select(L"file");
        program.PostCommand(command);
        WaitFor("for the dialog", [&] { return program.HasDialog(); });
        program.Close();
        EXPECT_EQ(program.ExitCode(), 0u) << command;
        EXPECT_EQ(device.TextValue(settingsKey, L"LastFolder"), L"\\A") << command;
    }
}

TEST_F(StartUpUi, ClosingWhileAMessageIsOpenEndsTheProgramAndSaves) {
    program.Start(L"\\Temp");
    program.AddressBar().SetText(L"\\nothing there");
    program.PostCommand(IDM_TOOLBAR_GO_TO);
    program.WaitForMessageBox();
    program.Close();
    EXPECT_EQ(program.ExitCode(), 0u);
    EXPECT_EQ(device.TextValue(settingsKey, L"LastFolder"), L"\\Temp");
}

TEST_F(StartUpUi, AfterTheEndTheProgramStartsAnew) {
    program.Start();
    program.Restart(L"\\Temp");
    EXPECT_EQ(program.Folder(), L"\\Temp");
}

} // namespace
