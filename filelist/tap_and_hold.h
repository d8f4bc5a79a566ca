#pragma once
// Tap and hold in the list: the wait for the context menu, and the selection that the tap would lose.

#include <vector>

#include "platform/ce_api.h"

class FileList;

constexpr UINT_PTR restoreTimer = 3; // of the list's window

class TapAndHold {
  public:
    /// The stylus went down at a point of the list's client area; called before the control sees it.
    void StylusDown(const FileList& list, POINT point);
    /// The stylus was lifted, or a tap took its place.
    void Cancel(HWND view);
    /// The entry under the stylus goes while it is down: whatever becomes of the press is about nothing.
    void Abandon(HWND view);
    /// The hold timer: opens the context menu when the stylus stayed where it is.
    void HoldElapsed(const FileList& list);
    /// A menu closed. After a hold its selection comes back when the control has dealt with the stylus.
    void AfterMenu(HWND view);
    /// Before and after every command of the main window, and from the restore timer.
    void RestoreStep(HWND view);
    /// The list shows other entries now: places in it mean nothing any more.
    void ForgetSelection() { selection_.clear(); }

    /// How many entries were selected when the stylus went down on one of them; 0 when it went down
    /// elsewhere.
    int SelectedAtDown() const { return selectedAtDown_; }

    /// The stylus is down on the list and it is still open what that will be.
    bool IsPressed() const;
    /// The press has had its effect, or its entry has gone: it becomes neither a tap nor a drag.
    bool IsUsedUp() const { return usedUp_; }
    /// The tap opens an entry: a second one on its heels belongs to it.
    void NoteOpened() { opened_ = true; }
    bool HasOpened() const { return opened_; }

  private:
    bool holding_ = false;
    POINT point_{};
    int selectedAtDown_ = 0;
    bool usedUp_ = false;
    bool opened_ = false;

    bool restoring_ = false;
    bool restoredOnce_ = false;
    std::vector<int> selection_; // the entries to select again
};
