#include "fileops/entry_count.h"

#include <algorithm>
#include <cwchar>

#include "common/entry_walk.h"

namespace {

struct FolderExtent {
    std::int32_t count = 0;
    std::size_t below = 0; // how much longer than the folder's path the longest one in it is
};

FolderExtent MeasureFolder(std::wstring_view folder, const volatile LONG* stop) {
    FolderExtent extent;
    EntryWalk walk(folder);
    for (; walk.HasEntry() && !(stop && *stop); walk.Next()) {
        ++extent.count;
        const std::size_t length = walk.Folder().size() + 1 + std::wcslen(walk.Entry().cFileName);
        extent.below = std::max(extent.below, length - folder.size());
    }
    if (walk.MetTooLong())
        extent.below = pathCapacity;
    return extent;
}

} // namespace

std::int32_t CountEntries(std::wstring_view folder, const volatile LONG* stop) {
    return MeasureFolder(folder, stop).count;
}

void LengthCheck::Take(const SelectionEntry& entry, std::size_t below) {
    if (tooLong_ || entry.kind == ItemKind::UpLevel)
        return;
    const std::size_t length = std::wcslen(entry.folder.data()) + 1 + std::wcslen(entry.name.data());
    if (std::max(length, TargetLength(entry)) + below >= pathCapacity)
        tooLong_ = &entry;
}

std::int32_t CountSelection(std::wstring_view baseFolder, std::span<const SelectionEntry> entries,
                            const volatile LONG* stop, LengthCheck* lengths) {
    std::int32_t count = 0;
    if (lengths)
        lengths->Begin();
    for (const SelectionEntry& entry : entries) {
        if (stop && *stop)
            break;
        FolderExtent extent;
        Path folder;
        if (entry.kind == ItemKind::Folder && folder.AssignChild(baseFolder, entry.name.data()))
            extent = MeasureFolder(folder.View(), stop);
        if (entry.kind != ItemKind::UpLevel)
            count += 1 + extent.count;
        if (!lengths)
            continue;
        // A search result lies elsewhere than where it is counted.
        if (entry.kind == ItemKind::Folder && baseFolder != entry.folder.data() &&
            folder.AssignChild(entry.folder.data(), entry.name.data()))
            extent = MeasureFolder(folder.View(), stop);
        lengths->Take(entry, extent.below);
    }
    return count;
}
