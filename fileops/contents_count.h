#pragma once
// Counts what selected entries hold, a little at a time.

#include <cstdint>
#include <optional>
#include <span>

#include "common/entry_walk.h"
#include "filelist/selection_entry.h"

struct ContentsTotals {
    std::uint32_t bytes = 0; // wraps, as the device's sizes do
    std::int32_t files = 0;
    std::int32_t folders = 0;  // a single selected folder does not count itself
    std::int32_t unlisted = 0; // entries in them that no path leads to
};

class ContentsCount {
  public:
    /// `entries` must outlive the count.
    explicit ContentsCount(std::span<const SelectionEntry> entries) : entries_(entries) {}

    /// Counts on until all is counted or the time is over. Returns whether something is left.
    bool CountFor(DWORD milliseconds);
    ContentsTotals Totals() const;

  private:
    bool CountNext();
    void CountFolder(const Path& path, bool isLink);
    void CountSelected(const SelectionEntry& entry);
    void CountFile(const Path& path);

    std::span<const SelectionEntry> entries_;
    std::size_t next_ = 0;          // the selected entry whose turn comes
    std::optional<EntryWalk> walk_; // below the one before it
    ContentsTotals totals_;
};

/// The entry's own path; the root for the entry that stands for the device. False when it is too long.
bool PathOfEntry(const SelectionEntry& entry, Path& path);
