#pragma once
// Makes ZIP archives: deflated members, names in UTF-8, of any size and number.

#include <memory>

#include "companions/archiver/archive_writer.h"

namespace archiver {

std::unique_ptr<ArchiveWriter> MakeZipWriter(File& archive);

} // namespace archiver
