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
        const ScanVerdict verdict = JudgeEntry();
        if (verdict == ScanVerdict::Found)
            AddFound(results_, walk_.Folder(), walk_.Entry());
        if (verdict != ScanVerdict::ReadOn)
            StepOn();
    }
    return walk_.HasEntry();
}

/// Judges the entry, or as much of a file as is read at a time.
ScanVerdict SearchRun::JudgeEntry() {
    if (scan_.IsOpen())
        return scan_.ScanPiece();
    if (!MatchesOutside(criteria_, walk_.Entry()))
        return ScanVerdict::NotFound;
    if (criteria_.text[0] == L'\0')
        return ScanVerdict::Found;
    return scan_.Open(walk_.Folder(), walk_.Entry().cFileName) ? scan_.ScanPiece() : ScanVerdict::NotFound;
}

void SearchRun::StepOn() {
    if (criteria_.subfolders)
        walk_.Next();
    else
        walk_.Skip();
}
