#pragma once
// What goes into an archive.

#include <optional>
#include <string>
#include <vector>

#include "companions/archiver/command_line.h"
#include "companions/archiver/file.h"

namespace archiver {

/// A file or folder and the name it gets in the archive, with slashes between its parts and none at the end.
struct Source {
    std::wstring path;
    std::wstring name;
    bool isFolder;
};

struct Sources {
    std::vector<Source> entries;
    /// Links that were met in folders and left out.
    int linksLeftOut = 0;
};

/// The name of `path` in an archive of things below `base`: relative to it, or to the volume when it lies
/// elsewhere, so that different files never get the same name.
std::wstring NameInArchive(const std::wstring& path, const std::wstring& base);

/// All that the command asks for, folders before what is in them. Links of the host are not followed: below
/// a folder they are left out, by themselves they are a failure; only a volume's own, which are its storage
/// cards, are entered. `leftOut` is the archive that is there already.
Sources CollectSources(const CommandLine& command, const std::optional<FileIdentity>& leftOut);

} // namespace archiver
