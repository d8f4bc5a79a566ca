#include "app/entry_count.h"

#include <vector>

#include "app/path.h"
#include "platform/handles.h"

namespace {

/// A folder being read on the way down: its search, and where its path ends.
struct OpenFolder {
    FindHandle find;
    std::size_t pathLength;
};

/// Walks everything below a folder, entry by entry. It keeps its own way back instead of calling itself: the
/// phone's stack is small, and the length of a path bounds the open folders.
class EntryWalk {
  public:
    explicit EntryWalk(std::wstring_view folder) {
        if (path_.Assign(folder))
            Enter();
    }

    /// Whether there is an entry.
    bool HasEntry() const { return !open_.empty(); }

    /// Steps to the next entry: into the current one when it is a folder that can be read.
    void Next() {
        if (EnterEntry())
            return;
        while (HasEntry() && !ce::FindNextFileW(open_.back().find.Get(), &entry_))
            open_.pop_back();
        if (HasEntry())
            path_.Truncate(open_.back().pathLength);
    }

  private:
    /// Opens the folder that the path names; its first entry becomes the current one.
    bool Enter() {
        const std::size_t length = path_.Length();
        if (!path_.Append(L"\\*.*"))
            return false;
        FindHandle find(ce::FindFirstFileW(path_.Text(), &entry_));
        path_.Truncate(length);
        if (!find)
            return false;
        open_.push_back({std::move(find), length});
        return true;
    }

    bool EnterEntry() {
        constexpr DWORD linkedFolder = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
        if ((entry_.dwFileAttributes & linkedFolder) != FILE_ATTRIBUTE_DIRECTORY)
            return false;
        if (path_.Append(L"\\") && path_.Append(entry_.cFileName) && Enter())
            return true;
        path_.Truncate(open_.back().pathLength);
        return false;
    }

    Path path_;
    WIN32_FIND_DATAW entry_{};
    std::vector<OpenFolder> open_;
};

} // namespace

std::int32_t CountEntries(std::wstring_view folder) {
    std::int32_t count = 0;
    for (EntryWalk walk(folder); walk.HasEntry(); walk.Next())
        ++count;
    return count;
}

std::int32_t CountSelection(std::wstring_view baseFolder, std::span<const SelectionEntry> entries) {
    std::int32_t count = 0;
    for (const SelectionEntry& entry : entries) {
        Path folder;
        if (entry.kind == ItemKind::File)
            ++count;
        else if (entry.kind == ItemKind::Folder)
            count +=
                1 + (folder.AssignChild(baseFolder, entry.name.data()) ? CountEntries(folder.View()) : 0);
    }
    return count;
}
