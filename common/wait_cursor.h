#pragma once
// The wait cursor for the time of a scope.

#include "platform/ce_api.h"

class WaitCursor {
  public:
    WaitCursor() : previous_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor() { SetCursor(previous_); }

  private:
    HCURSOR previous_;
};
