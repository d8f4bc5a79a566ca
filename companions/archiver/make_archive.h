#pragma once
// Making an archive of files and folders.

#include <string>

#include "companions/archiver/archive_kind.h"
#include "companions/archiver/attendant.h"
#include "companions/archiver/command_line.h"

namespace archiver {

struct MakingReport {
    bool made;
    /// Something was left out: the user is to know it although the archive was made.
    bool hasLeftOut;
    /// What was done, and what was left out and why.
    std::wstring text;
};

/// Makes the archive, or leaves the one that is there as it is. Throws Failure where something cannot be read
/// or written.
MakingReport MakeArchive(const ArchiveKind& kind, const CommandLine& command, Attendant& attendant);

} // namespace archiver
