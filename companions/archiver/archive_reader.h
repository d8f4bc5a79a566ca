#pragma once
// An archive that is read from its beginning to its end.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include <windows.h>

namespace archiver {

enum class MemberKind { File, Folder, Link };

struct ArchiveMember {
    /// As the archive has it: it may be anything.
    std::wstring name;
    MemberKind kind = MemberKind::File;
    /// What the archive says the content's size is: it may be wrong.
    std::uint64_t size = 0;
    std::optional<FILETIME> time;
    /// Why its content cannot be read at all; completes "'name' was left out: ...".
    std::wstring fault;
};

class ArchiveReader {
  public:
    virtual ~ArchiveReader() = default;
    /// Goes to the next member, whether or not the last one was read; false at the end. Where the archive
    /// is damaged, so that there may be more, FinalFailure.
    virtual bool Next(ArchiveMember& member) = 0;
    /// The next bytes of the member's content; 0 at its end, when its check was right. Otherwise Failure.
    virtual std::size_t Read(void* buffer, std::size_t size) = 0;
};

/// Seconds since 1970 as a file's time.
FILETIME FileTimeOf(std::int64_t unixTime);

} // namespace archiver
