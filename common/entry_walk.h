#pragma once
// Goes through everything below a folder, entry by entry.

#include <string_view>
#include <vector>

#include "common/path.h"
#include "platform/handles.h"

/// A walk keeps its own way back instead of calling itself: the phone's stack is small, and the length of a
/// path bounds the open folders. Links of the host are met but never entered; a folder that cannot be read
/// has no entries.
class EntryWalk {
  public:
    /// Starts at the first entry of `folder`.
    explicit EntryWalk(std::wstring_view folder);

    /// Whether there is an entry.
    bool HasEntry() const { return !open_.empty(); }
    const WIN32_FIND_DATAW& Entry() const { return entry_; }
    /// The folder that holds the entry.
    std::wstring_view Folder() const { return path_.View(); }

    /// Whether a folder so far could not be entered because its path is too long.
    bool MetTooLong() const { return metTooLong_; }

    /// Steps to the next entry: into the current one when it is a folder.
    void Next();
    /// Steps to the next entry, passing by what the current one holds.
    void Skip();

  private:
    /// A folder being read on the way down: its search, and where its path ends.
    struct OpenFolder {
        FindHandle find;
        std::size_t pathLength;
    };

    bool Enter();
    bool EnterEntry();

    Path path_;
    WIN32_FIND_DATAW entry_{};
    std::vector<OpenFolder> open_;
    bool metTooLong_ = false;
};
