// Screens: 240x320

// What others change is not shown under the user's hands: the refresh waits for the end of an edit, of a drag
// and of a menu.

#include "tests/ui/folder_changes.h"
#include "tests/ui/tree_ui.h"

namespace {

LONG HeightOf(HWND window) {
    const RECT place = PlaceOf(window);
    return place.bottom - place.top;
}

class FolderRefreshUi : public TreeUi {
  protected:
    void SetUp() override {
        device.SetOption(ListOption::ViewStyle, LVS_SMALLICON);
        device.File(L"\\T\\a.txt", "a");
        device.File(L"\\T\\b.txt", "b");
        device.Folder(L"\\T\\Sub");
    }

    /// Another program makes a file, and the watcher notices.
    void ChangeByOthers() {
        device.File(L"\\T\\fresh.txt", "f");
        PostMessageW(program.Window(), folderChanged, 0, 0);
    }
    bool Refreshed() const { return program.List().Has(L"fresh"); }

    void PickUp(POINT from) {
        StylusDown(from);
        for (LONG step = 1; step <= 4; ++step) {
            Sleep(60);
            StylusMove({from.x + 8 * step, from.y + 2 * step});
        }
        WaitFor("for the drag", [&] { return program.HoldsStylus(); });
    }

    void ExpectToWait() {
        EXPECT_TRUE(HoldsFor(refreshDelay + 600, [&] { return !Refreshed(); }));
    }
    void ExpectToCome() {
        WaitFor(
            "for the refresh", [&] { return Refreshed(); }, refreshDelay + refreshAllowance);
        program.WaitUntilIdle();
    }
};

TEST_F(FolderRefreshUi, WaitsWhileANameOfTheListIsEdited) {
    program.Start(L"\\T");
    program.List().Select(L"b");
    PressKey(VK_F2);
    WaitFor("for the editor", [&] { return program.List().NameEditor() != nullptr; });
    Control(program.List().NameEditor()).SetText(L"half");
    ChangeByOthers();
    ExpectToWait();
    ASSERT_NE(program.List().NameEditor(), nullptr);
    EXPECT_EQ(Control(program.List().NameEditor()).Text(), L"half");
    PressKey(VK_RETURN);
    WaitFor("for the name", [&] { return device.Exists(L"\\T\\half.txt"); });
    ExpectToCome();
    EXPECT_TRUE(program.List().Has(L"half"));
}

TEST_F(FolderRefreshUi, WaitsWhileANameOfTheTreeIsEdited) {
    StartWithTree(L"\\T");
    FocusTree();
    PressKey(VK_F2);
    WaitFor("for the editor", [&] { return Tree().NameEditor() != nullptr; });
    ChangeByOthers();
    ExpectToWait();
    EXPECT_NE(Tree().NameEditor(), nullptr);
    PressKey(VK_ESCAPE);
    ExpectToCome();
}

TEST_F(FolderRefreshUi, WaitsWhileEntriesAreDraggedAndHomeLeavesThemThereToo) {
    program.Start(L"\\T\\Sub");
    program.HandOverFolder(L"\\T");
    program.WaitForFolder(L"\\T");
    PickUp(program.List().PointOf(L"b"));
    PressKey(VK_HOME);
    ChangeByOthers();
    ExpectToWait();
    EXPECT_TRUE(program.HoldsStylus());
    EXPECT_EQ(program.Folder(), L"\\T");
    PressKey(VK_ESCAPE);
    StylusUp();
    ExpectToCome();
}

TEST_F(FolderRefreshUi, HomeLeavesADragOfTheTreeAloneToo) {
    StartWithTree(L"\\T\\Sub");
    program.HandOverFolder(L"\\T");
    program.WaitForFolder(L"\\T");
    PickUp(Tree().PointOf(L"\\T\\Sub"));
    PressKey(VK_HOME);
    EXPECT_TRUE(HoldsFor(400, [&] { return program.Folder() == L"\\T"; }));
    PressKey(VK_ESCAPE);
    StylusUp();
    program.WaitUntilIdle();
    PressKey(VK_HOME);
    program.WaitForFolder(L"\\T\\Sub");
}

TEST_F(FolderRefreshUi, WaitsWhileAMenuIsOpen) {
    program.Start(L"\\T");
    program.List().Select(L"b");
    PressRightSoftKey();
    program.WaitForMenu();
    ChangeByOthers();
    ExpectToWait();
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"b"}));
    PressBack();
    WaitFor("for the menu to close", [&] { return !program.MenuIsOpen(); });
    ExpectToCome();
}

