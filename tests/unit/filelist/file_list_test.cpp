#include "filelist/file_list.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/app_state.h"
#include "common/text_format.h"
#include "filelist/view_styles.h"
#include "resources/resource.h"
#include "tests/unit/app/stored_values.h"

namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::wstring>;

/// The program's list with its view and a status bar, in a window that is never shown.
class FileListView : public StoredValues {
  protected:
    FileListView() {
        fs::remove_all(home);
        fs::create_directories(home);
        static const bool started = (appState.changeWatcher.StartWatcher(), true);
        EXPECT_TRUE(started);
        appState.instance = GetModuleHandleW(nullptr);
        InitCommonControls();
        parent_ = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 240, 268, nullptr, nullptr,
                                  appState.instance, nullptr);
        appState.statusBar = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD, 0, 0, 0, 0, parent_, nullptr,
                                             appState.instance, nullptr);
        LoadDecimalSeparator();
        appState.commandBands.addressBarShown = 1;
        List().options = ListOptions();
        List().hideFolders = 0;
        List().CreateList(parent_);
    }

    ~FileListView() override {
        List().searchResults.Clear();
        List().DestroyList();
        DestroyWindow(parent_);
        appState.statusBar = nullptr;
        appState.commandBands = {};
        appState.changeWatcher.PauseWatcher();
        fs::remove_all(home);
        // The folder goes when the watcher has let go of it, and not from under the next test.
        for (int tries = 0; tries < 500 && fs::exists(home); ++tries)
            Sleep(5);
    }

    static FileList& List() { return appState.fileList; }

    static void MakeFile(const std::wstring& name, std::size_t size = 0) {
        std::ofstream(home / name, std::ios::binary) << std::string(size, 'x');
    }
    static void MakeFolder(const std::wstring& name) { fs::create_directories(home / name); }

    static void Show(std::wstring_view folder) { List().GoToFolder(folder, treeSelectOnly); }

    static Texts Names() {
        Texts names;
        for (int index = 0; const auto entry = List().EntryAt(index); ++index)
            names.emplace_back(entry->name.data());
        return names;
    }

    /// What a cell of the row shows; "-" when the list gives it no text.
    static std::wstring Cell(int row, int column) {
        NMLVDISPINFOW info{};
        info.item.mask = LVIF_TEXT;
        info.item.iItem = row;
        info.item.iSubItem = column;
        List().OnGetDisplayInfo(&info);
        return info.item.pszText ? info.item.pszText : L"-";
    }

    static Texts Row(int row) { return {Cell(row, 0), Cell(row, 1), Cell(row, 2), Cell(row, 3)}; }

    static std::wstring Status(WPARAM part) {
        wchar_t text[300] = L"";
        SendMessageW(appState.statusBar, SB_GETTEXTW, part, reinterpret_cast<LPARAM>(text));
        return text;
    }

    static void Select(int row, bool selected) {
        LVITEMW item{};
        item.state = selected ? LVIS_SELECTED : 0;
        item.stateMask = LVIS_SELECTED;
        SendMessageW(List().Window(), LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&item));
    }

    static bool IsSelected(int row) {
        return SendMessageW(List().Window(), LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
    }

    /// Where a list made anew begins.
    std::wstring StartFolder(const wchar_t* startPath, bool remembers, const wchar_t* lastFolder) {
        List().options.rememberLastFolder = remembers;
        List().DestroyList();
        StoreText(settingsKey, L"LastFolder", lastFolder);
        std::wstring text = startPath ? startPath : L"";
        appState.startPath = startPath ? text.data() : nullptr;
        List().CreateList(parent_);
        appState.startPath = nullptr;
        return List().CurrentFolder().Text();
    }

    static inline const fs::path home = L"\\Temp\\List";
    static constexpr const wchar_t* shown = L"\\Temp\\List";
    HWND parent_ = nullptr;
};

TEST_F(FileListView, ShowsFoldersThenFilesBelowTheWayUp) {
    MakeFile(L"b.txt");
    MakeFolder(L"c");
    MakeFile(L"a.txt");
    Show(shown);
    EXPECT_EQ(Names(), Texts({L"..", L"c", L"a.txt", L"b.txt"}));
    EXPECT_EQ(List().CurrentFolder().View(), shown);
    List().options.showUpLevel = 0;
    Show(shown);
    EXPECT_EQ(Names(), Texts({L"c", L"a.txt", L"b.txt"}));
}

