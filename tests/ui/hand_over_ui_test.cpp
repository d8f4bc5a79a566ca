// Screens: 240x320

// The single instance: a second start, and folders handed over from anywhere.

#include <cstddef>
#include <random>

#include "tests/support/ui_test.h"

namespace {

constexpr ULONG_PTR openFolderCode = 563;
constexpr wchar_t instanceName[] = L"Tarvik File ManagerPLUSUNI";

class HandOverUi : public UiTest {
  protected:
    /// Opens and closes the menu by keys of the screen, which go where the X server has the keyboard.
    void ExpectMenuByKeysOfTheScreen() {
        RunOnHost("xdotool key F10");
        ASSERT_TRUE(Eventually([&] { return program.MenuIsOpen(); }));
        RunOnHost("xdotool key Escape");
        ASSERT_TRUE(Eventually([&] { return !program.MenuIsOpen(); }));
    }
};

// --- A second start ---

TEST_F(HandOverUi, ASecondStartBringsTheFirstForward) {
    program.Start(L"\\Temp");
    const OtherProgram other;
    EXPECT_FALSE(program.IsInFront());
    EXPECT_EQ(Program::StartAgain(), 0u);
    EXPECT_TRUE(Eventually([&] { return program.IsInFront(); }));
    EXPECT_EQ(program.Folder(), L"\\Temp");
}

TEST_F(HandOverUi, ASecondStartGivesTheFirstTheKeyboardOfTheScreen) {
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

TEST_F(HandOverUi, ASecondStartHandsItsFolderOver) {
    program.Start(L"\\Temp");
    const OtherProgram other;
    EXPECT_EQ(Program::StartAgain(L"\"\\My Documents\" and more"), 0u);
    EXPECT_TRUE(Eventually([&] { return program.IsInFront(); }));
    EXPECT_EQ(program.Folder(), L"\\My Documents");
    EXPECT_TRUE(program.List().Has(L"Notes"));
    EXPECT_EQ(Program::StartAgain(L"/FOLDER:\\Windows"), 0u);
    EXPECT_EQ(program.Folder(), L"\\Windows");
}

TEST_F(HandOverUi, ASecondStartWithAFileOrNothingThereOnlyBringsTheFirstForward) {
    program.Start(L"\\Temp");
    for (const wchar_t* path : {L"\\My Documents\\Welcome.txt", L"\\Nowhere"}) {
        const OtherProgram other;
        EXPECT_EQ(Program::StartAgain(path), 0u);
        EXPECT_TRUE(Eventually([&] { return program.IsInFront(); }));
        EXPECT_EQ(program.Folder(), L"\\Temp");
        EXPECT_FALSE(program.HasMessageBox());
    }
}

TEST_F(HandOverUi, ASecondStartChangesNothingInTheRegistry) {
    program.Start();
    const auto settings = registry::ValuesOf(settingsKey);
    const auto product = registry::ValuesOf(productKey);
    Program::StartAgain(L"\\Temp");
    EXPECT_EQ(registry::ValuesOf(settingsKey), settings);
    EXPECT_EQ(registry::ValuesOf(productKey), product);
}

TEST_F(HandOverUi, TheHandOverCarriesThePathWithItsZero) {
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

TEST_F(HandOverUi, AStartWhileTheFirstHasNoWindowYetEndsSilently) {
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, instanceName);
    EXPECT_EQ(Program::StartAgain(L"\\My Documents"), 0u);
    CloseHandle(mutex);
    EXPECT_FALSE(registry::KeyExists(productKey)) << "it must not have got as far as its settings";
}

// --- Hand-overs from anywhere ---

TEST_F(HandOverUi, AHandOverShowsTheFolder) {
    program.Start();
    program.HandOverFolder(L"\\My Documents");
    EXPECT_EQ(program.Folder(), L"\\My Documents");
    program.HandOverFolder(L"\\");
    EXPECT_EQ(program.Folder(), L"My PocketPC");
}

TEST_F(HandOverUi, AHandOverOfTheLongestPathShowsItAndOneLongerDoesNot) {
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

TEST_F(HandOverUi, MalformedHandOversAreIgnored) {
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

TEST_F(HandOverUi, AHandOverWithoutABlockIsIgnored) {
    program.Start(L"\\My Documents");
    EXPECT_EQ(program.SendCopyData(openFolderCode, nullptr, 0), 0);
    EXPECT_EQ(program.Folder(), L"\\My Documents");
}

TEST_F(HandOverUi, AFloodOfJunkHandOversDoesNoHarm) {
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

TEST_F(HandOverUi, WhatStandsBehindTheFirstZeroIsNotRead) {
    program.Start();
    const std::wstring text = L"\\Temp" + std::wstring(1, L'\0') + L"junk" + std::wstring(1, L'\0');
    program.SendCopyData(openFolderCode, text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t)));
    EXPECT_EQ(program.Folder(), L"\\Temp");
}

TEST_F(HandOverUi, AHandOverWhileANameIsEditedLeavesTheNameAsItWas) {
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

TEST_F(HandOverUi, AHandOverWhileADialogIsOpenShowsTheFolderBehindIt) {
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

TEST_F(HandOverUi, AHandOverDuringAMenuIsShownOnceTheMenuIsClosed) {
    program.Start();
    PressRightSoftKey();
    program.WaitForMenu();
    program.HandOverFolder(L"\\Temp");
    program.CloseMenus();
    program.WaitForFolder(L"\\Temp");
}

} // namespace
