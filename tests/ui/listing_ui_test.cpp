// Screens: 240x320

// What a folder shows: its rows, what is kept out, the way up, what is selected, the texts around.

#include "tests/ui/listing_ui.h"

namespace {

const std::wstring deviceKey = L"HKCR\\{000214A0-0000-0000-C000-000000000046}";
constexpr std::uint64_t gigabyte = 1ull << 30;
constexpr int iconSelectedAndFocused = LVIS_SELECTED | LVIS_FOCUSED;

// --- Rows ---

TEST_F(ListingUi, FoldersComeBeforeFilesAndTheUpLevelEntryBeforeAll) {
    device.File(L"\\A\\apple.txt");
    device.File(L"\\A\\zebra.txt");
    device.Folder(L"\\A\\Middle");
    EXPECT_EQ(NamesIn(L"\\A"), (Texts{L"..", L"Middle", L"apple", L"zebra"}));
    program.Command(IDM_ARRANGE_REVERSE);
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"Middle", L"zebra", L"apple"}));
}

TEST_F(ListingUi, RowsTellNameSizeTypeAndTime) {
    ShowDetails();
    device.Folder(L"\\A\\Inside");
    device.File(L"\\A\\letter.txt", std::string(2048, 'x'));
    device.SetWriteTime(L"\\A\\letter.txt", {2020, 3, 0, 4, 20, 30, 0, 0});
    NamesIn(L"\\A");
    EXPECT_EQ(program.List().Row(L".."), (Texts{L"..", L"", L"", L""}));
    EXPECT_EQ(program.List().Row(L"Inside"), (Texts{L"Inside", L"", L"Folder", L""}));
    const Texts file = program.List().Row(L"letter");
    EXPECT_EQ(file[1], L"2.00 KB");
    EXPECT_EQ(file[2], L"Text Document");
    EXPECT_EQ(file[3], L"3/5/2020 5:30:00 AM") << "the time of the phone, which is nine hours ahead";
}

TEST_F(ListingUi, NamesLoseTheirLastExtensionOnly) {
    for (const wchar_t* name : {L"plain", L"one.txt", L"two.tar.gz", L"trailing.x.y"})
        device.File(L"\\A\\" + std::wstring(name));
    EXPECT_EQ(NamesIn(L"\\A"), (Texts{L"..", L"one", L"plain", L"trailing.x", L"two.tar"}));
}

TEST_F(ListingUi, NamesKeepTheirExtensionsWhenAskedTo) {
    ShowExtensions();
    device.File(L"\\A\\one.txt");
    device.Folder(L"\\A\\folder.d");
    EXPECT_EQ(NamesIn(L"\\A"), (Texts{L"..", L"folder.d", L"one.txt"}));
}

TEST_F(ListingUi, FoldersKeepTheirExtensionsAlways) {
    device.Folder(L"\\A\\folder.d");
    EXPECT_EQ(NamesIn(L"\\A"), (Texts{L"..", L"folder.d"}));
}

// --- The up-level entry ---

TEST_F(ListingUi, TheTopHasNoUpLevelEntryWhateverTheOptionSays) {
    for (const std::uint32_t shown : {1u, 0u}) {
        device.SetOption(ListOption::ShowUpLevel, shown);
        program.Start();
        EXPECT_FALSE(program.List().Has(L".."));
    }
}

TEST_F(ListingUi, TheUpLevelEntryIsNotCounted) {
    device.Files(L"\\A", L"f", 3);
    NamesIn(L"\\A");
    EXPECT_EQ(program.List().Count(), 4);
    EXPECT_EQ(program.Status().Texts(), (Texts{L"3", L"0.00KB", L"A"}));
}

TEST_F(ListingUi, WithoutTheUpLevelEntryEveryRowIsCounted) {
    device.SetOption(ListOption::ShowUpLevel, 0);
    device.Files(L"\\A", L"f", 3);
    EXPECT_EQ(NamesIn(L"\\A"), (Texts{L"f0", L"f1", L"f2"}));
    EXPECT_EQ(program.Status().Texts(), (Texts{L"3", L"0.00KB", L"A"}));
}

TEST_F(ListingUi, TheUpLevelEntryOpensTheFolderAbove) {
    device.Folder(L"\\A\\B");
    NamesIn(L"\\A\\B");
    program.List().Select(L"..");
    program.Command(IDM_FILE_OPEN);
    EXPECT_EQ(program.Folder(), L"\\A");
}

// --- What is kept out ---

