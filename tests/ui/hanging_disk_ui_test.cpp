// Screens: 240x320
// Limit: 300 seconds

// Jobs at a disk that does not answer.

#include "tests/ui/job_ui.h"

namespace {

class HangingDiskUi : public TransferUi {
  protected:
    /// Presses the job's "Cancel" and waits for its end. How long that takes, in milliseconds.
    DWORD Cancel(const wchar_t* title) {
        Dialog progress = program.WaitForDialog(title);
        progress.Command(IDM_JOB_CANCEL);
        const DWORD cancelled = GetTickCount();
        EXPECT_TRUE(
            HoldsWithin(1500, [&] { return progress.Item(IDC_JOB_STATUS).Text() == L"Canceling..."; }));
        WaitFor(
            "for the job to end", [&] { return !program.HasDialog(); }, 15000);
        return GetTickCount() - cancelled;
    }
    void ExpectNothingLeft() {
        WaitForHands(0);
        RunOnHost("test -z \"$(find . -name '~job*')\"");
    }

    const SlowDisk slow_;
};

TEST_F(HangingDiskUi, ACopyIsGivenUpTwoSecondsAfterCancel) {
    device.File(L"\\From\\hangs.bin", "whole");
    device.File(L"\\From\\z.txt", "comes later");
    CopyToTarget({L"a.txt", L"hangs.bin", L"z.txt"});
    WaitFor("for the copy to begin", [&] { return device.Exists(L"\\To\\~job000.tmp"); });
    const DWORD took = Cancel(L"Copy Files");
    EXPECT_GE(took, 1800u);
    EXPECT_LT(took, 8000u);
    ExpectNothingLeft();
    EXPECT_EQ(device.NamesIn(L"\\To"), Texts{L"a.txt"});
    EXPECT_EQ(device.Content(L"\\From\\hangs.bin"), "whole");
    Copy({L"a.txt"}); // and the program goes on
    Show(L"\\From\\Sub");
    PasteAll();
    EXPECT_TRUE(device.Exists(L"\\From\\Sub\\a.txt"));
}

TEST_F(HangingDiskUi, ADeletionIsGivenUpToo) {
    device.File(L"\\From\\Sub\\hangs.txt", "whole");
    StartIn(L"\\From");
    Select({L"Sub"});
    Give(IDM_FILE_DELETE);
    AnswerDelete(yesKey);
    EXPECT_LT(Cancel(L"Delete files..."), 8000u);
    ExpectNothingLeft();
    EXPECT_EQ(device.Content(L"\\From\\Sub\\hangs.txt"), "whole");
    EXPECT_TRUE(program.List().Has(L"Sub"));
}

TEST_F(HangingDiskUi, ATargetThatDoesNotAnswerIsGivenUp) {
    device.Folder(L"\\lost here");
    StartIn(L"\\From");
    Copy({L"a.txt"});
    Show(L"\\lost here");
    Paste();
    EXPECT_LT(Cancel(L"Copy Files"), 8000u);
    ExpectNothingLeft();
}

TEST_F(HangingDiskUi, AFileThatTakesASecondIsFinished) {
    device.File(L"\\From\\slow.bin", "whole");
    device.File(L"\\From\\slow too.bin", "whole");
    CopyToTarget({L"slow.bin", L"slow too.bin"});
    WaitFor("for the copy to begin", [&] { return device.Exists(L"\\To\\~job000.tmp"); });
    EXPECT_LT(Cancel(L"Copy Files"), 2500u);
    ExpectNothingLeft();
    ASSERT_EQ(device.NamesIn(L"\\To").size(), 1u);
    EXPECT_EQ(device.Content(L"\\To\\" + device.NamesIn(L"\\To").front()), "whole");
}

} // namespace
