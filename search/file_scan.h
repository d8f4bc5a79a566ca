#pragma once
// Looks for a text inside files.

#include <memory>
#include <string_view>

#include "search/block_scan.h"

class FileScan {
  public:
    FileScan(std::wstring_view text, bool caseSensitive);

    /// Whether the file holds the text. A file that cannot be opened does not.
    bool FileHolds(std::wstring_view folder, std::wstring_view name) const;

  private:
    BlockScan scan_;
    std::unique_ptr<unsigned char[]> piece_;
};
