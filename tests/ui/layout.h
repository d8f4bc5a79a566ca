#pragma once
// Whether a dialog fits the screen.

#include <vector>

#include <gtest/gtest.h>

#include "tests/support/dialog.h"
#include "tests/support/live_window.h"
#include "tests/support/text.h"

/// Every control that is shown lies on the dialog, and none covers another.
inline void ExpectGoodLayout(const Dialog& dialog) {
    const RECT place = dialog.Place();
    std::vector<RECT> places;
    for (HWND child : ChildrenOf(dialog.Window())) {
        if (GetParent(child) != dialog.Window() || !IsWindowVisible(child))
            continue;
        const RECT control = PlaceOf(child);
        RECT common;
        EXPECT_GE(control.left, place.left) << Narrow(TextOf(child));
        EXPECT_LE(control.right, place.right) << Narrow(TextOf(child));
        EXPECT_LE(control.bottom, place.bottom) << Narrow(TextOf(child));
        for (const RECT& other : places)
            EXPECT_FALSE(IntersectRect(&common, &control, &other)) << Narrow(TextOf(child));
        places.push_back(control);
    }
}