TEST_F(FileListView, NeverLeadsUpFromTheTop) {
    Show(L"");
    const Texts names = Names();
    ASSERT_FALSE(names.empty());
    EXPECT_NE(names[0], L"..");
}

TEST_F(FileListView, GivesFoldersNoTextButNameAndType) {
    MakeFolder(L"folder.ext");
    Show(shown);
    EXPECT_EQ(Row(1), Texts({L"folder.ext", L"-", L"Folder", L"-"}));
    EXPECT_EQ(Row(0), Texts({L"-", L"-", L"-", L"-"})) << "the way up was given its text at once";
}

TEST_F(FileListView, KeepsTheTextsOnceMadeUntilTheNextListing) {
    MakeFile(L"a.tar.gz", 2048);
    Show(shown);
    EXPECT_EQ(Cell(1, 0), L"a.tar");
    EXPECT_EQ(Cell(1, 1), L"2.00 KB");
    const std::wstring date = Cell(1, 3);
    List().options.noExtension = 0;
    List().dateMode = 1;
    EXPECT_EQ(Cell(1, 0), L"a.tar");
    EXPECT_EQ(Cell(1, 3), date);
    Show(shown);
    EXPECT_EQ(Cell(1, 0), L"a.tar.gz");
    EXPECT_LT(Cell(1, 3).size(), date.size()) << "today's time without the date";
    List().dateMode = 0;
}

TEST_F(FileListView, GivesNothingForRowsAndColumnsItHasNot) {
    MakeFile(L"a.txt");
    Show(shown);
    EXPECT_EQ(Cell(-1, 0), L"-");
    EXPECT_EQ(Cell(2, 0), L"-");
    EXPECT_EQ(Cell(1, 4), L"-");
    EXPECT_EQ(Cell(1, -1), L"-");
    EXPECT_FALSE(List().EntryAt(-1));
    EXPECT_FALSE(List().EntryAt(2));
}

TEST_F(FileListView, TellsFilesAndBytes) {
    MakeFile(L"a", 1500);
    MakeFile(L"b", 500);
    MakeFolder(L"c");
    Show(shown);
    EXPECT_EQ(Status(0), L"3 files");
    EXPECT_EQ(Status(1), L"2,000 bytes");
    appState.commandBands.addressBarShown = 0;
    List().UpdateStatusTexts();
    EXPECT_EQ(Status(0), L"3");
    EXPECT_EQ(Status(1), L"1.95KB");
    EXPECT_EQ(Status(2), L"List");
}

