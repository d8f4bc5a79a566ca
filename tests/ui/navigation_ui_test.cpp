// Screens: 240x320

// Moving between folders: history, up, typed paths, the address bar's list.

#include "tests/support/ui_test.h"

namespace {

const std::wstring rootName = L"My PocketPC";
const std::wstring notFound = L"This folder or file could not be found. Check the path or file name.";

class NavigationUi : public UiTest {
  protected:
    void SetUp() override {
        device.Folder(L"\\Aa\\Bb\\Cc");
        device.Folder(L"\\Dd");
        ShowAddressBar();
    }

    void Visit(const std::wstring& folder) {
        program.HandOverFolder(folder);
        program.WaitForFolder(folder);
    }

    /// Types into the address bar as a person does, and presses Enter.
    void TypeAddress(const std::wstring& text) {
        PressKey(VK_F6);
        WaitFor("for the address bar's focus", [&] { return program.AddressBarHasFocus(); });
        program.AddressBar().SetText(text);
        PressKey(VK_RETURN);
        WaitFor("for the address to be gone to",
                [&] { return program.ListHasFocus() || program.HasMessageBox(); });
        program.WaitUntilIdle();
    }

    bool CanGoBack() const { return program.SoftKeyMenu().IsEnabled(IDM_TOOLBAR_BACK); }
    bool CanGoForward() const { return program.SoftKeyMenu().IsEnabled(IDM_TOOLBAR_FORWARD); }
    bool CanGoUp() const { return program.SoftKeyMenu().IsEnabled(IDM_TOOLBAR_UP_FOLDER); }
};

// --- History ---

TEST_F(NavigationUi, BackAndForwardWalkTheHistoryAndANewFolderCutsIt) {
    program.Start(L"\\Aa");
    EXPECT_FALSE(CanGoBack());
    Visit(L"\\Aa\\Bb");
    Visit(L"\\Aa\\Bb\\Cc");
    program.Command(IDM_TOOLBAR_BACK);
    program.Command(IDM_TOOLBAR_BACK);
    EXPECT_EQ(program.Folder(), L"\\Aa");
    EXPECT_FALSE(CanGoBack());
    EXPECT_TRUE(CanGoForward());
    program.Command(IDM_TOOLBAR_FORWARD);
    EXPECT_EQ(program.Folder(), L"\\Aa\\Bb");
    Visit(L"\\Dd");
    EXPECT_FALSE(CanGoForward());
    program.Command(IDM_TOOLBAR_FORWARD);
    EXPECT_EQ(program.Folder(), L"\\Dd");
    program.Command(IDM_TOOLBAR_BACK);
    EXPECT_EQ(program.Folder(), L"\\Aa\\Bb");
}

TEST_F(NavigationUi, BackFromTheSearchResultsReturnsToTheFolderBeforeThem) {
    program.Start(L"\\Aa");
    Visit(L"\\Aa\\Bb");
    TypeAddress(L"File Search");
    program.WaitForFolder(L"File Search");
    program.Command(IDM_TOOLBAR_BACK);
    EXPECT_EQ(program.Folder(), L"\\Aa\\Bb");
    EXPECT_TRUE(CanGoBack());
    EXPECT_FALSE(CanGoForward());
}

TEST_F(NavigationUi, HomeAndEndGoBackAndForwardInTheList) {
    program.Start(L"\\Aa");
    Visit(L"\\Aa\\Bb");
    PressKey(VK_HOME);
    program.WaitForFolder(L"\\Aa");
    PressKey(VK_END);
    program.WaitForFolder(L"\\Aa\\Bb");
}

TEST_F(NavigationUi, AltWithTheArrowsGoesBackAndForward) {
    program.Start(L"\\Aa");
    Visit(L"\\Aa\\Bb");
    PressKey(VK_LEFT, Alt);
    program.WaitForFolder(L"\\Aa");
    PressKey(VK_RIGHT, Alt);
    program.WaitForFolder(L"\\Aa\\Bb");
}

// --- Up ---

TEST_F(NavigationUi, UpFolderSelectsTheFolderJustLeftAndStopsAtTheRoot) {
    program.Start(L"\\Aa");
    EXPECT_TRUE(CanGoUp());
    program.Command(IDM_TOOLBAR_UP_FOLDER);
    EXPECT_EQ(program.Folder(), rootName);
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"Aa"}));
    EXPECT_FALSE(CanGoUp());
    program.Command(IDM_TOOLBAR_UP_FOLDER);
    EXPECT_EQ(program.Folder(), rootName);
}

TEST_F(NavigationUi, BackspaceAndTheUpLevelEntryGoUp) {
    program.Start(L"\\Aa\\Bb\\Cc");
    PressKey(VK_BACK);
    program.WaitForFolder(L"\\Aa\\Bb");
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"Cc"}));
    program.List().Select(L"..");
    PressKey(VK_RETURN);
    program.WaitForFolder(L"\\Aa");
}

TEST_F(NavigationUi, TheLeftSoftKeyGoesUpWhileTheTreeIsHidden) {
    program.Start(L"\\Aa\\Bb");
    PressLeftSoftKey();
    program.WaitForFolder(L"\\Aa");
}

