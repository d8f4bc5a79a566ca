#pragma once
// An archive in the making.

#include <cstdint>
#include <string>

#include "companions/archiver/file.h"

namespace archiver {

/// What is to be put into a member.
class Content {
  public:
    virtual ~Content() = default;
    virtual std::uint64_t Size() const = 0;
    virtual FILETIME Time() const = 0;
    /// At the end 0. It may come earlier or later than the size says: others may work on the file.
    virtual std::size_t Read(void* buffer, std::size_t size) = 0;
};

/// Writes members one after the other. Names have slashes between their parts and none at the end; they can
/// be written in UTF-8.
class ArchiveWriter {
  public:
    virtual ~ArchiveWriter() = default;
    virtual void AddFolder(const std::wstring& name, const FILETIME& time) = 0;
    virtual void AddFile(const std::wstring& name, Content& content) = 0;
    /// Writes what ends the archive.
    virtual void Finish() = 0;
};

/// Seconds since 1970, by the world's clock.
std::int64_t UnixTimeOf(const FILETIME& time);

} // namespace archiver
