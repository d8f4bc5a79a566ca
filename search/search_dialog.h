#pragma once
// The dialog in which the user says what to search for.

#include <optional>

#include "common/dialog_frame.h"
#include "common/wait_cursor.h"
#include "search/criteria.h"
#include "search/walk.h"

class FileSearch : public DialogFrame {
  public:
    /// The search runs from within the dialog, once it is hidden; the dialog ends with 1 after it, with 0
    /// when there was none.
    FileSearch();

  private:
    HWND OnInit() override;
    void OnCommand(int id, int notification) override;
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    void FillLists();
    void ShowLocation(const Path& folder);
    void FollowDateBox();
    void FollowSizeBox();
    void OnExplorer();
    void BeginSearch();
    void SearchOn(DWORD milliseconds);
    void ReadCriteria(SearchCriteria& criteria) const;
    Path ReadLocation() const;
    DayKey ReadDay(int picker) const;
    bool IsChecked(int box) const;
    int SelectionOf(int list) const;

    SearchCriteria criteria_;
    std::optional<SearchRun> run_;
    std::optional<WaitCursor> wait_; // while it runs
};
