// Screens: 240x320 320x240 176x220

// The dialogs of the jobs on each screen.

#include "tests/ui/job_ui.h"
#include "tests/ui/layout.h"

namespace {

class JobDialogsUi : public JobUi {
  protected:
    static inline const std::wstring longName = L"a file whose name is rather long and says little.txt";

    void SetUp() override {
        JobUi::SetUp();
        device.File(L"\\From\\" + longName, "new");
        device.File(L"\\From\\Sub\\" + longName, "new");
        device.Folder(L"\\To");
    }
};

TEST_F(JobDialogsUi, TheQuestionsFitTheScreen) {
    device.File(L"\\To\\Sub\\" + longName, "old");
    StartIn(L"\\From");
    Copy({L"Sub"});
    Show(L"\\To");
    Paste();
    ExpectGoodLayout(program.WaitForDialog(L"Replace existing Folder?"));
    AnswerFolder(IDYES);
    ExpectGoodLayout(program.WaitForDialog(L"Replace existing File?"));
    AnswerFile(noKey);
    FinishJob();
}

TEST_F(JobDialogsUi, TheConfirmationFitsTheScreen) {
    StartIn(L"\\From");
    Select({longName});
    Give(IDM_FILE_DELETE);
    ExpectGoodLayout(program.WaitForDialog(L"Confirm File Delete"));
    AnswerDelete(noKey);
    FinishJob();
}

TEST_F(JobDialogsUi, TheProgressFitsTheScreen) {
    device.FileOfSize(L"\\From\\" + longName, 6ull << 30);
    StartIn(L"\\From");
    Copy({longName});
    Show(L"\\To");
    Paste();
    Dialog progress = program.WaitForDialog(L"Copy Files");
    WaitFor("for the name", [&] { return progress.Item(IDC_JOB_STATUS).Text() == longName; });
    ExpectGoodLayout(progress);
    progress.Command(IDM_JOB_CANCEL);
    FinishJob();
}

TEST_F(JobDialogsUi, TheRenameDialogFitsTheScreen) {
    StartIn(L"\\From");
    Select({longName});
    Give(IDM_SENDTO_COPY_TO);
    Dialog chooser = program.WaitForDialog(L"Copy file to");
    chooser.Command(IDM_CHOOSER_RENAME);
    Dialog rename = program.WaitForDialog(L"Rename folder");
    ExpectGoodLayout(rename);
    rename.Command(IDM_JOB_CANCEL);
    rename.WaitUntilClosed();
    chooser.Command(IDCANCEL);
    chooser.WaitUntilClosed();
}

} // namespace
