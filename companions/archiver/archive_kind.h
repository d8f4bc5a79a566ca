#pragma once
// The two kinds of archives.

#include <memory>

#include "companions/archiver/archive_reader.h"
#include "companions/archiver/archive_writer.h"

namespace archiver {

/// What makes and what reads archives of a kind.
struct ArchiveKind {
    std::unique_ptr<ArchiveWriter> (*make)(File& archive);
    std::unique_ptr<ArchiveReader> (*open)(File& archive);
};

} // namespace archiver
