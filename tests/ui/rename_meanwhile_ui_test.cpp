// Screens: 240x320 176x220

// What happens while a name is edited in the list: commands, taps, other programs, keys in haste.

#include "tests/ui/rename_ui.h"

namespace {

class RenameMeanwhileUi : public RenameUi {};

TEST_F(RenameMeanwhileUi, ATapElsewhereKeepsTheNameTyped) {
    StartWithFiles();
    BeginRename(L"b.doc");
    Control(Editor()).SetText(L"d.doc");
    Tap(List().EmptyPoint());
    EXPECT_TRUE(Becomes(home, {L"a.txt", L"c.bin", L"d.doc"}));
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
}

TEST_F(RenameMeanwhileUi, ATapElsewhereWithAForbiddenNameOpensTheEditorAgain) {
    StartWithFiles();
    BeginRename(L"b.doc");
    Control(Editor()).SetText(L"a:b");
    Tap(List().EmptyPoint());
    ExpectMessage(forbiddenNameText);
    ExpectEditorAgain(L"b.doc");
}

TEST_F(RenameMeanwhileUi, AnotherFolderEndsTheEditWithTheOldName) {
    StartWithFiles();
    BeginRename(L"b.doc");
    TypeText(L"half");
    program.HandOverFolder(L"\\Temp");
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
    EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"b.doc", L"c.bin"}));
}

TEST_F(RenameMeanwhileUi, ClosingTheProgramEndsTheEditWithTheOldName) {
    StartWithFiles();
    BeginRename(L"b.doc");
    TypeText(L"half");
    program.Close();
    EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"b.doc", L"c.bin"}));
}

TEST_F(RenameMeanwhileUi, EntriesSortedMeanwhileKeepTheirNames) {
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

TEST_F(RenameMeanwhileUi, AnotherViewEndsTheEditWithTheNameTyped) {
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

TEST_F(RenameMeanwhileUi, CommandsForEntriesLeaveTheEditedOneAlone) {
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

TEST_F(RenameMeanwhileUi, TheRefusedNameIsAskedForAgainAlsoWhenOthersStandInItsPlace) {
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

TEST_F(RenameMeanwhileUi, NothingElseIsAskedForWhenTheRefusedOneIsGone) {
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

// --- Other programs ---

TEST_F(RenameMeanwhileUi, AFileThatVanishedIsRefused) {
    StartWithFiles();
    BeginRename(L"b.doc");
    device.Remove(home + L"\\b.doc");
    Enter(L"d.doc");
    ExpectMessage(renameFailedText);
    EXPECT_TRUE(EditorIsGone());
    EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"c.bin"}));
}

TEST_F(RenameMeanwhileUi, AFileInUseIsRefused) {
    StartWithFiles();
    {
        const HeldFile held = device.Hold(home + L"\\b.doc");
        ExpectFailure(L"b.doc", L"d.doc");
        EXPECT_EQ(device.NamesIn(home), (Texts{L"a.txt", L"b.doc", L"c.bin"}));
    }
    Rename(L"b.doc", L"d.doc");
    EXPECT_TRUE(Becomes(home, {L"a.txt", L"c.bin", L"d.doc"}));
}

TEST_F(RenameMeanwhileUi, AFolderInUseIsRefusedOrKeepsItsFiles) {
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

// --- Keys in haste: none may reach what it was not meant for ---

TEST_F(RenameMeanwhileUi, KeysTypedAtOnceReachTheEditorInEveryView) {
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
