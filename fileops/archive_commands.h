#pragma once
// The texts that tell the archiver what to do.

#include <span>
#include <string_view>

#include "common/path.h"
#include "common/text.h"
#include "filelist/selection_entry.h"

/// The entries as the archiver takes them: each quoted and followed by a blank, a folder as all that is in
/// it.
OwnedText ArchiverFileList(std::span<const SelectionEntry> entries);

/// Puts the files of a file list into `archive`, named relative to `folder`.
OwnedText CompressCommand(std::wstring_view archive, std::wstring_view folder, const wchar_t* fileList);

/// Extracts `archive` into the folder `target`.
OwnedText ExtractCommand(std::wstring_view archive, std::wstring_view target);

/// The folder that the archive `name` is extracted into: `base`, or with `ownFolder` the one below it that is
/// named like the archive without its extension. False when the path would be too long.
[[nodiscard]] bool AssignExtractTarget(Path& target, std::wstring_view base, std::wstring_view name,
                                       bool ownFolder);
