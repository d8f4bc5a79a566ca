// The selected entries as the operations on files take them, and what becomes of them in the view.

#include <algorithm>

#include "app/app_state.h"
#include "filelist/file_list.h"
#include "filelist/tree_report.h"
#include "fileops/delete.h"

namespace {

bool Names(const FileItem* item, const SelectionEntry& entry) {
    return item && std::wstring_view(item->folder) == entry.folder.data() &&
           std::wstring_view(item->name.get()) == entry.name.data();
}

} // namespace

int FileList::NextSelected(int index) const {
    return static_cast<int>(
        SendMessageW(window_, LVM_GETNEXTITEM, static_cast<WPARAM>(index), MAKELPARAM(LVNI_SELECTED, 0)));
}

std::vector<SelectionEntry> FileList::CollectSelection() const {
    std::vector<SelectionEntry> entries;
    for (int index = NextSelected(-1); index >= 0; index = NextSelected(index)) {
        const FileItem* item = ItemAt(index);
        if (!item || item->kind == ItemKind::UpLevel)
            continue;
        SelectionEntry& entry = entries.emplace_back();
        entry.index = index;
        entry.kind = item->kind;
        CopyTextTo(entry.folder, item->folder);
        CopyTextTo(entry.name, item->name.get());
    }
    return entries;
}

/// Takes what is done out of the view; from the last to the first, so that the places before stay right.
void FileList::RemoveDone(std::span<const SelectionEntry> entries) {
    std::vector<const FileItem*> gone;
    SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        const FileItem* item = ItemAt(entry->index);
        if (!entry->done || !Names(item, *entry)) // another folder may be shown by now
            continue;
        gone.push_back(item);
        SendMessageW(window_, LVM_DELETEITEM, static_cast<WPARAM>(entry->index), 0);
    }
    SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
    std::ranges::sort(gone);
    std::erase_if(records_.items, [&](const std::unique_ptr<FileItem>& item) {
        return std::ranges::binary_search(gone, item.get());
    });
}

std::vector<Path> FileList::SelectedPaths() const {
    std::vector<Path> paths;
    Path path;
    for (int index = NextSelected(-1); index >= 0; index = NextSelected(index)) {
        const FileItem* item = ItemAt(index);
        if (item && path.AssignChild(item->folder, item->name.get()))
            paths.push_back(path);
    }
    return paths;
}

void FileList::DeleteSelection() {
    if (SelectedCount() < 1)
        return;
    std::vector<SelectionEntry> entries = CollectSelection();
    const Path folder = currentFolder_;
    if (!DeleteEntries(folder, entries))
        return;
    RemoveDone(entries);
    TellTreeOfFolders(entries, ReportedFolders::Done);
    SendMessageW(window_, LVM_ARRANGE, LVA_DEFAULT, 0);
    if (currentFolder_.View() == folder.View())
        RecountFolderBytes(folder.View());
}
