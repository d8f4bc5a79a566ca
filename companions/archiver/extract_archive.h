#pragma once
// Extracting an archive into a folder, outside of which nothing is touched.

#include <string>

#include "companions/archiver/archive_kind.h"
#include "companions/archiver/command_line.h"

namespace archiver {

struct ExtractionReport {
    bool complete;
    /// What was extracted, and what was not and why.
    std::wstring text;
};

/// Extracts what is safe and sound. A file that is there already is replaced once the new one is whole, but
/// not when it is read-only; a link is never followed and never replaced. What is wrong with one member
/// leaves that one out; what is wrong with the archive or the disk ends the work.
ExtractionReport ExtractArchive(const ArchiveKind& kind, const CommandLine& command);

} // namespace archiver
