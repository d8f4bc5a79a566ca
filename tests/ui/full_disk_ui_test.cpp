// Screens: 240x320
// Limit: 180 seconds

// Jobs onto a card that has too little room: 1 MB.

#include "tests/ui/job_ui.h"

namespace {

class FullDiskUi : public JobUi {
  protected:
    void SetUp() override {
        JobUi::SetUp();
        try {
            RunOnHost("mkdir -p \"$TARVIK_WORK/small\"\n"
                      "mount -t tmpfs -o size=1m tmpfs \"$TARVIK_WORK/small\" 2>/dev/null");
            mounted_ = true;
        } catch (const std::exception&) {
            GTEST_SKIP() << "only the superuser can mount a small disk";
        }
        RunOnHost("ln -s \"$TARVIK_WORK/small\" Small");
        for (const wchar_t* name : {L"a", L"b", L"c"})
            device.File(std::wstring(L"\\From\\") + name, std::string(400'000, 'n'));
    }

    void TearDown() override {
        JobUi::TearDown();
        program.Kill();
        if (mounted_)
            RunOnHost("rm -f Small; umount \"$TARVIK_WORK/small\"");
    }

    void PasteOntoCard(const std::vector<std::wstring>& names, UINT command) {
        StartIn(L"\\From");
        Select(names);
        program.Command(command);
        Show(L"\\Small");
        Paste();
    }

  private:
    bool mounted_ = false;
};

TEST_F(FullDiskUi, ACopyThatDoesNotFitIsReportedAndLeavesNoPart) {
    PasteOntoCard({L"a", L"b", L"c"}, IDM_TOOLBAR_COPY);
    EXPECT_EQ(ReadMessage(), L"'c' cannot be copied.");
    FinishJob();
    EXPECT_EQ(device.NamesIn(L"\\Small"), (Texts{L"a", L"b"}));
    EXPECT_EQ(device.Content(L"\\Small\\b").size(), 400'000u);
}

TEST_F(FullDiskUi, ASmallFileLeavesNoPartEither) {
    device.File(L"\\Small\\filler", std::string(1'000'000, 'f'));
    device.File(L"\\From\\small", std::string(60'000, 's'));
    PasteOntoCard({L"small"}, IDM_TOOLBAR_COPY);
    EXPECT_EQ(ReadMessage(), L"'small' cannot be copied.");
    FinishJob();
    EXPECT_EQ(device.NamesIn(L"\\Small"), Texts{L"filler"});
}

TEST_F(FullDiskUi, AMoveLosesNothing) {
    PasteOntoCard({L"a", L"b", L"c"}, IDM_TOOLBAR_CUT);
    EXPECT_EQ(ReadMessage(), L"'c' cannot be copied.");
    FinishJob();
    EXPECT_EQ(device.NamesIn(L"\\Small"), (Texts{L"a", L"b"}));
    EXPECT_EQ(device.NamesIn(L"\\From"), Texts{L"c"});
    EXPECT_EQ(device.Content(L"\\From\\c").size(), 400'000u);
}

TEST_F(FullDiskUi, WhatCouldNotBeReplacedIsStillThere) {
    device.File(L"\\Small\\filler", std::string(700'000, 'f'));
    device.File(L"\\Small\\a", "old");
    PasteOntoCard({L"a"}, IDM_TOOLBAR_CUT);
    AnswerFile(yesKey);
    EXPECT_EQ(ReadMessage(), L"'a' cannot be copied.");
    FinishJob();
    EXPECT_EQ(device.Content(L"\\Small\\a"), "old");
    EXPECT_EQ(device.NamesIn(L"\\Small"), (Texts{L"a", L"filler"}));
    EXPECT_TRUE(device.Exists(L"\\From\\a"));
}

} // namespace
