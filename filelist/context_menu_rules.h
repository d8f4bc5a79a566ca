#pragma once
// Which context menu fits a selection.

#include <string_view>

/// What the choice looks at.
struct ContextSelection {
    int count = 0;    // selected entries, the up-level entry not counted
    bool any = false; // the up-level entry counts
    bool firstIsFile = false;
    std::wstring_view firstName;
};

constexpr int noContextPopup = -1;

/// The number of the popup in the list's menus, or noContextPopup.
int ContextPopup(const ContextSelection& selection);
