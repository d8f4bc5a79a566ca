#include "foldertree/subfolders.h"

#include <algorithm>

#include "foldertree/tree_rules.h"
#include "platform/handles.h"

namespace {

/// Hands every entry of `folder` to `visit` until that returns false.
template <class Visit>
void VisitEntries(const Path& folder, Visit visit) {
    Path pattern;
    if (!pattern.AssignPattern(folder.View()))
        return;
    WIN32_FIND_DATAW entry;
    const FindHandle find(ce::FindFirstFileW(pattern.Text(), &entry));
    bool found = static_cast<bool>(find);
    while (found && visit(entry))
        found = ce::FindNextFileW(find.Get(), &entry);
}

/// True when the entry has one of the attributes of a folder, a name that is shown, and a path that fits.
bool IsShown(const Path& folder, const WIN32_FIND_DATAW& entry, DWORD folderBits) {
    Path path;
    return (entry.dwFileAttributes & folderBits) && !IsHiddenFromTree(entry.cFileName) &&
           path.AssignChild(folder.View(), entry.cFileName);
}

} // namespace

std::vector<Subfolder> ReadSubfolders(const Path& folder) {
    std::vector<Subfolder> subfolders;
    VisitEntries(folder, [&](const WIN32_FIND_DATAW& entry) {
        if (IsShown(folder, entry, FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_STORAGE_CARD))
            subfolders.push_back({CopyText(entry.cFileName), entry.dwFileAttributes});
        return true;
    });
    std::ranges::sort(subfolders, {}, &Subfolder::Name);
    return subfolders;
}

std::size_t FindSubfolder(const std::vector<Subfolder>& subfolders, std::wstring_view name) {
    const auto found = std::ranges::lower_bound(subfolders, name, {}, &Subfolder::Name);
    return found != subfolders.end() && found->Name() == name
               ? static_cast<std::size_t>(found - subfolders.begin())
               : subfolders.size();
}

bool HasSubfolder(const Path& folder) {
    bool hit = false;
    VisitEntries(folder, [&](const WIN32_FIND_DATAW& entry) {
        hit = IsShown(folder, entry, FILE_ATTRIBUTE_DIRECTORY);
        return !hit;
    });
    return hit;
}