TEST_F(ListingUi, HiddenFilesAndFoldersStayOutUnlessAskedFor) {
    device.File(L"\\A\\hidden.txt");
    device.Folder(L"\\A\\Hidden");
    device.File(L"\\A\\plain.txt");
    device.SetAttributes(L"\\A\\hidden.txt", FILE_ATTRIBUTE_HIDDEN);
    device.SetAttributes(L"\\A\\Hidden", FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(NamesIn(L"\\A"), (Texts{L"..", L"plain"}));
    EXPECT_EQ(program.Status().Texts().front(), L"1");
    device.SetOption(ListOption::HideHiddenFiles, 0);
    EXPECT_EQ(NamesIn(L"\\A"), (Texts{L"..", L"Hidden", L"hidden", L"plain"}));
}

TEST_F(ListingUi, SystemFilesStayOutWhenAskedForButNotSystemFolders) {
    device.File(L"\\A\\system.txt");
    device.Folder(L"\\A\\System");
    device.SetAttributes(L"\\A\\system.txt", FILE_ATTRIBUTE_SYSTEM);
    device.SetAttributes(L"\\A\\System", FILE_ATTRIBUTE_SYSTEM);
    EXPECT_EQ(NamesIn(L"\\A"), (Texts{L"..", L"System", L"system"}));
    device.SetOption(ListOption::HideSystemFiles, 1);
    EXPECT_EQ(NamesIn(L"\\A"), (Texts{L"..", L"System"}));
}

TEST_F(ListingUi, RomFilesStayOutWhenAskedForButNotTheirFolders) {
    device.SetOption(ListOption::HideHiddenFiles, 0);
    const Texts all = NamesIn(L"\\Windows");
    EXPECT_TRUE(program.List().Has(L"Chime"));
    EXPECT_TRUE(program.List().Has(L"Fonts"));
    device.SetOption(ListOption::HideRomFiles, 1);
    EXPECT_EQ(NamesIn(L"\\Windows"), (Texts{L"..", L"Desktop", L"Favorites", L"File Manager_user_manual",
                                            L"Fonts", L"SendTo", L"Start Menu"}));
    EXPECT_TRUE(program.List().Count() < static_cast<int>(all.size()));
    EXPECT_EQ(NamesIn(L"\\My Documents").back(), L"Welcome") << "files elsewhere are not in ROM";
}

TEST_F(ListingUi, AFolderNamedRecycledIsNeverListedAFileIs) {
    device.Folder(L"\\A\\RECYCLED");
    device.Folder(L"\\B\\recycled");
    device.File(L"\\C\\rEcYcLeD");
    EXPECT_EQ(NamesIn(L"\\A"), (Texts{L".."}));
    EXPECT_EQ(NamesIn(L"\\B"), (Texts{L".."}));
    EXPECT_EQ(NamesIn(L"\\C"), (Texts{L"..", L"rEcYcLeD"}));
}

TEST_F(ListingUi, FoldersStayOutWhenTheRegistrySaysSo) {
    device.WriteWords(settingsKey, L"HideFolder", {1});
    EXPECT_EQ(NamesIn(L"\\My Documents"), (Texts{L"..", L"Holiday", L"Welcome"}));
    GoUp();
    EXPECT_EQ(program.List().Names(), (Texts{}));
}

// --- What is selected ---

TEST_F(ListingUi, GoingUpSelectsTheFolderLeft) {
    device.Folder(L"\\A\\B");
    device.Folder(L"\\A\\C");
    NamesIn(L"\\A\\C");
    GoUp();
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"C"}));
    EXPECT_EQ(program.List().FocusedName(), L"C");
    GoUp();
    EXPECT_EQ(program.Folder(), L"My PocketPC");
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"A"}));
}

TEST_F(ListingUi, TheFolderLeftIsScrolledIntoView) {
    for (int number = 100; number < 160; ++number)
        device.Folder(L"\\A\\Folder " + std::to_wstring(number));
    NamesIn(L"\\A\\Folder 159");
    GoUp();
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"Folder 159"}));
    EXPECT_TRUE(program.List().InView(program.List().Find(L"Folder 159")));
}

TEST_F(ListingUi, RefreshSelectsTheFirstRow) {
    device.Folder(L"\\A\\B\\C");
    NamesIn(L"\\A\\B");
    program.List().Select(L"C");
    program.Command(IDM_MENU_REFRESH);
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L".."}));
    EXPECT_EQ(program.List().State(0), static_cast<UINT>(iconSelectedAndFocused));
}

TEST_F(ListingUi, RefreshSelectsAnEntryNamedAsTheFolderItself) {
    device.Folder(L"\\A\\B\\B");
    NamesIn(L"\\A\\B");
    program.Command(IDM_MENU_REFRESH);
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"B"}));
}

TEST_F(ListingUi, OnlyTheBeginningOfThePathsIsComparedForTheFolderLeft) {
    device.Folder(L"\\Ab\\X");
    device.Folder(L"\\Abc\\X");
    NamesIn(L"\\Ab\\X");
    program.HandOverFolder(L"\\Abc");
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"X"}));
}

TEST_F(ListingUi, TheFolderLeftIsFoundByItsExactLetters) {
    device.Folder(L"\\A\\Bb");
    NamesIn(L"\\A\\bB");
    GoUp();
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L".."}));
}

// --- The texts around ---

