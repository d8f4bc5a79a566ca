// Screens: 240x320
// Limit: 300 seconds

// Copying files and folders.

#include "tests/ui/job_ui.h"

namespace {

class CopyUi : public TransferUi {};

TEST_F(CopyUi, CopiesFilesAndWholeFolders) {
    CopyToTarget({L"Sub", L"a.txt", L"b.txt"});
    FinishJob();
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"Sub", L"a.txt", L"b.txt"}));
    EXPECT_EQ(device.Content(L"\\To\\a.txt"), "new a");
    EXPECT_EQ(device.Content(L"\\To\\Sub\\Deep\\d.txt"), "new d");
    EXPECT_EQ(device.Content(L"\\From\\Sub\\Deep\\d.txt"), "new d");
}

TEST_F(CopyUi, WithinItsFolderACopyGetsANameOfItsOwn) {
    StartIn(L"\\From");
    Copy({L"a.txt", L"Sub"});
    PasteAll();
    PasteAll();
    PasteAll();
    EXPECT_EQ(device.NamesIn(L"\\From"),
              (Texts{L"Sub", L"a.txt", L"b.txt", L"copy (2) of Sub", L"copy (2) of a.txt", L"copy (3) of Sub",
                     L"copy (3) of a.txt", L"copy of Sub", L"copy of a.txt"}));
    EXPECT_EQ(device.Content(L"\\From\\copy (3) of Sub\\Deep\\d.txt"), "new d");
}

TEST_F(CopyUi, TheFileQuestionShowsBothFiles) {
    device.File(L"\\To\\a.txt", std::string(12345, 'o'));
    device.SetWriteTime(L"\\To\\a.txt", {2005, 4, 0, 1, 3, 30, 10, 0});
    CopyToTarget({L"a.txt"});
    Dialog question = WaitForFileQuestion();
    EXPECT_EQ(question.Item(1062).Text(), L"this file 'a.txt' already exists.");
    EXPECT_EQ(question.Item(1079).Text(), L"Size : 12,345 bytes");
    EXPECT_EQ(question.Item(1080).Text(), L"Modified : 4/1/2005 12:30:10 PM");
    EXPECT_EQ(question.Item(1076).Text(), L"Size : 5 bytes");
    EXPECT_EQ(question.SoftKeys(), (Texts{L"Yes", L"Menu"}));
    question.Command(noKey);
    FinishJob();
    EXPECT_EQ(device.Content(L"\\To\\a.txt").size(), 12345u);
}

TEST_F(CopyUi, NoAsksAgainAndAllDoesNot) {
    for (const wchar_t* name : {L"\\To\\a.txt", L"\\To\\b.txt", L"\\To\\Sub\\c.txt"})
        device.File(name, "old");
    CopyToTarget({L"Sub", L"a.txt", L"b.txt"});
    AnswerFolder(IDYES);
    AnswerFile(noKey);
    AnswerFile(allKey);
    FinishJob();
    EXPECT_EQ(device.Content(L"\\To\\Sub\\c.txt"), "old");
    EXPECT_EQ(device.Content(L"\\To\\a.txt"), "new a");
    EXPECT_EQ(device.Content(L"\\To\\b.txt"), "new b");
}

TEST_F(CopyUi, CancelInAQuestionStopsWithoutAMessage) {
    device.File(L"\\To\\a.txt", "old");
    CopyToTarget({L"a.txt", L"b.txt"});
    AnswerFile(cancelKey);
    FinishJob();
    EXPECT_EQ(device.Content(L"\\To\\a.txt"), "old");
    EXPECT_FALSE(device.Exists(L"\\To\\b.txt"));
}

TEST_F(CopyUi, TheBackKeyInAQuestionIsANo) {
    device.File(L"\\To\\a.txt", "old");
    CopyToTarget({L"a.txt", L"b.txt"});
    WaitForFileQuestion();
    PressBack();
    FinishJob();
    EXPECT_EQ(device.Content(L"\\To\\a.txt"), "old");
    EXPECT_EQ(device.Content(L"\\To\\b.txt"), "new b");
}

TEST_F(CopyUi, AReadOnlyTargetIsNamedAndReplaced) {
    device.File(L"\\To\\a.txt", "old");
    device.File(L"\\To\\b.txt", "old");
    device.SetAttributes(L"\\To\\a.txt", FILE_ATTRIBUTE_READONLY);
    device.SetAttributes(L"\\To\\b.txt", FILE_ATTRIBUTE_SYSTEM);
    CopyToTarget({L"a.txt", L"b.txt"});
    EXPECT_EQ(WaitForFileQuestion().Item(1062).Text(), L"this READ-ONLY file 'a.txt' already exists.");
    AnswerFile(yesKey);
    Dialog second = WaitForFileQuestion();
    EXPECT_EQ(second.Item(1062).Text(), L"SYSTEM file 'b.txt' already exists.");
    AnswerFile(yesKey);
    FinishJob();
    EXPECT_EQ(device.Content(L"\\To\\a.txt"), "new a");
    EXPECT_EQ(device.Content(L"\\To\\b.txt"), "new b");
}

