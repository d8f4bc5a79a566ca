#pragma once
// Goes through the searched folders and keeps what it finds.

#include "common/entry_walk.h"
#include "filelist/search_results.h"
#include "search/criteria.h"
#include "search/file_scan.h"

/// One search, run a while at a time. Folders and files that cannot be read are passed over.
class SearchRun {
  public:
    /// Every file and folder that meets the criteria will be added to `results`. Both must outlive the run.
    SearchRun(const SearchCriteria& criteria, SearchResults& results);

    /// Searches on until the end or until the time is over. Returns whether something is left.
    bool RunFor(DWORD milliseconds);

  private:
    ScanVerdict JudgeEntry();
    void StepOn();

    const SearchCriteria& criteria_;
    SearchResults& results_;
    FileScan scan_;
    EntryWalk walk_;
};
