#pragma once
// Counts what an operation on folders will have to go through.

#include <cstdint>
#include <span>
#include <string_view>

#include "filelist/selection_entry.h"

/// Files and folders below `folder`, at any depth; links are counted but never entered. Once `stop` is not 0,
/// which another thread may see to, it ends with what it has.
std::int32_t CountEntries(std::wstring_view folder, const volatile LONG* stop = nullptr);

/// The steps of a progress bar for `entries`: one for each file, and for each folder one more than its count.
std::int32_t CountSelection(std::wstring_view baseFolder, std::span<const SelectionEntry> entries,
                            const volatile LONG* stop = nullptr);
