#pragma once
// Watches the folder shown in the list and posts one message to the main window when a file or folder in it
// is made, removed or renamed by somebody else.

#include <string_view>

#include "common/path.h"
#include "platform/handles.h"

/// Posted to the main window after a change. No parameters.
constexpr UINT UM_FOLDERCHANGED = WM_USER + 1;

/// Posted to the main window when the watch goes on after work of the program's own, after which the list was
/// not read anew: what others changed meanwhile has escaped the watch. No parameters.
constexpr UINT UM_LOOKAGAIN = WM_USER + 4;

class ChangeWatcher {
  public:
    /// Makes the thread, paused. Before any window exists.
    void StartWatcher();
    /// Ends the thread and waits for it. After the message loop.
    void StopWatcher();

    /// Stops watching and drops every notice already queued, so that the program's own work is not reported.
    /// User-interface thread; calls do not nest: one resume ends any number of pauses.
    void PauseWatcher();
    void ResumeWatcher();

    /// Watches `folder` (the empty path is the root) from here on and reports, from the next resume on, what
    /// changes in it. To be called in a pause, before the folder is read: what changes while it is read, and
    /// while it is shown, counts. User-interface thread.
    void WatchFolder(std::wstring_view folder);

    /// Whether the watcher goes on after a pause in which nobody read the folder; told once for each such
    /// pause. User-interface thread.
    bool TakeUnread();

  private:
    static DWORD WINAPI ThreadProcedure(void* watcher);
    void Run();
    bool TakeWatch();
    void WaitForChange();
    void ArmNext();

    CRITICAL_SECTION lock_{}; // guards active_, ended_, watchedPath_, next_ and the posting
    ObjectHandle wakeEvent_;  // manual reset
    ObjectHandle thread_;
    volatile LONG stopRequested_ = 0;
    bool active_ = false;
    bool ended_ = false;  // the thread's watch is over
    bool unread_ = false; // since the last pause the list was not read; user-interface thread only
    Path watchedPath_;
    ChangeNoticeHandle next_;  // armed already, for the thread to take over
    ChangeNoticeHandle watch_; // the thread's own
};
