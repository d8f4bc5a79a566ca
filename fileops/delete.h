#pragma once
// Deletes files and folders, after asking.

#include <span>

#include "common/path.h"
#include "filelist/selection_entry.h"

/// Asks once for all entries and deletes them under the job's dialog; each entry that went is marked as done.
/// `sourceFolder` is the folder that the list shows. False when the user declined, or
/// the jobs' worker is at another job or cannot be made.
bool StartDelete(const Path& sourceFolder, std::span<SelectionEntry> entries);
