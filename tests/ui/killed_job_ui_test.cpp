// Screens: 240x320
// Limit: 400 seconds

// The program killed in the middle of a job: what was there before is still there, unless it was to go, and
// nothing stands under its name in part.

#include "tests/ui/job_ui.h"

namespace {

constexpr int rounds = 4; // the moment of the end is chance
constexpr int many = 1500;
constexpr int fileSize = 20000; // written at once

class KilledJobUi : public JobUi {
  protected:
    /// Fills a folder with whole files of one letter.
    static void Fill(const std::string& folder, const std::string& letter) {
        RunOnHost("mkdir -p " + folder + "\ncd " + folder + "\nhead -c " + std::to_string(many * fileSize) +
                  " /dev/zero | tr '\\0' '" + letter + "' | split -b " + std::to_string(fileSize) +
                  " -a 4 -d - f");
    }
    static void ExpectWhole(const std::string& folder) {
        RunOnHost("find " + folder + "/ -type f ! -name '~job*' ! -size " + std::to_string(fileSize) +
                  "c >parts\ntest ! -s parts || { echo in part:; cat parts; exit 1; }");
    }
    /// Every file is in one of the folders under its own name.
    static void ExpectAllIn(const std::string& folders) {
        RunOnHost("for folder in " + folders +
                  "; do test -d $folder && ls $folder; done | grep '^f' | sort -u | wc -l >count\n"
                  "test $(cat count) = " +
                  std::to_string(many) + " || { echo there are $(cat count); exit 1; }");
    }

    /// Kills the program at some moment of the job that was begun: early in the first round, or after it.
    void KillSometime(int round) {
        constexpr DWORD moments[rounds] = {10, 40, 120, 400}; // milliseconds
        Sleep(moments[round]);
        program.Kill();
        WaitForHands(0);
    }

    void PasteMany(UINT command, const std::wstring& target) {
        StartIn(L"\\From");
        Select({L"Many"});
        program.Command(command);
        Show(target);
        program.PostCommand(IDM_TOOLBAR_PASTE);
    }
};

TEST_F(KilledJobUi, ACopyOfManyFilesHasWholeFilesOnly) {
    Fill("From/Many", "n");
    for (int round = 0; round < rounds; ++round) {
        device.Folder(L"\\To");
        PasteMany(IDM_TOOLBAR_COPY, L"\\To");
        KillSometime(round);
        ExpectWhole("To");
        RunOnHost("rm -rf To");
    }
    ExpectAllIn("From/Many");
    ExpectWhole("From");
}

TEST_F(KilledJobUi, ACopyOfALargeFileHasNotItsNameYet) {
    device.FileOfSize(L"\\From\\Many\\large", 6ull << 30);
    device.Folder(L"\\To");
    PasteMany(IDM_TOOLBAR_COPY, L"\\To");
    WaitFor("for the copy to begin", [&] { return !device.NamesIn(L"\\To\\Many").empty(); });
    program.Kill();
    EXPECT_FALSE(device.Exists(L"\\To\\Many\\large"));
    EXPECT_TRUE(device.Exists(L"\\From\\Many\\large"));
}

TEST_F(KilledJobUi, AMoveHasEachFileAtOneOfItsPlaces) {
    Fill("From/Many", "n");
    for (int round = 0; round < rounds; ++round) {
        device.Folder(L"\\To");
        PasteMany(IDM_TOOLBAR_CUT, L"\\To");
        KillSometime(round);
        ExpectAllIn("From/Many To/Many");
        ExpectWhole("From To");
        RunOnHost("mkdir -p From/Many To/Many\nfind To/Many -type f -exec mv -t From/Many {} +\nrm -r To");
    }
}

TEST_F(KilledJobUi, AMoveToAnotherDiskHasEachFileSomewhere) {
    const std::string disk = "/dev/shm/$(basename \"$(dirname \"$TARVIK_WORK\")\")-card";
    for (int round = 0; round < rounds; ++round) {
        Fill("From/Many", "n");
        RunOnHost("mkdir -p \"" + disk + "\"\nln -s \"" + disk + "\" Disk");
        PasteMany(IDM_TOOLBAR_CUT, L"\\Disk");
        KillSometime(round);
        ExpectAllIn("From/Many Disk/Many");
        ExpectWhole("From Disk");
        RunOnHost("rm Disk\nrm -r \"" + disk + "\"");
    }
}

TEST_F(KilledJobUi, WhatIsReplacedIsOldOrNewAndWhole) {
    Fill("From/Many", "n");
    for (int round = 0; round < rounds; ++round) {
        Fill("To/Many", "o");
        const bool copies = round % 2 == 0;
        PasteMany(copies ? IDM_TOOLBAR_COPY : IDM_TOOLBAR_CUT, L"\\To");
        AnswerFolder(IDYES);
        AnswerFile(allKey);
        KillSometime(round);
        ExpectAllIn("To/Many");
        ExpectWhole("From To");
        Fill("From/Many", "n");
        RunOnHost("rm -r To");
    }
}

TEST_F(KilledJobUi, ADeletionTakesNothingThatWasNotToGo) {
    Fill("From/Many", "n");
    device.File(L"\\From\\beside.txt", "kept");
    device.HostFile("Outside/kept.txt", "kept");
    device.HostLink("From/Many/link", "../../Outside");
    StartIn(L"\\From");
    Select({L"Many"});
    Give(IDM_FILE_DELETE);
    AnswerDelete(yesKey);
    KillSometime(1);
    EXPECT_EQ(device.Content(L"\\From\\beside.txt"), "kept");
    EXPECT_EQ(device.Content(L"\\Outside\\kept.txt"), "kept");
}

} // namespace
