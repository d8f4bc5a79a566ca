#pragma once
// Extracting an archive into a folder, outside of which nothing is touched.

#include <string>

#include "companions/archiver/archive_kind.h"
#include "companions/archiver/attendant.h"
#include "companions/archiver/command_line.h"

namespace archiver {

struct ExtractionReport {
    /// Nothing was left out, but for what the user wanted to keep.
    bool complete;
    /// What was extracted, and what was not and why.
    std::wstring text;
};

/// Extracts what is safe and sound. Before a file that is there is replaced the user is asked, and it stays
/// until the new one is whole; a link is never followed and never replaced. What is wrong with one member
/// leaves that one out; what is wrong with the archive or the disk ends the work, and so does the user.
ExtractionReport ExtractArchive(const ArchiveKind& kind, const CommandLine& command, Attendant& attendant);

} // namespace archiver