TEST_F(FileListView, RecountsBytesWithoutTouchingTheRows) {
    MakeFile(L"a", 10);
    Show(shown);
    MakeFile(L"hidden", 5);
    SetFileAttributesW((home / L"hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
    List().RecountFolderBytes(shown);
    EXPECT_EQ(Status(0), L"1 files");
    EXPECT_EQ(Status(1), L"15 bytes") << "no filter applies to the count";
    EXPECT_EQ(Names(), Texts({L"..", L"a"}));
}

TEST_F(FileListView, ShowsWhatASearchFoundAndIsStillThere) {
    MakeFile(L"a.txt", 3);
    MakeFolder(L"folder");
    MakeFile(L"folder\\b.txt", 4);
    List().hideFolders = 1;
    Show(shown);
    EXPECT_EQ(Names(), Texts({L"..", L"a.txt"}));
    SearchResults& results = List().searchResults;
    results.Add(shown, L"a.txt", FILE_ATTRIBUTE_ARCHIVE, {}, 3);
    results.Add(shown, L"vanished", FILE_ATTRIBUTE_ARCHIVE, {}, 100);
    results.Add(shown, L"folder", FILE_ATTRIBUTE_DIRECTORY, {}, 0);
    results.Add(L"\\Temp\\List\\folder", L"b.txt", FILE_ATTRIBUTE_ARCHIVE, {}, 4);
    Show(searchFolder);
    EXPECT_EQ(Names(), Texts({L"folder", L"a.txt", L"b.txt"})) << "found folders show whatever is hidden";
    EXPECT_STREQ(List().EntryAt(2)->folder.data(), L"\\Temp\\List\\folder");
    EXPECT_EQ(results.Find(shown, L"vanished"), nullptr);
    EXPECT_NE(results.Find(shown, L"a.txt"), nullptr);
    EXPECT_EQ(Status(0), L"3 files");
    EXPECT_EQ(Status(1), L"7 bytes");
    EXPECT_TRUE(IsSelected(0));
}

TEST_F(FileListView, TurnsCommandsOffAmongSearchResultsOnly) {
    Show(shown);
    EXPECT_EQ(List().FilterSearchCommand(IDM_TOOLBAR_PASTE), IDM_TOOLBAR_PASTE);
    Show(searchFolder);
    EXPECT_EQ(List().FilterSearchCommand(IDM_TOOLBAR_PASTE), 0);
    EXPECT_EQ(List().FilterSearchCommand(IDM_FILE_DELETE), IDM_FILE_DELETE);
}

TEST_F(FileListView, GoesBackFromSearchResultsToTheFolderShownBefore) {
    MakeFolder(L"Bb");
    Show(shown);
    Show(L"\\Temp\\List\\Bb");
    Show(searchFolder);
    List().GoBack();
    EXPECT_EQ(List().CurrentFolder().View(), L"\\Temp\\List\\Bb");
    Show(searchFolder);
    List().GoForward();
    EXPECT_EQ(List().CurrentFolder().View(), L"\\Temp\\List\\Bb");
    List().GoBack();
    EXPECT_EQ(List().CurrentFolder().View(), shown);
    EXPECT_TRUE(List().Visited().HasForward());
}

TEST_F(FileListView, SelectsTheFolderLeftOnTheWayUp) {
    MakeFolder(L"Aa");
    MakeFolder(L"Bb");
    Show(L"\\Temp\\List\\Bb");
    List().UpOneLevel();
    EXPECT_EQ(List().CurrentFolder().View(), shown);
    EXPECT_EQ(List().FirstSelected(), 2);
    Show(shown);
    EXPECT_EQ(List().FirstSelected(), 0);
}

TEST_F(FileListView, StaysAtTheTopOnTheWayUp) {
    Show(L"");
    List().UpOneLevel();
    EXPECT_TRUE(List().CurrentFolder().IsEmpty());
}

TEST_F(FileListView, OpensFoldersAndTheWayUp) {
    MakeFolder(L"Aa");
    Show(shown);
    List().OpenEntry(1);
    EXPECT_EQ(List().CurrentFolder().View(), L"\\Temp\\List\\Aa");
    List().OpenEntry(0);
    EXPECT_EQ(List().CurrentFolder().View(), shown);
    List().OpenEntry(-1);
    EXPECT_EQ(List().CurrentFolder().View(), shown);
}

TEST_F(FileListView, GoesWhereATypedPathLeads) {
    for (const wchar_t* root : {L"", L"\\", L"\\\\", L"/"}) {
        Show(shown);
        List().GoToPath(root);
        EXPECT_TRUE(List().CurrentFolder().IsEmpty());
    }
    List().GoToPath(L"\\TEMP\\list\\");
    EXPECT_EQ(List().CurrentFolder().View(), L"\\TEMP\\list\\") << "as typed";
    List().GoToPath(L"File Search");
    EXPECT_TRUE(List().CurrentFolder().IsSearchFolder());
}

TEST_F(FileListView, CountsTheSelectionWithoutTheWayUp) {
    MakeFile(L"a");
    MakeFile(L"b");
    Show(shown);
    List().SelectAll();
    EXPECT_TRUE(IsSelected(0)) << "selected with the rest, counted not";
    EXPECT_EQ(List().SelectedCount(), 2);
    Select(0, false);
    EXPECT_EQ(List().SelectedCount(), 2);
    List().ReleaseSelection();
    EXPECT_EQ(List().SelectedCount(), 0);
    EXPECT_EQ(List().FirstSelected(), -1);
    Select(0, true);
    EXPECT_EQ(List().SelectedCount(), 0);
    EXPECT_EQ(List().FirstSelected(), 0);
}

TEST_F(FileListView, TurnsTheSelectionRoundTheWayUpIncluded) {
    MakeFile(L"a");
    MakeFile(L"b");
    Show(shown);
    List().ReleaseSelection();
    Select(1, true);
    List().InvertSelection();
    EXPECT_TRUE(IsSelected(0));
    EXPECT_FALSE(IsSelected(1));
    EXPECT_TRUE(IsSelected(2));
}

TEST_F(FileListView, ShowsOneFolderAsTheSelectedEntryForTheTree) {
    MakeFolder(L"Aa");
    MakeFile(L"b");
    Show(shown);
    List().ShowSingleEntry(L"\\Temp\\List\\Aa");
    EXPECT_EQ(Names(), Texts({L"Aa"}));
    EXPECT_STREQ(List().EntryAt(0)->folder.data(), shown);
    EXPECT_EQ(List().CurrentFolder().View(), L"\\Temp\\List\\Aa");
    EXPECT_EQ(List().SelectedCount(), 1);
    List().ShowSingleEntry(L"");
    EXPECT_TRUE(List().CurrentFolder().IsEmpty());
}

TEST_F(FileListView, ReadsColumnWidthsBackInDetailsOnly) {
    const auto stored = List().options.columnWidths;
    SendMessageW(List().Window(), LVM_SETCOLUMNWIDTH, 1, 77);
    List().SaveColumnWidths();
    EXPECT_EQ(List().options.columnWidths, stored);
    List().ApplyViewStyle(IDM_VIEW_DETAILED);
    SendMessageW(List().Window(), LVM_SETCOLUMNWIDTH, 1, 77);
    List().SaveColumnWidths();
    EXPECT_EQ(List().options.columnWidths[1], 77u);
}

TEST_F(FileListView, BeginsAtTheTopUnlessItRemembersItsLastFolder) {
    EXPECT_EQ(StartFolder(nullptr, false, shown), L"");
    EXPECT_EQ(StartFolder(nullptr, true, shown), shown);
    EXPECT_EQ(StartFolder(nullptr, true, L"\\Temp\\Missing"), L"");
    MakeFile(L"file");
    EXPECT_EQ(StartFolder(nullptr, true, L"\\Temp\\List\\file"), L"");
    EXPECT_EQ(StartFolder(nullptr, true, L"File Search"), L"");
}

TEST_F(FileListView, BeginsAtTheStartPathOrElseUncheckedAtItsLastFolder) {
    for (bool remembers : {false, true}) {
        EXPECT_EQ(StartFolder(L"\\Temp\\List", remembers, L"\\Windows"), shown);
        EXPECT_EQ(StartFolder(L"\\Temp\\Missing", remembers, L"\\Nowhere"), L"\\Nowhere");
        EXPECT_EQ(StartFolder(L"\"\\Temp\\List\"", remembers, L"\\Windows"), L"\\Windows");
    }
}

TEST_F(FileListView, HasTheStyleOfItsOptions) {
    List().options.noColumnNames = 1;
    for (int command :
         {IDM_VIEW_DETAILED_LINE, IDM_VIEW_DETAILED, IDM_VIEW_LIST, IDM_VIEW_SMALL, IDM_VIEW_LARGE}) {
        List().ApplyViewStyle(command);
        const auto style = static_cast<DWORD>(GetWindowLongW(List().Window(), GWL_STYLE));
        constexpr DWORD decided = LVS_TYPEMASK | LVS_NOCOLUMNHEADER;
        EXPECT_EQ(style & decided, ViewWindowStyle(List().options) & decided) << command;
        EXPECT_EQ(SendMessageW(List().Window(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0),
                  command == IDM_VIEW_DETAILED_LINE ? 0x60 : 0);
    }
}

TEST_F(FileListView, SortsWhatItShowsByCommandAndColumn) {
    MakeFile(L"a.txt", 3);
    MakeFile(L"b.doc", 1);
    MakeFile(L"c.bmp", 2);
    Show(shown);
    List().OnSortCommand(IDM_ARRANGE_SIZE);
    EXPECT_EQ(Names(), Texts({L"..", L"b.doc", L"c.bmp", L"a.txt"}));
    List().OnColumnClick(1);
    EXPECT_EQ(Names(), Texts({L"..", L"a.txt", L"c.bmp", L"b.doc"}));
    List().OnColumnClick(2);
    EXPECT_EQ(Names(), Texts({L"..", L"a.txt", L"b.doc", L"c.bmp"})) << "by type, still downwards";
}

} // namespace
