#pragma once
// Gives a shortcut file another target.

#include "common/path.h"

/// Makes the shortcut anew with `target`, keeping its attributes. When that fails the old one is back as it
/// was.
bool ChangeShortcutTarget(const Path& shortcut, const wchar_t* target);