TEST_F(ListingUi, TheStatusBarTellsCountSizeAndFolder) {
    device.File(L"\\A\\B\\one.txt", std::string(1024, 'x'));
    device.File(L"\\A\\B\\two.txt", std::string(1024, 'x'));
    device.File(L"\\A\\B\\hidden.txt", std::string(1024, 'x'));
    device.SetAttributes(L"\\A\\B\\hidden.txt", FILE_ATTRIBUTE_HIDDEN);
    NamesIn(L"\\A\\B");
    EXPECT_EQ(program.Status().Texts(), (Texts{L"2", L"2.00KB", L"B"}));
}

TEST_F(ListingUi, WithTheAddressBarTheStatusBarTellsFilesAndBytes) {
    ShowAddressBar();
    device.Files(L"\\A", L"f", 1234);
    device.FileOfSize(L"\\A\\big", 12345678);
    NamesIn(L"\\A");
    EXPECT_EQ(program.Status().Texts(), (Texts{L"1,235 files", L"12,345,678 bytes"}));
}

TEST_F(ListingUi, TheStatusBarFollowsTheAddressBar) {
    program.Start(L"\\Temp");
    program.Command(IDM_VIEW_ADDRESS_BAR);
    EXPECT_EQ(program.Status().Texts(), (Texts{L"0 files", L"0 bytes"}));
    program.Command(IDM_VIEW_ADDRESS_BAR);
    EXPECT_EQ(program.Status().Texts(), (Texts{L"0", L"0.00KB", L"Temp"}));
}

TEST_F(ListingUi, TheAddressBarNamesTheFolder) {
    program.Start();
    EXPECT_EQ(program.AddressBar().Text(), L"My PocketPC");
    program.HandOverFolder(L"\\Windows\\Fonts");
    EXPECT_EQ(program.AddressBar().Text(), L"\\Windows\\Fonts");
}

TEST_F(ListingUi, TheTopBearsTheDevicesName) {
    device.WriteText(deviceKey, L"DisplayName", L"My Phone");
    program.Start();
    EXPECT_EQ(program.Folder(), L"My Phone");
    EXPECT_EQ(program.Status().Texts().back(), L"My Phone");
}

TEST_F(ListingUi, ADeviceWithoutANameShowsABackslash) {
    device.Preserve(deviceKey);
    registry::DeleteKey(deviceKey);
    program.Start();
    EXPECT_EQ(program.Folder(), L"\\");
    EXPECT_EQ(program.Status().Texts().back(), L"\\");
}

TEST_F(ListingUi, AFileOfFiveGigabytesCountsWithItsLowPart) {
    ShowDetails();
    device.SetOption(ListOption::SortKey, 2);
    device.FileOfSize(L"\\A\\five.bin", 5 * gigabyte);
    device.FileOfSize(L"\\A\\two.bin", 2 * gigabyte);
    EXPECT_EQ(NamesIn(L"\\A"), (Texts{L"..", L"five", L"two"}));
    EXPECT_EQ(program.List().Row(L"five")[1], L"1,024.00 MB");
    EXPECT_EQ(program.Status().Texts()[1], L"3,072.00MB");
}

TEST_F(ListingUi, TheTotalWrapsAtFourGigabytes) {
    device.FileOfSize(L"\\A\\one.bin", 3 * gigabyte);
    device.FileOfSize(L"\\A\\two.bin", 2 * gigabyte);
    NamesIn(L"\\A");
    EXPECT_EQ(program.Status().Texts()[1], L"1,024.00MB");
}

TEST_F(ListingUi, ATotalFromTwoGigabytesOnReadsAsANegativeNumberOfBytes) {
    ShowAddressBar();
    device.FileOfSize(L"\\A\\large.bin", 2 * gigabyte - 1);
    NamesIn(L"\\A");
    EXPECT_EQ(program.Status().Texts(), (Texts{L"1 files", L"2,147,483,647 bytes"}));
    device.File(L"\\A\\last byte", "x");
    program.Command(IDM_MENU_REFRESH);
    EXPECT_EQ(program.Status().Texts(), (Texts{L"2 files", L"-2,147,483,648 bytes"}));
}

TEST_F(ListingUi, AfterDeletingTheTotalCountsAllFilesAlsoHiddenOnes) {
    for (const wchar_t* name : {L"one", L"two", L"hidden"})
        device.File(L"\\A\\" + std::wstring(name), std::string(1024, 'x'));
    device.SetAttributes(L"\\A\\hidden", FILE_ATTRIBUTE_HIDDEN);
    program.Start(L"\\A");
    EXPECT_EQ(program.Status().Texts()[1], L"2.00KB");
    program.List().Select(L"one");
    program.PostCommand(IDM_FILE_DELETE);
    program.WaitForDialog(L"Confirm File Delete").Command(IDM_ANSWER_YES);
    EXPECT_TRUE(Eventually([&] { return !program.List().Has(L"one"); }));
    EXPECT_TRUE(Eventually([&] {
        return program.Status().Texts() == Texts{L"1", L"2.00KB", L"A"};
    })) << testing::PrintToString(program.Status().Texts());
}

} // namespace
