// Screens: 240x320 176x220

// Names that an entry of the list cannot have, and extensions that are not shown.

#include <algorithm>

#include "tests/ui/rename_ui.h"

namespace {

class RenameNamesUi : public RenameUi {};

TEST_F(RenameNamesUi, ForbiddenCharactersAreToldAndTheEditorOpensAgain) {
    StartWithFiles();
    for (const wchar_t character : std::wstring(L"\\/:,;*?<>|"))
        ExpectAskedAgain(L"b.doc", std::wstring(L"a") + character + L"b", forbiddenNameText);
    EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"b.doc", L"c.bin"}));
}

TEST_F(RenameNamesUi, AnEmptyNameIsToldAndTheEditorOpensAgain) {
    StartWithFiles();
    ExpectAskedAgain(L"b.doc", L"", emptyNameText);
    Rename(L"b.doc", L"");
    ExpectMessage(emptyNameText);
    EXPECT_EQ(TextInEditor(), L"b.doc");
    TypeText(L"d.doc"); // the keys go to the editor that opened again
    PressKey(VK_RETURN);
    EXPECT_TRUE(Becomes(home, {L"a.txt", L"c.bin", L"d.doc"}));
}

TEST_F(RenameNamesUi, TheUpLevelEntryKeepsItsName) {
    StartWithFiles();
    Rename(L"..", L"up");
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
    Rename(L"..", L"");
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
    ExpectAskedAgain(L"..", L"a,b", forbiddenNameText); // the characters come first
    EXPECT_TRUE(device.Exists(home + L"\\a.txt"));
}

TEST_F(RenameNamesUi, ANameThatIsTakenIsRefused) {
    StartWithFiles();
    device.Folder(home + L"\\folder");
    ExpectFailure(L"b.doc", L"a.txt");
    ExpectFailure(L"b.doc", L"A.TXT");
    ExpectFailure(L"b.doc", L"folder");
    program.Command(IDM_MENU_REFRESH);
    ExpectFailure(L"folder", L"a.txt");
    EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"b.doc", L"c.bin", L"folder"}));
    EXPECT_EQ(device.Content(home + L"\\a.txt"), "\\a.txt");
    EXPECT_EQ(device.Content(home + L"\\b.doc"), "\\b.doc");
}

TEST_F(RenameNamesUi, NamesAreTakenUpToTheLongestPath) {
    ShowExtensions();
    const std::wstring deep = L"\\Temp\\" + std::wstring(120, L'h');
    device.File(deep + L"\\b.doc", "kept");
    StartIn(deep);
    const std::size_t room = 259 - deep.size() - 1;
    ExpectFailure(L"b.doc", std::wstring(room + 1, L'x'));
    ExpectFailure(L"b.doc", std::wstring(1000, L'x'));
    EXPECT_EQ(device.NamesIn(deep), Texts{L"b.doc"});
    const std::wstring longest(room, L'x');
    Rename(L"b.doc", longest);
    EXPECT_TRUE(Becomes(deep, {longest}));
    EXPECT_EQ(device.Content(deep + L"\\" + longest), "kept");
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
    EXPECT_EQ(List().Names(), (Texts{L"..", longest}));
}

TEST_F(RenameNamesUi, WhateverNameIsAskedForTheFileStays) {
    StartWithFiles();
    const Texts odd = {L".",
                       L"..",
                       L"...",
                       L" ",
                       L"  .",
                       L"b.doc.",
                       L"b.doc ",
                       L" lead",
                       L"NUL",
                       L"nul.x",
                       L"con",
                       L"con.doc",
                       L"AUX",
                       L"prn",
                       L"com1.doc",
                       L"lpt1",
                       L"CONIN$",
                       L"a\"b",
                       L"~0",
                       L"%s%n",
                       L"&amp",
                       L"a\tb",
                       L"\x00e4\x20ac",
                       L"-rf",
                       L"$HOME",
                       L"`id`",
                       L"\xD800x",
                       L"x\xFFFE",
                       std::wstring(120, L'\x20ac')};
    for (const std::wstring& name : odd) {
        SCOPED_TRACE(testing::PrintToString(name));
        Rename(L"b.doc", name);
        WaitFor("for the end of the edit", [&] { return program.HasMessageBox() || !Editor(); });
        program.WaitUntilIdle();
        if (program.HasMessageBox())
            ExpectMessage(renameFailedText);
        EXPECT_TRUE(EditorIsGone());
        const Texts names = device.NamesIn(home);
        EXPECT_EQ(names.size(), 3u) << testing::PrintToString(names);
        EXPECT_EQ(
            std::ranges::count_if(
                names, [&](const auto& left) { return device.Content(home + L"\\" + left) == "\\b.doc"; }),
            1)
            << testing::PrintToString(names);
        for (const std::wstring& left : names)
            if (left != L"a.txt" && left != L"c.bin")
                device.Remove(home + L"\\" + left);
        device.File(home + L"\\b.doc", "\\b.doc");
        program.Command(IDM_MENU_REFRESH);
    }
}

