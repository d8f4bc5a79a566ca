#pragma once
// The command lines the program calls with:
//   a "archive" "base\" "file" "folder\*" ...    makes the archive of files and whole folders
//   e "archive" "target\"                        extracts it

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace archiver {

enum class Action { Make, Extract };

struct CommandLine {
    Action action;
    std::wstring archive;
    /// The base of the names when an archive is made, the target when one is extracted.
    std::wstring folder;
    std::vector<std::wstring> files;
};

/// Nothing when `text` is not one of the two forms. Names cannot hold double quotes, so a backslash before
/// one is just a backslash.
std::optional<CommandLine> ParseCommandLine(std::wstring_view text);

} // namespace archiver
