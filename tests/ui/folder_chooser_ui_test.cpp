// Screens: 240x320 320x240 176x220
// Limit: 240 seconds

// The folder chooser, and the commands that ask with it.

#include "tests/ui/job_ui.h"

namespace {

class FolderChooserUi : public JobUi {
  protected:
    void SetUp() override {
        JobUi::SetUp();
        device.File(L"\\From\\a.txt", "a");
        device.File(L"\\From\\Sub\\b.txt", "b");
        device.Folder(L"\\To\\Inner");
        device.Folder(L"\\To\\Recycled");
    }

    Dialog Choose(UINT command, const std::wstring& title) {
        Give(command);
        return program.WaitForDialog(title);
    }
    Dialog ChooseCopy(const std::wstring& name = L"a.txt") {
        StartIn(L"\\From");
        Select({name});
        return Choose(IDM_SENDTO_COPY_TO, L"Copy file to");
    }
};

TEST_F(FolderChooserUi, BeginsAtTheCurrentFolder) {
    Dialog chooser = ChooseCopy();
    EXPECT_EQ(chooser.Item(1091).Text(), L"Copy file to");
    EXPECT_EQ(chooser.SoftKeys(), (Texts{L"Ok", L"Menu"}));
    EXPECT_EQ(TreeOf(chooser).SelectedPath(), L"\\From");
    EXPECT_EQ(TreeOf(chooser).RootText(), L"My PocketPC");
    EXPECT_EQ(TreeOf(chooser).ChildrenOf(L""),
              (Texts{L"From", L"My Documents", L"Network", L"Program Files", L"Temp", L"To", L"Windows"}));
    EXPECT_EQ(TreeOf(chooser).At(L"\\My Documents").image, 4);
    EXPECT_EQ(TreeOf(chooser).At(L"\\To").image, 1);
    chooser.Command(IDCANCEL);
    chooser.WaitUntilClosed();
}

TEST_F(FolderChooserUi, ReadsFoldersWhenTheyOpenAndForgetsThemWhenTheyClose) {
    Dialog chooser = ChooseCopy();
    TreeView tree = TreeOf(chooser);
    EXPECT_TRUE(tree.At(L"\\To").hasButton);
    tree.Expand(L"\\To");
    EXPECT_EQ(tree.ChildrenOf(L"\\To"), Texts{L"Inner"});
    tree.Select(L"\\To");
    PressKey(VK_LEFT);
    WaitFor("for the folder to close", [&] { return !tree.Has(L"\\To\\Inner"); });
    EXPECT_TRUE(tree.At(L"\\To").hasButton);
    device.Folder(L"\\To\\Later");
    PressKey(VK_RIGHT);
    WaitFor("for the folder to open", [&] { return tree.Has(L"\\To\\Later"); });
    EXPECT_EQ(tree.ChildrenOf(L"\\To"), (Texts{L"Inner", L"Later"}));
    chooser.Command(IDCANCEL);
    chooser.WaitUntilClosed();
}

TEST_F(FolderChooserUi, StarOpensOneFolderWhereLinksLeadRoundAndRound) {
    device.HostLink("To/Inner/Back", "../..");
    device.HostLink("To/Inner/Up", "..");
    Dialog chooser = ChooseCopy();
    TreeView tree = TreeOf(chooser);
    tree.Select(L"\\To");
    PressKey(VK_MULTIPLY);
    WaitFor("for the folder to open", [&] { return tree.Has(L"\\To\\Inner"); });
    EXPECT_EQ(tree.ChildrenOf(L"\\To\\Inner"), Texts{});
    EXPECT_TRUE(Answers(chooser.Window()));
    chooser.Command(IDCANCEL);
    chooser.WaitUntilClosed();
}

TEST_F(FolderChooserUi, CopiesToTheChosenFolder) {
    Dialog chooser = ChooseCopy();
    TreeOf(chooser).Expand(L"\\To");
    TreeOf(chooser).Select(L"\\To\\Inner");
    chooser.Command(IDM_CHOOSER_OK);
    FinishJob();
    EXPECT_EQ(device.Content(L"\\To\\Inner\\a.txt"), "a");
    EXPECT_EQ(program.Folder(), L"\\From");
}

TEST_F(FolderChooserUi, MovesToTheRoot) {
    StartIn(L"\\From");
    Select({L"Sub", L"a.txt"});
    Dialog chooser = Choose(IDM_SENDTO_MOVE_TO, L"Move file to");
    TreeOf(chooser).Select(L"");
    chooser.Command(IDM_CHOOSER_OK);
    FinishJob();
    EXPECT_EQ(device.Content(L"\\a.txt"), "a");
    EXPECT_EQ(device.Content(L"\\Sub\\b.txt"), "b");
    EXPECT_EQ(program.List().Names(), Texts{L".."});
}

TEST_F(FolderChooserUi, WhatWasSelectedIsMovedWhateverTheListShowsMeanwhile) {
    device.SetOption(ListOption::ShowUpLevel, 0);
    StartIn(L"\\From");
    Select({L"a.txt"});
    Dialog chooser = Choose(IDM_SENDTO_MOVE_TO, L"Move file to");
    program.HandOverFolder(L"\\To"); // another program asks for it
    TreeOf(chooser).Select(L"");
    chooser.Command(IDM_CHOOSER_OK);
    FinishJob();
    EXPECT_EQ(device.Content(L"\\a.txt"), "a");
    EXPECT_TRUE(device.IsFolder(L"\\To\\Inner"));
    EXPECT_EQ(device.NamesIn(L"\\From"), Texts{L"Sub"});
    EXPECT_EQ(program.List().Names(), Texts{L"Inner"}); // of the folder asked for last
}

TEST_F(FolderChooserUi, TheUpLevelEntryIsPassedOver) {
    StartIn(L"\\From");
    Select({L"..", L"a.txt"});
    Dialog chooser = Choose(IDM_SENDTO_MOVE_TO, L"Move file to");
    TreeOf(chooser).Select(L"\\To");
    chooser.Command(IDM_CHOOSER_OK);
    FinishJob();
    EXPECT_EQ(device.NamesIn(L"\\To"), (Texts{L"Inner", L"Recycled", L"a.txt"}));
    EXPECT_EQ(device.NamesIn(L"\\From"), Texts{L"Sub"});
}

TEST_F(FolderChooserUi, ShortcutsGoToTheChosenFolder) {
    StartIn(L"\\From");
    Select({L"a.txt"});
    Dialog chooser = Choose(IDM_SENDTO_SHORTCUT_TO, L"Create shortcut to");
    TreeOf(chooser).Select(L"\\To");
    chooser.Command(IDM_CHOOSER_OK);
    chooser.WaitUntilClosed();
    WaitFor("for the shortcut", [&] { return device.NamesIn(L"\\To").size() == 3; });
}

TEST_F(FolderChooserUi, ShortcutsLeadToWhatWasSelectedWhateverTheListShowsMeanwhile) {
    device.SetOption(ListOption::ShowUpLevel, 0);
    device.SetOption(ListOption::NoShortcutMention, 1);
    StartIn(L"\\From");
    Select({L"a.txt"});
    Dialog chooser = Choose(IDM_SENDTO_SHORTCUT_TO, L"Create shortcut to");
    program.HandOverFolder(L"\\To"); // another program asks for it
    TreeOf(chooser).Select(L"\\Temp");
    chooser.Command(IDM_CHOOSER_OK);
    chooser.WaitUntilClosed();
    WaitFor("for the shortcut", [&] { return device.NamesIn(L"\\Temp").size() == 1; });
    EXPECT_EQ(device.Content(L"\\Temp\\" + device.NamesIn(L"\\Temp")[0]), "13#\"\\From\\a.txt\"");
}

TEST_F(FolderChooserUi, NewFoldersAreNumberedAndRefreshTheListEvenWhenCancelled) {
    Dialog chooser = ChooseCopy();
    TreeView tree = TreeOf(chooser);
    chooser.Command(IDM_CHOOSER_NEW_FOLDER);
    WaitFor("for the folder", [&] { return tree.SelectedPath() == L"\\From\\New Folder"; });
    tree.Select(L"\\From");
    chooser.Command(IDM_CHOOSER_NEW_FOLDER);
    WaitFor("for the folder", [&] { return tree.SelectedPath() == L"\\From\\New Folder(2)"; });
    EXPECT_EQ(tree.ChildrenOf(L"\\From"), (Texts{L"New Folder", L"New Folder(2)", L"Sub"}));
    chooser.Command(IDCANCEL);
    chooser.WaitUntilClosed();
    program.WaitForNames({L"..", L"New Folder", L"New Folder(2)", L"Sub", L"a.txt"});
}

TEST_F(FolderChooserUi, TheFieldUnderOldNameRenames) {
    Dialog chooser = ChooseCopy();
    TreeOf(chooser).Select(L"\\To");
    chooser.Command(IDM_CHOOSER_RENAME);
    Dialog rename = program.WaitForDialog(L"Rename folder");
    EXPECT_EQ(rename.SoftKeys(), (Texts{L"Ok", L"Cancel"}));
    EXPECT_EQ(rename.Item(1052).Text(), L"To");
    EXPECT_EQ(rename.Item(1053).Text(), L"To");
    rename.Item(1053).SetText(L"Ignored");
    rename.Item(1052).SetText(L"Goal");
    rename.Command(IDM_RENAME_OK);
    rename.WaitUntilClosed();
    WaitFor("for the new name", [&] { return TreeOf(chooser).SelectedPath() == L"\\Goal"; });
    EXPECT_TRUE(device.IsFolder(L"\\Goal\\Inner"));
    chooser.Command(IDCANCEL);
    chooser.WaitUntilClosed();
}

TEST_F(FolderChooserUi, WhatCannotBeRenamedIsSaid) {
    Dialog chooser = ChooseCopy();
    TreeOf(chooser).Select(L"");
    chooser.Command(IDM_CHOOSER_RENAME);
    EXPECT_EQ(ReadMessage(), L"My PocketPC\n\ncannot be renamed.");
    TreeOf(chooser).Select(L"\\To");
    chooser.Command(IDM_CHOOSER_RENAME);
    Dialog rename = program.WaitForDialog(L"Rename folder");
    rename.Item(1052).SetText(L"From");
    rename.Command(IDM_RENAME_OK);
    EXPECT_EQ(ReadMessage(), L"This file cannot be renamed.");
    EXPECT_TRUE(chooser.IsOpen());
    chooser.Command(IDCANCEL);
    chooser.WaitUntilClosed();
}

TEST_F(FolderChooserUi, TheBackKeyErasesInTheRenameDialog) {
    Dialog chooser = ChooseCopy();
    TreeOf(chooser).Select(L"\\To");
    chooser.Command(IDM_CHOOSER_RENAME);
    Dialog rename = program.WaitForDialog(L"Rename folder");
    WaitFor("for the focus", [&] { return program.Focus() == rename.Item(1052).Window(); });
    PressKey(VK_END);
    PressBack();
    WaitFor("for the erased letter", [&] { return rename.Item(1052).Text() == L"T"; });
    rename.Command(IDM_JOB_CANCEL);
    rename.WaitUntilClosed();
    EXPECT_TRUE(device.IsFolder(L"\\To"));
    chooser.Command(IDCANCEL);
    chooser.WaitUntilClosed();
}

} // namespace
