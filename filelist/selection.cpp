// The selected entries as the operations on files take them, and what becomes of them in the view.

#include <algorithm>
#include <utility>

#include "app/app_state.h"
#include "filelist/file_list.h"
#include "filelist/tree_report.h"
#include "fileops/delete.h"

namespace {

/// Looked for by name, so that it does not matter at which place an entry stands by now.
class DoneEntries {
  public:
    explicit DoneEntries(std::span<const SelectionEntry> entries) {
        for (const SelectionEntry& entry : entries) {
            if (entry.done)
                names_.emplace_back(entry.folder.data(), entry.name.data());
        }
        std::ranges::sort(names_);
    }
    bool IsEmpty() const { return names_.empty(); }
    bool Has(const FileItem& item) const {
        return std::ranges::binary_search(names_, Name(item.folder, item.name.get()));
    }

  private:
    using Name = std::pair<std::wstring_view, std::wstring_view>;

    std::vector<Name> names_; // folder and name
};

} // namespace

int FileList::NextSelected(int index) const {
    return static_cast<int>(
        SendMessageW(window_, LVM_GETNEXTITEM, static_cast<WPARAM>(index), MAKELPARAM(LVNI_SELECTED, 0)));
}

std::vector<SelectionEntry> FileList::CollectSelection() const {
    std::vector<SelectionEntry> entries;
    for (int index = NextSelected(-1); index >= 0; index = NextSelected(index)) {
        const std::optional<SelectionEntry> entry = EntryAt(index);
        if (entry && entry->kind != ItemKind::UpLevel)
            entries.push_back(*entry);
    }
    return entries;
}

/// Takes what is done out of the view, from the last to the first, so that the places before stay right. The
/// list may have been read anew since the entries were collected, or show another folder.
void FileList::RemoveDone(std::span<const SelectionEntry> entries) {
    const DoneEntries done(entries);
    if (done.IsEmpty())
        return;
    std::vector<const FileItem*> gone;
    SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
    for (int row = ItemCount() - 1; row >= 0; --row) {
        const FileItem* item = ItemAt(row);
        if (!item || item->kind == ItemKind::UpLevel || !done.Has(*item))
            continue;
        gone.push_back(item);
        SendMessageW(window_, LVM_DELETEITEM, static_cast<WPARAM>(row), 0);
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
    if (!StartDelete(folder, entries))
        return;
    RemoveDone(entries);
    TellTreeOfFolders(entries, ReportedFolders::Done);
    SendMessageW(window_, LVM_ARRANGE, LVA_DEFAULT, 0);
    if (currentFolder_.View() == folder.View())
        RecountFolderBytes(folder.View());
}
