// Screens: 240x320

// Start, the command line, the single instance with its hand-over, and the end.

#include <cstddef>
#include <random>

#include "tests/support/ui_test.h"

namespace {

constexpr ULONG_PTR openFolderCode = 563;
constexpr wchar_t instanceName[] = L"Tarvik File ManagerPLUSUNI";
const std::wstring rootName = L"My PocketPC";

class StartUpUi : public UiTest {
  protected:
    /// Starts the program with this command line and tells the folder it shows.
    std::wstring FolderShownBy(const std::wstring& commandLine) {
        program.Start(commandLine);
        return program.Folder();
    }

    /// Opens and closes the menu by keys of the screen, which go where the X server has the keyboard.
    void ExpectMenuByKeysOfTheScreen() {
        RunOnHost("xdotool key F10");
        ASSERT_TRUE(Eventually([&] { return program.MenuIsOpen(); }));
        RunOnHost("xdotool key Escape");
        ASSERT_TRUE(Eventually([&] { return !program.MenuIsOpen(); }));
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

// --- A second start ---

TEST_F(StartUpUi, ASecondStartBringsTheFirstForward) {
    program.Start(L"\\Temp");
    const OtherProgram other;
    EXPECT_FALSE(program.IsInFront());
    EXPECT_EQ(Program::StartAgain(), 0u);
    EXPECT_TRUE(Eventually([&] { return program.IsInFront(); }));
    EXPECT_EQ(program.Folder(), L"\\Temp");
}

TEST_F(StartUpUi, ASecondStartGivesTheFirstTheKeyboardOfTheScreen) {
    program.Start(L"\\Temp");
    ExpectMenuByKeysOfTheScreen(); // Wine learns the X server's time from them
    // A message that the program happens to fetch in between would help it: so more than once.
    for (int round = 1; round <= 5 && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        const OtherProgram other(L"other_program", L"In front");
        RunOnHost("xdotool search --onlyvisible --name '^In front$' windowfocus");
        EXPECT_EQ(Program::StartAgain(L"\\Temp"), 0u);
        WaitFor("for the keyboard", [&] { return program.ListHasFocus(); });
        program.WaitUntilIdle();
        ExpectMenuByKeysOfTheScreen();
    }
}

TEST_F(StartUpUi, ASecondStartHandsItsFolderOver) {
    program.Start(L"\\Temp");
    const OtherProgram other;
    EXPECT_EQ(Program::StartAgain(L"\"\\My Documents\" and more"), 0u);
    EXPECT_TRUE(Eventually([&] { return program.IsInFront(); }));
    EXPECT_EQ(program.Folder(), L"\\My Documents");
    EXPECT_TRUE(program.List().Has(L"Notes"));
    EXPECT_EQ(Program::StartAgain(L"/FOLDER:\\Windows"), 0u);
    EXPECT_EQ(program.Folder(), L"\\Windows");
}

TEST_F(StartUpUi, ASecondStartWithAFileOrNothingThereOnlyBringsTheFirstForward) {
    program.Start(L"\\Temp");
    for (const wchar_t* path : {L"\\My Documents\\Welcome.txt", L"\\Nowhere"}) {
        const OtherProgram other;
        EXPECT_EQ(Program::StartAgain(path), 0u);
        EXPECT_TRUE(Eventually([&] { return program.IsInFront(); }));
        EXPECT_EQ(program.Folder(), L"\\Temp");
        EXPECT_FALSE(program.HasMessageBox());
    }
}

TEST_F(StartUpUi, ASecondStartChangesNothingInTheRegistry) {
    program.Start();
    const auto settings = registry::ValuesOf(settingsKey);
    const auto product = registry::ValuesOf(productKey);
    Program::StartAgain(L"\\Temp");
    EXPECT_EQ(registry::ValuesOf(settingsKey), settings);
    EXPECT_EQ(registry::ValuesOf(productKey), product);
}

TEST_F(StartUpUi, TheHandOverCarriesThePathWithItsZero) {
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, instanceName);
    const OtherProgram first(instanceName);
    EXPECT_EQ(Program::StartAgain(L"\\My Documents"), 0u);
    EXPECT_EQ(Program::StartAgain(), 0u);
    CloseHandle(mutex);
    ASSERT_EQ(first.Received().size(), 1u);
    const ReceivedCopyData handOver = first.Received().front();
    EXPECT_EQ(handOver.code, openFolderCode);
    EXPECT_EQ(handOver.sender, 0u);
    EXPECT_EQ(handOver.size, (handOver.text.size() + 1) * sizeof(wchar_t));
    EXPECT_EQ(handOver.text, L"\\My Documents");
}

TEST_F(StartUpUi, AStartWhileTheFirstHasNoWindowYetEndsSilently) {
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, instanceName);
    EXPECT_EQ(Program::StartAgain(L"\\My Documents"), 0u);
    CloseHandle(mutex);
    EXPECT_FALSE(registry::KeyExists(productKey)) << "it must not have got as far as its settings";
}

// --- Hand-overs from anywhere ---

TEST_F(StartUpUi, AHandOverShowsTheFolder) {
    program.Start();
    program.HandOverFolder(L"\\My Documents");
    EXPECT_EQ(program.Folder(), L"\\My Documents");
    program.HandOverFolder(L"\\");
    EXPECT_EQ(program.Folder(), rootName);
}

TEST_F(StartUpUi, AHandOverOfTheLongestPathShowsItAndOneLongerDoesNot) {
    const std::wstring folder = L"\\" + std::wstring(128, L'a') + L"\\" + std::wstring(129, L'b');
    ASSERT_EQ(folder.size(), 259u);
    device.HostFolder(std::string(128, 'a') + "/" + std::string(129, 'b'));
    device.HostFolder(std::string(128, 'a') + "/" + std::string(130, 'b'));
    program.Start();
    program.HandOverFolder(folder);
    EXPECT_EQ(program.Folder(), folder);
    program.HandOverFolder(L"\\Temp");
    program.HandOverFolder(folder + L"b");
    EXPECT_EQ(program.Folder(), L"\\Temp");
}

TEST_F(StartUpUi, MalformedHandOversAreIgnored) {
    struct Malformed {
        const char* what;
        ULONG_PTR code;
        std::wstring text;
        DWORD size;
    };
    const std::wstring folder = L"\\Temp";
    const std::wstring zero(1, L'\0');
    const std::wstring deep = L"\\Temp" + std::wstring(1'000'000, L'\\') + zero;
    const Malformed all[] = {
        {"another code", 562, folder + zero, 12},
        {"no code", 0, folder + zero, 12},
        {"no bytes", openFolderCode, L"", 0},
        {"one byte", openFolderCode, folder + zero, 1},
        {"an odd number of bytes", openFolderCode, folder + zero, 11},
        {"no terminating zero", openFolderCode, folder, 10},
        {"the zero alone", openFolderCode, zero, 2},
        {"a path far too long", openFolderCode, deep, static_cast<DWORD>(deep.size() * 2)},
        {"nothing but backslashes", openFolderCode, std::wstring(200, L'\\') + zero, 402},
        {"a file", openFolderCode, L"\\My Documents\\Welcome.txt" + zero, 52},
        {"a missing folder", openFolderCode, L"\\Nowhere" + zero, 18},
        {"a pattern", openFolderCode, L"\\*" + zero, 6},
        {"the characters no name may have", openFolderCode, L"\\<>|?\"\x01\xFFFE\xD800" + zero, 20},
    };
    program.Start(L"\\My Documents");
    for (const Malformed& malformed : all) {
        SCOPED_TRACE(malformed.what);
        EXPECT_EQ(program.SendCopyData(malformed.code, malformed.text.data(), malformed.size), 0);
        EXPECT_EQ(program.Folder(), L"\\My Documents");
        EXPECT_FALSE(program.HasMessageBox());
    }
}

TEST_F(StartUpUi, AHandOverWithoutABlockIsIgnored) {
    program.Start(L"\\My Documents");
    EXPECT_EQ(program.SendCopyData(openFolderCode, nullptr, 0), 0);
    EXPECT_EQ(program.Folder(), L"\\My Documents");
}

TEST_F(StartUpUi, AFloodOfJunkHandOversDoesNoHarm) {
    program.Start(L"\\My Documents");
    std::mt19937 random(563);
    for (int message = 0; message < 300; ++message) {
        std::wstring junk(random() % 400 + 1, L'\0');
        for (wchar_t& character : junk)
            character = static_cast<wchar_t>(random());
        junk.front() = L'\\';
        program.SendCopyData(random() % 2 ? openFolderCode : random(), junk.data(),
                             static_cast<DWORD>(random() % (junk.size() * sizeof(wchar_t) + 1)));
    }
    EXPECT_EQ(program.Folder(), L"\\My Documents");
    EXPECT_FALSE(program.HasMessageBox());
}

TEST_F(StartUpUi, WhatStandsBehindTheFirstZeroIsNotRead) {
    program.Start();
    const std::wstring text = L"\\Temp" + std::wstring(1, L'\0') + L"junk" + std::wstring(1, L'\0');
    program.SendCopyData(openFolderCode, text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t)));
    EXPECT_EQ(program.Folder(), L"\\Temp");
}

