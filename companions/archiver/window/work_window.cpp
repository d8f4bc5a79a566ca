#include "companions/archiver/window/work_window.h"

#include <algorithm>
#include <array>
#include <optional>

#include "companions/archiver/window/dialog_parts.h"
#include "companions/archiver/window/replace_question.h"
#include "companions/archiver/window/texts.h"
#include "companions/archiver/window/work_thread.h"
#include "platform/desktop/guest_shell.h"
#include "resources/resource.h"

namespace archiver {

namespace {

constexpr DialogTemplates templates = {214, 215, 106};
constexpr DWORD quickEnough = 500;  // milliseconds without a window
constexpr DWORD showInterval = 100; // milliseconds
constexpr DWORD idleInterval = 10'000;
constexpr int barSteps = 1000;
constexpr std::uint64_t bytesOfFile = 4096; // what a file costs beside its content, for the bar

BOOL CALLBACK TakeIfInFront(HWND window, LPARAM found) {
    const bool isBar = (GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) != 0;
    if (isBar || !IsWindowVisible(window) || !IsWindowEnabled(window))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

/// The active window of this thread, or the one that would be if the user were not in another program.
HWND ActiveWindow() {
    HWND window = GetActiveWindow();
    if (!window)
        EnumThreadWindows(GetCurrentThreadId(), TakeIfInFront, reinterpret_cast<LPARAM>(&window));
    return window;
}

std::wstring LeafOf(std::wstring_view path) {
    while (path.size() > 1 && path.ends_with(L'\\'))
        path.remove_suffix(1);
    const std::wstring_view leaf = path.substr(path.rfind(L'\\') + 1);
    return std::wstring(leaf.empty() ? L"\\" : leaf);
}

class WorkWindow {
  public:
    WorkWindow(const WorkLook& look, WorkThread& work) : look_(look), work_(work) {}
    WorkWindow(const WorkWindow&) = delete;
    WorkWindow& operator=(const WorkWindow&) = delete;
    ~WorkWindow();

    /// Attends to the work until it has come back.
    void Attend();

  private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    bool IsDue() const { return dialog_ || GetTickCount() - begun_ >= quickEnough; }
    void Show();
    void Begin(HWND dialog);
    void Refresh();
    void Answer();
    void TakeMessages();
    void OnCancel();

    const WorkLook& look_;
    WorkThread& work_;
    const DWORD begun_ = GetTickCount();
    std::optional<GuestShell> shell_;
    HWND owner_ = nullptr, focus_ = nullptr;
    HWND dialog_ = nullptr;
    bool isTried_ = false; // whether there is a dialog or none could be made
    bool isCancelled_ = false;
    DWORD lastShown_ = 0, lastIdle_ = GetTickCount();
    std::optional<int> quit_; // the thread is asked to end
};

WorkWindow::~WorkWindow() {
    // The owner can take input again before the dialog goes, so that it is the one to come to the front.
    if (owner_ && isTried_)
        EnableWindow(owner_, TRUE);
    if (dialog_ && IsWindow(dialog_)) {
        const bool inFront = GetActiveWindow() == dialog_;
        DestroyWindow(dialog_);
        if (inFront && IsWindow(focus_))
            SetFocus(focus_);
    }
    if (quit_)
        PostQuitMessage(*quit_);
}

void WorkWindow::Attend() {
    const std::array<HANDLE, 2> events = {work_.Ended(), work_.Asked()};
    for (;;) {
        // Before the window is there the user's keys stay in the queue, for whoever is in front then.
        const DWORD kinds = dialog_ ? QS_ALLINPUT : QS_SENDMESSAGE | QS_PAINT;
        const DWORD left =
            isTried_ ? showInterval : quickEnough - std::min(quickEnough, GetTickCount() - begun_);
        const DWORD event = MsgWaitForMultipleObjectsEx(static_cast<DWORD>(events.size()), events.data(),
                                                        left, kinds, dialog_ ? MWMO_INPUTAVAILABLE : 0);
        if (event == WAIT_OBJECT_0)
            return;
        TakeMessages();
        if (dialog_ && !IsWindow(dialog_)) { // gone with the program's windows
            dialog_ = nullptr;
            owner_ = nullptr;
            work_.Cancel();
        }
        if (event == WAIT_OBJECT_0 + 1)
            Answer();
        if (IsDue())
            Show();
        if (dialog_ && GetTickCount() - lastShown_ >= showInterval)
            Refresh();
    }
}

void WorkWindow::TakeMessages() {
    const UINT wanted = PM_REMOVE | (dialog_ ? 0 : PM_QS_SENDMESSAGE | PM_QS_PAINT);
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, wanted)) {
        if (message.message == WM_QUIT) {
            quit_ = static_cast<int>(message.wParam);
            work_.Cancel();
            return;
        }
        if (IsWindow(dialog_) && IsDialogMessageW(dialog_, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void WorkWindow::Show() {
    if (isTried_)
        return;
    isTried_ = true;
    owner_ = ActiveWindow();
    focus_ = GetFocus();
    shell_.emplace(Library());
    const DLGTEMPLATE* shape = FindTemplate(templates);
    dialog_ = shape ? CreateDialogIndirectParamW(Library(), shape, owner_, Procedure,
                                                 reinterpret_cast<LPARAM>(this))
                    : nullptr;
    if (!dialog_)
        return;
    Refresh();
    if (owner_)
        EnableWindow(owner_, FALSE);
    ShowWindow(dialog_, SW_SHOW);
    UpdateWindow(dialog_);
}

INT_PTR CALLBACK WorkWindow::Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* window = reinterpret_cast<WorkWindow*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (message == WM_INITDIALOG && !window) {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        reinterpret_cast<WorkWindow*>(lParam)->Begin(dialog);
        return TRUE;
    }
    if (message != WM_COMMAND || !window)
        return FALSE;
    if (LOWORD(wParam) == IDM_JOB_CANCEL)
        window->OnCancel();
    return TRUE;
}

void WorkWindow::Begin(HWND dialog) {
    SetWindowTextW(dialog, look_.title);
    FitDialog(dialog, IDR_MENUBAR_JOB);
    SetDlgItemTextW(dialog, IDC_JOB_STATUS, L"Processing...");
    SetDlgItemTextW(dialog, IDC_JOB_SOURCE,
                    (L"'" + LeafOf(look_.from) + L"' to '" + LeafOf(look_.to) + L"'").c_str());
    SendDlgItemMessageW(dialog, IDC_JOB_BAR, PBM_SETRANGE, 0, MAKELPARAM(0, barSteps));
}

void WorkWindow::OnCancel() {
    isCancelled_ = true;
    work_.Cancel();
    SendMessageW(ce::SHFindMenuBar(dialog_), TB_ENABLEBUTTON, IDM_JOB_CANCEL, FALSE);
    SetDlgItemTextW(dialog_, IDC_JOB_STATUS, L"Canceling...");
}

void WorkWindow::Refresh() {
    lastShown_ = GetTickCount();
    if (lastShown_ - lastIdle_ >= idleInterval) {
        lastIdle_ = lastShown_;
        ce::SystemIdleTimerReset();
    }
    const Progress progress = work_.Look();
    if (progress.name[0] != L'\0' && !isCancelled_)
        SetDlgItemTextW(dialog_, IDC_JOB_STATUS, progress.name.data());
    if (progress.files == 0 && progress.bytes == 0)
        return;
    const std::wstring counter = std::to_wstring(progress.filesDone) + L"/" +
                                 std::to_wstring(progress.files) + L"\n" +
                                 ShareText(progress.bytesDone, progress.bytes);
    SetDlgItemTextW(dialog_, IDC_JOB_COUNTER, counter.c_str());
    const std::uint64_t whole = progress.bytes / bytesOfFile + progress.files;
    const std::uint64_t done = progress.bytesDone / bytesOfFile + progress.filesDone;
    SendDlgItemMessageW(dialog_, IDC_JOB_BAR, PBM_SETPOS, whole == 0 ? 0 : done * barSteps / whole, 0);
}

void WorkWindow::Answer() {
    Show();
    const HWND owner = dialog_ ? dialog_ : owner_;
    work_.Answer(isCancelled_ || (owner && !IsWindow(owner)) ? ReplaceAnswer::Cancel
                                                             : AskReplaceQuestion(owner, work_.Question()));
}

} // namespace

void WorkUnderWindow(const WorkLook& look, void (*work)(void* context, Attendant& attendant), void* context) {
    WorkThread thread(work, context);
    if (thread.Start())
        WorkWindow(look, thread).Attend();
}

void TellUser(const std::wstring& text) {
    MessageBoxW(ActiveWindow(), text.c_str(), L"", MB_ICONEXCLAMATION);
}

} // namespace archiver
