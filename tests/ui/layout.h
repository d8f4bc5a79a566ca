#pragma once
// Whether a person can use a dialog on this screen.

#include <gtest/gtest.h>

#include "tests/support/dialog_layout.h"
#include "tests/support/text.h"

/// Nothing on the dialog is cut off or covered.
inline void ExpectGoodLayout(const Dialog& dialog) {
    for (const std::wstring& flaw : LayoutFlaws(dialog))
        ADD_FAILURE() << Narrow(dialog.Title()) << ": " << Narrow(flaw);
}

/// Nor is there a control that the navigation pad does not lead to. The dialog is in front.
inline void ExpectUsable(const Program& program, const Dialog& dialog) {
    ExpectGoodLayout(dialog);
    for (const std::wstring& control : UnreachableControls(program, dialog))
        ADD_FAILURE() << Narrow(dialog.Title()) << ": not reached: " << Narrow(control);
}