TEST_F(StartUpUi, AHandOverWhileANameIsEditedLeavesTheNameAsItWas) {
    device.File(L"\\A\\one");
    device.File(L"\\B\\two");
    program.Start(L"\\A");
    program.List().Select(L"one");
    program.PostCommand(IDM_FILE_RENAME);
    WaitFor("for the editor", [&] { return program.List().NameEditor() != nullptr; });
    Control(program.List().NameEditor()).SetText(L"half typed");
    program.HandOverFolder(L"\\B");
    EXPECT_EQ(program.List().NameEditor(), nullptr);
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"two"}));
    EXPECT_EQ(device.NamesIn(L"\\A"), (Texts{L"one"}));
    EXPECT_EQ(device.NamesIn(L"\\B"), (Texts{L"two"}));
}

TEST_F(StartUpUi, AHandOverWhileADialogIsOpenShowsTheFolderBehindIt) {
    device.File(L"\\A\\one");
    device.File(L"\\B\\two");
    program.Start(L"\\A");
    program.List().Select(L"one");
    program.PostCommand(IDM_FILE_DELETE);
    Dialog question = program.WaitForDialog(L"Confirm File Delete");
    program.HandOverFolder(L"\\B");
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"two"}));
    question.Command(IDM_ANSWER_YES);
    question.WaitUntilClosed();
    WaitFor("for the file to go", [&] { return device.NamesIn(L"\\A").empty(); });
    EXPECT_TRUE(Eventually([&] { return !program.HasDialog(); }));
    EXPECT_EQ(device.NamesIn(L"\\B"), (Texts{L"two"})) << "the question was about another file";
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"two"}));
}

TEST_F(StartUpUi, AHandOverDuringAMenuIsShownOnceTheMenuIsClosed) {
    program.Start();
    PressRightSoftKey();
    program.WaitForMenu();
    program.HandOverFolder(L"\\Temp");
    program.CloseMenus();
    program.WaitForFolder(L"\\Temp");
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

} // namespace
