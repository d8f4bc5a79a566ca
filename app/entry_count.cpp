#include "app/entry_count.h"

#include "app/entry_walk.h"

std::int32_t CountEntries(std::wstring_view folder, const volatile LONG* stop) {
    std::int32_t count = 0;
    for (EntryWalk walk(folder); walk.HasEntry() && !(stop && *stop); walk.Next())
        ++count;
    return count;
}

std::int32_t CountSelection(std::wstring_view baseFolder, std::span<const SelectionEntry> entries,
                            const volatile LONG* stop) {
    std::int32_t count = 0;
    for (const SelectionEntry& entry : entries) {
        if (stop && *stop)
            break;
        Path folder;
        if (entry.kind == ItemKind::File)
            ++count;
        else if (entry.kind == ItemKind::Folder)
            count +=
                1 +
                (folder.AssignChild(baseFolder, entry.name.data()) ? CountEntries(folder.View(), stop) : 0);
    }
    return count;
}
