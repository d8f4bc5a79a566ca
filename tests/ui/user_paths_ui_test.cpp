// Screens: 240x320 320x240 176x220

// The folders of the user's own in "Go to", and the dialog in which they are changed.

#include "tests/support/ui_test.h"
#include "tests/ui/name_messages.h"

namespace {

const std::wstring notFoundText = L"This folder or file could not be found. Check the path or file name.";

class UserPathsUi : public UiTest {
  protected:
    void StartIn(const std::wstring& folder) {
        device.Folder(folder);
        program.Start(L"\"" + folder + L"\"");
    }
    Dialog Open() {
        program.PostCommand(IDM_GOTO_USER_PATH);
        return program.WaitForDialog(L"User Path");
    }
    static ListView RowsOf(const Dialog& dialog) { return ListView(dialog.Item(IDC_USER_PATHS).Window()); }

    HWND WaitForEditor(const Dialog& dialog) const {
        WaitFor("for the path's editor", [&] {
            HWND editor = RowsOf(dialog).NameEditor();
            return editor && IsWindowVisible(editor) && program.Focus() == editor;
        });
        return RowsOf(dialog).NameEditor();
    }
    void Enter(const Dialog& dialog, const std::wstring& text) {
        Control(WaitForEditor(dialog)).SetText(text);
        PressKey(VK_RETURN);
    }
    void Add(Dialog& dialog, const std::wstring& text) {
        dialog.Command(IDM_USER_PATH_ADD);
        Enter(dialog, text);
        WaitFor("for the path", [&] {
            const Texts names = RowsOf(dialog).Names();
            return !RowsOf(dialog).NameEditor() && !names.empty() && names.back() == text;
        });
    }
    /// Ends an edit with nothing changed. Not by the Back key, which erases.
    void Cancel(const Dialog& dialog) {
        SendMessageW(WaitForEditor(dialog), WM_KEYDOWN, VK_ESCAPE, 0);
        WaitFor("for the editor to go", [&] { return !RowsOf(dialog).NameEditor(); });
    }
    void Close(Dialog& dialog) {
        dialog.Command(IDM_USER_PATHS_OK);
        dialog.WaitUntilClosed();
        program.WaitUntilIdle();
    }
    /// The texts in "Go to", from the separator in front of the paths on.
    Texts PathsInMenu() const {
        Texts texts = program.SoftKeyMenu().Popup(L"Go to").Texts();
        texts.erase(texts.begin(), texts.begin() + 5);
        return texts;
    }
};

TEST_F(UserPathsUi, TheDialogBeginsEmpty) {
    StartIn(L"\\A");
    Dialog dialog = Open();
    EXPECT_EQ(dialog.SoftKeys(), (Texts{L"Ok", L"Menu"}));
    EXPECT_EQ(dialog.Item(IDC_PAGE_TITLE).Text(), L"User Path");
    const ListView rows = RowsOf(dialog);
    EXPECT_EQ(rows.Count(), 0);
    EXPECT_EQ(rows.ColumnCount(), 1);
    EXPECT_EQ(rows.ColumnTitle(0), L"Path");
    RECT client{};
    GetClientRect(rows.Window(), &client);
    EXPECT_EQ(rows.ColumnWidth(0), client.right);
    RECT place{};
    GetWindowRect(rows.Window(), &place);
    GetClientRect(dialog.Window(), &client);
    EXPECT_EQ(place.right - place.left, client.right);
    EXPECT_TRUE(rows.Style() & LVS_SINGLESEL);
    EXPECT_TRUE(dialog.SoftKeyMenu().IsEnabled(IDM_USER_PATH_ADD));
    EXPECT_FALSE(dialog.SoftKeyMenu().IsEnabled(IDM_USER_PATH_DELETE));
    EXPECT_FALSE(dialog.SoftKeyMenu().IsEnabled(IDM_USER_PATH_EDIT));
    Close(dialog);
    EXPECT_EQ(PathsInMenu(), (Texts{L"-", L"User Path"}));
}

TEST_F(UserPathsUi, AnAddedPathIsTheFolderShownAndStaysWhenItsEditIsCancelled) {
    StartIn(L"\\A\\B");
    Dialog dialog = Open();
    dialog.Command(IDM_USER_PATH_ADD);
    EXPECT_EQ(Control(WaitForEditor(dialog)).Text(), L"\\A\\B");
    Cancel(dialog);
    EXPECT_EQ(RowsOf(dialog).Names(), Texts{L"\\A\\B"});
    EXPECT_FALSE(program.HasMessageBox());
    dialog.Command(IDCANCEL);
    dialog.WaitUntilClosed();
    program.WaitUntilIdle();
    EXPECT_EQ(PathsInMenu(), (Texts{L"-", L"B", L"-", L"User Path"}));
}

TEST_F(UserPathsUi, AtTheRootTheDeviceIsAdded) {
    program.Start();
    Dialog dialog = Open();
    dialog.Command(IDM_USER_PATH_ADD);
    EXPECT_EQ(Control(WaitForEditor(dialog)).Text(), L"My PocketPC");
    PressKey(VK_RETURN);
    WaitFor("for the editor to go", [&] { return !RowsOf(dialog).NameEditor(); });
    EXPECT_TRUE(HoldsFor(200, [&] { return !program.HasMessageBox(); }));
    Close(dialog);
    EXPECT_EQ(PathsInMenu(), (Texts{L"-", L"My PocketPC", L"-", L"User Path"}));
    program.HandOverFolder(L"\\Windows");
    program.Command(IDM_USERPATH_FIRST);
    EXPECT_EQ(program.Folder(), L"My PocketPC");
}

TEST_F(UserPathsUi, AStorageCardStandsInTheMenuByItsNameAndIsGoneTo) {
    device.StorageCard("Storage Card", {"card.txt"});
    StartIn(L"\\A");
    Dialog dialog = Open();
    Add(dialog, L"\\Storage Card");
    Add(dialog, L"\\Windows");
    Close(dialog);
    EXPECT_EQ(PathsInMenu(), (Texts{L"-", L"Storage Card", L"Windows", L"-", L"User Path"}));
    program.Command(IDM_USERPATH_FIRST);
    program.WaitForFolder(L"\\Storage Card");
    program.Command(IDM_USERPATH_FIRST + 1);
    program.WaitForFolder(L"\\Windows");
    program.Command(IDM_USERPATH_FIRST + 2);
    EXPECT_EQ(program.Folder(), L"\\Windows");
}

TEST_F(UserPathsUi, SixteenPathsAreAllThereCanBe) {
    StartIn(L"\\A");
    Dialog dialog = Open();
    for (int number = 0; number < 16; ++number) {
        dialog.Command(IDM_USER_PATH_ADD);
        Cancel(dialog);
    }
    EXPECT_FALSE(dialog.SoftKeyMenu().IsEnabled(IDM_USER_PATH_ADD));
    dialog.Command(IDM_USER_PATH_ADD);
    EXPECT_TRUE(HoldsFor(200, [&] { return RowsOf(dialog).Count() == 16; }));
    RowsOf(dialog).Select(L"\\A");
    dialog.Command(IDM_USER_PATH_DELETE);
    WaitFor("for the path to go", [&] { return RowsOf(dialog).Count() == 15; });
    EXPECT_TRUE(dialog.SoftKeyMenu().IsEnabled(IDM_USER_PATH_ADD));
    Close(dialog);
    EXPECT_EQ(PathsInMenu().size(), 15u + 3u);
}

TEST_F(UserPathsUi, ForbiddenCharactersAreToldOfAndTheEditOpensAgain) {
    device.Folder(L"\\Good");
    StartIn(L"\\A");
    Dialog dialog = Open();
    dialog.Command(IDM_USER_PATH_ADD);
    for (const wchar_t* text : {L"\\A*", L"/", L"\\A|B", L"a,b"}) {
        Enter(dialog, text);
        ExpectMessage(forbiddenNameText);
        WaitForEditor(dialog);
    }
    Enter(dialog, L"\\Good");
    WaitFor("for the path", [&] { return RowsOf(dialog).Names() == Texts{L"\\Good"}; });
    Close(dialog);
    EXPECT_EQ(PathsInMenu(), (Texts{L"-", L"Good", L"-", L"User Path"}));
}

TEST_F(UserPathsUi, WhatIsNoFolderIsToldOfAndTheEditOpensAgain) {
    device.File(L"\\A\\file.txt");
    StartIn(L"\\A");
    Dialog dialog = Open();
    dialog.Command(IDM_USER_PATH_ADD);
    for (const std::wstring& text : {std::wstring(L"\\Missing"), std::wstring(L"\\A\\file.txt")}) {
        Enter(dialog, text);
        ExpectMessage(notFoundText);
        WaitForEditor(dialog);
    }
    Control(WaitForEditor(dialog)).SetText(std::wstring(400, L'x'));
    PressKey(VK_RETURN);
    ExpectMessage(notFoundText);
    Cancel(dialog);
    EXPECT_EQ(RowsOf(dialog).Names(), Texts{L"\\A"});
    Close(dialog);
}

TEST_F(UserPathsUi, AnEmptiedPathIsTheDevice) {
    StartIn(L"\\A");
    Dialog dialog = Open();
    dialog.Command(IDM_USER_PATH_ADD);
    Enter(dialog, L"");
    WaitFor("for the device", [&] { return RowsOf(dialog).Names() == Texts{L"My PocketPC"}; });
    Close(dialog);
}

TEST_F(UserPathsUi, EditAndDeleteGoByTheSelectedPath) {
    for (const wchar_t* folder : {L"\\A", L"\\B", L"\\C", L"\\D"})
        device.Folder(folder);
    program.Start(L"\\A");
    Dialog dialog = Open();
    for (const wchar_t* folder : {L"\\A", L"\\B", L"\\C"})
        Add(dialog, folder);
    RowsOf(dialog).Select(L"\\B");
    dialog.Command(IDM_USER_PATH_EDIT);
    Enter(dialog, L"\\D");
    WaitFor("for the path", [&] { return RowsOf(dialog).Names() == (Texts{L"\\A", L"\\D", L"\\C"}); });
    RowsOf(dialog).Select(L"\\A");
    dialog.Command(IDM_USER_PATH_DELETE);
    WaitFor("for the path to go", [&] { return RowsOf(dialog).Names() == (Texts{L"\\D", L"\\C"}); });
    EXPECT_EQ(RowsOf(dialog).SelectedNames(), Texts{L"\\D"});
    Close(dialog);
    EXPECT_EQ(PathsInMenu(), (Texts{L"-", L"D", L"C", L"-", L"User Path"}));
    dialog = Open();
    EXPECT_EQ(RowsOf(dialog).Names(), (Texts{L"\\D", L"\\C"}));
    Close(dialog);
}

TEST_F(UserPathsUi, CommandsWaitForTheEndOfAnEdit) {
    StartIn(L"\\A");
    Dialog dialog = Open();
    dialog.Command(IDM_USER_PATH_ADD);
    WaitForEditor(dialog);
    for (const int command : {IDM_USER_PATHS_OK, IDCANCEL, IDM_USER_PATH_ADD, IDM_USER_PATH_DELETE})
        dialog.Command(command);
    EXPECT_TRUE(HoldsFor(200, [&] { return dialog.IsOpen() && RowsOf(dialog).Count() == 1; }));
    EXPECT_NE(RowsOf(dialog).NameEditor(), nullptr);
    PressKey(VK_RETURN);
    WaitFor("for the editor to go", [&] { return !RowsOf(dialog).NameEditor(); });
    Close(dialog);
}

TEST_F(UserPathsUi, TheBackKeyErasesInAPath) {
    StartIn(L"\\A\\B");
    Dialog dialog = Open();
    dialog.Command(IDM_USER_PATH_ADD);
    HWND editor = WaitForEditor(dialog);
    SendMessageW(editor, EM_SETSEL, 4, 4);
    PressBack();
    WaitFor("for the character to go", [&] { return Control(editor).Text() == L"\\A\\"; });
    PressKey(VK_RETURN);
    WaitFor("for the path", [&] { return RowsOf(dialog).Names() == Texts{L"\\A\\"}; });
    Close(dialog);
}

TEST_F(UserPathsUi, ThePathsAreStoredAtTheEnd) {
    StartIn(L"\\A");
    Dialog dialog = Open();
    Add(dialog, L"\\Windows");
    Add(dialog, L"\\A");
    Close(dialog);
    program.Close();
    EXPECT_EQ(device.NumberValue(settingsKey, L"OpenPthInfoCount"), 2u);
    EXPECT_EQ(device.TextValue(settingsKey, L"OpenPthInfo0"), L"\\Windows");
    EXPECT_EQ(device.TextValue(settingsKey, L"OpenPthInfo1"), L"\\A");
}

TEST_F(UserPathsUi, ANameWithAnAmpersandReadsAsItIs) {
    StartIn(L"\\Music & Video");
    Dialog dialog = Open();
    Add(dialog, L"\\Music & Video");
    Close(dialog);
    EXPECT_EQ(PathsInMenu(), (Texts{L"-", L"Music && Video", L"-", L"User Path"})); // drawn as one "&"
}

TEST_F(UserPathsUi, NoNumberOfPathsNeedsABarBelow) {
    StartIn(L"\\A");
    Dialog dialog = Open();
    for (int path = 0; path < BUILT_ENTRY_LIMIT; ++path)
        Add(dialog, L"\\A");
    const auto expectFitting = [&] {
        RECT client{};
        GetClientRect(RowsOf(dialog).Window(), &client);
        EXPECT_EQ(RowsOf(dialog).ColumnWidth(0), client.right);
        EXPECT_EQ(RowsOf(dialog).Style() & WS_HSCROLL, 0u);
    };
    expectFitting();
    Close(dialog);
    dialog = Open();
    expectFitting();
    while (RowsOf(dialog).Count() > 1)
        Ask(dialog.Window(), WM_COMMAND, IDM_USER_PATH_DELETE);
    expectFitting();
    EXPECT_EQ(RowsOf(dialog).Style() & WS_VSCROLL, 0u);
}

} // namespace
