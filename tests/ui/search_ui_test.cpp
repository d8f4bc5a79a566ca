// Screens: 240x320 320x240 176x220

// The file search: its dialog, what it finds and what the list makes of it.

#include <algorithm>

#include "tests/support/host.h"
#include "tests/support/text.h"
#include "tests/support/ui_test.h"
#include "tests/ui/layout.h"

namespace {

constexpr int area = 1;
constexpr int before = 2;

class SearchUi : public UiTest {
  protected:
    Dialog Open(const std::wstring& folder) {
        if (!program.Process()) {
            ShowExtensions();
            program.Start();
        }
        if (!folder.empty()) {
            program.HandOverFolder(folder);
            program.WaitForFolder(folder);
        }
        program.PostCommand(IDM_FILE_SEARCH);
        return program.WaitForDialog(L"File Search");
    }
    void Search(Dialog& dialog) {
        dialog.Command(IDM_SEARCH_OK);
        WaitFor(
            "for the search's end", [&] { return !IsWindow(dialog.Window()); }, 60000);
        program.WaitForFolder(L"File Search");
        program.WaitUntilIdle();
    }
    /// Searches the folder by name alone.
    void SearchFor(const std::wstring& folder, const std::wstring& name) {
        Dialog dialog = Open(folder);
        dialog.Item(IDC_SEARCH_NAME).SetText(name);
        Search(dialog);
    }
    static void SetDay(Dialog& dialog, int picker, WORD year, WORD month, WORD day) {
        const SYSTEMTIME time{year, month, 0, day, 12, 0, 0, 0};
        RemoteMemory memory(dialog.Item(picker).Window(), sizeof(time));
        memory.Write(&time, sizeof(time));
        Ask(dialog.Item(picker).Window(), DTM_SETSYSTEMTIME, GDT_VALID,
            reinterpret_cast<LPARAM>(memory.Address()));
    }
    Texts Found() const {
        Texts names = program.List().Names();
        std::sort(names.begin(), names.end());
        return names;
    }
};

} // namespace

TEST_F(SearchUi, TheDialogAsItOpens) {
    Dialog dialog = Open(L"\\My Documents");
    EXPECT_EQ(dialog.SoftKeys(), (std::vector<std::wstring>{L"Ok", L"Menu"}));
    EXPECT_EQ(dialog.Item(IDC_PAGE_TITLE).Text(), L"File Search...");
    EXPECT_EQ(dialog.Item(IDC_SEARCH_NAME).Text(), L"");
    EXPECT_EQ(dialog.Item(IDC_SEARCH_LOCATION).Text(), L"\\My Documents");
    EXPECT_TRUE(dialog.Item(IDC_SEARCH_CASE).IsChecked());
    EXPECT_TRUE(dialog.Item(IDC_SEARCH_SUBFOLDERS).IsChecked());
    EXPECT_EQ(dialog.Item(IDC_SEARCH_DATE_MODE).Entries(), (Texts{L"", L"Area", L"Before", L"After"}));
    EXPECT_EQ(dialog.Item(IDC_SEARCH_SIZE_MODE).Entries(), (Texts{L"", L"MIN", L"MAX"}));
    EXPECT_EQ(dialog.Item(IDC_SEARCH_DATE_MODE).SelectedEntry(), -1);
    EXPECT_EQ(dialog.Item(IDC_SEARCH_SIZE_MODE).SelectedEntry(), -1);
    EXPECT_EQ(dialog.Item(IDC_SEARCH_KILOBYTES).Text(), L"0");
    for (const int control : {IDC_SEARCH_DATE_MODE, IDC_SEARCH_FIRST_DAY, IDC_SEARCH_LAST_DAY,
                              IDC_SEARCH_SIZE_MODE, IDC_SEARCH_KILOBYTES})
        EXPECT_FALSE(dialog.Item(control).IsEnabled()) << control;
    EXPECT_FALSE(dialog.Item(IDC_SEARCH_LAST_DAY).IsShown());
    WaitFor("for the keyboard in the Name box",
            [&] { return program.Focus() == dialog.Item(IDC_SEARCH_NAME).Window(); });
}

