// Screens: 240x320 176x220
// Limit: 300 seconds

// Renaming an entry in the list, in place.

#include <algorithm>

#include "tests/ui/name_editor_ui.h"

namespace {

const std::wstring home = L"\\Temp\\Home";

class RenameUi : public NameEditorUi {
  protected:
    /// The program in a folder with three files, shown with their extensions.
    void StartWithFiles() {
        ShowExtensions();
        for (const wchar_t* name : {L"\\a.txt", L"\\b.doc", L"\\c.bin"})
            device.File(home + name, Narrow(name));
        StartIn(home);
    }
    /// A name that is refused with a message after which the editor opens again.
    void ExpectAskedAgain(const std::wstring& shownName, const std::wstring& name, const std::wstring& text) {
        SCOPED_TRACE(testing::PrintToString(name));
        Rename(shownName, name);
        ExpectMessage(text);
        ExpectEditorAgain(shownName);
    }
    /// A name that the file system does not take: one message, and no editor after it.
    void ExpectFailure(const std::wstring& shownName, const std::wstring& name) {
        SCOPED_TRACE(testing::PrintToString(name));
        Rename(shownName, name);
        ExpectMessage(renameFailedText);
        EXPECT_TRUE(EditorIsGone());
        ExpectNoMessage();
        EXPECT_TRUE(List().Has(shownName));
    }
    void Search(const std::wstring& name, const std::wstring& folder) {
        program.PostCommand(IDM_FILE_SEARCH);
        Dialog criteria = program.WaitForDialog(L"File Search");
        criteria.Item(IDC_SEARCH_NAME).SetText(name);
        criteria.Item(IDC_SEARCH_LOCATION).SetText(folder);
        criteria.Command(IDM_SEARCH_OK);
        criteria.WaitUntilClosed();
        program.WaitForFolder(L"File Search");
        program.WaitUntilIdle();
    }
};

// --- The editor ---

TEST_F(RenameUi, TheEditorHoldsTheNameAndTakesTheKeys) {
    StartWithFiles();
    List().Select(L"b.doc");
    program.Command(IDM_FILE_RENAME);
    EXPECT_EQ(TextInEditor(), L"b.doc");
    TypeText(L"new name.doc"); // over the old one, which is selected
    PressKey(VK_RETURN);
    EXPECT_TRUE(Becomes(home, {L"a.txt", L"c.bin", L"new name.doc"}));
    EXPECT_EQ(device.Content(home + L"\\new name.doc"), "\\b.doc");
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
    EXPECT_EQ(List().Names(), (Texts{L"..", L"a.txt", L"new name.doc", L"c.bin"})) << "in its old place";
    EXPECT_EQ(List().SelectedNames(), Texts{L"new name.doc"});
    EXPECT_TRUE(program.ListHasFocus());
    program.Command(IDM_MENU_REFRESH);
    EXPECT_EQ(List().Names(), (Texts{L"..", L"a.txt", L"c.bin", L"new name.doc"}));
}

TEST_F(RenameUi, TheEditorLiesInsideTheListHoweverLongTheName) {
    ShowExtensions();
    const std::wstring name = L"A rather long name of a report that is wider than any phone.txt";
    for (const wchar_t* before : {L"1", L"2"})
        device.File(home + L"\\" + before);
    device.File(home + L"\\" + name);
    StartIn(home);
    const auto lies = [&] {
        const RECT list = PlaceOf(List().Window());
        const RECT editor = PlaceOf(Editor());
        return editor.left >= list.left && editor.right <= list.right;
    };
    for (const UINT view : {IDM_VIEW_LARGE, IDM_VIEW_SMALL, IDM_VIEW_LIST, IDM_VIEW_DETAILED}) {
        SCOPED_TRACE(view);
        program.Command(view);
        BeginRename(name);
        EXPECT_TRUE(lies());
        PressKey(VK_END);
        TypeText(L" and longer");
        EXPECT_TRUE(Eventually([&] { return TextInEditor() == name + L" and longer"; }));
        EXPECT_TRUE(lies());
        PressKey(VK_ESCAPE);
        EXPECT_TRUE(EditorIsGone());
    }
}

TEST_F(RenameUi, NothingHappensWithoutASelection) {
    StartWithFiles();
    List().SelectNothing();
    program.Command(IDM_FILE_RENAME);
    EXPECT_FALSE(Editor());
    ExpectNoMessage();
}

TEST_F(RenameUi, TheFirstOfSeveralIsRenamed) {
    StartWithFiles();
    List().Select(L"b.doc");
    List().AddToSelection(L"c.bin");
    program.Command(IDM_FILE_RENAME);
    EXPECT_EQ(TextInEditor(), L"b.doc");
    Enter(L"d.doc");
    EXPECT_TRUE(Becomes(home, {L"a.txt", L"c.bin", L"d.doc"}));
}

TEST_F(RenameUi, CancellingChangesNothing) {
    StartWithFiles();
    BeginRename(L"b.doc");
    TypeText(L"other");
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
    EXPECT_TRUE(List().Has(L"b.doc"));
    EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"b.doc", L"c.bin"}));
    EXPECT_EQ(program.Folder(), home);
}

