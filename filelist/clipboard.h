#pragma once
// The program's own clipboard: files to paste, with where they came from.

#include <vector>

#include "common/path.h"
#include "filelist/selection_entry.h"
#include "fileops/transfer.h"

struct FileClipboard {
    std::vector<SelectionEntry> entries;
    Transfer transfer = Transfer::Copy; // a cut moves
    Path sourceFolder;                  // shown when they were taken; "File Search" for search results

    bool IsEmpty() const { return entries.empty(); }
};
