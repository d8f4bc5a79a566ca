#include "filelist/selection_entry.h"

#include "app/file_facts.h"
#include "app/path.h"

bool StillExists(const SelectionEntry& entry) {
    Path path;
    return path.AssignChild(entry.folder.data(), entry.name.data()) && Exists(path.Text());
}
