#pragma once
// The bare platform calls that the program is measured against.

#include "platform/ce_api.h"

/// Entries that a bare walk of the folder finds.
int WalkFolder(const wchar_t* folder);

/// A list view of its own, filled and emptied by the control's messages alone.
class BareList {
  public:
    explicit BareList(DWORD style);
    BareList(const BareList&) = delete;
    BareList& operator=(const BareList&) = delete;
    ~BareList() { DestroyWindow(view_); }

    /// Adds rows that ask for their texts, at the end.
    void Fill(int count);
    void Empty() { SendMessageW(view_, LVM_DELETEALLITEMS, 0, 0); }
    void SelectAll();

  private:
    HWND view_;
};
