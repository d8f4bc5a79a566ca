#pragma once
// Where a typed path and the way up lead.

#include <string_view>

/// Whether a typed path means the root, whose display name is `displayName`.
bool NamesRoot(std::wstring_view path, std::wstring_view displayName);

/// The folder above `folder`, which is not the root; also from a server's shared folders the way up ends at
/// the root.
std::wstring_view FolderAbove(std::wstring_view folder);
