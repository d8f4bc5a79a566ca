// Screens: 240x320
// Limit: 300 seconds

// Deleting files and folders.

#include "tests/ui/folder_changes.h"
#include "tests/ui/job_ui.h"

namespace {

class DeleteUi : public JobUi {
  protected:
    void SetUp() override {
        JobUi::SetUp();
        device.File(L"\\T\\a.txt", "a");
        device.File(L"\\T\\b.txt", "b");
        device.File(L"\\T\\c.txt", "c");
        device.File(L"\\T\\Sub\\d.txt", "d");
        device.File(L"\\T\\Sub\\Deep\\e.txt", "e");
    }

    void Delete(const std::vector<std::wstring>& names) {
        StartIn(L"\\T");
        Select(names);
        Give(IDM_FILE_DELETE);
    }

    std::wstring Question() { return WaitForDeleteQuestion().Item(1045).Text(); }
};

TEST_F(DeleteUi, OneFileIsAskedAboutByName) {
    Delete({L"a.txt"});
    EXPECT_EQ(Question(), L"Do you really want to delete 'a.txt' ?");
    EXPECT_EQ(WaitForDeleteQuestion().SoftKeys(), (Texts{L"Yes", L"Menu"}));
    AnswerDelete(yesKey);
    FinishJob();
    EXPECT_FALSE(device.Exists(L"\\T\\a.txt"));
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"Sub", L"b.txt", L"c.txt"}));
}

TEST_F(DeleteUi, AnyOtherAnswerDeletesNothing) {
    StartIn(L"\\T");
    for (const int key : {noKey, cancelKey, IDCANCEL, IDOK}) {
        Select({L"a.txt"});
        Give(IDM_FILE_DELETE);
        AnswerDelete(key);
        FinishJob();
        EXPECT_TRUE(device.Exists(L"\\T\\a.txt"));
    }
    EXPECT_EQ(program.List().Count(), 5);
}

TEST_F(DeleteUi, AllMeansYesInTheOpeningQuestion) {
    Delete({L"a.txt", L"b.txt"});
    EXPECT_EQ(Question(), L"Do you really want to delete 2 files ?");
    AnswerDelete(allKey);
    FinishJob();
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"Sub", L"c.txt"}));
}

TEST_F(DeleteUi, AFolderGoesWithAllThatIsInIt) {
    device.SetAttributes(L"\\T\\Sub\\Deep\\e.txt", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    Delete({L"Sub"});
    EXPECT_EQ(Question(), L"'Sub' is a folder. Do you really want to delete it ?");
    AnswerDelete(yesKey);
    FinishJob();
    EXPECT_FALSE(device.Exists(L"\\T\\Sub"));
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"a.txt", L"b.txt", L"c.txt"}));
}

TEST_F(DeleteUi, OneReadOnlyFileIsAskedAboutOnce) {
    device.SetAttributes(L"\\T\\a.txt", FILE_ATTRIBUTE_READONLY);
    Delete({L"a.txt"});
    AnswerDelete(yesKey);
    FinishJob();
    EXPECT_FALSE(device.Exists(L"\\T\\a.txt"));
}

TEST_F(DeleteUi, NoToOneOfSeveralAlsoPassesOverPlainFilesBehindIt) {
    device.SetAttributes(L"\\T\\b.txt", FILE_ATTRIBUTE_READONLY);
    Delete({L"a.txt", L"b.txt", L"c.txt"});
    AnswerDelete(yesKey);
    EXPECT_EQ(Question(), L"The file 'b.txt' is READ-ONLY. Do you really want to delete it ?");
    AnswerDelete(noKey);
    FinishJob();
    EXPECT_EQ(device.NamesIn(L"\\T"), (Texts{L"Sub", L"b.txt", L"c.txt"}));
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"Sub", L"b.txt", L"c.txt"}));
}

TEST_F(DeleteUi, AllAsksNothingMore) {
    device.SetAttributes(L"\\T\\b.txt", FILE_ATTRIBUTE_SYSTEM);
    Delete({L"Sub", L"a.txt", L"b.txt"});
    AnswerDelete(yesKey);
    EXPECT_EQ(Question(), L"'Sub' is a folder. Do you really want to delete it ?");
    AnswerDelete(allKey);
    FinishJob();
    EXPECT_EQ(device.NamesIn(L"\\T"), Texts{L"c.txt"});
}

TEST_F(DeleteUi, CancelEndsTheJobWithoutAMessage) {
    Delete({L"Sub", L"a.txt"});
    AnswerDelete(yesKey);
    EXPECT_EQ(Question(), L"'Sub' is a folder. Do you really want to delete it ?");
    AnswerDelete(cancelKey);
    FinishJob();
    EXPECT_EQ(device.NamesIn(L"\\T"), (Texts{L"Sub", L"a.txt", L"b.txt", L"c.txt"}));
}

