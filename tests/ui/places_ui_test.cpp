// Screens: 240x320
// Limit: 300 seconds

// Folders are told apart by where they are, not by how their paths are spelt.

#include "tests/ui/job_ui.h"
#include "tests/ui/name_editor_ui.h"

namespace {

constexpr char hostsPlaces[] = "folders that links lead to, or that are told apart by case";
const std::wstring illegalCopy = L"Illegal copy operation.";
const std::wstring illegalMove = L"Illegal move operation.";
const std::wstring systemFolder = L"'Windows' is a system folder and cannot be moved nor deleted.";

class PlacesUi : public JobUi {
  protected:
    void SetUp() override {
        JobUi::SetUp();
        ShowAddressBar();
        device.File(L"\\Home\\Sub\\Deep\\a.txt", "a");
        device.Folder(L"\\Home\\Sub\\Empty");
        device.File(L"\\Home\\b.txt", "b");
        RunOnHost("ln -s \"$(dirname \"$TARVIK_DEVICE\")\" 'Outer Card'\n"
                  "ln -s \"$TARVIK_DEVICE\" 'Own Card'\n"
                  "basename \"$TARVIK_DEVICE\" | tr -d '\\n' >Temp/name");
        throughCard_ = L"\\Outer Card\\" + Widen(device.Content(L"\\Temp\\name"));
    }

    /// The device's root as it is reached through a card that it lies on.
    const std::wstring& ThroughCard() const { return throughCard_; }

    /// Goes by the address bar, where a folder keeps the letters and the backslash that were typed.
    void Type(const std::wstring& folder) { program.GoByAddressBar(folder); }

    void ExpectHomeIsWhole() {
        EXPECT_EQ(device.NamesIn(L"\\Home"), (Texts{L"Sub", L"b.txt"}));
        EXPECT_EQ(device.NamesIn(L"\\Home\\Sub"), (Texts{L"Deep", L"Empty"}));
        EXPECT_EQ(device.NamesIn(L"\\Home\\Sub\\Deep"), Texts{L"a.txt"});
        EXPECT_EQ(device.NamesIn(L"\\Home\\Sub\\Empty"), Texts{});
        EXPECT_FALSE(program.HasDialog());
    }
    void ExpectPasteRefused(const std::wstring& message) {
        Paste();
        EXPECT_EQ(ReadMessage(), message);
        program.WaitUntilIdle();
        ExpectHomeIsWhole();
    }
    /// Says no to the deletion of nothing: the message ends the job by itself.
    void ExpectDeleteRefused() {
        Give(IDM_FILE_DELETE);
        AnswerDelete(yesKey);
        EXPECT_EQ(ReadMessage(), systemFolder);
        FinishJob();
        ExpectHomeIsWhole();
        EXPECT_TRUE(device.IsFolder(L"\\Windows\\Start Menu"));
    }

  private:
    std::wstring throughCard_;
};

} // namespace

// --- Into itself ---

TEST_F(PlacesUi, AFolderDoesNotGoIntoItselfThroughACard) {
    ONLY_ON_THE_DESKTOP(hostsPlaces);
    StartIn(ThroughCard() + L"\\Home");
    Copy({L"Sub"});
    for (const wchar_t* target : {L"\\Home\\Sub", L"\\Home\\Sub\\Deep", L"\\Own Card\\Home\\Sub\\Deep"}) {
        SCOPED_TRACE(Narrow(target));
        Show(target);
        ExpectPasteRefused(illegalCopy);
    }
    Show(L"\\Home");
    Cut({L"Sub"});
    Show(ThroughCard() + L"\\Home\\Sub\\Deep");
    ExpectPasteRefused(illegalMove);
}

TEST_F(PlacesUi, WhatHoldsTheDeviceDoesNotGoIntoIt) {
    ONLY_ON_THE_DESKTOP(hostsPlaces);
    StartIn(L"\\Outer Card");
    const std::wstring name = ThroughCard().substr(ThroughCard().rfind(L'\\') + 1);
    Copy({name});
    Show(L"\\Temp");
    ExpectPasteRefused(illegalCopy);
    ShowRoot();
    Copy({L"Outer Card"});
    Show(L"\\Temp");
    ExpectPasteRefused(illegalCopy);
    ShowRoot();
    Copy({L"Own Card"});
    Show(L"\\Home\\Sub");
    ExpectPasteRefused(illegalCopy);
    Show(L"\\Outer Card");
    Cut({name});
    Show(L"\\Temp");
    ExpectPasteRefused(systemFolder);
    EXPECT_EQ(device.NamesIn(L"\\Temp"), Texts{L"name"});
}

TEST_F(PlacesUi, AFolderDoesNotGoIntoItselfByAnotherSpelling) {
    StartIn(L"\\Home");
    Copy({L"Sub"});
    for (const wchar_t* target : {L"\\HOME\\sub\\DEEP", L"\\Home\\Sub\\Deep\\", L"\\home\\sub\\"}) {
        SCOPED_TRACE(Narrow(target));
        Type(target);
        ExpectPasteRefused(illegalCopy);
    }
    Type(L"\\Home\\");
    Cut({L"Sub"});
    Show(L"\\Home\\Sub\\Deep");
    ExpectPasteRefused(illegalMove);
}

