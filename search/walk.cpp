#include "search/walk.h"

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

SearchRun::SearchRun(const SearchCriteria& criteria, SearchResults& results)
    : criteria_(criteria), results_(results), scan_(criteria.text.data(), criteria.caseSensitive),
      walk_(criteria.location.View()) {}

bool SearchRun::RunFor(DWORD milliseconds) {
    const DWORD start = GetTickCount();
    while (walk_.HasEntry() && GetTickCount() - start < milliseconds) {
        JudgeEntry();
        if (criteria_.subfolders)
            walk_.Next();
        else
            walk_.Skip();
    }
    return walk_.HasEntry();
}

void SearchRun::JudgeEntry() {
    const WIN32_FIND_DATAW& entry = walk_.Entry();
    const bool textAsked = criteria_.text[0] != L'\0';
    if (MatchesOutside(criteria_, entry) && (!textAsked || scan_.FileHolds(walk_.Folder(), entry.cFileName)))
        AddFound(results_, walk_.Folder(), entry);
}
