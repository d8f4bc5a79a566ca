#pragma once
// Goes through the searched folders and keeps what it finds.

#include "filelist/search_results.h"
#include "search/criteria.h"

/// Adds every file and folder that meets the criteria to `results`. Folders and files that cannot be read are
/// passed over.
void RunSearch(const SearchCriteria& criteria, SearchResults& results);