TEST_F(PlacesUi, LettersBeyondAsciiAreOneInEitherCase) {
    device.Folder(L"\\\u00C4rger\\Sub");
    device.Folder(L"\\\u0416\u0430\u0431\u0430\\Sub");
    StartIn(L"\\");
    for (const std::wstring name : {L"\u00C4rger", L"\u0416\u0430\u0431\u0430"}) {
        ShowRoot();
        Cut({name});
        std::wstring other = L"\\" + name + L"\\Sub";
        other[1] = static_cast<wchar_t>(std::towlower(other[1]));
        Type(other);
        ExpectPasteRefused(illegalMove);
        EXPECT_EQ(device.NamesIn(L"\\" + name), Texts{L"Sub"});
    }
}

TEST_F(PlacesUi, FoldersThatTheHostTellsApartByCaseAreTwo) {
    ONLY_ON_THE_DESKTOP(hostsPlaces);
    device.HostFile("Case/one/x.txt", "x");
    device.HostFolder("Case/ONE");
    StartIn(L"\\Case");
    Copy({L"one"});
    program.List().SelectNothing();
    Show(L"\\Case\\ONE");
    PasteAll();
    RunOnHost("test -f Case/ONE/one/x.txt; test -f Case/one/x.txt; test ! -e Case/one/one");
}

TEST_F(PlacesUi, ALinkMayGoToWhatItLeadsTo) {
    RunOnHost("ln -s \"$TARVIK_DEVICE/Home/Sub\" Home/link");
    StartIn(L"\\Home");
    Cut({L"link"});
    Show(L"\\Home\\Sub\\Empty");
    PasteAll();
    RunOnHost("test -L Home/Sub/Empty/link; rm Home/Sub/Empty/link");
    ExpectHomeIsWhole();
}

// --- The same folder ---

TEST_F(PlacesUi, AMoveOntoItselfIsIllegalHoweverTheFolderIsSpelt) {
    ONLY_ON_THE_DESKTOP(hostsPlaces);
    for (const std::wstring& target : {std::wstring(L"\\HOME"), std::wstring(L"\\Home\\"),
                                       std::wstring(L"\\Own Card\\Home"), ThroughCard() + L"\\Home"}) {
        SCOPED_TRACE(Narrow(target));
        StartIn(L"\\Home");
        Cut({L"Sub", L"b.txt"});
        Type(target);
        ExpectPasteRefused(illegalMove);
        program.Close();
    }
}

TEST_F(PlacesUi, ACopyIntoItsOwnFolderGetsANameHoweverTheFolderIsSpelt) {
    ONLY_ON_THE_DESKTOP(hostsPlaces);
    StartIn(L"\\Home");
    Copy({L"b.txt"});
    Type(L"\\hOME\\");
    PasteAll();
    Show(ThroughCard() + L"\\Home");
    PasteAll();
    EXPECT_EQ(device.NamesIn(L"\\Home"), (Texts{L"Sub", L"b.txt", L"copy (2) of b.txt", L"copy of b.txt"}));
    EXPECT_EQ(device.Content(L"\\Home\\copy of b.txt"), "b");
}

TEST_F(PlacesUi, AFolderIsNotMovedOntoItselfThroughALinkInTheTarget) {
    ONLY_ON_THE_DESKTOP(hostsPlaces);
    device.HostLink("To/Sub", "../Home/Sub");
    StartIn(L"\\Home");
    Cut({L"Sub"});
    Show(L"\\To");
    Paste();
    if (HoldsWithin(3000, [&] { return program.HasDialog() || program.HasMessageBox(); }) &&
        !program.HasMessageBox())
        AnswerFolder(IDYES);
    EXPECT_EQ(ReadMessage(), L"'Sub' cannot be copied.");
    FinishJob();
    ExpectHomeIsWhole();
}

TEST_F(PlacesUi, AfterARenameInTheTreeTheFolderIsStillOne) {
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    StartIn(L"\\Home\\Sub");
    program.Command(IDM_SOFTKEY_CHANGE_VIEW);
    WaitFor("for the tree", [&] { return program.TreeHasFocus(); });
    program.Command(IDM_FILE_RENAME);
    WaitFor("for the editor", [&] { return program.Tree().NameEditor() != nullptr; });
    Control(program.Tree().NameEditor()).SetText(L"New");
    PressKey(VK_RETURN);
    program.WaitForFolder(L"\\Home\\New\\");
    Cut({L"Deep"});
    Show(L"\\Home\\New\\Deep");
    Paste();
    EXPECT_EQ(ReadMessage(), illegalMove);
    Show(L"\\Home\\New");
    Cut({L"Deep"});
    Type(L"\\Home\\New\\");
    Paste();
    EXPECT_EQ(ReadMessage(), illegalMove);
    EXPECT_EQ(device.NamesIn(L"\\Home\\New"), (Texts{L"Deep", L"Empty"}));
    EXPECT_EQ(device.NamesIn(L"\\Home\\New\\Deep"), Texts{L"a.txt"});
    program.List().Select(L"Deep");
    program.Command(IDM_EDIT_COPY_PATH);
    EXPECT_EQ(ClipboardText(), L"\\Home\\New\\Deep");
}

