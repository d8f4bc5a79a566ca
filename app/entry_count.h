#pragma once
// Counts what an operation on folders will have to go through.

#include <cstdint>
#include <span>
#include <string_view>

#include "filelist/selection_entry.h"

/// Files and folders below `folder`, at any depth; links are counted but never entered.
std::int32_t CountEntries(std::wstring_view folder);

/// The steps of a progress bar for `entries`: one for each file, and for each folder one more than its count.
std::int32_t CountSelection(std::wstring_view baseFolder, std::span<const SelectionEntry> entries);
