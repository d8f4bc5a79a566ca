#pragma once
// The frame that the jobs on files share: a worker thread that does the steps, and a modal dialog that shows
// how far it has come, asks its questions and takes the user's "Cancel".

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "common/dialog_frame.h"
#include "common/path.h"
#include "filelist/selection_entry.h"
#include "fileops/entry_count.h"
#include "platform/ce_api.h"
#include "platform/handles.h"

// From the worker to the progress dialog, which it waits for with all but the first. Their last parameter
// points to what they are about, so that the dialog knows them from messages of anybody else's.
constexpr UINT UM_JOBFINISHED = WM_USER + 100;
constexpr UINT UM_SHOWPROGRESS = WM_USER + 101;
constexpr UINT UM_ASKREPLACEFILE = WM_USER + 200; // of which each job makes its own question
constexpr UINT UM_REPORTFAILURE = WM_USER + 300;
constexpr UINT UM_ASKREPLACEFOLDER = WM_USER + 400;

/// What one kind of job looks like.
struct JobLook {
    DialogLook dialog;
    const wchar_t* title = nullptr; // null: the one of the template
    const wchar_t* failure;         // with "%s" for the entry
};

/// What a job does with the answer to its questions: ask on, be silent, or stop.
using ConflictMode = int;
constexpr ConflictMode modeAsk = 0;
constexpr ConflictMode modeSkipped = 1; // the last answer was "No"
constexpr ConflictMode modeAll = 2;
constexpr ConflictMode modeStop = 3;

/// What the command of a question's soft key stands for. Any other command is a "No".
int JobAnswerOf(int command);

/// Whether a question answered so lets its job go on with what it was about.
constexpr bool AgreesTo(int answer) {
    return answer == modeAsk || answer == modeAll;
}

class FileJob : public ce::TreeWatch, protected LengthCheck, private DialogFrame {
  protected:
    /// `sourceFolder` is the folder shown in the list: what lies in it is counted for the progress bar.
    FileJob(const JobLook& look, std::wstring_view sourceFolder, std::span<SelectionEntry> entries);
    ~FileJob() = default;

    /// Has the worker count and announce while the user is still asked whether the job shall begin. RunJob or
    /// DropJob has to follow.
    void PrepareJob();
    /// Shows the dialog and does the work; returns when the dialog has closed. False when the worker cannot
    /// be had, and nothing was done.
    bool RunJob();
    /// Ends a job that was only prepared.
    void DropJob();

    /// The steps, on the worker thread. Returns the last status text.
    virtual const wchar_t* Work() = 0;
    /// A question of the worker's, on the user-interface thread. Returns the answer.
    virtual int AnswerQuestion(UINT message, const wchar_t* text, const wchar_t* source) = 0;

    // --- For the worker ---

    /// What takes the entries.
    ce::TreeSteps& Steps() { return *steps_; }
    bool IsCancelled() const { return cancelRequested_ != 0; }
    /// Brings the display up to date now and then.
    bool KeepGoing() final;
    void OnName(const wchar_t* name) final;
    void OnUnits(int count) final;
    bool MayReplaceFile(const wchar_t*, const wchar_t*) override { return false; }
    bool MayUseFolder(const wchar_t*) override { return false; }
    /// What is worked on as a whole.
    void ShowSource(const wchar_t* text);
    /// Has a question asked and returns its answer.
    int Ask(UINT message, const wchar_t* text, const wchar_t* source = nullptr);
    /// Tells that an entry failed, and waits until that is read.
    void ReportFailure(const SelectionEntry& entry);
    /// The same with any words, and with the mark of an exclamation in the place of a hand's.
    void Report(const wchar_t* text, UINT icon = MB_ICONHAND);

    using DialogFrame::Window;
    std::span<SelectionEntry> Entries() const { return entries_; }

  private:
    /// What a question or report is about.
    struct Subject {
        const wchar_t* text;
        const wchar_t* source; // of a question
        UINT icon;             // of a report
    };

    static void DoSteps(void* job);
    void WorkUnderDialog();
    const wchar_t* RefuseTooLong();
    HWND OnInit() override;
    void OnCommand(int id, int notification) override;
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void EndWorker();
    void OnCancelKey();
    void OnFinished();
    void OnQuestion(UINT message, LPARAM subject);
    void OnReport(LPARAM subject);
    void OnShowProgress();
    const Subject* TakeSubject(LPARAM subject);
    void Prepare();
    void HoldFolders();
    void ReportLeftOut();
    void SendSubject(UINT message, const Subject& subject);
    void ShowProgress();

    const JobLook& look_;
    std::wstring_view sourceFolder_;
    std::span<SelectionEntry> entries_;
    ObjectHandle dialogShown_;          // an event: the worker may go on, with a dialog or to its end
    bool isStarted_ = false;            // the worker has taken this job and may be at it
    volatile LONG cancelRequested_ = 0; // set on the user-interface thread, read by the worker
    volatile LONG finished_ = 0;        // set by the worker when nothing more is to be shown
    const Subject* subject_ = nullptr;  // that the worker waits for, until the dialog takes it
    bool idleResetAllowed_ = true;      // no question is open
    int answer_ = 0;

    std::unique_ptr<ce::TreeSteps> steps_; // the worker's own

    // The worker's own, which the dialog reads while it waits: what is shown follows it at short intervals,
    // so that showing costs little.
    PathText shownName_{};
    std::int32_t total_ = 0;
    DWORD counted_ = 0; // when
    std::int32_t completed_ = 0;
    DWORD lastShown_ = 0;
};
