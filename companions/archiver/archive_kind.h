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
    /// How many times its size an archive can expand to; 0 when there is no telling.
    std::uint64_t largestExpansion;
};

extern const ArchiveKind zipKind, lhaKind;

/// The kind that the archive at `path` is by its content, whatever it is called; `asked` when that does not
/// tell, as with programs that extract themselves.
const ArchiveKind& KindByContent(const std::wstring& path, const ArchiveKind& asked);

} // namespace archiver
