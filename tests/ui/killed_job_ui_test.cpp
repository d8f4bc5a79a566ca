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

    /// Kills the program when the job's counter has come to `units`.
    void KillAt(int units, const std::wstring& title) {
        const Dialog progress = program.WaitForDialog(title);
        WaitFor("for the job to be in its middle",
                [&] { return std::stoi(progress.Item(1081).Text()) >= units; });
        program.Kill();
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
        KillAt(100 + 200 * round, L"Copy Files");
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
        KillAt(100 + 200 * round, L"Move Files");
        ExpectAllIn("From/Many To/Many");
        ExpectWhole("From To");
        RunOnHost("mv To/Many/* From/Many; rm -r To");
    }
}

TEST_F(KilledJobUi, AMoveToAnotherDiskHasEachFileSomewhere) {
    const std::string disk = "/dev/shm/$(basename \"$(dirname \"$TARVIK_WORK\")\")-card";
    for (int round = 0; round < rounds; ++round) {
        Fill("From/Many", "n");
        RunOnHost("mkdir -p \"" + disk + "\"\nln -s \"" + disk + "\" Disk");
        PasteMany(IDM_TOOLBAR_CUT, L"\\Disk");
        KillAt(100 + 200 * round, L"Move Files");
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
        KillAt(100 + 200 * round, copies ? L"Copy Files" : L"Move Files");
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
    KillAt(500, L"Delete files...");
    EXPECT_TRUE(device.IsFolder(L"\\From\\Many"));
    ExpectWhole("From/Many");
    EXPECT_EQ(device.Content(L"\\From\\beside.txt"), "kept");
    EXPECT_EQ(device.Content(L"\\Outside\\kept.txt"), "kept");
}

} // namespace
