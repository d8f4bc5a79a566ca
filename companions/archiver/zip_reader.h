#pragma once
// Reads ZIP archives, by libarchive.

#include <memory>

#include "companions/archiver/archive_reader.h"
#include "companions/archiver/file.h"

namespace archiver {

/// `archive` must outlive the reader. FinalFailure when it is not a ZIP archive.
std::unique_ptr<ArchiveReader> OpenZip(File& archive);

} // namespace archiver
