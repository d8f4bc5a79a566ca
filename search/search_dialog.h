#pragma once
// The dialog in which the user says what to search for.

#include "app/dialog_frame.h"
#include "search/criteria.h"

class SearchDialog : public DialogFrame {
  public:
    /// The search runs from within the dialog, once it is hidden.
    SearchDialog();

  private:
    HWND OnInit() override;
    void OnCommand(int id, int notification) override;
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    void FillLists();
    void ShowLocation(const Path& folder);
    void FollowDateBox();
    void FollowSizeBox();
    void OnExplorer();
    void OnSearch();
    void ReadCriteria(SearchCriteria& criteria) const;
    Path ReadLocation() const;
    DayKey ReadDay(int picker) const;
    bool IsChecked(int box) const;
    int SelectionOf(int list) const;
};