TEST_F(CopyUi, NoToAFolderSkipsAllOfIt) {
    device.Folder(L"\\To\\Sub");
    CopyToTarget({L"Sub", L"a.txt"});
    Dialog question = WaitForFolderQuestion();
    EXPECT_EQ(question.Item(1069).Text(), L"In 'To', a folder called 'Sub' already exists.");
    EXPECT_EQ(question.SoftKeys(), (Texts{L"Yes", L"No"}));
    AnswerFolder(IDNO);
    FinishJob();
    EXPECT_EQ(device.NamesIn(L"\\To\\Sub"), Texts{});
    EXPECT_EQ(device.Content(L"\\To\\a.txt"), "new a");
}

TEST_F(CopyUi, AFolderUnderTheRootIsInTheDevice) {
    device.Folder(L"\\Sub");
    StartIn(L"\\From");
    Copy({L"Sub"});
    ShowRoot();
    Paste();
    EXPECT_EQ(WaitForFolderQuestion().Item(1069).Text(),
              L"In 'My PocketPC', a folder called 'Sub' already exists.");
    AnswerFolder(IDYES);
    FinishJob();
    EXPECT_EQ(device.Content(L"\\Sub\\c.txt"), "new c");
}

TEST_F(CopyUi, AFolderCannotBeCopiedBelowItself) {
    device.Folder(L"\\FromAll");
    StartIn(L"");
    Copy({L"From"});
    Show(L"\\From\\Sub");
    Paste();
    EXPECT_EQ(ReadMessage(), L"Illegal copy operation.");
    Show(L"\\FromAll");
    PasteAll();
    EXPECT_EQ(device.Content(L"\\FromAll\\From\\a.txt"), "new a");
}

TEST_F(CopyUi, TheSystemFolderIsNeverTaken) {
    StartIn(L"");
    Copy({L"Windows"});
    Show(L"\\To");
    Paste();
    EXPECT_EQ(ReadMessage(), L"'Windows' is a system folder and cannot be moved nor deleted.");
    EXPECT_EQ(device.NamesIn(L"\\To"), Texts{});
}

TEST_F(CopyUi, ALockedSourceEndsTheJobWithItsName) {
    StartIn(L"\\From");
    Copy({L"Sub", L"a.txt"});
    Show(L"\\To");
    {
        const HeldFile held = device.Hold(L"\\From\\Sub\\Deep\\d.txt");
        Paste();
        EXPECT_EQ(ReadMessage(), L"'Sub' cannot be copied.");
        FinishJob();
    }
    EXPECT_FALSE(device.Exists(L"\\To\\Sub\\Deep\\d.txt"));
    EXPECT_FALSE(device.Exists(L"\\To\\a.txt"));
}

TEST_F(CopyUi, ALockedTargetIsStillThere) {
    device.File(L"\\To\\a.txt", "old");
    StartIn(L"\\From");
    Copy({L"a.txt"});
    Show(L"\\To");
    PasteOverHeldFile();
    EXPECT_EQ(device.Content(L"\\To\\a.txt"), "old");
    EXPECT_EQ(device.NamesIn(L"\\To"), Texts{L"a.txt"});
}

TEST_F(CopyUi, AnUnwritableTargetFolderIsReported) {
    device.HostFolder("To/Closed");
    RunOnHost("chmod a-w To/Closed");
    CopyToTarget({L"a.txt"}, L"\\To\\Closed");
    EXPECT_EQ(ReadMessage(), L"'a.txt' cannot be copied.");
    FinishJob();
    RunOnHost("chmod u+w To/Closed");
}

TEST_F(CopyUi, LinksAreCopiedAsLinks) {
    ONLY_ON_THE_DESKTOP(hostsEntries);
    device.HostLink("From/Sub/loop", "..");
    device.HostLink("From/Sub/nowhere", "missing");
    device.HostFile("Outside/kept.txt", "kept");
    device.HostLink("From/link", "../Outside");
    CopyToTarget({L"Sub"});
    FinishJob();
    EXPECT_EQ(device.Content(L"\\To\\Sub\\c.txt"), "new c");
    Show(L"\\From");
    Copy({L"link"});
    Show(L"\\To");
    Paste();
    FinishJob();
    RunOnHost(
        "test \"$(readlink To/Sub/loop To/Sub/nowhere To/link | tr '\\n' ' ')\" = '.. missing ../Outside '");
    EXPECT_EQ(device.Content(L"\\Outside\\kept.txt"), "kept");
}

