#pragma once
// The form in which the list hands its selection to the operations on files.

#include <cstdint>

#include "common/path.h"
#include "filelist/file_item.h"

struct SelectionEntry {
    std::int32_t index = 0; // in the list view, when collected
    ItemKind kind = ItemKind::UpLevel;
    PathText folder{};
    PathText name{};
    std::int32_t done = 0; // set by the operation for each entry it has carried out
};

/// Whether the record is that of the entry.
bool Names(const FileItem& item, const SelectionEntry& entry);

/// Whether what was collected is there still.
bool StillExists(const SelectionEntry& entry);
