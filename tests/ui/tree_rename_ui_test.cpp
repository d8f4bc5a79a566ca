// Screens: 240x320

// Renaming a folder in the tree, in place.

#include "tests/ui/name_messages.h"
#include "tests/ui/tree_ui.h"

namespace {

class TreeRenameUi : public TreeUi {
  protected:
    /// The program with a folder to be renamed shown and selected in the tree.
    void StartAt(const std::wstring& folder) {
        device.Folder(folder);
        StartWithTree(folder);
        FocusTree();
    }

    HWND WaitForEditor() {
        WaitFor("for the name's editor", [&] { return Editor() && IsWindowVisible(Editor()); });
        return Editor();
    }
    HWND Editor() const { return Tree().NameEditor(); }
    bool EditorIsGone() const {
        return Eventually([&] { return !Editor(); });
    }

    void BeginRename() {
        program.Command(IDM_FILE_RENAME);
        WaitForEditor();
    }
    /// Types a name over the one in the editor and ends with Enter.
    void Enter(const std::wstring& name) {
        Control(WaitForEditor()).SetText(name);
        PressKey(VK_RETURN);
    }
    void RenameTo(const std::wstring& name) {
        BeginRename();
        Enter(name);
    }
    /// The editor is open again with the old name, and Back ends it with nothing changed.
    void ExpectEditorAgain(const std::wstring& oldName) {
        EXPECT_EQ(Control(WaitForEditor()).Text(), oldName);
        WaitFor("for the keyboard", [&] { return program.Focus() == Editor(); });
        PressKey(VK_ESCAPE);
        EXPECT_TRUE(EditorIsGone());
        EXPECT_FALSE(program.HasMessageBox());
    }
    void ExpectRefused(const std::wstring& name, const std::wstring& message) {
        SCOPED_TRACE(testing::PrintToString(name));
        const std::wstring oldName = Tree().SelectedPath().substr(Tree().SelectedPath().rfind(L'\\') + 1);
        RenameTo(name);
        ExpectMessage(message);
        ExpectEditorAgain(oldName);
    }
};

TEST_F(TreeRenameUi, TheFolderAndItsNodeTakeTheNewName) {
    StartAt(L"\\Temp\\old");
    device.File(L"\\Temp\\old\\inside.txt");
    BeginRename();
    EXPECT_EQ(program.Focus(), Editor());
    EXPECT_EQ(Control(Editor()).Text(), L"old");
    TypeText(L"new name");
    PressKey(VK_RETURN);
    EXPECT_TRUE(EditorIsGone());
    WaitFor("for the new name", [&] { return Tree().Has(L"\\Temp\\new name"); });
    EXPECT_FALSE(Tree().Has(L"\\Temp\\old"));
    EXPECT_EQ(Tree().SelectedPath(), L"\\Temp\\new name");
    EXPECT_TRUE(device.Exists(L"\\Temp\\new name\\inside.txt"));
    EXPECT_FALSE(device.Exists(L"\\Temp\\old"));
    program.WaitForFolder(L"\\Temp\\new name\\");
    EXPECT_TRUE(program.List().Has(L"inside"));
    EXPECT_FALSE(program.HasMessageBox());
    EXPECT_TRUE(program.TreeHasFocus());
}

TEST_F(TreeRenameUi, WhatIsOpenInTheFolderStaysUsable) {
    StartAt(L"\\Temp\\old");
    device.Folder(L"\\Temp\\old\\inner");
    program.HandOverFolder(L"\\Temp\\old");
    Tree().Expand(L"\\Temp\\old");
    RenameTo(L"new");
    WaitFor("for the new name", [&] { return Tree().Has(L"\\Temp\\new\\inner"); });
    EXPECT_TRUE(Tree().At(L"\\Temp\\new").expanded);
    Tap(Tree().PointOf(L"\\Temp\\new\\inner"));
    program.WaitForFolder(L"\\Temp\\new\\inner");
}

TEST_F(TreeRenameUi, ForbiddenCharactersAreToldAndTheEditorOpensAgain) {
    StartAt(L"\\Temp\\old");
    for (const wchar_t character : std::wstring(L"\\/:,;*?<>|"))
        ExpectRefused(std::wstring(L"a") + character + L"b", forbiddenNameText);
    EXPECT_EQ(device.NamesIn(L"\\Temp"), Texts{L"old"});
}

TEST_F(TreeRenameUi, AnEmptyNameIsToldAndTheEditorOpensAgain) {
    StartAt(L"\\Temp\\old");
    ExpectRefused(L"", emptyNameText);
    // Refused once, it can still be renamed.
    RenameTo(L"");
    ExpectMessage(emptyNameText);
    Enter(L"new");
    EXPECT_TRUE(Eventually([&] { return device.Exists(L"\\Temp\\new"); }));
}

TEST_F(TreeRenameUi, TheDeviceAndTheSearchResultsKeepTheirNames) {
    StartWithTree();
    FocusTree();
    RenameTo(L"phone");
    ExpectMessage(renameFailedText);
    ExpectEditorAgain(L"My PocketPC");
    RenameTo(L"a:b"); // the characters come first
    ExpectMessage(forbiddenNameText);
    ExpectEditorAgain(L"My PocketPC");
    Tap(Tree().PointOf(L"File Search"));
    program.WaitForFolder(L"File Search");
    RenameTo(L"results");
    ExpectMessage(renameFailedText);
    ExpectEditorAgain(L"File Search");
    EXPECT_EQ(Tree().RootText(), L"My PocketPC");
    EXPECT_TRUE(Tree().Has(L"File Search"));
}

TEST_F(TreeRenameUi, ANameThatIsTakenIsRefused) {
    StartAt(L"\\Temp\\old");
    device.Folder(L"\\Temp\\folder");
    device.File(L"\\Temp\\file", "kept");
    ExpectRefused(L"folder", renameFailedText);
    ExpectRefused(L"FILE", renameFailedText);
    EXPECT_EQ(device.Content(L"\\Temp\\file"), "kept");
    EXPECT_TRUE(device.Exists(L"\\Temp\\old"));
}

TEST_F(TreeRenameUi, AFolderThatVanishedIsRefused) {
    StartAt(L"\\Temp\\old");
    BeginRename();
    RunOnHost("rmdir Temp/old"); // at once, although the program watches it
    Enter(L"new");
    ExpectMessage(renameFailedText);
    ExpectEditorAgain(L"old");
    EXPECT_FALSE(device.Exists(L"\\Temp\\new"));
}

TEST_F(TreeRenameUi, LettersAloneMayChangeTheirCase) {
    StartAt(L"\\Temp\\old");
    RenameTo(L"OLD");
    WaitFor("for the new name", [&] { return Tree().Has(L"\\Temp\\OLD"); });
    EXPECT_EQ(device.NamesIn(L"\\Temp"), Texts{L"OLD"});
    EXPECT_EQ(Tree().SelectedPath(), L"\\Temp\\OLD");
    EXPECT_FALSE(program.HasMessageBox());
}

TEST_F(TreeRenameUi, NamesUpToTheLongestPathAreTaken) {
    const std::wstring home = L"\\Temp\\" + std::wstring(120, L'h');
    StartAt(home + L"\\old");
    const std::size_t room = 259 - home.size() - 1;
    ExpectRefused(std::wstring(room + 1, L'x'), renameFailedText);
    const std::wstring longest(room - 12, L'x'); // what the system lets a folder's path be
    RenameTo(longest);
    WaitFor("for the new name", [&] { return Tree().SelectedPath() == home + L"\\" + longest; });
    EXPECT_TRUE(device.IsFolder(home + L"\\" + longest));
}

TEST_F(TreeRenameUi, CancellingChangesNothing) {
    StartAt(L"\\Temp\\old");
    BeginRename();
    TypeText(L"other");
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(EditorIsGone());
    EXPECT_FALSE(program.HasMessageBox());
    EXPECT_TRUE(Tree().Has(L"\\Temp\\old"));
    EXPECT_EQ(device.NamesIn(L"\\Temp"), Texts{L"old"});
    EXPECT_EQ(program.Folder(), L"\\Temp\\old");
}

TEST_F(TreeRenameUi, ATapElsewhereKeepsTheNameTyped) {
    StartAt(L"\\Temp\\old");
    BeginRename();
    Control(Editor()).SetText(L"new");
    Tap(program.List().EmptyPoint());
    EXPECT_TRUE(Eventually([&] { return device.Exists(L"\\Temp\\new"); }));
    EXPECT_TRUE(EditorIsGone());
    program.WaitUntilIdle();
    EXPECT_FALSE(program.HasMessageBox());
    EXPECT_TRUE(Tree().Has(L"\\Temp\\new"));
}

TEST_F(TreeRenameUi, ATapElsewhereWithAForbiddenNameOpensTheEditorAgain) {
    StartAt(L"\\Temp\\old");
    BeginRename();
    Control(Editor()).SetText(L"a:b");
    Tap(program.List().EmptyPoint());
    ExpectMessage(forbiddenNameText);
    ExpectEditorAgain(L"old");
    EXPECT_EQ(device.NamesIn(L"\\Temp"), Texts{L"old"});
}

TEST_F(TreeRenameUi, TheKeyForRenameOpensTheEditor) {
    StartAt(L"\\Temp\\old");
    PressKey(VK_F2);
    Enter(L"new");
    EXPECT_TRUE(Eventually([&] { return device.Exists(L"\\Temp\\new"); }));
}

TEST_F(TreeRenameUi, AnotherCommandLeavesNoEditorOpenOverAnotherTree) {
    StartAt(L"\\Temp\\old");
    BeginRename();
    TypeText(L"half");
    program.PostCommand(IDM_MENU_REFRESH);
    EXPECT_TRUE(EditorIsGone());
    program.WaitUntilIdle();
    EXPECT_FALSE(program.HasMessageBox());
    EXPECT_EQ(device.NamesIn(L"\\Temp").size(), 1u);
    EXPECT_EQ(Tree().ChildrenOf(L"\\Temp"), device.NamesIn(L"\\Temp")) << "kept or committed, both agree";
}

TEST_F(TreeRenameUi, BlanksAndDotsAtTheEndAreNoPartOfAName) {
    device.File(L"\\Temp\\old\\inside.txt");
    StartAt(L"\\Temp\\old");
    RenameTo(L"new. ");
    WaitFor("for the new name", [&] { return Tree().Has(L"\\Temp\\new"); });
    EXPECT_TRUE(EditorIsGone());
    EXPECT_EQ(Tree().SelectedPath(), L"\\Temp\\new");
    EXPECT_FALSE(Tree().Has(L"\\Temp\\new. "));
    EXPECT_TRUE(device.IsFolder(L"\\Temp\\new"));
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"inside"}));
    program.Command(IDM_MENU_REFRESH);
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"inside"}));
}

} // namespace
