#pragma once
// Makes LHA archives, with names in UTF-8 and files of up to 4 GB, which are stored as they are: no library
// packs for LHA.

#include <memory>

#include "companions/archiver/archive_writer.h"

namespace archiver {

std::unique_ptr<ArchiveWriter> MakeLhaWriter(File& archive);

} // namespace archiver
