// Screens: 240x320

// What a search has found, shown in the list as a folder.

#include "tests/ui/listing_ui.h"

namespace {

class ListingResultsUi : public ListingUi {};

TEST_F(ListingResultsUi, EmptySearchResultsHaveNoRowAndNoWayUp) {
    ShowAddressBar();
    program.Start(L"\\Temp");
    program.GoByAddressBar(L"File Search");
    EXPECT_EQ(program.List().Names(), (Texts{}));
    EXPECT_EQ(program.Status().Texts(), (Texts{L"0 files", L"0 bytes"}));
}

TEST_F(ListingResultsUi, InSearchResultsNothingIsMadeAndNothingLeadsUp) {
    ShowAddressBar();
    program.Start(L"\\Temp");
    program.GoByAddressBar(L"File Search");
    for (const UINT command : {IDM_FILE_NEW_FOLDER, IDM_FILE_SHORTCUT, IDM_TOOLBAR_PASTE,
                               IDM_TOOLBAR_PASTE_SHORTCUT, IDM_TOOLBAR_UP_FOLDER, IDM_SENDTO_ZIP})
        program.Command(command);
    EXPECT_EQ(program.Folder(), L"File Search");
    EXPECT_EQ(program.List().Names(), (Texts{}));
    EXPECT_FALSE(program.HasDialog());
    EXPECT_EQ(device.NamesIn(L"\\Temp"), (Texts{}));
}

TEST_F(ListingResultsUi, SearchResultsCountEveryRow) {
    ShowAddressBar();
    device.File(L"\\A\\note one.txt", std::string(100, 'x'));
    device.File(L"\\A\\B\\note two.txt", std::string(20, 'x'));
    device.Folder(L"\\A\\B\\note folder");
    program.Start(L"\\A");
    program.Search(L"note*", L"\\A");
    EXPECT_EQ(program.List().Names(), (Texts{L"note folder", L"note one", L"note two"}));
    EXPECT_EQ(program.Status().Texts(), (Texts{L"3 files", L"120 bytes"}));
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"note folder"}));
}

TEST_F(ListingResultsUi, FoldersThatWereFoundAreListedEvenWhenFoldersStayOut) {
    device.WriteWords(settingsKey, L"HideFolder", {1});
    device.Folder(L"\\A\\B\\found");
    program.Start(L"\\A");
    EXPECT_EQ(program.List().Names(), (Texts{L".."}));
    program.Search(L"found", L"\\A");
    EXPECT_EQ(program.List().Names(), (Texts{L"found"}));
}

TEST_F(ListingResultsUi, AResultThatVanishedIsDropped) {
    device.Files(L"\\A", L"note", 3);
    program.Start(L"\\A");
    program.Search(L"note*", L"\\A");
    ASSERT_EQ(program.List().Count(), 3);
    device.Remove(L"\\A\\note1");
    program.Command(IDM_MENU_REFRESH);
    EXPECT_EQ(program.List().Names(), (Texts{L"note0", L"note2"}));
    device.File(L"\\A\\note1");
    program.Command(IDM_MENU_REFRESH);
    EXPECT_EQ(program.List().Names(), (Texts{L"note0", L"note2"})) << "it is forgotten for good";
}

} // namespace
