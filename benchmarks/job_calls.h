#pragma once
// The program's jobs on what lies in \Temp, as its commands begin them.

#include <vector>

#include "common/path.h"
#include "filelist/selection_entry.h"
#include "fileops/transfer.h"

/// The entry \Temp\name as it is selected in a list.
std::vector<SelectionEntry> EntryNamed(const wchar_t* name, ItemKind kind);

Path PathNamed(const wchar_t* text);

/// Copies or moves \Temp\name to \Temp\Target.
void Transferred(Transfer kind, const wchar_t* name, ItemKind itemKind);
