#pragma once
// Counts what an operation on folders will have to go through, and sees whether its paths are short enough.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "filelist/selection_entry.h"

/// Files and folders below `folder`, at any depth; links are counted but never entered. Once `stop` is not 0,
/// which another thread may see to, it ends with what it has.
std::int32_t CountEntries(std::wstring_view folder, const volatile LONG* stop = nullptr);

/// Looks, while entries are counted, for one that holds a path that is too long or gets one where it is
/// brought.
class LengthCheck {
  public:
    /// The first such entry; null while all fit.
    const SelectionEntry* TooLong() const { return tooLong_; }
    void Begin() { tooLong_ = nullptr; }
    /// `below` is how much longer than the entry's own path the longest one in it is.
    void Take(const SelectionEntry& entry, std::size_t below);

  protected:
    ~LengthCheck() = default;
    /// How long the entry's path becomes; 0 when it is brought nowhere.
    virtual std::size_t TargetLength(const SelectionEntry& entry) = 0;

  private:
    const SelectionEntry* tooLong_ = nullptr;
};

/// The steps of a progress bar for `entries`: one for each file, and for each folder one more than its count.
std::int32_t CountSelection(std::wstring_view baseFolder, std::span<const SelectionEntry> entries,
                            const volatile LONG* stop = nullptr, LengthCheck* lengths = nullptr);