TEST_F(SearchUi, BoxesSwitchTheirControls) {
    Dialog dialog = Open(L"\\My Documents");
    dialog.Mark(IDC_SEARCH_DATE, true);
    dialog.Mark(IDC_SEARCH_SIZE, true);
    program.WaitUntilIdle();
    for (const int control :
         {IDC_SEARCH_DATE_MODE, IDC_SEARCH_FIRST_DAY, IDC_SEARCH_SIZE_MODE, IDC_SEARCH_KILOBYTES})
        EXPECT_TRUE(dialog.Item(control).IsEnabled()) << control;
    EXPECT_FALSE(dialog.Item(IDC_SEARCH_LAST_DAY).IsShown());
    dialog.Item(IDC_SEARCH_DATE_MODE).PickEntry(area);
    WaitFor("for the second day", [&] { return dialog.Item(IDC_SEARCH_LAST_DAY).IsShown(); });
    EXPECT_TRUE(dialog.Item(IDC_SEARCH_LAST_DAY).IsEnabled());
    ExpectGoodLayout(dialog);
    dialog.Item(IDC_SEARCH_DATE_MODE).PickEntry(before);
    WaitFor("for the second day to go", [&] { return !dialog.Item(IDC_SEARCH_LAST_DAY).IsShown(); });
    dialog.Mark(IDC_SEARCH_DATE, false);
    WaitFor("for the list to be off", [&] { return !dialog.Item(IDC_SEARCH_DATE_MODE).IsEnabled(); });
}

TEST_F(SearchUi, FindsNamesAnywhereBelow) {
    device.File(L"\\Temp\\s\\readme.txt");
    device.File(L"\\Temp\\s\\a\\b\\more.TXT");
    device.File(L"\\Temp\\s\\a\\other.doc");
    device.Folder(L"\\Temp\\s\\txts");
    SearchFor(L"\\Temp\\s", L"TXT");
    EXPECT_EQ(Found(), (Texts{L"more.TXT", L"readme.txt", L"txts"}));
    EXPECT_EQ(program.Tree().SelectedPath(), L"File Search");
}

TEST_F(SearchUi, WithoutSubfoldersOnlyTheFolderItself) {
    device.File(L"\\Temp\\s\\one.txt");
    device.File(L"\\Temp\\s\\a\\two.txt");
    Dialog dialog = Open(L"\\Temp\\s");
    dialog.Item(IDC_SEARCH_NAME).SetText(L"txt");
    dialog.Mark(IDC_SEARCH_SUBFOLDERS, false);
    Search(dialog);
    EXPECT_EQ(Found(), Texts{L"one.txt"});
}

TEST_F(SearchUi, FindsTextWithAndWithoutCase) {
    device.File(L"\\Temp\\s\\upper.txt", "SAY HELLO TO ALL");
    device.File(L"\\Temp\\s\\lower.txt", "say hello to all");
    device.File(L"\\Temp\\s\\end.txt", "SAY HE");
    device.File(L"\\Temp\\s\\block.txt", std::string(4094, '.') + "HE" + std::string(100, '.'));
    device.File(L"\\Temp\\s\\none.txt", "SAY HELP TO ALL");
    Dialog exact = Open(L"\\Temp\\s");
    exact.Item(IDC_SEARCH_TEXT).SetText(L"HELLO");
    Search(exact);
    EXPECT_EQ(Found(), (Texts{L"block.txt", L"end.txt", L"upper.txt"}));
    Dialog loose = Open(L"\\Temp\\s");
    loose.Item(IDC_SEARCH_TEXT).SetText(L"HELLO");
    loose.Mark(IDC_SEARCH_CASE, false);
    Search(loose);
    EXPECT_EQ(Found(), (Texts{L"block.txt", L"end.txt", L"lower.txt", L"upper.txt"}));
}

TEST_F(SearchUi, FindsByDay) {
    device.File(L"\\Temp\\s\\old.txt");
    device.File(L"\\Temp\\s\\day.txt");
    device.File(L"\\Temp\\s\\late.txt");
    device.SetWriteTime(L"\\Temp\\s\\old.txt", {2006, 4, 0, 10, 12, 0, 0, 0});
    device.SetWriteTime(L"\\Temp\\s\\day.txt", {2006, 5, 0, 1, 12, 0, 0, 0});
    device.SetWriteTime(L"\\Temp\\s\\late.txt", {2006, 6, 0, 10, 12, 0, 0, 0});
    struct {
        int mode;
        Texts found;
    } const cases[] = {{-1, {L"day.txt"}},
                       {area, {L"day.txt", L"late.txt"}},
                       {before, {L"day.txt", L"old.txt"}},
                       {3, {L"day.txt", L"late.txt"}}};
    for (const auto& [mode, found] : cases) {
        SCOPED_TRACE(mode);
        Dialog dialog = Open(L"\\Temp\\s");
        dialog.Mark(IDC_SEARCH_DATE, true);
        if (mode >= 0)
            dialog.Item(IDC_SEARCH_DATE_MODE).PickEntry(mode);
        SetDay(dialog, IDC_SEARCH_FIRST_DAY, 2006, 5, 1);
        SetDay(dialog, IDC_SEARCH_LAST_DAY, 2006, 6, 10);
        Search(dialog);
        EXPECT_EQ(Found(), found);
    }
}

