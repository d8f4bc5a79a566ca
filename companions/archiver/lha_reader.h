#pragma once
// Reads LHA archives, by lhasa.

#include <memory>

#include "companions/archiver/archive_reader.h"
#include "companions/archiver/file.h"

namespace archiver {

/// `archive` must outlive the reader. FinalFailure when it is not an LHA archive.
std::unique_ptr<ArchiveReader> OpenLha(File& archive);

} // namespace archiver
