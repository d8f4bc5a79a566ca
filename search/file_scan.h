#pragma once
// Looks for a text inside files.

#include <memory>
#include <string_view>

#include "platform/handles.h"
#include "search/block_scan.h"

enum class ScanVerdict { Found, NotFound, ReadOn };

/// Reads one file after another, piece by piece.
class FileScan {
  public:
    FileScan(std::wstring_view text, bool caseSensitive);

    /// Begins with a file. False when it cannot be opened.
    bool Open(std::wstring_view folder, std::wstring_view name);
    bool IsOpen() const { return static_cast<bool>(file_); }

    /// Looks at the next piece of the open file. The file is closed once the verdict is clear.
    ScanVerdict ScanPiece();

  private:
    BlockScan scan_;
    std::unique_ptr<unsigned char[]> piece_;
    FileHandle file_;
};
