#pragma once
// Brings single files to new places so that nothing is lost: whatever fails or is stopped half-way, what was
// at either place before is still there, and no part of a copy is left.

#include <cstddef>
#include <memory>

#include "common/path.h"
#include "platform/ce_api.h"

enum class MoverResult {
    Done,
    Exists, // nothing was done: something has the target's name
    Stopped,
    Failed,
};

/// Asked again and again during a long copy.
class CopyWatch {
  public:
    /// False stops the copy.
    virtual bool KeepGoing() = 0;

  protected:
    ~CopyWatch() = default;
};

class FileMover {
  public:
    explicit FileMover(CopyWatch& watch);

    /// Copies the file to a name that is free. `found` is what the file's folder tells of it.
    MoverResult Copy(const Path& source, const WIN32_FIND_DATAW& found, const Path& target);
    /// The same in place of the file that is there.
    MoverResult CopyOver(const Path& source, const WIN32_FIND_DATAW& found, const Path& target);

    MoverResult Move(const Path& source, const WIN32_FIND_DATAW& found, const Path& target);
    MoverResult MoveOver(const Path& source, const WIN32_FIND_DATAW& found, const Path& target);

  private:
    MoverResult CopyContents(const Path& source, const WIN32_FIND_DATAW& found, const Path& target,
                             const Path* lastName);
    MoverResult WriteBlocks(HANDLE from, HANDLE to);
    MoverResult CopyAside(const Path& source, const WIN32_FIND_DATAW& found, const Path& target,
                          const Path* lastName, Path& aside);

    CopyWatch& watch_;
    std::unique_ptr<std::byte[]> block_;
};
