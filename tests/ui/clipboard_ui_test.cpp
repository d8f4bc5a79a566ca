// Screens: 240x320
// Limit: 240 seconds

// The program's own clipboard, and texts on the system's.

#include "tests/ui/job_ui.h"

namespace {

class ClipboardUi : public JobUi {
  protected:
    void SetUp() override {
        JobUi::SetUp();
        device.File(L"\\From\\a.txt", "a");
        device.File(L"\\From\\b.txt", "b");
        device.File(L"\\From\\Sub\\c.txt", "c");
        device.Folder(L"\\To");
    }
};

TEST_F(ClipboardUi, IsEmptyAtStart) {
    StartIn(L"\\From");
    EXPECT_FALSE(CanPaste());
    EXPECT_FALSE(program.SoftKeyMenu().IsEnabled(IDM_TOOLBAR_PASTE_SHORTCUT));
}

TEST_F(ClipboardUi, CopyOfNothingEmptiesItAndCutOfNothingDoesNot) {
    StartIn(L"\\From");
    Copy({L"a.txt"});
    EXPECT_TRUE(CanPaste());
    Cut({});
    EXPECT_TRUE(CanPaste());
    Cut({L".."});
    EXPECT_TRUE(CanPaste());
    Copy({});
    EXPECT_FALSE(CanPaste());
}

TEST_F(ClipboardUi, ACutIsMarkedAndPastedOnce) {
    StartIn(L"\\From");
    Cut({L"a.txt", L"b.txt"});
    EXPECT_TRUE(program.List().State(program.List().Find(L"a.txt")) & LVIS_CUT);
    EXPECT_TRUE(program.List().State(program.List().Find(L"b.txt")) & LVIS_CUT);
    Copy({L"a.txt"});
    EXPECT_FALSE(program.List().State(program.List().Find(L"a.txt")) & LVIS_CUT);
    EXPECT_TRUE(program.List().State(program.List().Find(L"b.txt")) & LVIS_CUT);
    Cut({L"a.txt"});
    Show(L"\\To");
    PasteAll();
    EXPECT_EQ(device.NamesIn(L"\\To"), Texts{L"a.txt"});
    EXPECT_FALSE(CanPaste());
}

TEST_F(ClipboardUi, ACopyIsPastedAgainAndAgain) {
    device.Folder(L"\\To2");
    StartIn(L"\\From");
    Copy({L"a.txt", L"Sub"});
    Show(L"\\To");
    PasteAll();
    Show(L"\\To2");
    PasteAll();
    EXPECT_EQ(device.NamesIn(L"\\To"), (Texts{L"Sub", L"a.txt"}));
    EXPECT_EQ(device.NamesIn(L"\\To2"), (Texts{L"Sub", L"a.txt"}));
    EXPECT_TRUE(CanPaste());
}

TEST_F(ClipboardUi, OneVanishedSourceStopsThePasteOfAll) {
    StartIn(L"\\From");
    Cut({L"a.txt", L"b.txt"});
    device.Remove(L"\\From\\b.txt");
    Show(L"\\To");
    Paste();
    EXPECT_EQ(ReadMessage(), L"You cannot paste this file. The source file may have been deleted.");
    EXPECT_EQ(device.NamesIn(L"\\To"), Texts{});
    EXPECT_FALSE(CanPaste());
}

TEST_F(ClipboardUi, ARefusedMoveEmptiesItAllTheSame) {
    StartIn(L"\\From");
    Cut({L"a.txt"});
    Paste();
    EXPECT_EQ(ReadMessage(), L"Illegal move operation.");
    EXPECT_FALSE(CanPaste());
}

TEST_F(ClipboardUi, PasteShortcutKeepsIt) {
    device.SetOption(ListOption::NoExtension, 1);
    StartIn(L"\\From");
    Cut({L"a"});
    Show(L"\\To");
    program.Command(IDM_TOOLBAR_PASTE_SHORTCUT);
    program.Command(IDM_TOOLBAR_PASTE_SHORTCUT);
    EXPECT_EQ(device.NamesIn(L"\\To"), (Texts{L"Shortcut to a (2).lnk", L"Shortcut to a.lnk"}));
    EXPECT_EQ(device.Content(L"\\To\\Shortcut to a.lnk"), "13#\"\\From\\a.txt\"");
    EXPECT_TRUE(CanPaste());
}

TEST_F(ClipboardUi, CopyNameAndCopyPathPutTextOnTheSystemsClipboard) {
    StartIn(L"\\From");
    Select({L"a.txt", L"b.txt"});
    program.Command(IDM_EDIT_COPY_NAME);
    EXPECT_EQ(ClipboardText(), L"a.txt");
    program.Command(IDM_EDIT_COPY_PATH);
    EXPECT_EQ(ClipboardText(), L"\\From\\a.txt");
    ShowRoot();
    Select({L"From"});
    program.Command(IDM_EDIT_COPY_PATH);
    EXPECT_EQ(ClipboardText(), L"\\From");
}

TEST_F(ClipboardUi, SearchResultsAreTakenFromTheirOwnFoldersAndFollow) {
    StartIn(L"\\From");
    program.Search(L"*.txt", L"\\From");
    Select({L"c.txt"});
    program.Command(IDM_EDIT_COPY_PATH);
    EXPECT_EQ(ClipboardText(), L"\\From\\Sub\\c.txt");
    program.Command(IDM_TOOLBAR_CUT);
    Show(L"\\To");
    PasteAll();
    EXPECT_EQ(device.NamesIn(L"\\To"), Texts{L"c.txt"});
    EXPECT_FALSE(device.Exists(L"\\From\\Sub\\c.txt"));
    program.AddressBar().SetText(L"File Search");
    program.Command(IDM_TOOLBAR_GO_TO);
    program.WaitForFolder(L"File Search");
    Select({L"c.txt"});
    program.Command(IDM_EDIT_COPY_PATH);
    EXPECT_EQ(ClipboardText(), L"\\To\\c.txt");
}

TEST_F(ClipboardUi, TheKeysOfTheListWorkToo) {
    StartIn(L"\\From");
    Select({L"a.txt"});
    PressKey('C', Ctrl);
    WaitFor("for the copy", [&] { return CanPaste(); });
    Show(L"\\To");
    PressKey('V', Ctrl);
    WaitFor("for the file", [&] { return program.List().Has(L"a.txt"); });
}

} // namespace
