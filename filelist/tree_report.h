#pragma once
// Tells the tree where folders came or went.

#include <span>

#include "filelist/selection_entry.h"

enum class ReportedFolders { All, Done };

/// Has the tree read the folders that hold the entries which are folders themselves, all or those done.
/// False when there is none.
bool TellTreeOfFolders(std::span<const SelectionEntry> entries, ReportedFolders which);
