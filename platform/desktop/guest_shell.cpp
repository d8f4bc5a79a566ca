#include "platform/desktop/guest_shell.h"

GuestShell::GuestShell(HINSTANCE library) {
    SetShellInstance(library);
    hooks_ = ListenForKeys(true);
}

GuestShell::~GuestShell() {
    UnhookWindowsHookEx(hooks_.fetched);
    UnhookWindowsHookEx(hooks_.menu);
    ForgetMenuBarClass();
}
