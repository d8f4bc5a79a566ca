#pragma once
// An archive in the making.

#include <cstdint>
#include <string>

#include "companions/archiver/file.h"

namespace archiver {

/// Writes members one after the other. Names have slashes between their parts and none at the end.
class ArchiveWriter {
  public:
    virtual ~ArchiveWriter() = default;
    virtual void AddFolder(const std::wstring& name, const FILETIME& time) = 0;
    virtual void AddFile(const std::wstring& name, const FILETIME& time, File& content) = 0;
    /// Writes what ends the archive.
    virtual void Finish() = 0;
};

/// A member's time in the forms that archives keep it in.
struct MemberTime {
    explicit MemberTime(const FILETIME& time);
    /// Date and time of the local clock, in steps of two seconds from 1980 to 2107.
    std::uint32_t dos;
    /// Seconds of the world's clock since 1970.
    std::int64_t unix;
};

} // namespace archiver
