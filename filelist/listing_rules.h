#pragma once
// What the listing decides without a window: which entries are shown, which is selected again, what counts.

#include <string_view>

#include "app/settings.h"
#include "filelist/file_item.h"

/// The name of the up-level entry.
constexpr wchar_t upLevelName[] = L"..";

/// Whether an entry passes the "Hide:" options. Folders are hidden by the hidden bit alone, but a recycler's
/// folder never shows.
bool IsListed(std::wstring_view name, DWORD attributes, const ListOptions& options);

/// Makes the record of an entry found in `folder`, a text that outlives the record.
FileItem MakeFileItem(const wchar_t* folder, const WIN32_FIND_DATAW& found);

/// The name to select when `path` is shown after `previous`: the folder just left when going up, else empty.
/// Only the beginning of `path` is compared, so a folder within the parent of `previous` counts as well.
std::wstring_view NameToReselect(std::wstring_view path, std::wstring_view previous);

/// The files and folders that the status bar counts.
int StatusFileCount(int itemCount, bool upLevelShown, std::wstring_view folder);

/// 0 for commands that make no sense among search results, any other command unchanged.
int FilterForSearchResults(int command);
