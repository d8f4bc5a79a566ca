#include "fileops/file_job.h"

#include <algorithm>
#include <utility>

#include "app/app_state.h"
#include "common/text.h"
#include "fileops/entry_count.h"
#include "fileops/single_steps.h"
#include "resources/resource.h"

namespace {

constexpr UINT_PTR idleTimer = 1;
constexpr UINT idlePeriod = 10000; // milliseconds

/// A user who is asked for longer may have been elsewhere and changed what is to be counted.
constexpr DWORD countHoldsFor = 5000; // milliseconds

/// Shorter than what an eye can follow, long against the time of a small file.
constexpr DWORD showInterval = 100; // milliseconds

} // namespace

int JobAnswerOf(int command) {
    switch (command) {
    case IDM_ANSWER_YES:
        return modeAsk;
    case IDM_ANSWER_ALL:
        return modeAll;
    case IDM_ANSWER_CANCEL:
        return modeStop;
    default:
        return modeSkipped;
    }
}

FileJob::FileJob(const JobLook& look, std::wstring_view sourceFolder, std::span<SelectionEntry> entries)
    : DialogFrame(look.dialog), look_(look), sourceFolder_(sourceFolder), entries_(entries) {}

void FileJob::PrepareJob() {
    dialogShown_.Reset(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    isStarted_ = dialogShown_ && appState.jobWorker.Start(DoSteps, this);
}

bool FileJob::RunJob() {
    if (!isStarted_)
        PrepareJob();
    if (!isStarted_)
        return false;
    appState.changeWatcher.PauseWatcher();
    Run(appState.mainWindow);
    EndWorker();
    appState.changeWatcher.ResumeWatcher();
    return true;
}

void FileJob::DropJob() {
    EndWorker();
}

/// The job was dropped, its dialog did not come up, or that went with the program's windows while the worker
/// was at it: nothing of the job may go before the worker has ended. Its messages to the dialog come back at
/// once now.
void FileJob::EndWorker() {
    if (!isStarted_)
        return;
    cancelRequested_ = 1;
    ce::EventModify(dialogShown_.Get(), EVENT_SET);
    appState.jobWorker.Finish();
}

// --- The dialog, on the user-interface thread ---

HWND FileJob::OnInit() {
    if (look_.title)
        SetWindowTextW(Window(), look_.title);
    SetDlgItemTextW(Window(), IDC_JOB_STATUS, L"Processing...");
    ShowWindow(Window(), SW_SHOW);
    SetTimer(Window(), idleTimer, idlePeriod, nullptr);
    ce::EventModify(dialogShown_.Get(), EVENT_SET);
    return nullptr;
}

void FileJob::OnCommand(int id, int) {
    if (id == IDM_JOB_CANCEL)
        OnCancelKey();
}

INT_PTR FileJob::OnMessage(UINT message, WPARAM, LPARAM lParam) {
    switch (message) {
    case WM_TIMER:
        if (idleResetAllowed_)
            ce::SystemIdleTimerReset();
        return TRUE;
    case UM_JOBFINISHED:
        return OnFinished(), TRUE;
    case UM_ASKREPLACEFILE:
    case UM_ASKREPLACEFOLDER:
        return OnQuestion(message, lParam), TRUE;
    case UM_REPORTFAILURE:
        return OnReport(lParam), TRUE;
    case UM_SHOWPROGRESS:
        return lParam == reinterpret_cast<LPARAM>(this) ? OnShowProgress() : void(), TRUE;
    default:
        return FALSE;
    }
}

void FileJob::OnCancelKey() {
    cancelRequested_ = 1;
    SendMessageW(ce::SHFindMenuBar(Window()), TB_ENABLEBUTTON, IDM_JOB_CANCEL, FALSE);
    SetDlgItemTextW(Window(), IDC_JOB_STATUS, L"Canceling...");
}

void FileJob::OnFinished() {
    if (!finished_)
        return;
    if (std::exchange(isStarted_, false))
        appState.jobWorker.Finish(); // it has nothing more to do
    KillTimer(Window(), idleTimer);
    End(0);
}

/// The subject that the worker waits for, once, or null for a message of anybody else's.
const FileJob::Subject* FileJob::TakeSubject(LPARAM subject) {
    return subject != 0 && subject == reinterpret_cast<LPARAM>(subject_) ? std::exchange(subject_, nullptr)
                                                                         : nullptr;
}

void FileJob::OnQuestion(UINT message, LPARAM lParam) {
    const Subject* subject = TakeSubject(lParam);
    if (!subject)
        return;
    idleResetAllowed_ = false;
    answer_ = AnswerQuestion(message, subject->text, subject->source);
    idleResetAllowed_ = true;
}

void FileJob::OnReport(LPARAM lParam) {
    const Subject* subject = TakeSubject(lParam);
    if (!subject)
        return;
    idleResetAllowed_ = false;
    MessageBoxW(Window(), subject->text, L"", subject->icon);
    idleResetAllowed_ = true;
}

void FileJob::OnShowProgress() {
    std::array<wchar_t, 32> counter{};
    FormatText(counter, L"%d/%d", completed_, total_);
    SetDlgItemTextW(Window(), IDC_JOB_COUNTER, counter.data());
    SendDlgItemMessageW(Window(), IDC_JOB_BAR, PBM_SETPOS, static_cast<WPARAM>(completed_), 0);
    if (shownName_[0] != L'\0' && !IsCancelled())
        SetDlgItemTextW(Window(), IDC_JOB_STATUS, shownName_.data());
}

// --- The worker ---

void FileJob::DoSteps(void* parameter) {
    auto* job = static_cast<FileJob*>(parameter);
    // While a question is open or the dialog comes up, and not by it: it answers its keys meanwhile.
    job->Prepare();
    WaitForSingleObject(job->dialogShown_.Get(), INFINITE);
    if (job->Window()) // without one the job has been dropped
        job->WorkUnderDialog();
    job->steps_.reset(); // they belong to this thread
}

void FileJob::Prepare() {
    if (!steps_)
        HoldFolders();
    total_ = CountSelection(sourceFolder_, entries_, &cancelRequested_, this);
    counted_ = GetTickCount();
}

/// Whatever happens while the user is asked and while the job runs, it takes what was chosen.
void FileJob::HoldFolders() {
    steps_ = ce::BeginTreeSteps();
    if (!steps_)
        steps_ = MakeSingleSteps();
    const SelectionEntry* last = nullptr;
    for (const SelectionEntry& entry : entries_) {
        if (!last || std::wstring_view(entry.folder.data()) != last->folder.data())
            steps_->Hold(entry.folder.data(), *this);
        last = &entry;
    }
}

void FileJob::WorkUnderDialog() {
    if (GetTickCount() - counted_ > countHoldsFor)
        Prepare();
    SendDlgItemMessageW(Window(), IDC_JOB_BAR, PBM_SETRANGE, 0, MAKELPARAM(0, total_));
    ShowProgress();
    const wchar_t* lastText = TooLong() ? RefuseTooLong() : Work();
    ReportLeftOut();
    ShowProgress();
    SetDlgItemTextW(Window(), IDC_JOB_STATUS, lastText);
    // Posted: a dialog that is ended by a sent message swallows the next one in the queue.
    finished_ = 1;
    PostMessageW(Window(), UM_JOBFINISHED, 0, 0);
}

bool FileJob::KeepGoing() {
    if (GetTickCount() - lastShown_ >= showInterval)
        ShowProgress();
    return !IsCancelled();
}

void FileJob::ShowProgress() {
    SendMessageW(Window(), UM_SHOWPROGRESS, 0, reinterpret_cast<LPARAM>(this));
    lastShown_ = GetTickCount();
}

void FileJob::OnName(const wchar_t* name) {
    CopyTextTo(shownName_, name);
    KeepGoing();
}

/// What no list shows goes along, and was not counted.
void FileJob::OnUnits(int count) {
    completed_ += count;
    total_ = std::max(total_, completed_);
}

void FileJob::ShowSource(const wchar_t* text) {
    SetDlgItemTextW(Window(), IDC_JOB_SOURCE, text);
}

/// Nothing has been touched yet.
const wchar_t* FileJob::RefuseTooLong() {
    ReportFailure(*TooLong());
    return L"Canceled";
}

int FileJob::Ask(UINT message, const wchar_t* text, const wchar_t* source) {
    answer_ = modeStop; // of a dialog that is gone
    SendSubject(message, {text, source, 0});
    return answer_;
}

void FileJob::ReportFailure(const SelectionEntry& entry) {
    std::array<wchar_t, pathCapacity + 32> text{};
    FormatText(text, look_.failure, entry.name.data());
    Report(text.data());
}

void FileJob::Report(const wchar_t* text, UINT icon) {
    SendSubject(UM_REPORTFAILURE, {text, nullptr, icon});
}

void FileJob::ReportLeftOut() {
    const int count = steps_->LeftOut();
    if (count == 0)
        return;
    std::array<wchar_t, 128> text{};
    if (count == 1)
        CopyTextTo(text, L"One entry could not be taken along and was left out.");
    else
        FormatText(text, L"%d entries could not be taken along and were left out.", count);
    Report(text.data(), MB_ICONEXCLAMATION);
}

void FileJob::SendSubject(UINT message, const Subject& subject) {
    ShowProgress();
    subject_ = &subject;
    SendMessageW(Window(), message, 0, reinterpret_cast<LPARAM>(&subject));
    subject_ = nullptr;
}
