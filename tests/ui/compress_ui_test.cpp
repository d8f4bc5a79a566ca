// Screens: 240x320

// "ZIP Archive...": the selection goes into an archive.

#include "tests/ui/archives_ui.h"

namespace {

const std::wstring endOfText(1, L'\0');

class CompressUi : public ArchivesUi {
  protected:
    void SetUp() override {
        ArchivesUi::SetUp();
        device.File(L"\\Docs\\c d.txt");
        device.File(L"\\Docs\\Sub\\e.txt");
        device.Folder(L"\\To");
    }

    /// The name of the archive is asked for by the library, and this is what the user chooses.
    void Choose(const std::wstring& archive) { dialogs->Answer(TRUE, archive + endOfText); }
    void Compress(const Texts& names) {
        StartAndSelect(L"\\Docs", names);
        program.Command(IDM_SENDTO_ZIP);
    }
};

TEST_F(CompressUi, FilesAndFoldersGoIntoTheChosenArchive) {
    Choose(L"\\To\\x y.zip");
    Compress({L"Sub", L"c d.txt"});
    EXPECT_EQ(archiver->Calls(), Texts{L"UnZip 2048 a \"\\To\\x y.zip\" \"\\Docs\\\" \"\\Docs\\Sub\\*\" "
                                       L"\"\\Docs\\c d.txt\" "});
    EXPECT_FALSE(program.HasMessageBox());
    EXPECT_EQ(program.Folder(), L"\\Docs");
}

TEST_F(CompressUi, AFolderAloneIsAllThatIsInIt) {
    Choose(L"\\To\\x.zip");
    Compress({L"Sub"});
    EXPECT_EQ(archiver->Calls(), Texts{L"UnZip 2048 a \"\\To\\x.zip\" \"\\Docs\\\" \"\\Docs\\Sub\\*\" "});
}

TEST_F(CompressUi, TheRootIsABaseToo) {
    Choose(L"\\x.zip");
    StartAndSelect(L"", {L"To"});
    program.Command(IDM_SENDTO_ZIP);
    EXPECT_EQ(archiver->Calls(), Texts{L"UnZip 2048 a \"\\x.zip\" \"\\\" \"\\To\\*\" "});
    EXPECT_TRUE(program.List().Has(L"x.zip"));
}

TEST_F(CompressUi, TheListShowsTheNewArchive) {
    Choose(L"\\Docs\\new.zip");
    Compress({L"c d.txt"});
    program.WaitForNames({L"..", L"Sub", L"c d.txt", L"new.zip"});
}

TEST_F(CompressUi, TheArchivesFolderIsOpenedWhenAskedFor) {
    device.SetOption(ListOption::AlwaysOpenExtractFolder, 1);
    Choose(L"\\To\\x.zip");
    Compress({L"c d.txt"});
    EXPECT_EQ(program.Folder(), L"\\To");
    program.WaitForNames({L"..", L"x.zip"});
}

TEST_F(CompressUi, TheRootIsOpenedWhenTheArchiveLiesThere) {
    device.SetOption(ListOption::AlwaysOpenExtractFolder, 1);
    Choose(L"\\x.zip");
    Compress({L"c d.txt"});
    EXPECT_EQ(program.Folder(), L"My PocketPC");
}

TEST_F(CompressUi, LhaHasAnEntryPointOfItsOwn) {
    device.SetOption(ListOption::ArchiveType, 1);
    Choose(L"\\To\\x.lzh");
    Compress({L"c d.txt"});
    EXPECT_EQ(archiver->Calls(), Texts{L"Unlha 2048 a \"\\To\\x.lzh\" \"\\Docs\\\" \"\\Docs\\c d.txt\" "});
    EXPECT_EQ(dialogs->Calls(), Texts{L"title=Compress Filename filter=LHA Files(*.lzh)|*.lzh|All Files|*.*|"
                                      L" folder=\\Docs extension=lzh file= room=260 flags=2097154"});
}

TEST_F(CompressUi, TheDialogIsAskedForANameInTheCurrentFolder) {
    Compress({L"c d.txt"});
    EXPECT_EQ(dialogs->Calls(), Texts{L"title=Compress Filename filter=ZIP Files(*.zip)|*.zip|All Files|*.*|"
                                      L" folder=\\Docs extension=zip file= room=260 flags=2097154"});
    EXPECT_EQ(archiver->Calls(), Texts{}) << "it was cancelled";
    EXPECT_FALSE(program.HasMessageBox());
}

TEST_F(CompressUi, AnAnswerWithoutAnEndIsCut) {
    dialogs->Answer(TRUE, L"\\To\\" + std::wstring(256, L'x'));
    Compress({L"c d.txt"});
    EXPECT_EQ(archiver->Calls(), Texts{L"UnZip 2048 a \"\\To\\" + std::wstring(255, L'x') +
                                       L"\" \"\\Docs\\\" \"\\Docs\\c d.txt\" "});
}

TEST_F(CompressUi, WithoutASelectionNothingHappens) {
    StartIn(L"\\Docs");
    program.List().SelectNothing();
    program.Command(IDM_SENDTO_ZIP);
    Select({L".."});
    program.Command(IDM_SENDTO_ZIP);
    EXPECT_EQ(dialogs->Calls(), Texts{});
}

TEST_F(CompressUi, WhatIsGoneIsPassedOver) {
    Choose(L"\\To\\x.zip");
    device.File(L"\\Docs\\gone.txt");
    StartAndSelect(L"\\Docs", {L"c d.txt", L"gone.txt"});
    device.Remove(L"\\Docs\\gone.txt");
    program.Command(IDM_SENDTO_ZIP);
    EXPECT_EQ(archiver->Calls(), Texts{L"UnZip 2048 a \"\\To\\x.zip\" \"\\Docs\\\" \"\\Docs\\c d.txt\" "});

    StartAndSelect(L"\\Docs\\Sub", {L"e.txt"});
    device.Remove(L"\\Docs\\Sub\\e.txt");
    dialogs->Forget();
    program.Command(IDM_SENDTO_ZIP);
    EXPECT_EQ(dialogs->Calls(), Texts{}) << "nothing is left";
}

TEST_F(CompressUi, ALongSelectionGoesWhole) {
    const std::wstring prefix(120, L'n');
    device.Files(L"\\Many", prefix, 400);
    Choose(L"\\To\\x.zip");
    StartIn(L"\\Many");
    program.Command(IDM_EDIT_SELECT_ALL);
    program.Command(IDM_SENDTO_ZIP);
    const Texts calls = archiver->Calls();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].size(), std::wcslen(L"UnZip 2048 a \"\\To\\x.zip\" \"\\Many\\\" ") +
                                   400 * (std::wcslen(L"\"\\Many\\\" ") + 120) + 10 + 2 * 90 + 3 * 300);
}

