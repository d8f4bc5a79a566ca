#pragma once
// Files that have their name only once they are whole.

#include <optional>
#include <string>

#include "companions/archiver/file.h"

namespace archiver {

/// A file in the making beside the place it is meant for: it takes that place when it is complete, and
/// vanishes when it never is. Whatever ends the program meanwhile, no part of a file has its name.
class FileInTheMaking {
  public:
    explicit FileInTheMaking(std::wstring place);
    FileInTheMaking(const FileInTheMaking&) = delete;
    FileInTheMaking& operator=(const FileInTheMaking&) = delete;
    ~FileInTheMaking();

    File& Content() { return *file_; }
    /// Puts the file into its place, over a read-only file as well when it is to `replace` what is there.
    /// False when something is there that it is not to replace; then it can be tried again.
    bool TakePlace(bool replace);

  private:
    std::wstring place_;
    std::wstring path_;
    std::optional<File> file_;
};

} // namespace archiver
