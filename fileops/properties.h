#pragma once
// "Properties...": what is known of entries, and their names, attributes and targets to change.

#include <array>
#include <span>

#include "common/path.h"
#include "filelist/selection_entry.h"

/// What the dialogs show of one entry, and what the user made of it.
struct PropertiesRequest {
    const SelectionEntry& entry;
    std::array<wchar_t, pathCapacity + 16> title{};
    DWORD initialAttributes = INVALID_FILE_ATTRIBUTES;
    DWORD newAttributes = INVALID_FILE_ATTRIBUTES;
    PathText newName{};
    PathText initialTarget{};
    PathText newTarget{};
};

struct PropertiesOutcome {
    bool changed = false; // something on the disk
    PathText name{};      // the entry's name now; empty for several
};

/// Shows the properties of one entry and carries out the changes, or the totals of several.
PropertiesOutcome ShowProperties(std::span<const SelectionEntry> entries);