TEST_F(SearchUi, FindsBySize) {
    device.FileOfSize(L"\\Temp\\s\\zero.bin", 0);
    device.FileOfSize(L"\\Temp\\s\\one.bin", 1024);
    device.FileOfSize(L"\\Temp\\s\\five.bin", 5 * 1024);
    struct {
        int mode;
        const wchar_t* kilobytes;
        Texts found;
    } const cases[] = {{-1, L"0", {L"zero.bin"}},
                       {0, L"5", {L"five.bin"}},
                       {1, L"0", {L"five.bin", L"one.bin", L"zero.bin"}},
                       {1, L"2", {L"five.bin"}},
                       {2, L"1", {L"one.bin", L"zero.bin"}},
                       {2, L"-1", {L"five.bin", L"one.bin", L"zero.bin"}}};
    for (const auto& [mode, kilobytes, found] : cases) {
        SCOPED_TRACE(Narrow(kilobytes));
        Dialog dialog = Open(L"\\Temp\\s");
        dialog.Mark(IDC_SEARCH_SIZE, true);
        if (mode >= 0)
            dialog.Item(IDC_SEARCH_SIZE_MODE).PickEntry(mode);
        dialog.Item(IDC_SEARCH_KILOBYTES).SetText(kilobytes);
        Search(dialog);
        EXPECT_EQ(Found(), found);
    }
}

TEST_F(SearchUi, ALocationThatIsNoFolderIsTheWholeDevice) {
    device.File(L"\\Temp\\s\\very special name.txt");
    for (const wchar_t* location : {L"\\", L"\\No\\such\\folder", L""}) {
        SCOPED_TRACE(Narrow(location));
        Dialog dialog = Open(L"\\My Documents");
        dialog.Item(IDC_SEARCH_LOCATION).SetText(location);
        dialog.Item(IDC_SEARCH_NAME).SetText(L"very special");
        Search(dialog);
        EXPECT_EQ(Found(), Texts{L"very special name.txt"});
    }
}

TEST_F(SearchUi, TheRootAndSearchResultsAreCalledByTheDevicesName) {
    Dialog root = Open(L"");
    EXPECT_EQ(root.Item(IDC_SEARCH_LOCATION).Text(), program.Tree().RootText());
    root.Item(IDC_SEARCH_NAME).SetText(L"no file is called like this");
    Search(root);
    EXPECT_EQ(program.List().Count(), 0);
    Dialog again = Open(L"");
    EXPECT_EQ(again.Item(IDC_SEARCH_LOCATION).Text(), program.Tree().RootText());
}

TEST_F(SearchUi, CancelLeavesTheListAlone) {
    Dialog dialog = Open(L"\\My Documents");
    const Texts names = program.List().Names();
    dialog.Command(IDM_SEARCH_CANCEL);
    dialog.WaitUntilClosed();
    program.WaitUntilIdle();
    EXPECT_EQ(program.Folder(), L"\\My Documents");
    EXPECT_EQ(program.List().Names(), names);
    EXPECT_TRUE(program.ListHasFocus());
}

TEST_F(SearchUi, ResultsStayUntilTheNextSearch) {
    device.File(L"\\Temp\\s\\find me.txt");
    device.File(L"\\Temp\\s\\sub\\find me too.txt");
    SearchFor(L"\\Temp\\s", L"find me");
    program.HandOverFolder(L"\\Windows");
    program.WaitForFolder(L"\\Windows");
    program.Command(IDM_VIEW_FOLDER_TREE);
    device.Remove(L"\\Temp\\s\\find me.txt");
    program.HandOverFolder(L"\\Temp\\s");
    program.WaitForFolder(L"\\Temp\\s");
    program.AddressBar().SetText(L"File Search");
    program.Command(IDM_TOOLBAR_GO_TO);
    program.WaitForFolder(L"File Search");
    EXPECT_EQ(Found(), Texts{L"find me too.txt"});
}

TEST_F(SearchUi, LinksAndClosedFoldersAreNotGoneInto) {
    device.File(L"\\Temp\\s\\a\\needle.txt");
    device.File(L"\\Temp\\elsewhere\\needle.txt");
    device.File(L"\\Temp\\s\\closed\\needle.txt");
    device.HostLink("Temp/s/a/loop", "..");
    device.HostLink("Temp/s/away", "../elsewhere");
    device.Forbid("Temp/s/closed");
    SearchFor(L"\\Temp\\s", L"needle");
    EXPECT_EQ(Found(), Texts{L"needle.txt"});
}

TEST_F(SearchUi, StorageCardsAreSearched) {
    device.StorageCard("Storage Card", {"deep/needle.txt"});
    SearchFor(L"\\My Documents", L"unused");
    Dialog dialog = Open(L"");
    dialog.Item(IDC_SEARCH_LOCATION).SetText(L"\\");
    dialog.Item(IDC_SEARCH_NAME).SetText(L"needle");
    Search(dialog);
    EXPECT_EQ(Found(), Texts{L"needle.txt"});
}

