// Screens: 240x320 176x220

// Renaming an entry in the list, in place: the editor, and what else shows the name.

#include "tests/ui/rename_ui.h"

namespace {

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

// --- What may be renamed ---

TEST_F(RenameUi, AReadOnlyFileIsRenamedAndStaysReadOnly) {
    StartWithFiles();
    device.SetAttributes(home + L"\\b.doc", FILE_ATTRIBUTE_READONLY);
    Rename(L"b.doc", L"d.doc");
    EXPECT_TRUE(Becomes(home, {L"a.txt", L"c.bin", L"d.doc"}));
    ExpectNoMessage();
    EXPECT_TRUE(device.Attributes(home + L"\\d.doc") & FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(device.Content(home + L"\\d.doc"), "\\b.doc");
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
    ShowTree();
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
    program.Search(L"note*", home);
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
    ShowTree();
    device.Folder(home + L"\\found\\inner");
    StartIn(home);
    program.Search(L"found", home);
    Rename(L"found", L"other");
    EXPECT_TRUE(Becomes(home, {L"other"}));
    EXPECT_EQ(program.Folder(), L"File Search");
    EXPECT_EQ(program.Tree().SelectedPath(), L"File Search");
    program.HandOverFolder(home);
    EXPECT_EQ(program.Tree().SelectedPath(), home);
}

} // namespace
