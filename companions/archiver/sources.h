#pragma once
// What goes into an archive.

#include <memory>
#include <string>
#include <vector>

#include "companions/archiver/attendant.h"
#include "companions/archiver/command_line.h"
#include "companions/archiver/file.h"
#include "companions/archiver/left_out.h"

namespace archiver {

/// Why links are left out, wherever they are met.
constexpr wchar_t linkReason[] = L"links are not followed";

/// A file or folder and the name it gets in the archive, with slashes between its parts and none at the end.
struct Source {
    std::wstring path;
    std::wstring name;
    bool isFolder;
    FILETIME time;
    /// Where the folder that holds it really is; the file may still turn out to be a link.
    std::shared_ptr<const std::wstring> folderPlace;
};

struct Sources {
    std::vector<Source> entries;
    std::uint64_t files = 0, bytes = 0;
};

/// The name of `path` in an archive of things below `base`: relative to it, or to the volume when it lies
/// elsewhere, so that different files never get the same name.
std::wstring NameInArchive(const std::wstring& path, const std::wstring& base);

/// Whether what `path` names, and what really is at `place`, is elsewhere than in its folder, which really is
/// at `folderPlace`: it is a link then. The host's links to files look like files otherwise.
bool IsElsewhere(std::wstring_view place, std::wstring_view folderPlace, std::wstring_view path);

/// All that the command asks for, folders before what is in them. Links of the host are not followed; only a
/// volume's own, which are its storage cards, are entered. They, and what has a name that could not be
/// extracted again, are left out.
Sources CollectSources(const CommandLine& command, Attendant& attendant, LeftOut& leftOut);

} // namespace archiver