TEST_F(FolderRefreshUi, AnEditedNameHasTheMenuOfATextField) {
    program.Start(L"\\T");
    program.List().Select(L"b");
    PressKey(VK_F2);
    WaitFor("for the editor", [&] { return program.List().NameEditor() != nullptr; });
    program.WaitUntilIdle();
    EXPECT_TRUE(program.SoftKeyMenu().IsEnabled(IDM_TOOLBAR_COPY));
    EXPECT_FALSE(program.SoftKeyMenu().IsEnabled(IDM_FILE_DELETE));
    EXPECT_FALSE(program.SoftKeyMenu().IsEnabled(IDM_TOOLBAR_PASTE_SHORTCUT));
    PressKey(VK_ESCAPE);
    WaitFor("for the list", [&] { return program.ListHasFocus(); });
    program.WaitUntilIdle();
    EXPECT_TRUE(program.SoftKeyMenu().IsEnabled(IDM_FILE_DELETE));
    EXPECT_FALSE(program.SoftKeyMenu().IsEnabled(IDM_TOOLBAR_PASTE)) << "the list's own clipboard is empty";
}

TEST_F(FolderRefreshUi, ABorderIsLetGoWhenAnotherWindowTakesTheStylus) {
    StartWithTree();
    const LONG height = HeightOf(Tree().Window());
    Ask(program.Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(30, height + 2));
    Ask(program.Window(), WM_CAPTURECHANGED);
    Ask(program.Window(), WM_MOUSEMOVE, 0, MAKELPARAM(30, height + 30));
    EXPECT_EQ(HeightOf(Tree().Window()), height);
    Ask(program.Window(), WM_LBUTTONUP, 0, MAKELPARAM(30, height + 30));
}

TEST_F(FolderRefreshUi, LeavesAFolderInWhosePlaceAFileStands) {
    program.Start(L"\\T\\Sub");
    MoveFileW(L"\\T\\Sub", L"\\T\\Gone");
    device.File(L"\\T\\Sub", "no folder");
    PostMessageW(program.Window(), folderChanged, 0, 0);
    WaitFor("for the folder above", [&] { return program.Folder() == L"\\T"; });
    EXPECT_EQ(program.List().SelectedNames(), Texts{L"Sub"});
}

TEST_F(FolderRefreshUi, WaitsWhileAnAddressIsHalfTyped) {
    ShowAddressBar();
    program.Start(L"\\T");
    PressKey(VK_F6);
    WaitFor("for the address bar", [&] { return program.AddressBarHasFocus(); });
    ChangeByOthers();
    ExpectToCome(); // nothing is typed yet
    PressKey(VK_END);
    TypeText(L"\\Su");
    device.Remove(L"\\T\\fresh.txt");
    PostMessageW(program.Window(), folderChanged, 0, 0);
    EXPECT_TRUE(HoldsFor(refreshDelay + 600, [&] { return Refreshed(); }));
    EXPECT_EQ(program.AddressBar().Text(), L"\\T\\Su");
    PressKey(VK_BACK);
    TypeText(L"ub");
    PressKey(VK_RETURN);
    program.WaitForFolder(L"\\T\\Sub");
    ChangeByOthers();
    device.File(L"\\T\\Sub\\fresh.txt");
    ExpectToCome();
}

} // namespace
