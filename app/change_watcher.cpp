#include "app/change_watcher.h"

#include <array>
#include <utility>

#include "app/app_state.h"

namespace {

/// A watch just armed rests this long, so that a busy folder gives one notice per round and not a stream.
constexpr DWORD settleTime = 5000;

class LockGuard {
  public:
    explicit LockGuard(CRITICAL_SECTION& lock) : lock_(lock) { EnterCriticalSection(&lock_); }
    LockGuard(const LockGuard&) = delete;
    LockGuard& operator=(const LockGuard&) = delete;
    ~LockGuard() { LeaveCriticalSection(&lock_); }

  private:
    CRITICAL_SECTION& lock_;
};

void DropQueuedNotices() {
    MSG message;
    while (PeekMessageW(&message, appState.mainWindow, UM_FOLDERCHANGED, UM_FOLDERCHANGED, PM_REMOVE)) {
    }
}

} // namespace

void ChangeWatcher::StartWatcher() {
    InitializeCriticalSection(&lock_);
    wakeEvent_.Reset(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    thread_.Reset(CreateThread(nullptr, 0, ThreadProcedure, this, 0, nullptr));
}

void ChangeWatcher::StopWatcher() {
    stopRequested_ = 1;
    ce::EventModify(wakeEvent_.Get(), EVENT_SET);
    WaitForSingleObject(thread_.Get(), INFINITE);
    DeleteCriticalSection(&lock_);
    wakeEvent_.Reset();
}

void ChangeWatcher::PauseWatcher() {
    SetActive(false);
}

void ChangeWatcher::ResumeWatcher() {
    SetActive(true);
}

void ChangeWatcher::SetActive(bool active) {
    const LockGuard guard(lock_);
    // Emptying the queue also delivers messages sent by others, a hand-over of a folder among them, which
    // pauses and resumes in here: so the state asked for is set last.
    DropQueuedNotices();
    active_ = active;
    ce::EventModify(wakeEvent_.Get(), EVENT_SET);
}

void ChangeWatcher::WatchFolder(std::wstring_view folder) {
    const std::wstring_view watched = folder.empty() ? std::wstring_view(L"\\") : folder;
    if (EqualNoCase(watched, watchedPath_.View()))
        return;
    const LockGuard guard(lock_);
    if (!watchedPath_.Assign(watched))
        watchedPath_.Clear();
    ce::EventModify(wakeEvent_.Get(), EVENT_SET);
}

DWORD WINAPI ChangeWatcher::ThreadProcedure(void* watcher) {
    static_cast<ChangeWatcher*>(watcher)->Run();
    return 0;
}

void ChangeWatcher::Run() {
    while (!stopRequested_) {
        if (ArmWatch()) {
            WaitForChange();
            FindCloseChangeNotification(std::exchange(notifyHandle_, INVALID_HANDLE_VALUE));
        } else {
            WaitForSingleObject(wakeEvent_.Get(), INFINITE);
            ce::EventModify(wakeEvent_.Get(), EVENT_RESET);
        }
    }
}

/// Sets up a watch of the folder, when one is wanted and the folder can be watched.
bool ChangeWatcher::ArmWatch() {
    const LockGuard guard(lock_);
    if (active_ && !watchedPath_.IsSearchFolder())
        notifyHandle_ = ce::FindFirstChangeNotificationW(
            watchedPath_.Text(), FALSE, FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME);
    return notifyHandle_ != INVALID_HANDLE_VALUE;
}

/// Waits for the end of the armed watch: a change, which is reported, or a wake-up.
void ChangeWatcher::WaitForChange() {
    const std::array<HANDLE, 2> handles = {wakeEvent_.Get(), notifyHandle_};
    DWORD ended = WaitForSingleObject(wakeEvent_.Get(), settleTime);
    if (ended == WAIT_TIMEOUT)
        ended = WaitForMultipleObjects(handles.size(), handles.data(), FALSE, INFINITE);
    if (ended == WAIT_OBJECT_0)
        ce::EventModify(wakeEvent_.Get(), EVENT_RESET);
    if (ended != WAIT_OBJECT_0 + 1)
        return;
    // A wake-up since then means that the program itself has been at work: its listing shows this change.
    const LockGuard guard(lock_);
    if (WaitForSingleObject(wakeEvent_.Get(), 0) == WAIT_TIMEOUT)
        PostMessageW(appState.mainWindow, UM_FOLDERCHANGED, 0, 0);
}
