#include "search/walk.h"

#include "app/entry_walk.h"
#include "search/file_scan.h"

namespace {

bool IsFolder(const WIN32_FIND_DATAW& entry) {
    return (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void AddFound(SearchResults& results, std::wstring_view folder, const WIN32_FIND_DATAW& entry) {
    const bool isFolder = IsFolder(entry);
    results.Add(folder, entry.cFileName, entry.dwFileAttributes,
                isFolder ? entry.ftCreationTime : entry.ftLastWriteTime, isFolder ? 0 : entry.nFileSizeLow);
}

} // namespace

void RunSearch(const SearchCriteria& criteria, SearchResults& results) {
    const std::wstring_view text = criteria.text.data();
    const FileScan scan(text, criteria.caseSensitive);
    EntryWalk walk(criteria.location.View());
    while (walk.HasEntry()) {
        const WIN32_FIND_DATAW& entry = walk.Entry();
        if (MatchesOutside(criteria, entry) &&
            (text.empty() || scan.FileHolds(walk.Folder(), entry.cFileName)))
            AddFound(results, walk.Folder(), entry);
        if (criteria.subfolders)
            walk.Next();
        else
            walk.Skip();
    }
}
