// Screens: 240x320
// Limit: 300 seconds

// The program answers all through a job: a message posted to it is handled within a tenth of a second.

#include "tests/ui/answers_ui.h"

namespace {

class JobAnswersUi : public AnswersUi {
  protected:
    /// How long a message takes that is posted to the program now, behind all that waits there already.
    double PostedAnswerTime() const {
        static LPARAM mark = 0;
        const HWND list = program.List().Window();
        const double begun = Now();
        // The list's hover time serves as the mark; the program has no use for it.
        PostMessageW(list, LVM_SETHOVERTIME, 0, ++mark);
        while (Ask(list, LVM_GETHOVERTIME) != mark && Now() - begun < givesUp)
            ;
        return Now() - begun;
    }
    double LongestAnswerOfJob() const {
        return LongestAnswer([&] { return PostedAnswerTime(); });
    }

    /// Pastes what is on the clipboard into a new folder.
    double LongestAnswerOfPaste() {
        static int number = 0;
        const std::wstring target = L"\\To" + std::to_wstring(number++);
        device.Folder(target);
        Show(target);
        program.PostCommand(IDM_TOOLBAR_PASTE);
        const double longest = LongestAnswerOfJob();
        FinishJob();
        return longest;
    }

    /// Fills \From\Many with files that the host makes, so many that even a job of the host's own takes a
    /// while.
    static void MakeMany() {
        RunOnHost("mkdir From/Many\ncd From/Many\nseq " + std::to_string(20 * Many()) + " | xargs touch");
    }
};

TEST_F(JobAnswersUi, WhileManyFilesAreCopied) {
    device.Files(L"\\From\\Many", L"f", Many());
    StartIn(L"\\From");
    Copy({L"Many"});
    ExpectInTime([&] { return LongestAnswerOfPaste(); });
}

TEST_F(JobAnswersUi, WhileOneLargeFileIsCopied) {
    device.FileOfSize(L"\\From\\large", 400u << 20);
    StartIn(L"\\From");
    Copy({L"large"});
    ExpectInTime([&] { return LongestAnswerOfPaste(); });
}

TEST_F(JobAnswersUi, WhileManyFilesAreMoved) {
    device.Folder(L"\\From");
    MakeMany();
    StartIn(L"\\From");
    ExpectInTime([&] {
        Cut({L"Many"});
        return LongestAnswerOfPaste(); // the next round moves it on from there
    });
}

TEST_F(JobAnswersUi, WhileManyFilesAreDeleted) {
    device.Folder(L"\\From");
    StartIn(L"\\From");
    ExpectInTime([&] {
        MakeMany();
        program.Command(IDM_MENU_REFRESH);
        Select({L"Many"});
        Give(IDM_FILE_DELETE);
        AnswerDelete(yesKey);
        const double longest = LongestAnswerOfJob();
        FinishJob();
        return longest;
    });
}

} // namespace
