#pragma once
// The phone's soft keys for the dialogs of a library that a program has loaded. The program's own device
// shell shows their titles; where there is none, they have soft keys all the same.

#include "platform/desktop/device_shell.h"

/// Makes ce::SHCreateMenuBar and ce::SHInitDialog work on this thread for a library that has this code linked
/// in. It has to go, after the dialogs, before the library does; there is one at a time.
class GuestShell {
  public:
    explicit GuestShell(HINSTANCE library);
    GuestShell(const GuestShell&) = delete;
    GuestShell& operator=(const GuestShell&) = delete;
    ~GuestShell();

  private:
    KeyHooks hooks_;
};
