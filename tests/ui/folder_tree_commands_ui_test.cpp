// Screens: 240x320

// Commands given while the tree has the keyboard: they act on the selected folder.

#include <algorithm>

#include "tests/ui/tree_ui.h"

namespace {

class FolderTreeCommandsUi : public TreeUi {
  protected:
    void SetUp() override {
        device.File(L"\\Temp\\Home\\inside.txt", "kept");
        device.Folder(L"\\Temp\\Other");
        StartWithTree(L"\\Temp\\Home");
        FocusTree();
    }

    void ExpectShown(const std::wstring& folder) {
        program.WaitForFolder(folder);
        program.WaitUntilIdle();
        EXPECT_EQ(Tree().SelectedPath(), folder == L"My PocketPC" ? L"" : folder);
    }
    /// Gives a command that asks for a folder, and chooses this one.
    void ChooseFor(UINT command, const std::wstring& title, const std::wstring& folder) {
        program.PostCommand(command);
        Dialog chooser = program.WaitForDialog(title);
        TreeView tree(chooser.Item(IDC_CHOOSER_TREE).Window());
        tree.Expand(L"\\Temp");
        tree.Select(folder);
        chooser.Command(IDM_CHOOSER_OK);
        WaitFor("for the end", [&] { return !program.HasDialog() && IsWindowEnabled(program.Window()); });
    }
    void AnswerDelete(UINT answer) {
        Dialog question = program.WaitForDialog(L"Confirm File Delete");
        EXPECT_EQ(question.Item(IDC_QUESTION_TEXT).Text(),
                  L"'Home' is a folder. Do you really want to delete it ?");
        question.Command(answer);
        WaitFor("for the end", [&] { return !program.HasDialog() && IsWindowEnabled(program.Window()); });
    }
};

TEST_F(FolderTreeCommandsUi, CopyAndPasteCopyTheFolder) {
    program.Command(IDM_TOOLBAR_COPY);
    ExpectShown(L"\\Temp\\Home");
    EXPECT_TRUE(program.List().Has(L"inside"));
    EXPECT_TRUE(program.TreeHasFocus());
    Tap(Tree().PointOf(L"\\Temp\\Other"));
    ExpectShown(L"\\Temp\\Other");
    program.PostCommand(IDM_TOOLBAR_PASTE);
    EXPECT_TRUE(Eventually([&] { return device.Exists(L"\\Temp\\Other\\Home\\inside.txt"); }));
    WaitFor("for its node", [&] { return Tree().Has(L"\\Temp\\Other\\Home"); });
    EXPECT_TRUE(device.Exists(L"\\Temp\\Home\\inside.txt"));
}

TEST_F(FolderTreeCommandsUi, CutAndPasteMoveTheFolderAndItsNode) {
    program.Command(IDM_TOOLBAR_CUT);
    ExpectShown(L"\\Temp\\Home");
    Tap(Tree().PointOf(L"\\Temp\\Other"));
    ExpectShown(L"\\Temp\\Other");
    program.PostCommand(IDM_TOOLBAR_PASTE);
    EXPECT_TRUE(Eventually([&] { return device.Exists(L"\\Temp\\Other\\Home\\inside.txt"); }));
    WaitFor("for its node", [&] { return Tree().Has(L"\\Temp\\Other\\Home"); });
    EXPECT_TRUE(Eventually([&] { return !Tree().Has(L"\\Temp\\Home"); }));
    EXPECT_FALSE(device.Exists(L"\\Temp\\Home"));
}

TEST_F(FolderTreeCommandsUi, DeleteGoesToTheNearestFolderThatIsLeft) {
    PressKey(VK_DELETE);
    program.WaitForDialog(L"Confirm File Delete");
    EXPECT_EQ(program.List().Names(), Texts{L"Home"}); // which is what the command works on
    EXPECT_EQ(program.List().SelectedNames(), Texts{L"Home"});
    AnswerDelete(IDM_ANSWER_CANCEL);
    ExpectShown(L"\\Temp\\Home");
    PressKey(VK_DELETE);
    AnswerDelete(IDM_ANSWER_YES);
    ExpectShown(L"\\Temp");
    EXPECT_FALSE(device.Exists(L"\\Temp\\Home"));
    EXPECT_EQ(Tree().ChildrenOf(L"\\Temp"), Texts{L"Other"});
    EXPECT_EQ(program.List().Names().back(), L"Other");
}

TEST_F(FolderTreeCommandsUi, AShortcutIsMadeInTheFolder) {
    program.Command(IDM_FILE_SHORTCUT);
    ExpectShown(L"\\Temp\\Home");
    EXPECT_EQ(device.NamesIn(L"\\Temp\\Home"), (Texts{L"Shortcut to Home.lnk", L"inside.txt"}));
}

TEST_F(FolderTreeCommandsUi, ItsNameAndItsPathAreCopiedAsText) {
    program.Command(IDM_EDIT_COPY_NAME);
    EXPECT_EQ(ClipboardText(), L"Home");
    ExpectShown(L"\\Temp\\Home");
    program.Command(IDM_EDIT_COPY_PATH);
    EXPECT_EQ(ClipboardText(), L"\\Temp\\Home");
    ExpectShown(L"\\Temp\\Home");
}

TEST_F(FolderTreeCommandsUi, CopyToCopiesItToTheChosenFolder) {
    ChooseFor(IDM_SENDTO_COPY_TO, L"Copy file to", L"\\Temp\\Other");
    EXPECT_TRUE(Eventually([&] { return device.Exists(L"\\Temp\\Other\\Home\\inside.txt"); }));
    EXPECT_EQ(device.Content(L"\\Temp\\Home\\inside.txt"), "kept");
}

TEST_F(FolderTreeCommandsUi, MoveToMovesItAndItsNode) {
    ChooseFor(IDM_SENDTO_MOVE_TO, L"Move file to", L"\\Temp\\Other");
    EXPECT_TRUE(Eventually([&] { return device.Exists(L"\\Temp\\Other\\Home\\inside.txt"); }));
    EXPECT_TRUE(Eventually([&] { return !Tree().Has(L"\\Temp\\Home"); }));
    EXPECT_FALSE(device.Exists(L"\\Temp\\Home"));
}

TEST_F(FolderTreeCommandsUi, AShortcutIsSentToTheChosenFolder) {
    ChooseFor(IDM_SENDTO_SHORTCUT_TO, L"Create shortcut to", L"\\Temp\\Other");
    EXPECT_TRUE(Eventually([&] { return device.NamesIn(L"\\Temp\\Other").size() == 1; }));
}

TEST_F(FolderTreeCommandsUi, EnterShowsThePropertiesOnlyWithAlt) {
    PressKey(VK_RETURN);
    program.WaitUntilIdle();
    EXPECT_TRUE(HoldsFor(300, [&] { return !program.HasDialog(); }));
    PressKey(VK_RETURN, Alt);
    Dialog properties = program.WaitForDialog(L"Properties");
    EXPECT_TRUE(std::ranges::count(properties.TextsShown(), L"Home"));
    properties.Command(IDCANCEL);
    properties.WaitUntilClosed();
    ExpectShown(L"\\Temp\\Home");
}

TEST_F(FolderTreeCommandsUi, TheDeviceAndTheSearchResultsAreNothingToWorkOn) {
    Tap(Tree().PointOf(L""));
    ExpectShown(L"My PocketPC");
    PressKey(VK_DELETE);
    program.WaitUntilIdle();
    EXPECT_TRUE(HoldsFor(300, [&] { return !program.HasDialog(); }));
    program.Command(IDM_TOOLBAR_CUT);
    Tap(Tree().PointOf(L"File Search"));
    ExpectShown(L"File Search");
    PressKey(VK_DELETE);
    EXPECT_TRUE(HoldsFor(300, [&] { return !program.HasDialog(); }));
    ExpectShown(L"File Search");
    EXPECT_TRUE(device.Exists(L"\\My Documents"));
}

TEST_F(FolderTreeCommandsUi, HiddenFoldersAreWorkedOnToo) {
    device.SetAttributes(L"\\Temp\\Home", FILE_ATTRIBUTE_HIDDEN);
    program.Command(IDM_EDIT_COPY_PATH);
    EXPECT_EQ(ClipboardText(), L"\\Temp\\Home");
    ExpectShown(L"\\Temp\\Home");
    program.Command(IDM_TOOLBAR_CUT);
    program.HandOverFolder(L"\\Temp\\Other");
    program.PostCommand(IDM_TOOLBAR_PASTE);
    EXPECT_TRUE(Eventually([&] { return device.Exists(L"\\Temp\\Other\\Home\\inside.txt"); }));
    WaitFor("for its node", [&] { return Tree().Has(L"\\Temp\\Other\\Home"); });
    program.HandOverFolder(L"\\Temp\\Other\\Home");
    program.PostCommand(IDM_FILE_DELETE);
    AnswerDelete(IDM_ANSWER_YES);
    EXPECT_TRUE(Eventually([&] { return !device.Exists(L"\\Temp\\Other\\Home"); }));
    ExpectShown(L"\\Temp\\Other");
}

} // namespace
