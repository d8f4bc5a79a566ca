#pragma once
// Watches the folder shown in the list and posts one message to the main window when a file or folder in it
// is made, removed or renamed by somebody else.

#include <string_view>

#include "app/path.h"
#include "platform/handles.h"

/// Posted to the main window after a change. No parameters.
constexpr UINT UM_FOLDERCHANGED = WM_USER + 1;

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

    /// Watches `folder` (the empty path is the root) from the next resume on. User-interface thread.
    void WatchFolder(std::wstring_view folder);

  private:
    static DWORD WINAPI ThreadProcedure(void* watcher);
    void Run();
    bool ArmWatch();
    void WaitForChange();
    void SetActive(bool active);

    CRITICAL_SECTION lock_{}; // guards active_, watchedPath_ and the posting
    ObjectHandle wakeEvent_;  // manual reset
    ObjectHandle thread_;
    volatile LONG stopRequested_ = 0;
    bool active_ = false;
    Path watchedPath_;
    HANDLE notifyHandle_ = INVALID_HANDLE_VALUE;
};
