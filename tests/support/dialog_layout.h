#pragma once
// Whether a person can read and reach everything on a dialog.

#include <string>
#include <vector>

#include "tests/support/dialog.h"
#include "tests/support/program.h"

/// What is wrong with what shows, one line each: controls outside of the dialog or under its soft keys,
/// controls that cover one another, texts cut off, two controls with one mnemonic.
std::vector<std::wstring> LayoutFlaws(const Dialog& dialog);

/// The controls that take input but that the navigation pad's down key does not lead to, nor the up key back
/// from. The dialog has to be in front; the keyboard is moved about in it.
std::vector<std::wstring> UnreachableControls(const Program& program, const Dialog& dialog);