TEST_F(RenameUi, CancellingAForbiddenOrEmptyNameSaysNothing) {
    StartWithFiles();
    for (const wchar_t* name : {L"a:b", L""}) {
        BeginRename(L"b.doc");
        Control(Editor()).SetText(name);
        PressKey(VK_ESCAPE);
        EXPECT_TRUE(EditorIsGone());
        ExpectNoMessage();
    }
}

TEST_F(RenameUi, TheSameNameIsTakenSilently) {
    StartWithFiles();
    BeginRename(L"b.doc");
    PressKey(VK_RETURN);
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
    EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"b.doc", L"c.bin"}));
    EXPECT_EQ(device.Content(home + L"\\b.doc"), "\\b.doc");
}

TEST_F(RenameUi, ATapElsewhereKeepsTheNameTyped) {
    StartWithFiles();
    BeginRename(L"b.doc");
    Control(Editor()).SetText(L"d.doc");
    Tap(List().EmptyPoint());
    EXPECT_TRUE(Becomes(home, {L"a.txt", L"c.bin", L"d.doc"}));
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
}

TEST_F(RenameUi, ATapElsewhereWithAForbiddenNameOpensTheEditorAgain) {
    StartWithFiles();
    BeginRename(L"b.doc");
    Control(Editor()).SetText(L"a:b");
    Tap(List().EmptyPoint());
    ExpectMessage(forbiddenNameText);
    ExpectEditorAgain(L"b.doc");
}

TEST_F(RenameUi, AnotherFolderEndsTheEditWithTheOldName) {
    StartWithFiles();
    BeginRename(L"b.doc");
    TypeText(L"half");
    program.HandOverFolder(L"\\Temp");
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
    EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"b.doc", L"c.bin"}));
}

TEST_F(RenameUi, ClosingTheProgramEndsTheEditWithTheOldName) {
    StartWithFiles();
    BeginRename(L"b.doc");
    TypeText(L"half");
    program.Close();
    EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"b.doc", L"c.bin"}));
}

// --- Names that cannot be ---

TEST_F(RenameUi, ForbiddenCharactersAreToldAndTheEditorOpensAgain) {
    StartWithFiles();
    for (const wchar_t character : std::wstring(L"\\/:,;*?<>|"))
        ExpectAskedAgain(L"b.doc", std::wstring(L"a") + character + L"b", forbiddenNameText);
    EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"b.doc", L"c.bin"}));
}

TEST_F(RenameUi, AnEmptyNameIsToldAndTheEditorOpensAgain) {
    StartWithFiles();
    ExpectAskedAgain(L"b.doc", L"", emptyNameText);
    Rename(L"b.doc", L"");
    ExpectMessage(emptyNameText);
    EXPECT_EQ(TextInEditor(), L"b.doc");
    TypeText(L"d.doc"); // the keys go to the editor that opened again
    PressKey(VK_RETURN);
    EXPECT_TRUE(Becomes(home, {L"a.txt", L"c.bin", L"d.doc"}));
}

