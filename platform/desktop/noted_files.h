#pragma once
// Files in the making, noted before they are made, so that what a sudden end leaves of them can be told from
// everybody's files and removed.

#include <string_view>
#include <vector>

#include "platform/handles.h"

class NotedFiles {
  public:
    NotedFiles() = default;
    NotedFiles(const NotedFiles&) = delete;
    NotedFiles& operator=(const NotedFiles&) = delete;
    /// Nothing is in the making any more.
    ~NotedFiles();

    /// Notes a full path whose name nobody else uses: it contains Mark().
    void Note(std::wstring_view path);
    /// Characters that no other process, and no earlier one, has in its names.
    std::wstring_view Mark();

  private:
    void Begin();

    FileHandle note_; // nobody else opens it while this process lives
    std::vector<wchar_t> place_;
    wchar_t mark_[24] = L"";
};

/// Removes what processes that ended suddenly have noted and left.
void SweepNotedFiles();