TEST_F(DeleteUi, TheSystemFolderEndsTheJob) {
    device.Folder(L"\\Alpha");
    StartIn(L"");
    Select({L"Alpha", L"Windows"});
    Give(IDM_FILE_DELETE);
    AnswerDelete(yesKey);
    AnswerDelete(yesKey);
    EXPECT_EQ(ReadMessage(), L"'Windows' is a system folder and cannot be moved nor deleted.");
    FinishJob();
    EXPECT_FALSE(device.Exists(L"\\Alpha"));
    EXPECT_TRUE(device.Exists(L"\\Windows"));
    EXPECT_FALSE(program.List().Has(L"Alpha"));
}

TEST_F(DeleteUi, AFileInUseIsReported) {
    StartIn(L"\\T");
    Select({L"a.txt", L"b.txt"});
    {
        const HeldFile held = device.Hold(L"\\T\\a.txt");
        Give(IDM_FILE_DELETE);
        AnswerDelete(yesKey);
        EXPECT_EQ(ReadMessage(), L"'a.txt' cannot be deleted.");
        FinishJob();
    }
    EXPECT_EQ(device.NamesIn(L"\\T"), (Texts{L"Sub", L"a.txt", L"b.txt", L"c.txt"}));
    EXPECT_EQ(program.List().Count(), 5);
}

TEST_F(DeleteUi, AnUnreadableFolderStays) {
    device.HostFile("T/Closed/x.txt", "x");
    device.Forbid("T/Closed");
    Delete({L"Closed"});
    AnswerDelete(yesKey);
    EXPECT_EQ(ReadMessage(), L"'Closed' cannot be deleted.");
    FinishJob();
    RunOnHost("chmod 755 T/Closed");
    EXPECT_EQ(device.Content(L"\\T\\Closed\\x.txt"), "x");
}

TEST_F(DeleteUi, ALinkGoesAloneAndWhatItPointsToStays) {
    device.HostFile("Outside/kept.txt", "kept");
    device.HostLink("T/Sub/link", "../../Outside");
    device.HostLink("T/Sub/loop", "..");
    device.HostLink("T/top", "../Outside");
    Delete({L"Sub"});
    AnswerDelete(yesKey);
    FinishJob();
    EXPECT_FALSE(device.Exists(L"\\T\\Sub"));
    EXPECT_EQ(device.Content(L"\\Outside\\kept.txt"), "kept");
    EXPECT_EQ(device.Content(L"\\T\\a.txt"), "a");
    Select({L"top"});
    Give(IDM_FILE_DELETE);
    AnswerDelete(yesKey);
    FinishJob();
    EXPECT_FALSE(device.Exists(L"\\T\\top"));
    EXPECT_EQ(device.Content(L"\\Outside\\kept.txt"), "kept");
}

TEST_F(DeleteUi, ALinkPutInAFilesPlaceWhileAQuestionIsOpenGoesAlone) {
    device.HostFile("Outside/kept.txt", "kept");
    device.Files(L"\\T\\Many", L"f", 150);
    device.SetAttributes(L"\\T\\b.txt", FILE_ATTRIBUTE_READONLY);
    StartIn(L"\\T");
    Select({L"Many", L"b.txt", L"c.txt"});
    Give(IDM_FILE_DELETE);
    AnswerDelete(yesKey);
    AnswerDelete(yesKey);
    const Dialog question = WaitForDeleteQuestion();
    RunOnHost("ln -sf ../Outside/kept.txt T/c.txt");
    Answer(question, yesKey);
    FinishJob();
    RunOnHost("test ! -L T/c.txt");
    EXPECT_EQ(device.Content(L"\\Outside\\kept.txt"), "kept");
    EXPECT_EQ(device.NamesIn(L"\\T"), (Texts{L"Sub", L"a.txt"}));
}

TEST_F(DeleteUi, ALinkPutInAFilesPlaceUnderTheOpeningQuestionGoesAlone) {
    ONLY_ON_THE_DESKTOP(hostsHand);
    device.HostFile("Outside/kept.txt", "kept");
    device.Files(L"\\T\\Many", L"f", 150);
    Delete({L"Many"});
    const Dialog question = WaitForDeleteQuestion();
    WaitForHands(1);
    RunOnHost("ln -sf ../../Outside/kept.txt \"T/Many/$(ls T/Many | tail -n 1)\"");
    Answer(question, yesKey);
    FinishJob();
    EXPECT_FALSE(device.Exists(L"\\T\\Many"));
    EXPECT_EQ(device.Content(L"\\Outside\\kept.txt"), "kept");
    WaitForHands(0);
}

TEST_F(DeleteUi, AnotherFolderPutInTheListedOnesPlaceUnderTheOpeningQuestionIsNotTouched) {
    ONLY_ON_THE_DESKTOP(hostsHand);
    device.Files(L"\\T\\List\\Many", L"f", 150);
    device.Files(L"\\Other\\List\\Many", L"f", 150);
    StartIn(L"\\T\\List");
    Select({L"Many"});
    Give(IDM_FILE_DELETE);
    const Dialog question = WaitForDeleteQuestion();
    WaitForHands(1);
    RunOnHost("mv T Before; ln -s Other T");
    Answer(question, yesKey);
    FinishJob();
    EXPECT_EQ(device.NamesIn(L"\\Other\\List\\Many").size(), 150u);
    EXPECT_FALSE(device.Exists(L"\\Before\\List\\Many"));
}

