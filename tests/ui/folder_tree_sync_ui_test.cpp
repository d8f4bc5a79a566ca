// Screens: 240x320

// List and tree in step: what one shows the other has selected, and nothing echoes back.

#include "tests/ui/tree_ui.h"

namespace {

class FolderTreeSyncUi : public TreeUi {
  protected:
    void GoBackTo(const std::wstring& folder) {
        program.Command(IDM_TOOLBAR_BACK);
        EXPECT_EQ(program.Folder(), folder);
    }
};

TEST_F(FolderTreeSyncUi, TheTreeFollowsTheListWithoutAnEcho) {
    StartWithTree();
    program.HandOverFolder(L"\\My Documents\\Notes");
    EXPECT_EQ(Tree().SelectedPath(), L"\\My Documents\\Notes");
    program.HandOverFolder(L"\\Windows\\Start Menu");
    EXPECT_EQ(Tree().SelectedPath(), L"\\Windows\\Start Menu");
    GoBackTo(L"\\My Documents\\Notes");
    EXPECT_EQ(Tree().SelectedPath(), L"\\My Documents\\Notes");
    GoBackTo(L"My PocketPC");
    EXPECT_EQ(Tree().SelectedPath(), L"");
    program.Command(IDM_TOOLBAR_FORWARD);
    EXPECT_EQ(Tree().SelectedPath(), L"\\My Documents\\Notes");
}

TEST_F(FolderTreeSyncUi, ATapShowsTheFolderAtOnce) {
    StartWithTree();
    Tap(Tree().PointOf(L"\\My Documents"));
    program.WaitForFolder(L"\\My Documents");
    EXPECT_TRUE(program.TreeHasFocus());
    Tap(Tree().PointOf(L"File Search"));
    program.WaitForFolder(L"File Search");
    EXPECT_EQ(Tree().SelectedPath(), L"File Search");
    Tap(Tree().PointOf(L""));
    program.WaitForFolder(L"My PocketPC");
    EXPECT_EQ(Tree().SelectedPath(), L"");
    GoBackTo(L"\\My Documents");
}

TEST_F(FolderTreeSyncUi, ScrollingWithTheKeysListsOnlyTheLastFolder) {
    for (int i = 0; i < 10; ++i)
        device.Folder(L"\\A" + std::to_wstring(i));
    StartWithTree();
    FocusTree();
    for (int i = 0; i < 10; ++i)
        PressKey(VK_DOWN);
    WaitFor("for the keys", [&] { return Tree().SelectedPath() == L"\\A9"; });
    EXPECT_EQ(program.Folder(), L"My PocketPC");
    program.WaitForFolder(L"\\A9");
    GoBackTo(L"My PocketPC");
    EXPECT_EQ(Tree().SelectedPath(), L"");
    EXPECT_TRUE(HoldsFor(700, [&] { return program.Folder() == L"My PocketPC"; }));
}

TEST_F(FolderTreeSyncUi, TheListFollowsAtOnceWhenTheTreeLosesTheKeyboard) {
    StartWithTree();
    FocusTree();
    PressKey(VK_DOWN);
    WaitFor("for the key", [&] { return Tree().SelectedPath() == L"\\My Documents"; });
    program.Command(IDM_SOFTKEY_CHANGE_VIEW);
    EXPECT_EQ(program.Folder(), L"\\My Documents");
    EXPECT_TRUE(program.ListHasFocus());
    GoBackTo(L"My PocketPC");
    EXPECT_TRUE(HoldsFor(700, [&] { return program.Folder() == L"My PocketPC"; })) << "no second time";
}

TEST_F(FolderTreeSyncUi, ASelectionByAnotherProgramIsNotFollowed) {
    StartWithTree();
    Tree().Select(L"\\Windows");
    EXPECT_TRUE(HoldsFor(700, [&] { return program.Folder() == L"My PocketPC"; }));
}

TEST_F(FolderTreeSyncUi, ClosingANodeAboveTheSelectionShowsIt) {
    StartWithTree(L"\\My Documents\\Notes");
    EXPECT_EQ(Tree().SelectedPath(), L"\\My Documents\\Notes");
    Tap(Tree().ButtonPointOf(L"\\My Documents"));
    program.WaitForFolder(L"\\My Documents");
    EXPECT_EQ(Tree().SelectedPath(), L"\\My Documents");
    EXPECT_FALSE(Tree().At(L"\\My Documents").expanded);
}

TEST_F(FolderTreeSyncUi, AFolderTheTreeDoesNotHoldLeavesTheNearestOneSelected) {
    StartWithTree(L"\\My Documents\\Notes"); // My Documents has been read
    device.Folder(L"\\My Documents\\Missing\\Deep");
    program.HandOverFolder(L"\\My Documents\\Missing\\Deep");
    EXPECT_EQ(program.Folder(), L"\\My Documents\\Missing\\Deep");
    EXPECT_EQ(Tree().SelectedPath(), L"\\My Documents");
    program.HandOverFolder(L"\\MY DOCUMENTS\\Notes"); // letters count
    EXPECT_EQ(Tree().SelectedPath(), L"");
}

TEST_F(FolderTreeSyncUi, AFolderMadeInTheShownOneIsFoundByTheNextListing) {
    StartWithTree(L"\\My Documents");
    device.Folder(L"\\My Documents\\Fresh");
    program.HandOverFolder(L"\\My Documents");
    EXPECT_TRUE(Tree().Has(L"\\My Documents\\Fresh"));
    program.HandOverFolder(L"\\My Documents\\Fresh");
    EXPECT_EQ(Tree().SelectedPath(), L"\\My Documents\\Fresh");
}

TEST_F(FolderTreeSyncUi, UpFolderGoesToTheParentOnce) {
    StartWithTree(L"\\Windows\\Start Menu\\Programs");
    FocusTree();
    program.Command(IDM_TOOLBAR_UP_FOLDER);
    EXPECT_EQ(program.Folder(), L"\\Windows\\Start Menu");
    EXPECT_EQ(Tree().SelectedPath(), L"\\Windows\\Start Menu");
    PressKey(VK_BACK);
    program.WaitForFolder(L"\\Windows");
    EXPECT_TRUE(HoldsFor(700, [&] { return program.Folder() == L"\\Windows"; }));
    EXPECT_EQ(Tree().SelectedPath(), L"\\Windows");
    program.Command(IDM_TOOLBAR_UP_FOLDER);
    program.Command(IDM_TOOLBAR_UP_FOLDER); // above the root there is nothing
    EXPECT_EQ(program.Folder(), L"My PocketPC");
    EXPECT_EQ(Tree().SelectedPath(), L"");
    EXPECT_TRUE(program.TreeHasFocus());
}

TEST_F(FolderTreeSyncUi, HomeAndEndWalkTheHistory) {
    StartWithTree();
    program.HandOverFolder(L"\\Windows");
    FocusTree();
    PressKey(VK_HOME);
    program.WaitForFolder(L"My PocketPC");
    EXPECT_EQ(Tree().SelectedPath(), L"");
    PressKey(VK_END);
    program.WaitForFolder(L"\\Windows");
    EXPECT_EQ(Tree().SelectedPath(), L"\\Windows");
    EXPECT_TRUE(program.TreeHasFocus());
}

TEST_F(FolderTreeSyncUi, KeysMeanWhatTheyMeanInTheList) {
    StartWithTree();
    program.HandOverFolder(L"\\Windows");
    FocusTree();
    PressKey(VK_LEFT, Alt);
    program.WaitForFolder(L"My PocketPC");
    PressKey(VK_RIGHT, Alt);
    program.WaitForFolder(L"\\Windows");
    device.Folder(L"\\Zoo");
    PressKey(VK_F5);
    WaitFor("for the refresh", [&] { return Tree().Has(L"\\Zoo"); });
    PressKey('Q', Ctrl);
    program.WaitForEnd();
}

} // namespace
