#include "filelist/selection_entry.h"

#include "common/file_facts.h"
#include "common/path.h"

bool StillExists(const SelectionEntry& entry) {
    Path path;
    return path.AssignChild(entry.folder.data(), entry.name.data()) && Exists(path.Text());
}

bool Names(const FileItem& item, const SelectionEntry& entry) {
    return std::wstring_view(item.name.get()) == entry.name.data() &&
           std::wstring_view(item.folder) == entry.folder.data();
}