TEST_F(DeleteUi, WhatIsAddedUnderALongOpeningQuestionIsCounted) {
    device.Files(L"\\T\\Many", L"f", Many());
    Delete({L"Many"});
    const Dialog question = WaitForDeleteQuestion();
    Sleep(5500); // longer than the first count holds
    device.Files(L"\\T\\Many", L"added", 10);
    Answer(question, yesKey);
    const Dialog progress = program.WaitForDialog(L"Delete files...");
    WaitFor("for the new total",
            [&] { return progress.Item(1081).Text().ends_with(L"/" + std::to_wstring(Many() + 11)); });
    FinishJob();
    EXPECT_FALSE(device.Exists(L"\\T\\Many"));
}

TEST_F(DeleteUi, DecliningUndoesWhatWasPreparedForTheJob) {
    ONLY_ON_THE_DESKTOP(hostsHand);
    device.Files(L"\\T\\Many", L"f", 150);
    Delete({L"Many"});
    WaitForDeleteQuestion();
    WaitForHands(1);
    AnswerDelete(noKey);
    FinishJob();
    WaitForHands(0);
    EXPECT_EQ(device.NamesIn(L"\\T\\Many").size(), 150u);
    Give(IDM_FILE_DELETE);
    AnswerDelete(yesKey);
    FinishJob();
    EXPECT_FALSE(device.Exists(L"\\T\\Many"));
}

TEST_F(DeleteUi, ClosingTheProgramUnderTheOpeningQuestionDeletesNothing) {
    ONLY_ON_THE_DESKTOP(hostsHand);
    device.Files(L"\\T\\Many", L"f", 150);
    Delete({L"Many"});
    WaitForDeleteQuestion();
    WaitForHands(1);
    program.Close();
    EXPECT_EQ(program.ExitCode(), 0u);
    EXPECT_EQ(device.NamesIn(L"\\T\\Many").size(), 150u);
    WaitForHands(0);
}

TEST_F(DeleteUi, ACardIsEmptiedButItsFolderStays) {
    device.StorageCard("Card", {"x.txt", "Sub/y.txt"});
    StartIn(L"");
    Select({L"Card"});
    Give(IDM_FILE_DELETE);
    AnswerDelete(yesKey);
    EXPECT_EQ(ReadMessage(), L"'Card' cannot be deleted.");
    FinishJob();
    EXPECT_TRUE(device.IsFolder(L"\\Card"));
    EXPECT_EQ(device.NamesIn(L"\\Card"), Texts{});
    EXPECT_TRUE(program.List().Has(L"Card"));
}

TEST_F(DeleteUi, CancelLeavesTheFolderPartlyEmptied) {
    // Or it is over too soon.
    RunOnHost("mkdir T/Many; cd T/Many; seq -f f%.0f " + std::to_string(30 * Many()) + " | xargs touch");
    Delete({L"Many"});
    AnswerDelete(yesKey);
    Dialog progress = program.WaitForDialog(L"Delete files...");
    WaitFor("for the first files to go", [&] { return progress.Item(1081).Text().substr(0, 2) != L"0/"; });
    EXPECT_EQ(progress.Item(1067).Text(), L"from 'T'...");
    progress.Command(IDM_JOB_CANCEL);
    FinishJob();
    EXPECT_TRUE(device.Exists(L"\\T\\Many"));
    EXPECT_GT(device.NamesIn(L"\\T\\Many").size(), 0u);
    EXPECT_TRUE(program.List().Has(L"Many"));
}

TEST_F(DeleteUi, NothingSelectedAsksNothing) {
    Delete({});
    EXPECT_FALSE(program.HasDialog());
    Select({L".."});
    Give(IDM_FILE_DELETE);
    EXPECT_FALSE(program.HasDialog());
}

TEST_F(DeleteUi, WhatIsGoneLeavesAListThatWasReadAnewMeanwhile) {
    Delete({L"b.txt", L"c.txt"});
    const Dialog question = WaitForDeleteQuestion();
    device.File(L"\\T\\a0.txt", "0");
    device.File(L"\\T\\z.txt", "z");
    Ask(program.Window(), folderChanged);
    WaitFor("for the refresh", [&] { return program.List().Has(L"z.txt"); });
    Answer(question, yesKey);
    FinishJob();
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"Sub", L"a.txt", L"a0.txt", L"z.txt"}));
    EXPECT_EQ(program.Status().Texts().front(), L"4");
}

TEST_F(DeleteUi, WhatOthersMakeDuringAJobIsShownAfterIt) {
    device.SetAttributes(L"\\T\\b.txt", FILE_ATTRIBUTE_READONLY);
    Delete({L"a.txt", L"b.txt"});
    AnswerDelete(yesKey);
    const Dialog question = WaitForDeleteQuestion();
    device.File(L"\\T\\late.txt", "l");
    Answer(question, yesKey);
    FinishJob();
    WaitFor("for the refresh", [&] { return program.List().Has(L"late.txt"); });
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"Sub", L"c.txt", L"late.txt"}));
}

} // namespace