TEST_F(CopyUi, WhatHoldsNothingIsLeftOutAndSaidOnce) {
    ONLY_ON_THE_DESKTOP(hostsEntries);
    RunOnHost("mkfifo From/Sub/pipe From/Sub/Deep/pipe");
    CopyToTarget({L"Sub", L"a.txt"});
    EXPECT_EQ(ReadMessage(), L"2 entries could not be taken along and were left out.");
    FinishJob();
    EXPECT_EQ(device.NamesIn(L"\\To\\Sub"), (Texts{L"Deep", L"c.txt"}));
    EXPECT_EQ(device.Content(L"\\To\\a.txt"), "new a");
    RunOnHost("test -p From/Sub/pipe");
    WaitForHands(0);
}

TEST_F(CopyUi, APathBeyondTheLimitIsReported) {
    const std::wstring name(200, L'n');
    device.File(L"\\From\\" + name, "long");
    device.Folder(L"\\To\\" + std::wstring(80, L'f'));
    CopyToTarget({name}, L"\\To\\" + std::wstring(80, L'f'));
    EXPECT_EQ(ReadMessage(), L"'" + name + L"' cannot be copied.");
    FinishJob();
    EXPECT_EQ(device.NamesIn(L"\\To\\" + std::wstring(80, L'f')), Texts{});
}

TEST_F(CopyUi, CancelGivesUpALargeFileWithinSecondsAndLeavesNothing) {
    device.FileOfSize(L"\\From\\huge", 6ull << 30);
    CopyToTarget({L"huge"});
    Dialog progress = program.WaitForDialog(L"Copy Files");
    EXPECT_EQ(progress.SoftKeys(), Texts{L"Cancel"});
    WaitFor("for the file's name", [&] { return progress.Item(1062).Text() == L"huge"; });
    EXPECT_EQ(progress.Item(1067).Text(), L"'From' to 'To'");
    EXPECT_EQ(progress.Item(1081).Text(), L"0/1");
    const auto begun = GetTickCount64();
    progress.Command(IDM_JOB_CANCEL);
    FinishJob();
    EXPECT_LT(GetTickCount64() - begun, 5000u); // two of which it may have been finished in
    EXPECT_EQ(device.NamesIn(L"\\To"), Texts{});
}

TEST_F(CopyUi, AProgramKilledInTheMiddleTakesNothingWithIt) {
    device.FileOfSize(L"\\From\\huge", 6ull << 30);
    device.File(L"\\To\\huge", "old");
    CopyToTarget({L"huge"});
    AnswerFile(yesKey);
    WaitFor("for the copy to begin", [&] { return device.NamesIn(L"\\To").size() > 1; });
    program.Kill();
    EXPECT_EQ(device.Content(L"\\To\\huge"), "old");
    EXPECT_TRUE(device.Exists(L"\\From\\huge"));
}

TEST_F(CopyUi, ClosingTheProgramInTheMiddleLeavesNoPart) {
    device.FileOfSize(L"\\From\\huge", 6ull << 30);
    device.File(L"\\To\\huge", "old");
    CopyToTarget({L"huge"});
    AnswerFile(yesKey);
    WaitFor("for the copy to begin", [&] { return device.NamesIn(L"\\To").size() > 1; });
    program.Close();
    EXPECT_EQ(device.NamesIn(L"\\To"), Texts{L"huge"});
    EXPECT_EQ(device.Content(L"\\To\\huge"), "old");
}

TEST_F(CopyUi, ClosingTheProgramWhileAQuestionIsOpenReplacesNothing) {
    device.File(L"\\To\\a.txt", "old a");
    device.File(L"\\To\\b.txt", "old b");
    CopyToTarget({L"a.txt", L"b.txt"});
    WaitForFileQuestion();
    program.Close();
    EXPECT_EQ(device.Content(L"\\To\\a.txt"), "old a");
    EXPECT_EQ(device.Content(L"\\To\\b.txt"), "old b");
    EXPECT_EQ(device.NamesIn(L"\\To"), (Texts{L"a.txt", L"b.txt"}));
}

TEST_F(CopyUi, MessagesOfOthersToTheDialogDoNothing) {
    device.File(L"\\To\\a.txt", "old");
    CopyToTarget({L"a.txt", L"b.txt"});
    WaitForFileQuestion();
    const HWND progress = program.WaitForDialog(L"Copy Files").Window();
    for (const UINT message : {100u, 101u, 200u, 300u, 400u})
        PostMessageW(progress, WM_USER + message, 1, 1);
    program.WaitUntilIdle();
    AnswerFile(yesKey);
    FinishJob();
    EXPECT_EQ(device.Content(L"\\To\\a.txt"), "new a");
    EXPECT_EQ(device.Content(L"\\To\\b.txt"), "new b");
}

} // namespace
