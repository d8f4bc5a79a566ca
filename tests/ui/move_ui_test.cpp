// Screens: 240x320
// Limit: 300 seconds

// Moving files and folders.

#include "tests/ui/job_ui.h"

namespace {

class MoveUi : public TransferUi {};

TEST_F(MoveUi, MovesFilesAndWholeFolders) {
    MoveToTarget({L"Sub", L"a.txt"});
    FinishJob();
    EXPECT_EQ(program.List().Names(), (Texts{L"..", L"Sub", L"a.txt"}));
    EXPECT_EQ(device.Content(L"\\To\\Sub\\Deep\\d.txt"), "new d");
    EXPECT_EQ(device.NamesIn(L"\\From"), Texts{L"b.txt"});
}

TEST_F(MoveUi, WithinItsFolderIsIllegal) {
    StartIn(L"\\From");
    Cut({L"a.txt"});
    Paste();
    EXPECT_EQ(ReadMessage(), L"Illegal move operation.");
    EXPECT_TRUE(device.Exists(L"\\From\\a.txt"));
}

TEST_F(MoveUi, ReplacesWhatItIsAllowedTo) {
    device.File(L"\\To\\a.txt", "old");
    device.File(L"\\To\\b.txt", "old");
    device.SetAttributes(L"\\To\\a.txt", FILE_ATTRIBUTE_READONLY);
    MoveToTarget({L"a.txt", L"b.txt"});
    AnswerFile(yesKey);
    AnswerFile(noKey);
    FinishJob();
    EXPECT_EQ(device.Content(L"\\To\\a.txt"), "new a");
    EXPECT_EQ(device.Content(L"\\To\\b.txt"), "old");
    EXPECT_EQ(device.NamesIn(L"\\From"), (Texts{L"Sub", L"b.txt"}));
    EXPECT_EQ(device.NamesIn(L"\\To"), (Texts{L"a.txt", L"b.txt"}));
}

TEST_F(MoveUi, AFolderWithSkippedFilesStays) {
    device.File(L"\\To\\Sub\\c.txt", "old");
    MoveToTarget({L"Sub"});
    AnswerFolder(IDYES);
    AnswerFile(noKey);
    FinishJob();
    EXPECT_EQ(device.NamesIn(L"\\From\\Sub"), Texts{L"c.txt"});
    EXPECT_EQ(device.Content(L"\\To\\Sub\\c.txt"), "old");
    EXPECT_EQ(device.Content(L"\\To\\Sub\\Deep\\d.txt"), "new d");
}

TEST_F(MoveUi, ALockedTargetIsStillThere) {
    device.File(L"\\To\\a.txt", "old");
    StartIn(L"\\From");
    Cut({L"a.txt"});
    Show(L"\\To");
    PasteOverHeldFile();
    EXPECT_EQ(device.Content(L"\\To\\a.txt"), "old");
    EXPECT_EQ(device.Content(L"\\From\\a.txt"), "new a");
    EXPECT_EQ(device.NamesIn(L"\\To"), Texts{L"a.txt"});
}

TEST_F(MoveUi, AnEmptyFolderIsNotLostWhereNoFolderCanBeMade) {
    device.Folder(L"\\From\\Empty");
    device.File(L"\\To\\Empty", "a file of this name");
    MoveToTarget({L"Empty"});
    AnswerFolder(IDYES);
    EXPECT_EQ(ReadMessage(), L"'Empty' cannot be copied.");
    FinishJob();
    EXPECT_TRUE(device.IsFolder(L"\\From\\Empty"));
}

TEST_F(MoveUi, MovesToAStorageCard) {
    device.StorageCard("Card", {"b.txt"});
    device.SetAttributes(L"\\From\\a.txt", FILE_ATTRIBUTE_READONLY);
    MoveToTarget({L"Sub", L"a.txt", L"b.txt"}, L"\\Card");
    AnswerFile(yesKey);
    FinishJob();
    EXPECT_EQ(device.NamesIn(L"\\Card"), (Texts{L"Sub", L"a.txt", L"b.txt"}));
    EXPECT_EQ(device.Content(L"\\Card\\Sub\\Deep\\d.txt"), "new d");
    EXPECT_EQ(device.Content(L"\\Card\\b.txt"), "new b");
    EXPECT_EQ(device.NamesIn(L"\\From"), Texts{});
}

TEST_F(MoveUi, LinksMoveAloneAndWhatIsBehindThemStays) {
    device.HostFile("Outside/kept.txt", "kept");
    device.HostLink("From/Sub/link", "../../Outside");
    MoveToTarget({L"Sub"});
    FinishJob();
    EXPECT_EQ(device.Content(L"\\Outside\\kept.txt"), "kept");
    EXPECT_FALSE(device.Exists(L"\\From\\Sub"));
    EXPECT_EQ(device.Content(L"\\To\\Sub\\c.txt"), "new c");
}

TEST_F(MoveUi, ALinkPutInAFilesPlaceWhileAQuestionIsOpenMovesAlone) {
    device.HostFile("Outside/kept.txt", "kept");
    device.Files(L"\\From\\Many", L"f", Many() / 20);
    device.File(L"\\To\\a.txt", "old a");
    MoveToTarget({L"Many", L"a.txt", L"b.txt"});
    const Dialog question = WaitForFileQuestion();
    RunOnHost("ln -sf ../Outside/kept.txt From/b.txt");
    Answer(question, yesKey);
    FinishJob();
    RunOnHost("test ! -L From/b.txt; test -L To/b.txt; test ! -L To/a.txt");
    EXPECT_EQ(device.Content(L"\\Outside\\kept.txt"), "kept");
    EXPECT_EQ(device.Content(L"\\To\\a.txt"), "new a");
    EXPECT_EQ(device.NamesIn(L"\\To\\Many").size(), static_cast<std::size_t>(Many() / 20));
    EXPECT_FALSE(device.Exists(L"\\From\\Many"));
}

TEST_F(MoveUi, SourcesThatVanishAreReported) {
    StartIn(L"\\From");
    device.File(L"\\To\\a.txt", "old");
    Cut({L"a.txt", L"b.txt"});
    Show(L"\\To");
    Paste();
    WaitForFileQuestion();
    device.Remove(L"\\From\\a.txt");
    device.Remove(L"\\From\\b.txt");
    AnswerFile(yesKey);
    EXPECT_EQ(ReadMessage(), L"'a.txt' cannot be copied.");
    FinishJob();
    EXPECT_EQ(device.Content(L"\\To\\a.txt"), "old");
}

} // namespace