TEST_F(RenameUi, TheUpLevelEntryKeepsItsName) {
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

TEST_F(RenameUi, ANameThatIsTakenIsRefused) {
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

TEST_F(RenameUi, NamesAreTakenUpToTheLongestPath) {
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

TEST_F(RenameUi, WhateverNameIsAskedForTheFileStays) {
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

TEST_F(RenameUi, AFileThatVanishedIsRefused) {
    StartWithFiles();
    BeginRename(L"b.doc");
    device.Remove(home + L"\\b.doc");
    Enter(L"d.doc");
    ExpectMessage(renameFailedText);
    EXPECT_TRUE(EditorIsGone());
    EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"c.bin"}));
}

TEST_F(RenameUi, AFileInUseIsRefused) {
    StartWithFiles();
    {
        const HeldFile held = device.Hold(home + L"\\b.doc");
        ExpectFailure(L"b.doc", L"d.doc");
        EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"b.doc", L"c.bin"}));
    }
    Rename(L"b.doc", L"d.doc");
    EXPECT_TRUE(Becomes(home, {L"a.txt", L"c.bin", L"d.doc"}));
}

TEST_F(RenameUi, AFolderInUseIsRefusedOrKeepsItsFiles) {
    ShowExtensions();
    device.File(home + L"\\folder\\inside.txt", "kept");
    StartIn(home);
    const HeldFile held = device.Hold(home + L"\\folder\\inside.txt");
    Rename(L"folder", L"other");
    WaitFor("for the end of the edit", [&] { return program.HasMessageBox() || !Editor(); });
    program.WaitUntilIdle();
    const bool refused = program.HasMessageBox();
    if (refused)
        ExpectMessage(renameFailedText);
    EXPECT_TRUE(EditorIsGone());
    EXPECT_EQ(device.NamesIn(home), Texts{refused ? L"folder" : L"other"});
    EXPECT_TRUE(List().Has(refused ? L"folder" : L"other"));
}

TEST_F(RenameUi, AReadOnlyFileIsRenamedAndStaysReadOnly) {
    StartWithFiles();
    device.SetAttributes(home + L"\\b.doc", FILE_ATTRIBUTE_READONLY);
    Rename(L"b.doc", L"d.doc");
    EXPECT_TRUE(Becomes(home, {L"a.txt", L"c.bin", L"d.doc"}));
    ExpectNoMessage();
    EXPECT_TRUE(device.Attributes(home + L"\\d.doc") & FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(device.Content(home + L"\\d.doc"), "\\b.doc");
}

TEST_F(RenameUi, ANameInAFolderThatTakesNoneIsRefused) {
    StartWithFiles();
    RunOnHost("chmod a-w Temp/Home");
    ExpectFailure(L"b.doc", L"d.doc");
    ExpectFailure(L"b.doc", L"B.doc");
    RunOnHost("chmod u+w Temp/Home");
    EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"b.doc", L"c.bin"}));
}

TEST_F(RenameUi, LettersAloneMayChangeTheirCase) {
    StartWithFiles();
    Rename(L"b.doc", L"B.Doc");
    EXPECT_TRUE(Becomes(home, {L"B.Doc", L"a.txt", L"c.bin"}));
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
    EXPECT_EQ(device.Content(home + L"\\B.Doc"), "\\b.doc");
    EXPECT_EQ(List().SelectedNames(), Texts{L"B.Doc"});
    device.Folder(home + L"\\folder");
    program.Command(IDM_MENU_REFRESH);
    Rename(L"folder", L"FOLDER");
    EXPECT_TRUE(Becomes(home, {L"B.Doc", L"FOLDER", L"a.txt", L"c.bin"}));
    ExpectNoMessage();
}