// --- Opening ---

TEST_F(NavigationUi, EnterOpensTheSelectedFolder) {
    program.Start(L"\\Aa");
    program.List().Select(L"Bb");
    PressKey(VK_RETURN);
    program.WaitForFolder(L"\\Aa\\Bb");
}

TEST_F(NavigationUi, ATapOpensAFolderThatWasNotSelected) {
    program.Start();
    Tap(program.List().PointOf(L"Dd"));
    program.WaitForFolder(L"\\Dd");
}

TEST_F(NavigationUi, WithDoubleTapActivationATapOnlySelects) {
    device.SetOption(ListOption::SingleTapOpens, 0);
    program.Start();
    Tap(program.List().PointOf(L"Dd"));
    WaitFor("for the selection", [&] { return program.List().SelectedNames() == Texts{L"Dd"}; });
    program.WaitUntilIdle();
    EXPECT_EQ(program.Folder(), rootName);
    DoubleTap(program.List().PointOf(L"Dd"));
    program.WaitForFolder(L"\\Dd");
}

// --- Typed paths ---

TEST_F(NavigationUi, EverySpellingOfTheRootLeadsThere) {
    program.Start(L"\\Aa");
    for (const std::wstring spelling : {L"\\", L"\\\\", L"/", L"", L"My PocketPC"}) {
        Visit(L"\\Aa\\Bb");
        TypeAddress(spelling);
        program.WaitForFolder(rootName);
        EXPECT_TRUE(program.ListHasFocus());
    }
}

TEST_F(NavigationUi, AMissingPathIsReportedAndTheListStays) {
    program.Start(L"\\Aa");
    TypeAddress(L"\\Nowhere\\At all");
    MessageBoxShown box = program.WaitForMessageBox();
    EXPECT_EQ(box.Text(), notFound);
    box.Answer(IDOK);
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"Bb"}));
}

TEST_F(NavigationUi, ATypedPathIsTakenAsItStands) {
    program.Start();
    TypeAddress(L"\\aa\\BB\\");
    program.WaitForFolder(L"\\aa\\BB\\");
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"Cc"}));
}

// --- The address bar's list ---

TEST_F(NavigationUi, TypedPathsAreRememberedNewestFirst) {
    program.Start();
    for (const std::wstring folder : {L"\\Aa", L"\\Dd", L"\\Aa"}) {
        TypeAddress(folder);
        program.WaitForFolder(folder);
    }
    EXPECT_EQ(program.AddressBar().Entries(), (Texts{L"\\Aa", L"\\Dd"}));
    program.Close();
    EXPECT_EQ(device.TextValue(recentKey, L"Recent1"), L"\\Aa");
    EXPECT_EQ(device.TextValue(recentKey, L"Recent2"), L"\\Dd");
}

TEST_F(NavigationUi, APickedEntryIsGoneTo) {
    device.WriteText(recentKey, L"Recent1", L"\\Aa\\Bb");
    device.WriteText(recentKey, L"Recent2", L"\\Dd");
    program.Start();
    program.AddressBar().PickEntry(1);
    program.WaitForFolder(L"\\Dd");
    EXPECT_TRUE(program.ListHasFocus());
}

TEST_F(NavigationUi, F6FocusesTheAddressBarOnlyWhileItIsShown) {
    program.Start();
    program.Command(IDM_VIEW_ADDRESS_BAR);
    PressKey(VK_F6);
    program.WaitUntilIdle();
    EXPECT_TRUE(program.ListHasFocus());
}

// --- Fixed places ---

TEST_F(NavigationUi, TheGoToMenuLeadsToItsPlaces) {
    program.Start(L"\\Aa");
    program.Command(IDM_GOTO_MY_DOCUMENTS);
    EXPECT_EQ(program.Folder(), L"\\My Documents");
    program.Command(IDM_GOTO_START_MENU);
    EXPECT_EQ(program.Folder(), L"\\Windows\\Start Menu");
    program.Command(IDM_GOTO_DESKTOP);
    EXPECT_EQ(program.Folder(), L"\\Windows\\Desktop");
    program.Command(IDM_GOTO_DEVICE);
    EXPECT_EQ(program.Folder(), rootName);
    program.Command(IDM_FAVORITES_ORGANIZE);
    EXPECT_EQ(program.Folder(), L"\\Windows\\Favorites");
}

TEST_F(NavigationUi, BlanksAndDotsAtTheEndOfATypedPathAreNoPartOfIt) {
    program.Start();
    for (const wchar_t* typed : {L"\\Aa\\Bb ", L"\\Aa\\Bb.", L"\\Aa\\Bb . ."}) {
        Visit(L"\\Dd");
        TypeAddress(typed);
        EXPECT_EQ(program.Folder(), L"\\Aa\\Bb");
        EXPECT_EQ(program.List().Names(), (Texts{L"..", L"Cc"}));
        PressKey(VK_RETURN); // opens the selected row, which leads up
        program.WaitForFolder(L"\\Aa");
    }
}

} // namespace
