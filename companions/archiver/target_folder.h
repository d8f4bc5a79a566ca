#pragma once
// The folder that an archive is extracted into: what may be put there, and that nothing leads out of it.

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "companions/archiver/file.h"

namespace archiver {

/// A file that is where one is to be put.
struct ExistingFile {
    std::wstring place;
    DWORD attributes;
    std::uint64_t size;
    FILETIME time;
};

/// Paths are relative to it, with backslashes; they have been judged already. Failures are thrown.
class TargetFolder {
  public:
    /// `archive` is what is to be extracted: the folder named like it is made for it alone, and is therefore
    /// no link.
    TargetFolder(std::wstring place, std::wstring_view archive);

    /// What is free where it is or will be.
    std::optional<std::uint64_t> FreeSpace() const;
    /// Makes it, and the folders above it that are missing.
    void Make();
    std::wstring PlaceOf(std::wstring_view path) const;
    /// Makes the folders of `path` as far as they are missing. None of them may be a link.
    void MakeFolders(std::wstring_view path);
    /// False when the same name was claimed before.
    bool Claim(std::wstring_view path);
    /// Whether the folder of `path` was made here: there is nothing in it but what was claimed, unless
    /// somebody else works there as well.
    bool IsNewFolderOf(std::wstring_view path) const;
    /// The file that is there already. What is in the way and cannot be replaced is a failure.
    std::optional<ExistingFile> Find(std::wstring_view path) const;
    /// Makes sure that an open file lies in the folder of `path`, wherever that leads by now.
    void ExpectInside(const File& file, std::wstring_view path) const;

  private:
    bool LeadsElsewhere(const File& entry, std::wstring_view path) const;
    bool IsForArchiveAlone() const;
    bool IsLink() const;

    std::wstring place_;
    std::wstring archiveName_;
    std::wstring realPlace_; // with every link above it followed; empty when the system does not say
    std::unordered_map<std::wstring, bool> folders_; // known to be sound, and whether they were made here
    std::unordered_set<std::wstring> claimed_;
};

} // namespace archiver
