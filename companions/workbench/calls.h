#pragma once
// What the phone's program finds in the phone's libraries here.

#include "companions/workbench/traps.h"

/// The function that does what the phone's does: one of replacements.h, one of the desktop's device shell, or
/// the host's own. `name` is null for one known by its number alone. Null when there is none.
HostFunction FindCall(const char* name, unsigned number);
