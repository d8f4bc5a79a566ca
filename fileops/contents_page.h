#pragma once
// How much entries hold: folders, files and their size.

#include <optional>

#include "common/dialog_frame.h"
#include "common/wait_cursor.h"
#include "fileops/contents_count.h"

/// The numbers grow while the page is shown: it can be left before all is counted.
class ContentsPage : public DialogFrame {
  public:
    /// `entries` and `title` must outlive the page.
    ContentsPage(std::span<const SelectionEntry> entries, const wchar_t* title);

  private:
    HWND OnInit() override;
    void OnCommand(int id, int notification) override;
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    void ShowLocation();
    bool CountOn(DWORD milliseconds);
    void ShowTotals();
    void OnTimer();
    INT_PTR KeepWaitCursor();

    std::span<const SelectionEntry> entries_;
    const wchar_t* title_;
    ContentsCount count_;
    std::optional<WaitCursor> wait_; // while there is something to count
};
