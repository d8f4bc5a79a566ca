#pragma once
// The subfolders of a folder, as trees show them: hidden and system ones too, "Recycled" never.

#include <string_view>
#include <vector>

#include "common/path.h"
#include "common/text.h"
#include "platform/ce_api.h"

struct Subfolder {
    OwnedText name;
    DWORD attributes = 0;

    std::wstring_view Name() const { return name.get(); }
};

/// The folders and storage cards in `folder`, sorted by the characters of their names. Empty when the folder
/// cannot be read. Those whose own path would be too long are left out.
std::vector<Subfolder> ReadSubfolders(const Path& folder);

/// Position of the subfolder of exactly this name in what ReadSubfolders gave, or its size.
std::size_t FindSubfolder(const std::vector<Subfolder>& subfolders, std::wstring_view name);

/// True when `folder` has a subfolder that a tree would show. Reads no further than the first one.
bool HasSubfolder(const Path& folder);