TEST_F(CompressUi, AFailureIsToldInTheArchiversWords) {
    Choose(L"\\To\\x.zip");
    archiver->Answer(5, L"100% full: %s");
    StartAndSelect(L"\\Docs", {L"c d.txt"});
    program.PostCommand(IDM_SENDTO_ZIP);
    EXPECT_EQ(ReadMessage(), L"100% full: %s");
    program.WaitUntilIdle();
    EXPECT_FALSE(device.Exists(L"\\To\\x.zip"));
}

TEST_F(CompressUi, NegativeResultsAreFailuresToo) {
    Choose(L"\\To\\x.zip");
    archiver->Answer(-1, L"broken");
    StartAndSelect(L"\\Docs", {L"c d.txt"});
    program.PostCommand(IDM_SENDTO_ZIP);
    EXPECT_EQ(ReadMessage(), L"broken");
}

TEST_F(CompressUi, WordsWithoutAnEndDoNoHarm) {
    Choose(L"\\To\\x.zip");
    StartAndSelect(L"\\Docs", {L"c d.txt"});
    for (const std::size_t length : {1024u, 2048u}) {
        archiver->Answer(1, std::wstring(length, L'w'));
        Select({L"c d.txt"});
        program.PostCommand(IDM_SENDTO_ZIP);
        EXPECT_EQ(ReadMessage(), std::wstring(length, L'w'));
    }
}