TEST_F(SearchUi, ExplorerChoosesTheLocation) {
    Dialog dialog = Open(L"\\My Documents");
    dialog.Command(IDM_SEARCH_EXPLORER);
    Dialog chooser = program.WaitForDialogOver(dialog);
    EXPECT_EQ(chooser.Title(), L"File Search");
    TreeView tree(chooser.Item(IDC_CHOOSER_TREE).Window());
    EXPECT_EQ(tree.SelectedPath(), L"\\My Documents");
    tree.Select(L"\\Windows");
    chooser.Command(IDM_CHOOSER_OK);
    WaitFor("for the location", [&] { return dialog.Item(IDC_SEARCH_LOCATION).Text() == L"\\Windows"; });
    WaitFor("for the keyboard", [&] { return program.Focus() == dialog.Item(IDC_SEARCH_LOCATION).Window(); });
}

TEST_F(SearchUi, ResultsFollowNamesChangedInTheirProperties) {
    device.File(L"\\Temp\\s\\sub\\needle.txt");
    device.File(L"\\Temp\\s\\needle two.txt");
    SearchFor(L"\\Temp\\s", L"needle");
    program.List().Select(L"needle.txt");
    program.PostCommand(IDM_MENU_PROPERTIES);
    Dialog dialog = program.WaitForDialog(L"Properties");
    dialog.Item(IDC_ENTRY_NAME).SetText(L"pin.txt");
    dialog.Command(IDM_PROPERTIES_OK);
    dialog.WaitUntilClosed();
    WaitFor("for the new name", [&] { return Found() == Texts({L"needle two.txt", L"pin.txt"}); });
    EXPECT_EQ(device.NamesIn(L"\\Temp\\s\\sub"), Texts{L"pin.txt"});
    program.HandOverFolder(L"\\Temp\\s");
    program.WaitForFolder(L"\\Temp\\s");
    program.AddressBar().SetText(L"File Search");
    program.Command(IDM_TOOLBAR_GO_TO);
    program.WaitForFolder(L"File Search");
    EXPECT_EQ(Found(), (Texts{L"needle two.txt", L"pin.txt"}));
}

TEST_F(SearchUi, VeryDeepFoldersDoNoHarm) {
    device.File(L"\\Temp\\s\\needle.txt");
    RunOnHost("cd Temp/s && for i in $(seq 1500); do mkdir d && cd -P d || exit; done && touch needle.txt");
    SearchFor(L"\\Temp\\s", L"needle");
    EXPECT_EQ(Found(), Texts{L"needle.txt"});
    RunOnHost("rm -rf Temp/s");
}

TEST_F(SearchUi, TheProgramAnswersDuringALongSearchAndCanBeClosed) {
    for (int file = 0; file < 40; ++file)
        device.FileOfSize(L"\\Temp\\s\\big " + std::to_wstring(file), 1'000'000'000);
    Dialog dialog = Open(L"\\Temp\\s");
    dialog.Item(IDC_SEARCH_TEXT).SetText(L"needle");
    dialog.Command(IDM_SEARCH_OK);
    WaitFor("for the dialog to be hidden", [&] { return !IsWindowVisible(dialog.Window()); });
    EXPECT_TRUE(IsWindow(dialog.Window()));
    EXPECT_FALSE(IsWindowEnabled(program.Window())); // nothing else can be begun
    EXPECT_TRUE(HoldsWithin(10000, [&] { return Answers(program.Window()); }));
    program.Close();
    EXPECT_EQ(program.ExitCode(), 0u);
}

TEST_F(SearchUi, TextsOfAnyLengthAreTakenAsFarAsTheyGo) {
    device.File(L"\\Temp\\s\\a.txt", "abc");
    Dialog dialog = Open(L"\\Temp\\s");
    dialog.Item(IDC_SEARCH_NAME).SetText(std::wstring(2000, L'*'));
    dialog.Item(IDC_SEARCH_TEXT).SetText(std::wstring(2000, L'x'));
    dialog.Item(IDC_SEARCH_KILOBYTES).SetText(std::wstring(2000, L'9'));
    Search(dialog);
    EXPECT_EQ(program.List().Count(), 0);
}

TEST_F(SearchUi, BackErasesInTheName) {
    Dialog dialog = Open(L"\\My Documents");
    WaitFor("for the keyboard", [&] { return program.Focus() == dialog.Item(IDC_SEARCH_NAME).Window(); });
    TypeText(L"ab");
    PressBack();
    WaitFor("for Back to erase", [&] { return dialog.Item(IDC_SEARCH_NAME).Text() == L"a"; });
    EXPECT_TRUE(dialog.IsOpen());
}
