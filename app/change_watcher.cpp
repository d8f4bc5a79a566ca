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

/// Whether there were any.
bool DropQueuedNotices() {
    bool any = false;
    MSG message;
    while (PeekMessageW(&message, appState.mainWindow, UM_FOLDERCHANGED, UM_FOLDERCHANGED, PM_REMOVE))
        any = true;
    return any;
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

// Emptying the queue also delivers messages sent by others, a hand-over of a folder among them, which pauses
// and resumes in here: so in both of these what is asked for is done last.

void ChangeWatcher::PauseWatcher() {
    const LockGuard guard(lock_);
    DropQueuedNotices();
    unread_ = true;
    active_ = false;
    ended_ = true;
    next_.Reset();
    ce::EventModify(wakeEvent_.Get(), EVENT_SET);
}

void ChangeWatcher::ResumeWatcher() {
    const LockGuard guard(lock_);
    unread_ = DropQueuedNotices() || unread_;
    if (active_ && !unread_)
        return; // resumed in between: the watch that was armed before the folder was read goes on
    active_ = true;
    if (unread_) {
        ArmNext();
        PostMessageW(appState.mainWindow, UM_LOOKAGAIN, 0, 0);
    }
    ce::EventModify(wakeEvent_.Get(), EVENT_SET);
}

void ChangeWatcher::WatchFolder(std::wstring_view folder) {
    const LockGuard guard(lock_);
    if (!watchedPath_.Assign(folder.empty() ? std::wstring_view(L"\\") : folder))
        watchedPath_.Clear();
    ArmNext();
    unread_ = false;
}

bool ChangeWatcher::TakeUnread() {
    return active_ && std::exchange(unread_, false);
}

void ChangeWatcher::ArmNext() {
    next_.Reset();
    if (!watchedPath_.IsSearchFolder())
        next_.Reset(ce::FindFirstChangeNotificationW(
            watchedPath_.Text(), FALSE, FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME));
}

DWORD WINAPI ChangeWatcher::ThreadProcedure(void* watcher) {
    static_cast<ChangeWatcher*>(watcher)->Run();
    return 0;
}

void ChangeWatcher::Run() {
    while (!stopRequested_) {
        if (TakeWatch()) {
            WaitForChange();
        } else {
            WaitForSingleObject(wakeEvent_.Get(), INFINITE);
            ce::EventModify(wakeEvent_.Get(), EVENT_RESET);
        }
    }
}

/// Takes the watch over that was armed before the folder was read, or arms one after a change that was
/// reported. A wake-up alone is no reason to let go of the one there is: it may know of a change already.
/// False when none is wanted or the folder cannot be watched.
bool ChangeWatcher::TakeWatch() {
    const LockGuard guard(lock_);
    if (std::exchange(ended_, false))
        watch_.Reset();
    if (!active_)
        return false;
    if (!next_ && !watch_)
        ArmNext();
    if (next_)
        watch_ = std::move(next_);
    return static_cast<bool>(watch_);
}

/// Waits for a change, which is reported and ends the watch, or for a wake-up.
void ChangeWatcher::WaitForChange() {
    const std::array<HANDLE, 2> handles = {wakeEvent_.Get(), watch_.Get()};
    DWORD ended = WaitForSingleObject(wakeEvent_.Get(), settleTime);
    if (ended == WAIT_TIMEOUT)
        ended = WaitForMultipleObjects(handles.size(), handles.data(), FALSE, INFINITE);
    if (ended == WAIT_OBJECT_0)
        ce::EventModify(wakeEvent_.Get(), EVENT_RESET);
    if (ended != WAIT_OBJECT_0 + 1)
        return;
    // A wake-up since then means that the program itself has been at work: it looks at what is there then.
    const LockGuard guard(lock_);
    if (WaitForSingleObject(wakeEvent_.Get(), 0) != WAIT_TIMEOUT)
        return;
    watch_.Reset();
    PostMessageW(appState.mainWindow, UM_FOLDERCHANGED, 0, 0);
}