TEST_F(RenameNamesUi, ANameInAFolderThatTakesNoneIsRefused) {
    StartWithFiles();
    RunOnHost("chmod a-w Temp/Home");
    ExpectFailure(L"b.doc", L"d.doc");
    ExpectFailure(L"b.doc", L"B.doc");
    RunOnHost("chmod u+w Temp/Home");
    EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"b.doc", L"c.bin"}));
}

// --- "No extension": the stem alone is edited ---

TEST_F(RenameNamesUi, AHiddenExtensionStays) {
    device.File(home + L"\\report.txt", "kept");
    device.File(home + L"\\README");
    device.Folder(home + L"\\old.dir");
    StartIn(home);
    Rename(L"report", L"summary");
    EXPECT_TRUE(Becomes(home, {L"README", L"old.dir", L"summary.txt"}));
    EXPECT_TRUE(Eventually([&] { return List().Has(L"summary"); }));
    Rename(L"README", L"CHANGES");
    EXPECT_TRUE(Becomes(home, {L"CHANGES", L"old.dir", L"summary.txt"}));
    BeginRename(L"old.dir"); // a folder has no extension
    EXPECT_EQ(TextInEditor(), L"old.dir");
    Enter(L"new");
    EXPECT_TRUE(Becomes(home, {L"CHANGES", L"new", L"summary.txt"}));
    EXPECT_EQ(device.Content(home + L"\\summary.txt"), "kept");
}

TEST_F(RenameNamesUi, AnExtensionTypedBeforeAHiddenOneIsPartOfTheStem) {
    device.File(home + L"\\report.txt");
    StartIn(home);
    Rename(L"report", L"a.b");
    EXPECT_TRUE(Becomes(home, {L"a.b.txt"}));
    BeginRename(L"a.b");
    PressKey(VK_RETURN); // nothing typed, nothing changed
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
    EXPECT_EQ(device.NamesIn(home), Texts{L"a.b.txt"});
}

TEST_F(RenameNamesUi, AnExtensionGivenToAFileWithoutOneIsHiddenFromThenOn) {
    device.File(home + L"\\README");
    StartIn(home);
    Rename(L"README", L"a.b");
    EXPECT_TRUE(Becomes(home, {L"a.b"}));
    EXPECT_TRUE(EditorIsGone());
    EXPECT_EQ(List().Names(), (Texts{L"..", L"a"}));
    BeginRename(L"a");
    PressKey(VK_RETURN);
    EXPECT_TRUE(EditorIsGone());
    program.WaitUntilIdle();
    EXPECT_EQ(device.NamesIn(home), Texts{L"a.b"});
}

TEST_F(RenameNamesUi, AnEmptyStemIsRefused) {
    device.File(home + L"\\report.txt");
    device.File(home + L"\\.profile"); // all of it is extension
    device.SetOption(ListOption::HideHiddenFiles, 0);
    StartIn(home);
    ExpectAskedAgain(L"report", L"", emptyNameText);
    BeginRename(L"");
    EXPECT_EQ(TextInEditor(), L"");
    Enter(L"x");
    EXPECT_TRUE(Becomes(home, {L"report.txt", L"x.profile"}));
}

TEST_F(RenameNamesUi, AHiddenExtensionCountsForTheLongestPath) {
    const std::wstring deep = L"\\Temp\\" + std::wstring(120, L'h');
    device.File(deep + L"\\b.doc", "kept");
    StartIn(deep);
    const std::size_t room = 259 - deep.size() - 5;
    ExpectFailure(L"b", std::wstring(room + 1, L'x'));
    Rename(L"b", std::wstring(room, L'x'));
    EXPECT_TRUE(Becomes(deep, {std::wstring(room, L'x') + L".doc"}));
}

TEST_F(RenameNamesUi, BlanksAndDotsAtTheEndAreNoPartOfAName) {
    StartWithFiles();
    Rename(L"a.txt", L"b.doc. .");
    ExpectMessage(renameFailedText); // there is one
    Rename(L"a.txt", L"new.txt. ");
    EXPECT_TRUE(Becomes(home, {L"b.doc", L"c.bin", L"new.txt"}));
    EXPECT_TRUE(EditorIsGone());
    EXPECT_EQ(List().Names(), (Texts{L"..", L"new.txt", L"b.doc", L"c.bin"}));
}

} // namespace
