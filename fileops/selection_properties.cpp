#include "fileops/selection_properties.h"

#include <vector>

#include "app/app_state.h"
#include "common/device_info.h"
#include "filelist/tree_report.h"
#include "fileops/properties.h"

namespace {

/// The folder that the list shows, as an entry of the folder above. False for the root and search results.
bool EntryOfFolder(const Path& folder, SelectionEntry& entry) {
    if (folder.IsEmpty() || folder.IsSearchFolder())
        return false;
    entry.kind = ItemKind::Folder;
    CopyTextTo(entry.folder, ParentOf(folder.View()));
    CopyTextTo(entry.name, LeafOf(folder.View()));
    return true;
}

std::vector<SelectionEntry> EntriesToShow(const FileList& list) {
    std::vector<SelectionEntry> entries = list.CollectSelection();
    SelectionEntry folder;
    if (list.FirstSelected() < 0 && EntryOfFolder(list.CurrentFolder(), folder))
        entries.push_back(folder);
    return entries;
}

/// Search results are kept by name: the one of a changed entry goes along.
void UpdateSearchResult(const SelectionEntry& entry, const PropertiesOutcome& outcome) {
    SearchResult* result = appState.fileList.searchResults.Find(entry.folder.data(), entry.name.data());
    Path path;
    if (!result || !path.AssignChild(entry.folder.data(), outcome.name.data()))
        return;
    appState.fileList.searchResults.SetName(*result, outcome.name.data());
    result->attributes = ce::GetFileAttributesW(path.Text());
}

/// The folder to show afterwards: the same, under its new name when it is the one that was renamed.
Path FolderAfter(const Path& shown, const SelectionEntry& entry, const PropertiesOutcome& outcome) {
    Path changed;
    Path renamed;
    const bool isShown = changed.AssignChild(entry.folder.data(), entry.name.data()) &&
                         EqualNoCase(changed.View(), shown.View());
    return isShown && renamed.AssignChild(entry.folder.data(), outcome.name.data()) ? renamed : shown;
}

} // namespace

void ShowSelectionProperties() {
    FileList& list = appState.fileList;
    const std::vector<SelectionEntry> entries = EntriesToShow(list);
    const PropertiesOutcome outcome = ShowProperties(entries);
    if (!outcome.changed)
        return;
    UpdateSearchResult(entries.front(), outcome);
    TellTreeOfFolders(entries, ReportedFolders::All);
    const Path folder = FolderAfter(list.CurrentFolder(), entries.front(), outcome);
    list.GoToFolder(folder.View(), treeSelectOnly);
}

void ShowDeviceProperties() {
    SelectionEntry device;
    device.kind = ItemKind::Folder;
    CopyTextTo(device.name, DeviceDisplayName());
    ShowProperties({&device, 1});
}
