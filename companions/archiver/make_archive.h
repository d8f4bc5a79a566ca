#pragma once
// Making an archive of files and folders.

#include <string>

#include "companions/archiver/archive_kind.h"
#include "companions/archiver/command_line.h"

namespace archiver {

/// Makes the archive, or leaves the one that is there as it is and throws Failure. Returns what was done.
std::wstring MakeArchive(const ArchiveKind& kind, const CommandLine& command);

} // namespace archiver
