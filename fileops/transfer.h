#pragma once
// Copies or moves files and folders into a folder: behind Paste, drops, "Copy To..." and "Move To...".

#include <span>

#include "common/path.h"
#include "filelist/selection_entry.h"

enum class Transfer { Copy, Move };

/// Does the whole job under its dialog. `sourceFolder` is the folder that the list showed. False when the
/// request was refused, which has been told, or the jobs' worker is at another job or cannot be made;
/// true when the job ran, however it ended.
bool StartTransfer(Transfer kind, const Path& sourceFolder, const Path& targetFolder,
                   std::span<SelectionEntry> entries);