TEST_F(RenameUi, ALinkOfTheHostIsRenamedAndNotWhatItLeadsTo) {
    ShowExtensions();
    device.File(L"\\Temp\\far\\b.doc", "kept");
    device.HostFolder("Temp/Home");
    device.HostLink("Temp/Home/file", "../far/b.doc");
    device.HostLink("Temp/Home/folder", "../far");
    StartIn(home);
    Rename(L"file", L"file2");
    EXPECT_TRUE(Becomes(home, {L"file2", L"folder"}));
    Rename(L"folder", L"folder2");
    EXPECT_TRUE(Becomes(home, {L"file2", L"folder2"}));
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
    EXPECT_EQ(device.NamesIn(L"\\Temp\\far"), Texts{L"b.doc"});
    EXPECT_EQ(device.Content(home + L"\\file2"), "kept");
}

// --- "No extension": the stem alone is edited ---

TEST_F(RenameUi, AHiddenExtensionStays) {
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

TEST_F(RenameUi, AnExtensionTypedBeforeAHiddenOneIsPartOfTheStem) {
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

TEST_F(RenameUi, AnExtensionGivenToAFileWithoutOneIsHiddenFromThenOn) {
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

TEST_F(RenameUi, AnEmptyStemIsRefused) {
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

TEST_F(RenameUi, AHiddenExtensionCountsForTheLongestPath) {
    const std::wstring deep = L"\\Temp\\" + std::wstring(120, L'h');
    device.File(deep + L"\\b.doc", "kept");
    StartIn(deep);
    const std::size_t room = 259 - deep.size() - 5;
    ExpectFailure(L"b", std::wstring(room + 1, L'x'));
    Rename(L"b", std::wstring(room, L'x'));
    EXPECT_TRUE(Becomes(deep, {std::wstring(room, L'x') + L".doc"}));
}

// --- What else shows the name ---

TEST_F(RenameUi, AFileOfAnotherTypeGetsItsTextsAndIconAnew) {
    ShowExtensions();
    device.SetOption(ListOption::ViewStyle, LVS_REPORT);
    device.File(home + L"\\a.txt");
    device.File(home + L"\\b.exe");
    device.Folder(home + L"\\folder");
    StartIn(home);
    const Texts before = List().Row(L"a.txt");
    const int iconBefore = List().Image(List().Find(L"a.txt"));
    const int folderIcon = List().Image(List().Find(L"folder"));
    Rename(L"a.txt", L"a.htm");
    EXPECT_TRUE(Eventually([&] { return List().Has(L"a.htm"); }));
    EXPECT_NE(List().Row(L"a.htm")[2], before[2]);
    EXPECT_NE(List().Image(List().Find(L"a.htm")), iconBefore);
    Rename(L"folder", L"folder.htm");
    EXPECT_TRUE(Eventually([&] { return List().Has(L"folder.htm"); }));
    EXPECT_EQ(List().Image(List().Find(L"folder.htm")), folderIcon);
    EXPECT_EQ(List().Row(L"folder.htm")[2], L"Folder");
}

TEST_F(RenameUi, TheTreeTakesAFoldersNewName) {
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    device.WriteNumber(settingsKey, L"TreeViewHeight", 130);
    device.Folder(home + L"\\old\\inner");
    StartIn(home);
    program.Tree().Expand(L"\\Temp\\Home");
    ASSERT_TRUE(program.Tree().Has(L"\\Temp\\Home\\old"));
    Rename(L"old", L"new");
    EXPECT_TRUE(Eventually([&] { return program.Tree().Has(L"\\Temp\\Home\\new"); }));
    EXPECT_FALSE(program.Tree().Has(L"\\Temp\\Home\\old"));
    EXPECT_EQ(program.Tree().SelectedPath(), home);
    EXPECT_EQ(program.Folder(), home);
    EXPECT_TRUE(program.ListHasFocus());
    program.Tree().Expand(L"\\Temp\\Home\\new");
    EXPECT_EQ(program.Tree().ChildrenOf(L"\\Temp\\Home\\new"), Texts{L"inner"});
}

TEST_F(RenameUi, AResultOfASearchIsRenamedWhereItLies) {
    ShowExtensions();
    device.File(home + L"\\note1.txt", "one");
    device.File(home + L"\\deep\\note2.txt", "two");
    StartIn(L"\\Temp");
    Search(L"note*", home);
    ASSERT_EQ(List().Count(), 2);
    Rename(L"note2.txt", L"other.txt");
    EXPECT_TRUE(Becomes(home + L"\\deep", {L"other.txt"}));
    EXPECT_TRUE(Eventually([&] { return List().Has(L"other.txt"); }));
    EXPECT_EQ(program.Folder(), L"File Search");
    program.Command(IDM_MENU_REFRESH); // a result with the old name would be dropped
    EXPECT_TRUE(List().Has(L"other.txt"));
    EXPECT_EQ(List().Count(), 2);
    ExpectAskedAgain(L"other.txt", L"a:b", forbiddenNameText);
    ExpectFailure(L"other.txt", std::wstring(300, L'x'));
    EXPECT_EQ(device.NamesIn(home + L"\\deep"), Texts{L"other.txt"});
    EXPECT_EQ(device.NamesIn(home), (Texts{L"deep", L"note1.txt"}));
}

TEST_F(RenameUi, AFolderAmongTheResultsIsRenamedInTheTreeToo) {
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    device.WriteNumber(settingsKey, L"TreeViewHeight", 130);
    device.Folder(home + L"\\found\\inner");
    StartIn(home);
    Search(L"found", home);
    Rename(L"found", L"other");
    EXPECT_TRUE(Becomes(home, {L"other"}));
    EXPECT_EQ(program.Folder(), L"File Search");
    EXPECT_EQ(program.Tree().SelectedPath(), L"File Search");
    program.HandOverFolder(home);
    EXPECT_EQ(program.Tree().SelectedPath(), home);
}

// --- What happens meanwhile ---

TEST_F(RenameUi, EntriesSortedMeanwhileKeepTheirNames) {
    StartWithFiles();
    program.Command(IDM_VIEW_DETAILED);
    BeginRename(L"c.bin");
    Control(Editor()).SetText(L"d.bin");
    program.PostCommand(IDM_ARRANGE_REVERSE);
    EXPECT_TRUE(Becomes(home, {L"a.txt", L"b.doc", L"d.bin"}));
    EXPECT_TRUE(EditorIsGone());
    EXPECT_EQ(device.Content(home + L"\\d.bin"), "\\c.bin");
    program.WaitForNames({L"..", L"d.bin", L"b.doc", L"a.txt"});
    BeginRename(L"a.txt");
    Control(Editor()).SetText(L"a:b");
    Tap(List().ColumnTitlePoint(0)); // the other way round again
    ExpectMessage(forbiddenNameText);
    EXPECT_EQ(TextInEditor(), L"a.txt");
    program.WaitForNames({L"..", L"a.txt", L"b.doc", L"d.bin"});
    Enter(L"x.txt");
    EXPECT_TRUE(Becomes(home, {L"b.doc", L"d.bin", L"x.txt"}));
    EXPECT_EQ(device.Content(home + L"\\x.txt"), "\\a.txt");
}

TEST_F(RenameUi, AnotherViewEndsTheEditWithTheNameTyped) {
    StartWithFiles();
    for (const UINT view : {IDM_VIEW_DETAILED, IDM_VIEW_LIST, IDM_VIEW_SMALL, IDM_VIEW_LARGE}) {
        BeginRename(L"b.doc");
        Control(Editor()).SetText(L"d.doc");
        program.PostCommand(view);
        EXPECT_TRUE(Becomes(home, {L"a.txt", L"c.bin", L"d.doc"}));
        EXPECT_TRUE(EditorIsGone());
        Rename(L"d.doc", L"b.doc");
        EXPECT_TRUE(Becomes(home, {L"a.txt", L"b.doc", L"c.bin"}));
    }
}

TEST_F(RenameUi, CommandsForEntriesLeaveTheEditedOneAlone) {
    StartWithFiles();
    BeginRename(L"b.doc");
    for (const UINT command : {IDM_FILE_DELETE, IDM_SENDTO_MOVE_TO, IDM_FILE_SHORTCUT, IDM_FILE_OPEN})
        program.Command(command);
    ExpectNoMessage();
    EXPECT_TRUE(Editor());
    PressKey('D', Ctrl);
    PressKey('X', Ctrl); // cuts the text
    ExpectNoMessage();
    EXPECT_EQ(Control(Editor()).Text(), L"");
    PressKey('V', Ctrl);
    PressKey(VK_RETURN);
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
    EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"b.doc", L"c.bin"}));
}

TEST_F(RenameUi, TheRefusedNameIsAskedForAgainAlsoWhenOthersStandInItsPlace) {
    StartWithFiles();
    Rename(L"b.doc", L"a:b");
    MessageBoxShown message = program.WaitForMessageBox();
    RunOnHost("touch Temp/Home/a.0 Temp/Home/a.1");
    program.HandOverFolder(home); // lists the folder anew behind the box
    message.Answer(IDOK);
    EXPECT_EQ(TextInEditor(), L"b.doc");
    Enter(L"d.doc");
    EXPECT_TRUE(Becomes(home, {L"a.0", L"a.1", L"a.txt", L"c.bin", L"d.doc"}));
    EXPECT_EQ(device.Content(home + L"\\d.doc"), "\\b.doc");
}

TEST_F(RenameUi, NothingElseIsAskedForWhenTheRefusedOneIsGone) {
    StartWithFiles();
    device.File(L"\\Temp\\Other\\1");
    device.File(L"\\Temp\\Other\\2");
    Rename(L"b.doc", L"a:b");
    MessageBoxShown message = program.WaitForMessageBox();
    program.HandOverFolder(L"\\Temp\\Other");
    message.Answer(IDOK);
    program.WaitUntilIdle();
    EXPECT_FALSE(Editor());
    EXPECT_EQ(program.Folder(), L"\\Temp\\Other");
    PostMessageW(List().Window(), WM_APP + 1, 1, 0); // from whomever
    program.WaitUntilIdle();
    EXPECT_FALSE(Editor());
}

// --- Keys in haste: none may reach what it was not meant for ---

TEST_F(RenameUi, KeysTypedAtOnceReachTheEditorInEveryView) {
    StartWithFiles();
    for (const UINT view : {IDM_VIEW_LARGE, IDM_VIEW_SMALL, IDM_VIEW_LIST, IDM_VIEW_DETAILED}) {
        SCOPED_TRACE(view);
        program.Command(view);
        List().Select(L"a.txt");
        PressKey(VK_END); // there is nothing forward
        for (int step = 0; step < 3; ++step)
            PressKey(step == 1 ? VK_DOWN : VK_RIGHT);
        PressKey(VK_F2);
        PressKey(VK_DELETE); // the whole old name is selected: it goes, and nothing else
        TypeText(L"new.doc");
        PressKey(VK_HOME);
        PressKey(VK_DELETE);
        TypeText(L"f");
        PressKey(VK_RETURN);
        WaitFor("for the new name", [&] { return device.Exists(home + L"\\few.doc") && !Editor(); });
        ExpectNoMessage();
        const Texts names = device.NamesIn(home);
        EXPECT_EQ(names.size(), 3u);
        EXPECT_EQ(program.Folder(), home);
        const std::wstring renamed = L"few.doc";
        for (const wchar_t* name : {L"a.txt", L"b.doc", L"c.bin"})
            if (!device.Exists(home + L"\\" + name)) {
                EXPECT_EQ(device.Content(home + L"\\" + renamed), Narrow(L"\\" + std::wstring(name)));
                device.Remove(home + L"\\" + renamed);
                device.File(home + L"\\" + name, Narrow(L"\\" + std::wstring(name)));
            }
        program.Command(IDM_MENU_REFRESH);
    }
}

} // namespace