TEST_F(CompressUi, ALibraryWithoutTheEntryPointHasDoneItsJob) {
    PutLibraryWithoutFunctions(L"UNZip.dll");
    device.SetOption(ListOption::AlwaysOpenExtractFolder, 1);
    Choose(L"\\To\\x.zip");
    Compress({L"c d.txt"});
    EXPECT_FALSE(program.HasMessageBox());
    EXPECT_EQ(program.Folder(), L"\\To");
}

TEST_F(CompressUi, AMissingLibraryIsToldByTheTypesName) {
    StartAndSelect(L"\\Docs", {L"c d.txt"});
    RemoveLibrary(L"UNZip.dll");
    Choose(L"\\To\\x.zip");
    program.PostCommand(IDM_SENDTO_ZIP);
    MessageBoxShown box = program.WaitForMessageBox();
    EXPECT_EQ(box.Text(), L"UNZip.dll is not found.");
    EXPECT_EQ(box.Owner(), program.Window());
    box.Answer(IDOK);
    program.Close();
    device.SetOption(ListOption::ArchiveType, 1);
    StartAndSelect(L"\\Docs", {L"c d.txt"});
    program.PostCommand(IDM_SENDTO_ZIP);
    EXPECT_EQ(ReadMessage(), L"UNLHA.DLL is not found.");
}

TEST_F(CompressUi, TheLibraryIsFreedAfterEachCall) {
    Choose(L"\\To\\x.zip");
    Compress({L"c d.txt"});
    RemoveLibrary(L"UNZip.dll");
    RemoveLibrary(L"getFiles.dll");
    EXPECT_EQ(device.NamesIn(L"\\Program Files\\Tarvik File Manager"),
              (Texts{L"TarvikFileManager.exe", L"UNZip.dll.called", L"getFiles.dll.answer",
                     L"getFiles.dll.called"}));
}

TEST_F(CompressUi, TheTreesFolderIsCompressedRelativeToItself) {
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    Choose(L"\\To\\x.zip");
    StartIn(L"\\Docs");
    program.Tree().Select(L"\\Docs");
    WaitFor("for the tree to have the keyboard", [&] {
        SendMessageW(program.Window(), WM_COMMAND, IDM_FOCUS_PREV, 0);
        return program.TreeHasFocus();
    });
    program.Command(IDM_SENDTO_ZIP);
    EXPECT_EQ(archiver->Calls(), Texts{L"UnZip 2048 a \"\\To\\x.zip\" \"\\Docs\\\" \"\\Docs\\*\" "});
    EXPECT_EQ(program.Folder(), L"\\Docs");
    program.WaitForNames({L"..", L"Sub", L"c d.txt"});

    dialogs->Answer(FALSE);
    program.Command(IDM_SENDTO_ZIP);
    program.WaitForNames({L"..", L"Sub", L"c d.txt"});
}

TEST_F(CompressUi, FromTheTreeTheArchivesFolderIsOpenedToo) {
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    device.SetOption(ListOption::AlwaysOpenExtractFolder, 1);
    Choose(L"\\To\\x.zip");
    StartIn(L"\\Docs");
    WaitFor("for the tree to have the keyboard", [&] {
        SendMessageW(program.Window(), WM_COMMAND, IDM_FOCUS_PREV, 0);
        return program.TreeHasFocus();
    });
    program.Command(IDM_SENDTO_ZIP);
    EXPECT_EQ(program.Folder(), L"\\To");
    program.WaitForNames({L"..", L"x.zip"});
}

} // namespace
