// Screens: 240x320

// "Extract to...", "Extract to here" and archives that open here.

#include "tests/support/stand_in.h"
#include "tests/ui/archives_ui.h"

namespace {

class ExtractUi : public ArchivesUi {
  protected:
    void SetUp() override {
        ArchivesUi::SetUp();
        for (const wchar_t* name : {L"a.zip", L"b.tar.ZIP", L"c.Lzh", L"d.txt", L"e.zip.bak"})
            device.File(std::wstring(L"\\Docs\\") + name);
        device.Folder(L"\\Docs\\f.zip");
        device.Folder(L"\\To");
    }

    void InPlace() { device.SetOption(ListOption::ExtractInPlace, 1); }
    void IntoOwnFolders() { device.SetOption(ListOption::AutomaticFolderCreation, 1); }
    void OpenAfterwards() { device.SetOption(ListOption::AlwaysOpenExtractFolder, 1); }

    void Extract(const Texts& names) {
        StartAndSelect(L"\\Docs", names);
        program.Command(IDM_FILE_EXTRACT_TO);
    }
    Dialog Ask() {
        Give(IDM_FILE_EXTRACT_TO);
        return program.WaitForDialog(L"Extract To");
    }
    void AnswerChooser(const std::wstring& folder) {
        Dialog chooser = Ask();
        TreeOf(chooser).Select(folder);
        chooser.Command(IDM_CHOOSER_OK);
        chooser.WaitUntilClosed();
        program.WaitUntilIdle();
    }
    void CancelChooser() {
        Dialog chooser = Ask();
        chooser.Command(IDCANCEL);
        chooser.WaitUntilClosed();
        program.WaitUntilIdle();
    }
};

// --- Extract in place ---

TEST_F(ExtractUi, InPlaceEveryArchiveGoesBesideItself) {
    InPlace();
    Extract({L"f.zip", L"a.zip", L"b.tar.ZIP", L"c.Lzh", L"d.txt", L"e.zip.bak"});
    EXPECT_EQ(archiver->Calls(), (Texts{L"UnZip 2048 e \"\\Docs\\a.zip\" \"\\Docs\\\"",
                                        L"UnZip 2048 e \"\\Docs\\b.tar.ZIP\" \"\\Docs\\\"",
                                        L"Unlha 2048 e \"\\Docs\\c.Lzh\" \"\\Docs\\\""}));
    EXPECT_TRUE(program.List().Has(L"out.txt"));
    EXPECT_EQ(program.Folder(), L"\\Docs");
}

TEST_F(ExtractUi, OwnFoldersAreNamedLikeTheArchives) {
    InPlace();
    IntoOwnFolders();
    Extract({L"a.zip", L"b.tar.ZIP", L"c.Lzh"});
    EXPECT_EQ(archiver->Calls(), (Texts{L"UnZip 2048 e \"\\Docs\\a.zip\" \"\\Docs\\a\\\"",
                                        L"UnZip 2048 e \"\\Docs\\b.tar.ZIP\" \"\\Docs\\b.tar\\\"",
                                        L"Unlha 2048 e \"\\Docs\\c.Lzh\" \"\\Docs\\c\\\""}));
    EXPECT_TRUE(device.Exists(L"\\Docs\\b.tar\\out.txt"));
    EXPECT_TRUE(program.List().Has(L"b.tar"));
}

TEST_F(ExtractUi, TheListOpensWhatCameOutLast) {
    InPlace();
    IntoOwnFolders();
    OpenAfterwards();
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    Extract({L"a.zip", L"c.Lzh"});
    EXPECT_EQ(program.Folder(), L"\\Docs\\c");
    program.WaitForNames({L"..", L"Out", L"out.txt"});
    EXPECT_EQ(program.Tree().SelectedPath(), L"\\Docs\\c");
    EXPECT_TRUE(program.Tree().Has(L"\\Docs\\a"));
    EXPECT_TRUE(program.Tree().At(L"\\Docs\\a").hasButton);
}

TEST_F(ExtractUi, TheTreeShowsNewFolders) {
    InPlace();
    IntoOwnFolders();
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    StartAndSelect(L"\\Docs", {L"a.zip"});
    program.Tree().Expand(L"\\Docs");
    program.Command(IDM_FILE_EXTRACT_TO);
    EXPECT_EQ(program.Tree().ChildrenOf(L"\\Docs"), (Texts{L"a", L"f.zip"}));
    EXPECT_EQ(program.Tree().SelectedPath(), L"\\Docs");
}

TEST_F(ExtractUi, SearchResultsAreExtractedWhereTheyLie) {
    InPlace();
    device.File(L"\\Docs\\Deep\\found.zip");
    program.Start(L"\\Docs");
    program.Search(L"found.zip", L"\\Docs");
    Select({L"found.zip"});
    program.Command(IDM_FILE_EXTRACT_TO);
    EXPECT_EQ(archiver->Calls(), Texts{L"UnZip 2048 e \"\\Docs\\Deep\\found.zip\" \"\\Docs\\Deep\\\""});
    EXPECT_EQ(program.Folder(), L"File Search");
}

TEST_F(ExtractUi, NothingThatIsAnArchiveChangesNothing) {
    InPlace();
    StartAndSelect(L"\\Docs", {L"f.zip", L"d.txt", L"e.zip.bak"});
    device.File(L"\\Docs\\unseen.txt");
    program.Command(IDM_FILE_EXTRACT_TO);
    EXPECT_EQ(archiver->Calls(), Texts{});
    EXPECT_EQ(program.List().SelectedNames(), (Texts{L"f.zip", L"d.txt", L"e.zip.bak"}));
}

TEST_F(ExtractUi, WhatIsGoneIsPassedOver) {
    InPlace();
    StartAndSelect(L"\\Docs", {L"a.zip", L"c.Lzh"});
    device.Remove(L"\\Docs\\a.zip");
    program.Command(IDM_FILE_EXTRACT_TO);
    EXPECT_EQ(archiver->Calls(), Texts{L"Unlha 2048 e \"\\Docs\\c.Lzh\" \"\\Docs\\\""});
}

// --- The folder is asked for ---

TEST_F(ExtractUi, TheChosenFolderIsShownAfterwards) {
    StartAndSelect(L"\\Docs", {L"a.zip"});
    Dialog chooser = Ask();
    EXPECT_EQ(TreeOf(chooser).SelectedPath(), L"\\Docs");
    TreeOf(chooser).Select(L"\\To");
    chooser.Command(IDM_CHOOSER_OK);
    chooser.WaitUntilClosed();
    program.WaitForFolder(L"\\To");
    EXPECT_EQ(archiver->Calls(), Texts{L"UnZip 2048 e \"\\Docs\\a.zip\" \"\\To\\\""});
    program.WaitForNames({L"..", L"Out", L"out.txt"});
    program.Close();
    EXPECT_EQ(device.TextValue(settingsKey, L"CompressFolder"), L"\\To");
}

TEST_F(ExtractUi, TheRootCanBeChosen) {
    IntoOwnFolders();
    StartAndSelect(L"\\Docs", {L"a.zip"});
    AnswerChooser(L"");
    EXPECT_EQ(archiver->Calls(), Texts{L"UnZip 2048 e \"\\Docs\\a.zip\" \"\\a\\\""});
    EXPECT_EQ(program.Folder(), L"My PocketPC");
}

TEST_F(ExtractUi, CancelExtractsIntoTheFolderChosenLast) {
    StartAndSelect(L"\\Docs", {L"a.zip"});
    AnswerChooser(L"\\To");
    Show(L"\\Docs");
    Select({L"c.Lzh"});
    archiver->Forget();
    CancelChooser();
    EXPECT_EQ(archiver->Calls(), Texts{L"Unlha 2048 e \"\\Docs\\c.Lzh\" \"\\To\\\""});
    EXPECT_EQ(program.Folder(), L"\\Docs");
}

TEST_F(ExtractUi, CancelWithoutAFolderEverChosenExtractsIntoTheDefaultOne) {
    device.WriteText(settingsKey, L"CompressFolder", L"\\To\\");
    StartAndSelect(L"\\Docs", {L"a.zip"});
    CancelChooser();
    EXPECT_EQ(archiver->Calls(), Texts{L"UnZip 2048 e \"\\Docs\\a.zip\" \"\\To\\\""});
    EXPECT_EQ(program.Folder(), L"\\Docs");
    program.Close();
    EXPECT_EQ(device.TextValue(settingsKey, L"CompressFolder"), L"\\To");
}

TEST_F(ExtractUi, AFolderChosenForNothingIsNotShown) {
    archiver->Answer(1, L"broken");
    StartAndSelect(L"\\Docs", {L"a.zip"});
    Dialog chooser = Ask();
    TreeOf(chooser).Select(L"\\To");
    chooser.Command(IDM_CHOOSER_OK);
    EXPECT_EQ(ReadMessage(), L"broken");
    program.WaitUntilIdle();
    EXPECT_EQ(program.Folder(), L"\\Docs");
    program.Command(IDM_FILE_NEW_FOLDER);
    EXPECT_TRUE(device.IsFolder(L"\\Docs\\New Folder"));
}

TEST_F(ExtractUi, WhatWasSelectedIsExtractedWhateverTheListShowsMeanwhile) {
    StartAndSelect(L"\\Docs", {L"a.zip"});
    Dialog chooser = Ask();
    program.HandOverFolder(L"\\To"); // another program asks for it
    TreeOf(chooser).Select(L"\\Temp");
    chooser.Command(IDM_CHOOSER_OK);
    program.WaitForFolder(L"\\Temp");
    EXPECT_EQ(archiver->Calls(), Texts{L"UnZip 2048 e \"\\Docs\\a.zip\" \"\\Temp\\\""});
}

TEST_F(ExtractUi, FromSearchResultsTheChooserBeginsAtTheRoot) {
    program.Start(L"\\Docs");
    program.Search(L"a.zip", L"\\Docs");
    Select({L"a.zip"});
    Dialog chooser = Ask();
    EXPECT_EQ(TreeOf(chooser).SelectedPath(), L"");
    chooser.Command(IDCANCEL);
    chooser.WaitUntilClosed();
    program.WaitForFolder(L"My PocketPC");
    EXPECT_EQ(archiver->Calls(), Texts{L"UnZip 2048 e \"\\Docs\\a.zip\" \"\\Temp\\\""});
}

TEST_F(ExtractUi, AFolderMadeInTheChooserIsListedThoughNothingWasExtracted) {
    StartAndSelect(L"\\Docs", {L"d.txt"});
    Dialog chooser = Ask();
    chooser.Command(IDM_CHOOSER_NEW_FOLDER);
    WaitFor("for the folder", [&] { return TreeOf(chooser).SelectedPath() == L"\\Docs\\New Folder"; });
    chooser.Command(IDCANCEL);
    chooser.WaitUntilClosed();
    WaitFor("for the list to show it", [&] { return program.List().Has(L"New Folder"); });
}

// --- Failures ---

TEST_F(ExtractUi, WhatComesOutBeforeAFailureIsShown) {
    InPlace();
    IntoOwnFolders();
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    archiver->Answer(7, L"It is damaged.");
    StartAndSelect(L"\\Docs", {L"a.zip"});
    program.Tree().Expand(L"\\Docs");
    program.PostCommand(IDM_FILE_EXTRACT_TO);
    device.File(L"\\Docs\\beside.txt");
    EXPECT_EQ(ReadMessage(), L"It is damaged.");
    WaitFor(
        "for the list to show it",
        [&] { return program.List().Has(L"a") && program.List().Has(L"beside.txt"); },
        1500); // sooner than the watcher would
    EXPECT_TRUE(program.Tree().Has(L"\\Docs\\a"));
    Select({L"a.zip"});
    device.File(L"\\Docs\\here.txt");
    program.PostCommand(IDM_FILE_EXTRACT_HERE);
    EXPECT_EQ(ReadMessage(), L"It is damaged.");
    WaitFor(
        "for the list to show it", [&] { return program.List().Has(L"here.txt"); }, 1500);
}

TEST_F(ExtractUi, AFailureDoesNotStopTheOthers) {
    InPlace();
    archiver->Answer(7, L"It is encrypted.");
    StartAndSelect(L"\\Docs", {L"a.zip", L"c.Lzh"});
    program.PostCommand(IDM_FILE_EXTRACT_TO);
    MessageBoxShown box = program.WaitForMessageBox();
    EXPECT_EQ(box.Text(), L"It is encrypted.");
    EXPECT_EQ(box.Caption(), L"");
    EXPECT_EQ(box.Owner(), program.Window());
    RemoveLibrary(L"UNZip.dll.answer");
    box.Answer(IDOK);
    WaitFor("for the other to come out", [&] { return program.List().Has(L"out.txt"); });
    EXPECT_EQ(archiver->Calls().size(), 2u);
}

TEST_F(ExtractUi, MissingFoldersAreMadeLevelByLevel) {
    IntoOwnFolders();
    device.Folder(L"\\Far\\Away");
    StartAndSelect(L"\\Docs", {L"a.zip"});
    Dialog chooser = Ask();
    TreeOf(chooser).Expand(L"\\Far");
    TreeOf(chooser).Select(L"\\Far\\Away");
    chooser.Command(IDM_CHOOSER_OK);
    chooser.WaitUntilClosed();
    program.WaitUntilIdle();
    Show(L"\\Docs");
    device.Remove(L"\\Far\\Away\\a\\Out");
    device.Remove(L"\\Far\\Away\\a\\out.txt");
    device.Remove(L"\\Far\\Away\\a");
    device.Remove(L"\\Far\\Away");
    device.Remove(L"\\Far");
    Select({L"a.zip"});
    CancelChooser();
    EXPECT_TRUE(device.Exists(L"\\Far\\Away\\a\\out.txt"));
}

TEST_F(ExtractUi, AFileInTheWayLeavesNoPlaceToExtractTo) {
    InPlace();
    IntoOwnFolders();
    device.File(L"\\Docs\\a", "mine");
    StartAndSelect(L"\\Docs", {L"a.zip"});
    program.PostCommand(IDM_FILE_EXTRACT_TO);
    EXPECT_EQ(ReadMessage(), L"'Extraction to folder' is not found.");
    program.WaitUntilIdle();
    EXPECT_EQ(archiver->Calls(), Texts{});
    EXPECT_EQ(device.Content(L"\\Docs\\a"), "mine");
}

TEST_F(ExtractUi, APathThatIsTooLongLeavesNoPlaceToExtractTo) {
    IntoOwnFolders();
    const std::wstring longName(200, L'n');
    device.File(L"\\Docs\\" + longName + L".zip");
    device.Folder(L"\\" + std::wstring(100, L'f'));
    StartAndSelect(L"\\Docs", {longName + L".zip"});
    Dialog chooser = Ask();
    TreeOf(chooser).Select(L"\\" + std::wstring(100, L'f'));
    chooser.Command(IDM_CHOOSER_OK);
    EXPECT_EQ(ReadMessage(), L"'Extraction to folder' is not found.");
    EXPECT_EQ(archiver->Calls(), Texts{});
}

TEST_F(ExtractUi, AMissingLibraryIsToldByTheTypesName) {
    InPlace();
    StartAndSelect(L"\\Docs", {L"a.zip", L"c.Lzh"});
    RemoveLibrary(L"UNZip.dll");
    program.PostCommand(IDM_FILE_EXTRACT_TO);
    EXPECT_EQ(ReadMessage(), L"UNZip.dll is not found.");
    EXPECT_EQ(ReadMessage(), L"UNLHA.DLL is not found.");
}

TEST_F(ExtractUi, ALibraryWithoutTheEntryPointHasDoneItsJob) {
    InPlace();
    IntoOwnFolders();
    OpenAfterwards();
    PutLibraryWithoutFunctions(L"UNZip.dll");
    Extract({L"a.zip"});
    EXPECT_FALSE(program.HasMessageBox());
    EXPECT_EQ(program.Folder(), L"\\Docs\\a");
}

// --- Extract to here ---

TEST_F(ExtractUi, HereTakesTheFirstEntryForAZipArchiveWhateverItIs) {
    IntoOwnFolders();
    OpenAfterwards();
    StartAndSelect(L"\\Docs", {L"c.Lzh", L"d.txt"});
    program.Command(IDM_FILE_EXTRACT_HERE);
    EXPECT_EQ(archiver->Calls(), Texts{L"UnZip 2048 e \"\\Docs\\c.Lzh\" \"\\Docs\\\""});
    EXPECT_EQ(program.Folder(), L"\\Docs");
    EXPECT_TRUE(program.List().Has(L"out.txt"));
    EXPECT_FALSE(device.Exists(L"\\Docs\\c"));
}

TEST_F(ExtractUi, HereTellsFailuresAndNeedsASelection) {
    archiver->Answer(1, L"No archive");
    StartAndSelect(L"\\Docs", {L"d.txt"});
    program.PostCommand(IDM_FILE_EXTRACT_HERE);
    EXPECT_EQ(ReadMessage(), L"No archive");
    Select({L".."});
    program.Command(IDM_FILE_EXTRACT_HERE);
    EXPECT_FALSE(program.HasMessageBox());
    EXPECT_EQ(archiver->Calls().size(), 1u);
}

// --- Archives that open here ---

TEST_F(ExtractUi, OpeningAnArchiveExtractsTheSelection) {
    InPlace();
    device.SetOption(ListOption::OpenArchivesHere, 1);
    StartAndSelect(L"\\Docs", {L"a.zip"});
    program.Command(IDM_FILE_OPEN);
    EXPECT_EQ(archiver->Calls(), Texts{L"UnZip 2048 e \"\\Docs\\a.zip\" \"\\Docs\\\""});
    Select({L"c.Lzh"});
    program.Command(IDM_FILE_OPEN);
    EXPECT_EQ(archiver->Calls().back(), L"Unlha 2048 e \"\\Docs\\c.Lzh\" \"\\Docs\\\"");
}

TEST_F(ExtractUi, OtherwiseAnArchiveGoesToItsProgram) {
    InPlace();
    const StandIn viewer(L"\\Windows\\viewer.exe");
    device.WriteText(L"HKCR\\.zip", L"", L"zipviewer");
    device.WriteText(L"HKCR\\zipviewer\\Shell\\Open\\Command", L"", L"E:\\Windows\\viewer.exe \"%1\"");
    StartAndSelect(L"\\Docs", {L"a.zip"});
    program.Command(IDM_FILE_OPEN);
    EXPECT_TRUE(Eventually([&] { return viewer.Starts().size() == 1; }));

    program.Close();
    device.SetOption(ListOption::OpenArchivesHere, 1);
    RemoveLibrary(L"UNZip.dll");
    StartAndSelect(L"\\Docs", {L"a.zip"});
    program.Command(IDM_FILE_OPEN);
    EXPECT_TRUE(Eventually([&] { return viewer.Starts().size() == 2; }));
    EXPECT_EQ(archiver->Calls(), Texts{});
}

TEST_F(ExtractUi, AShortcutToAnArchiveStartsItsProgram) {
    InPlace();
    device.SetOption(ListOption::OpenArchivesHere, 1);
    const StandIn viewer(L"\\Windows\\viewer.exe");
    device.WriteText(L"HKCR\\.zip", L"", L"zipviewer");
    device.WriteText(L"HKCR\\zipviewer\\Shell\\Open\\Command", L"", L"E:\\Windows\\viewer.exe \"%1\"");
    device.File(L"\\Docs\\g.lnk", "11#\\Docs\\a.zip");
    StartAndSelect(L"\\Docs", {L"g.lnk"});
    program.Command(IDM_FILE_OPEN);
    EXPECT_TRUE(Eventually([&] { return viewer.Starts().size() == 1; }));
    EXPECT_EQ(archiver->Calls(), Texts{});
}

TEST_F(ExtractUi, ATypedArchiveExtractsWhatIsSelected) {
    InPlace();
    device.SetOption(ListOption::OpenArchivesHere, 1);
    StartAndSelect(L"\\Docs", {L"a.zip"});
    program.AddressBar().SetText(L"\\Docs\\c.Lzh");
    program.Command(IDM_TOOLBAR_GO_TO);
    EXPECT_EQ(archiver->Calls(), Texts{L"UnZip 2048 e \"\\Docs\\a.zip\" \"\\Docs\\\""});
}

TEST_F(ExtractUi, ArchivesThatOpenHereLookAlike) {
    constexpr int archiveImage = 7;
    device.WriteWords(settingsKey, L"FileImageList", {0, 1, 0});
    program.Start(L"\\Docs");
    const auto imageOf = [&](const wchar_t* name) { return program.List().Image(program.List().Find(name)); };
    EXPECT_NE(imageOf(L"a.zip"), archiveImage);
    program.Close();
    device.SetOption(ListOption::OpenArchivesHere, 1);
    program.Start(L"\\Docs");
    EXPECT_EQ(imageOf(L"a.zip"), archiveImage);
    EXPECT_EQ(imageOf(L"c.Lzh"), archiveImage);
    program.Close();
    RemoveLibrary(L"UNZip.dll");
    program.Start(L"\\Docs");
    EXPECT_NE(imageOf(L"a.zip"), archiveImage);
}

// --- What can be done is offered ---

TEST_F(ExtractUi, TheMenusOfferWhatTheArchiverCanDo) {
    StartAndSelect(L"\\Docs", {L"a.zip"});
    EXPECT_TRUE(program.SoftKeyMenu().IsEnabled(IDM_SENDTO_ZIP));
    EXPECT_TRUE(program.SoftKeyMenu().IsEnabled(IDM_FILE_EXTRACT_TO));
    EXPECT_TRUE(program.SoftKeyMenu().IsEnabled(IDM_FILE_EXTRACT_HERE));
    TapAndHold(program.List().PointOf(L"a.zip"), 1000);
    const Menu menu = program.WaitForMenu();
    EXPECT_TRUE(menu.IsEnabled(IDM_SENDTO_ZIP));
    EXPECT_TRUE(menu.IsEnabled(IDM_FILE_EXTRACT_TO));
    program.CloseMenus();
    Select({L"d.txt"});
    EXPECT_TRUE(program.SoftKeyMenu().IsEnabled(IDM_FILE_EXTRACT_TO)) << "whatever is selected";
    Select({L".."});
    EXPECT_FALSE(program.SoftKeyMenu().IsEnabled(IDM_SENDTO_ZIP));
    EXPECT_FALSE(program.SoftKeyMenu().IsEnabled(IDM_FILE_EXTRACT_TO));
}

TEST_F(ExtractUi, WithoutAnArchiverNothingIsOffered) {
    RemoveLibrary(L"UNZip.dll");
    StartAndSelect(L"\\Docs", {L"a.zip"});
    EXPECT_FALSE(program.SoftKeyMenu().IsEnabled(IDM_SENDTO_ZIP));
    EXPECT_FALSE(program.SoftKeyMenu().IsEnabled(IDM_FILE_EXTRACT_TO));
    EXPECT_FALSE(program.SoftKeyMenu().IsEnabled(IDM_FILE_EXTRACT_HERE));
}

TEST_F(ExtractUi, AnArchiveTypeThatDoesNotExistCannotBeMade) {
    device.SetOption(ListOption::ArchiveType, 3);
    StartAndSelect(L"\\Docs", {L"a.zip"});
    EXPECT_FALSE(program.SoftKeyMenu().IsEnabled(IDM_SENDTO_ZIP));
    EXPECT_TRUE(program.SoftKeyMenu().IsEnabled(IDM_FILE_EXTRACT_TO));
}

} // namespace