// --- The system's folder ---

TEST_F(PlacesUi, TheSystemFolderStaysHoweverItIsReached) {
    ONLY_ON_THE_DESKTOP(hostsPlaces);
    for (const std::wstring& root :
         {std::wstring(L"\\Own Card"), std::wstring(L"\\Own Card\\"), ThroughCard()}) {
        SCOPED_TRACE(Narrow(root));
        StartIn(L"\\Home");
        Type(root);
        Select({L"Windows"});
        ExpectDeleteRefused();
        Cut({L"Windows"});
        Show(L"\\Home");
        ExpectPasteRefused(systemFolder);
        Type(root);
        Copy({L"Windows"});
        Show(L"\\Home");
        ExpectPasteRefused(systemFolder);
        program.Close();
    }
}

TEST_F(PlacesUi, NothingIsDeletedThatTheSystemFolderLiesIn) {
    ONLY_ON_THE_DESKTOP(hostsPlaces);
    StartIn(L"\\Outer Card");
    Select({ThroughCard().substr(ThroughCard().rfind(L'\\') + 1)});
    ExpectDeleteRefused();
    ShowRoot();
    for (const wchar_t* card : {L"Outer Card", L"Own Card"}) {
        Select({card});
        ExpectDeleteRefused();
    }
}

// --- Its name ---

class SystemNameUi : public NameEditorUi {
  protected:
    void ExpectNameStays() {
        ExpectMessage(systemFolder);
        EXPECT_TRUE(Eventually([&] { return !program.HasDialog(); }));
        EXPECT_TRUE(device.IsFolder(L"\\Windows\\Start Menu"));
        EXPECT_FALSE(device.Exists(L"\\Other"));
    }
};

TEST_F(SystemNameUi, InTheList) {
    ONLY_ON_THE_DESKTOP(hostsPlaces);
    device.HostLink("Own Card", ".");
    program.Start();
    for (const std::wstring folder : {L"\\", L"\\Own Card"}) {
        program.HandOverFolder(folder);
        Rename(L"Windows", L"Other");
        ExpectNameStays();
        EXPECT_TRUE(EditorIsGone());
        EXPECT_TRUE(List().Has(L"Windows"));
    }
    Rename(L"Windows", L"Windows"); // which is no other name
    EXPECT_TRUE(EditorIsGone());
    ExpectNoMessage();
}

TEST_F(SystemNameUi, InTheTree) {
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    program.Start(L"\\Windows");
    program.Command(IDM_SOFTKEY_CHANGE_VIEW);
    WaitFor("for the tree", [&] { return program.TreeHasFocus(); });
    program.Command(IDM_FILE_RENAME);
    WaitFor("for the editor", [&] { return program.Tree().NameEditor() != nullptr; });
    Control(program.Tree().NameEditor()).SetText(L"Other");
    PressKey(VK_RETURN);
    ExpectNameStays();
    EXPECT_EQ(program.Tree().SelectedPath(), L"\\Windows");
    EXPECT_EQ(program.Folder(), L"\\Windows");
}

TEST_F(SystemNameUi, InItsProperties) {
    program.Start();
    program.List().Select(L"Windows");
    program.PostCommand(IDM_MENU_PROPERTIES);
    Dialog dialog = program.WaitForDialog(L"Properties");
    dialog.Item(IDC_ENTRY_NAME).SetText(L"Other");
    dialog.Command(IDM_PROPERTIES_OK);
    ExpectNameStays();
}

TEST_F(SystemNameUi, InTheFolderChooser) {
    device.File(L"\\Temp\\a.txt");
    program.Start(L"\\Temp");
    program.List().Select(L"a");
    program.PostCommand(IDM_SENDTO_COPY_TO);
    Dialog chooser = program.WaitForDialog(L"Copy file to");
    TreeView(chooser.Item(IDC_CHOOSER_TREE).Window()).Select(L"\\Windows");
    chooser.Command(IDM_CHOOSER_RENAME);
    Dialog rename = program.WaitForDialog(L"Rename folder");
    rename.Item(1052).SetText(L"Other");
    rename.Command(IDM_RENAME_OK);
    MessageBoxShown box = program.WaitForMessageBox();
    EXPECT_EQ(box.Text(), systemFolder);
    box.Answer(IDOK);
    chooser.Command(IDCANCEL);
    chooser.WaitUntilClosed();
    EXPECT_TRUE(device.IsFolder(L"\\Windows\\Start Menu"));
}
