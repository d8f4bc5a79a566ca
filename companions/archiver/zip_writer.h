#pragma once
// Makes ZIP archives of any size, with names in UTF-8, by libarchive.

#include <memory>

#include "companions/archiver/archive_writer.h"

namespace archiver {

std::unique_ptr<ArchiveWriter> MakeZipWriter(File& archive);

} // namespace archiver
