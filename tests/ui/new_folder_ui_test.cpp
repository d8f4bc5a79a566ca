// Screens: 240x320 320x240 176x220

// "New Folder": its names, and its name's editor that opens at once.

#include "tests/ui/name_editor_ui.h"

namespace {

const std::wstring home = L"\\Temp\\Home";

class NewFolderUi : public NameEditorUi {
  protected:
    void NewFolder() { program.Command(IDM_FILE_NEW_FOLDER); }
    /// A folder made with this name, its editor open over it, and kept.
    void ExpectNewFolder(const std::wstring& name) {
        NewFolder();
        EXPECT_EQ(TextInEditor(), name);
        EXPECT_TRUE(device.IsFolder(home + L"\\" + name));
        EXPECT_EQ(List().SelectedNames().size(), 1u);
        PressKey(VK_ESCAPE);
        EXPECT_TRUE(EditorIsGone());
        ExpectNoMessage();
        EXPECT_TRUE(List().Has(name));
    }
};

TEST_F(NewFolderUi, ItsNameIsTypedAtOnce) {
    StartIn(home);
    NewFolder();
    EXPECT_EQ(TextInEditor(), L"New Folder");
    EXPECT_TRUE(device.IsFolder(home + L"\\New Folder"));
    TypeText(L"Letters 2024");
    PressKey(VK_RETURN);
    EXPECT_TRUE(Becomes(home, {L"Letters 2024"}));
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
    EXPECT_EQ(List().Names(), (Texts{L"..", L"Letters 2024"}));
    EXPECT_TRUE(program.ListHasFocus());
}

TEST_F(NewFolderUi, TheKeyMakesOneToo) {
    StartIn(home);
    PressKey('N', Ctrl);
    EXPECT_EQ(TextInEditor(), L"New Folder");
    TypeText(L"typed");
    PressKey(VK_RETURN);
    EXPECT_TRUE(Becomes(home, {L"typed"}));
}

TEST_F(NewFolderUi, KeysTypedAtOnceReachItsEditor) {
    device.Files(home, L"file", 3);
    StartIn(home);
    PressKey('N', Ctrl);
    PressKey(VK_DELETE);
    TypeText(L"typed");
    PressKey(VK_RETURN);
    EXPECT_TRUE(Becomes(home, {L"file0", L"file1", L"file2", L"typed"}));
    ExpectNoMessage();
}

TEST_F(NewFolderUi, NumbersFollowWhenTheNameIsTaken) {
    StartIn(home);
    ExpectNewFolder(L"New Folder");
    ExpectNewFolder(L"New Folder(2)");
    ExpectNewFolder(L"New Folder(3)");
    device.Remove(home + L"\\New Folder(2)");
    ExpectNewFolder(L"New Folder(2)"); // the first that is free
    EXPECT_EQ(device.NamesIn(home), (Texts{L"New Folder", L"New Folder(2)", L"New Folder(3)"}));
}

TEST_F(NewFolderUi, AFileOfTheNameTakesItTooInAnyCase) {
    device.File(home + L"\\new folder", "kept");
    StartIn(home);
    ExpectNewFolder(L"New Folder(2)");
    EXPECT_EQ(device.Content(home + L"\\new folder"), "kept");
}

TEST_F(NewFolderUi, ItIsFoundAmongLikeNamesAndInView) {
    for (int i = 0; i < 60; ++i)
        device.Folder(home + L"\\folder" + std::to_wstring(i));
    for (const wchar_t* name : {L"New Folder", L"New Folder(2) old", L"New Folder(20)"})
        device.Folder(home + L"\\" + name);
    StartIn(home);
    NewFolder();
    EXPECT_EQ(TextInEditor(), L"New Folder(2)");
    EXPECT_TRUE(List().InView(List().Find(L"New Folder(2)")));
    TypeText(L"x");
    PressKey(VK_RETURN);
    EXPECT_TRUE(Eventually([&] { return device.IsFolder(home + L"\\x"); }));
    EXPECT_TRUE(device.IsFolder(home + L"\\New Folder"));
}

TEST_F(NewFolderUi, TheRootTakesOne) {
    program.Start();
    NewFolder();
    EXPECT_EQ(TextInEditor(), L"New Folder");
    EXPECT_TRUE(device.IsFolder(L"\\New Folder"));
    Enter(L"mine");
    EXPECT_TRUE(Eventually([&] { return device.IsFolder(L"\\mine"); }));
    EXPECT_FALSE(device.Exists(L"\\New Folder"));
}

TEST_F(NewFolderUi, TheTreeShowsItAndItsNewName) {
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    device.WriteNumber(settingsKey, L"TreeViewHeight", 80);
    StartIn(home);
    program.Command(IDM_SOFTKEY_CHANGE_VIEW); // the tree has the keyboard
    NewFolder();
    EXPECT_EQ(TextInEditor(), L"New Folder");
    EXPECT_TRUE(program.Tree().Has(home + L"\\New Folder"));
    Enter(L"mine");
    EXPECT_TRUE(Eventually([&] { return program.Tree().Has(home + L"\\mine"); }));
    EXPECT_FALSE(program.Tree().Has(home + L"\\New Folder"));
    EXPECT_EQ(program.Tree().SelectedPath(), home);
}

TEST_F(NewFolderUi, ANameThatIsRefusedOpensTheEditorAgain) {
    StartIn(home);
    NewFolder();
    Enter(L"a,b");
    ExpectMessage(forbiddenNameText);
    Enter(L"");
    ExpectMessage(emptyNameText);
    Enter(L"mine");
    EXPECT_TRUE(Becomes(home, {L"mine"}));
}

TEST_F(NewFolderUi, AFolderThatTakesNoneIsTold) {
    StartIn(home);
    RunOnHost("chmod a-w Temp/Home");
    program.PostCommand(IDM_FILE_NEW_FOLDER);
    ExpectMessage(L"This folder cannot be created.");
    EXPECT_FALSE(Editor());
    ExpectNoMessage();
    RunOnHost("chmod u+w Temp/Home");
    EXPECT_EQ(device.NamesIn(home), Texts{});
}

TEST_F(NewFolderUi, AFolderThatVanishedIsTold) {
    StartIn(home);
    RunOnHost("rmdir Temp/Home");
    program.PostCommand(IDM_FILE_NEW_FOLDER);
    ExpectMessage(L"This folder cannot be created.");
    EXPECT_FALSE(device.Exists(home));
}

TEST_F(NewFolderUi, APathWithoutRoomIsTold) {
    const std::wstring deep = L"\\Temp\\" + std::wstring(120, L'a') + L"\\" + std::wstring(125, L'b');
    device.Folder(deep);
    StartIn(deep);
    program.PostCommand(IDM_FILE_NEW_FOLDER);
    ExpectMessage(L"This folder cannot be created.");
    EXPECT_EQ(device.NamesIn(deep), Texts{});
}

TEST_F(NewFolderUi, TheLastNumberCountsAsNone) {
    device.HostFolder("Temp/Home");
    RunOnHost(
        "cd Temp/Home && mkdir 'New Folder' && seq 2 4095 | sed 's/.*/New Folder(&)/' | tr '\\n' '\\0' | "
        "xargs -0 mkdir");
    StartIn(home);
    program.PostCommand(IDM_FILE_NEW_FOLDER);
    ExpectMessage(L"This folder cannot be created.");
    EXPECT_FALSE(Editor());
    EXPECT_TRUE(device.IsFolder(home + L"\\New Folder(4096)"));
    RunOnHost("rmdir 'Temp/Home/New Folder(4095)'");
    NewFolder();
    EXPECT_EQ(TextInEditor(), L"New Folder(4095)");
}

TEST_F(NewFolderUi, WhereFoldersAreNotShownItIsMadeAllTheSame) {
    device.WriteNumber(settingsKey, L"HideFolder", 1);
    device.File(home + L"\\file");
    StartIn(home);
    NewFolder();
    EXPECT_TRUE(device.IsFolder(home + L"\\New Folder"));
    EXPECT_FALSE(Editor());
    EXPECT_TRUE(program.ListHasFocus());
    ExpectNoMessage();
}

TEST_F(NewFolderUi, AmongSearchResultsThereIsNone) {
    device.File(home + L"\\note");
    StartIn(home);
    program.Search(L"note", home);
    NewFolder();
    EXPECT_FALSE(Editor());
    ExpectNoMessage();
    EXPECT_EQ(device.NamesIn(home), Texts{L"note"});
}

} // namespace
