// What the list shows: folders, search results, one single entry.

#include <algorithm>
#include <string_view>
#include <utility>

#include "app/address_bar.h"
#include "app/app_state.h"
#include "app/gestures.h"
#include "common/device_info.h"
#include "common/name_rules.h"
#include "common/wait_cursor.h"
#include "filelist/file_list.h"
#include "filelist/listing_rules.h"
#include "filelist/navigation_rules.h"
#include "filelist/rows.h"
#include "filelist/sorting.h"
#include "filelist/status_texts.h"

namespace {

template <class Visit>
void ForEachFound(std::wstring_view folder, Visit visit) {
    Path pattern;
    if (!pattern.AssignPattern(folder))
        return;
    WIN32_FIND_DATAW found{};
    const FindHandle find(ce::FindFirstFileW(pattern.Text(), &found));
    if (!find)
        return;
    do
        visit(found);
    while (ce::FindNextFileW(find.Get(), &found));
}

bool IsFolder(const WIN32_FIND_DATAW& found) {
    return (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

WIN32_FIND_DATAW FoundAgain(const SearchResult& result) {
    WIN32_FIND_DATAW found{};
    CopyTextTo(found.cFileName, result.name);
    found.dwFileAttributes = result.attributes;
    found.ftCreationTime = result.time;
    found.ftLastWriteTime = result.time;
    found.nFileSizeLow = result.size;
    return found;
}

bool StillExists(const SearchResult& result) {
    Path path;
    return path.AssignChild(result.folder, result.name) &&
           ce::GetFileAttributesW(path.Text()) != INVALID_FILE_ATTRIBUTES;
}

} // namespace

void FileList::GoToFolder(std::wstring_view path, int treeFlag) {
    Path folder; // a copy: the text may belong to an entry that goes with the listing
    if (!folder.Assign(NamesRoot(path, DeviceDisplayName()) ? std::wstring_view() : StoredName(path)))
        return;
    appState.changeWatcher.PauseWatcher();
    appState.changeWatcher.WatchFolder(folder.View());
    SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
    if (folder.IsSearchFolder())
        ListSearchResults();
    else
        ListFolder(folder, treeFlag);
    SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
    // The view knows how far it can scroll only from here on.
    const int selected = FirstSelected();
    if (selected >= 0)
        SendMessageW(window_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(selected), FALSE);
    appState.changeWatcher.ResumeWatcher();
}

void FileList::ShowAfterWork(const Path& began, std::wstring_view path, int treeFlag) {
    GoToFolder(currentFolder_.View() == began.View() ? path : currentFolder_.View(), treeFlag);
}

void FileList::ListFolder(const Path& path, int treeFlag) {
    const FileItem* reselected = nullptr;
    bool found = false;
    {
        const WaitCursor wait;
        const Records previous = BeginListing(); // until the rows have others
        history_.RecordHistory(path.View());
        if (!path.IsEmpty() && options.showUpLevel)
            AddUpLevel();
        const wchar_t* folder = records_.folders.KeepOnce(path.View());
        const std::wstring_view name = NameToReselect(path.View(), previousFolder_.View());
        ForEachFound(path.View(), [&](const WIN32_FIND_DATAW& entry) {
            if (hideFolders && IsFolder(entry))
                return;
            const bool matches = !name.empty() && name == entry.cFileName;
            found = found || matches;
            const FileItem* item = IsListed(entry.cFileName, entry.dwFileAttributes, options)
                                       ? AddEntry(folder, entry)
                                       : nullptr;
            if (matches)
                reselected = item;
        });
        FillView(reselected);
        EndListing(path);
    }
    appState.folderTree.selectPath(path.View(), treeFlag == treeRescan, true);
    if (!found)
        SelectEntry(0);
    previousFolder_ = path;
}

void FileList::ListSearchResults() {
    Path folder;
    {
        const WaitCursor wait;
        const Records previous = BeginListing(); // until the rows have others
        SearchResult* result = searchResults.First();
        while (result) {
            if (StillExists(*result)) {
                const WIN32_FIND_DATAW entry = FoundAgain(*result);
                if (IsListed(entry.cFileName, entry.dwFileAttributes, options))
                    AddEntry(records_.folders.KeepOnce(result->folder), entry);
                result = result->next.get();
            } else {
                result = searchResults.Remove(result);
            }
        }
        FillView(nullptr);
        if (folder.Assign(searchFolder))
            EndListing(folder);
    }
    appState.folderTree.selectPath(searchFolder, false, true);
    SelectEntry(0);
}

void FileList::ShowSingleEntry(std::wstring_view path) {
    Path entryPath;
    if (path.empty() || path == DeviceDisplayName() || !entryPath.Assign(path)) {
        currentFolder_.Clear();
        return;
    }
    const Records previous = TakeRecords();
    WIN32_FIND_DATAW found{};
    const FindHandle find(ce::FindFirstFileW(entryPath.Text(), &found));
    if (find)
        AddEntry(records_.folders.KeepOnce(ParentOf(entryPath.View())), found);
    FillView(nullptr);
    currentFolder_ = entryPath;
    LVITEMW all{};
    all.state = LVIS_SELECTED;
    all.stateMask = LVIS_SELECTED;
    SendMessageW(window_, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&all));
}

/// The record of an entry, or null for an index the list does not have. It goes with the listing: not to be
/// kept across anything that lets messages in.
FileItem* FileList::ItemAt(int index) const {
    LVITEMW entry{};
    entry.mask = LVIF_PARAM;
    entry.iItem = index;
    if (index < 0 || !SendMessageW(window_, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&entry)))
        return nullptr;
    return reinterpret_cast<FileItem*>(entry.lParam);
}

std::optional<SelectionEntry> FileList::EntryAt(int index) const {
    const FileItem* item = ItemAt(index);
    if (!item)
        return std::nullopt;
    SelectionEntry entry;
    entry.index = index;
    entry.kind = item->kind;
    CopyTextTo(entry.folder, item->folder);
    CopyTextTo(entry.name, item->name.get());
    return entry;
}

/// The record of an entry, wherever it stands by now; null when it is listed no more.
FileItem* FileList::FindItem(const SelectionEntry& entry) const {
    for (const std::unique_ptr<FileItem>& item : records_.items) {
        if (Names(*item, entry))
            return item.get();
    }
    return nullptr;
}

/// Index of the entry with this path, or -1.
int FileList::IndexOf(const Path& path) const {
    Path itsPath;
    for (int index = 0; const FileItem* item = ItemAt(index); ++index) {
        if (itsPath.AssignChild(item->folder, item->name.get()) && itsPath.View() == path.View())
            return index;
    }
    return -1;
}

int FileList::ItemCount() const {
    return static_cast<int>(SendMessageW(window_, LVM_GETITEMCOUNT, 0, 0));
}

int FileList::FilterSearchCommand(int command) const {
    return currentFolder_.IsSearchFolder() ? FilterForSearchResults(command) : command;
}

bool FileList::ShowsWhatIsThere() const {
    std::vector<std::wstring_view> shown;
    for (const std::unique_ptr<FileItem>& item : records_.items) {
        if (item->kind == ItemKind::UpLevel)
            continue;
        if (currentFolder_.View() != item->folder)
            return true; // a search result, or the one entry that a command of the tree is for
        shown.emplace_back(item->name.get());
    }
    std::ranges::sort(shown);
    std::size_t found = 0;
    bool same = !currentFolder_.IsSearchFolder();
    ForEachFound(currentFolder_.View(), [&](const WIN32_FIND_DATAW& entry) {
        if ((hideFolders && IsFolder(entry)) || !IsListed(entry.cFileName, entry.dwFileAttributes, options))
            return;
        ++found;
        same = same && std::ranges::binary_search(shown, std::wstring_view(entry.cFileName));
    });
    return currentFolder_.IsSearchFolder() || (same && found == shown.size());
}

void FileList::RecountFolderBytes(std::wstring_view path) {
    totalBytes_ = 0;
    ForEachFound(path, [&](const WIN32_FIND_DATAW& entry) {
        if (!IsFolder(entry))
            totalBytes_ += entry.nFileSizeLow;
    });
    UpdateStatusTexts();
}

void FileList::UpdateStatusTexts() {
    const int count = StatusFileCount(ItemCount(), UpLevelShown(), currentFolder_.View());
    ShowFolderStatus(count, totalBytes_, currentFolder_.View());
}

FileList::Records FileList::BeginListing() {
    ShowLoadingStatus();
    totalBytes_ = 0;
    return TakeRecords();
}

FileList::Records FileList::TakeRecords() {
    EndGesture(); // it is about entries that go
    tapAndHold.ForgetSelection();
    upLevel_ = nullptr;
    ++listingNumber_;
    return std::exchange(records_, {});
}

void FileList::ClearList() {
    const Records previous = TakeRecords();
    ShowRows(window_, {});
}

void FileList::AddUpLevel() {
    records_.items.push_back(std::make_unique<FileItem>());
    upLevel_ = records_.items.back().get();
    upLevel_->name = CopyText(upLevelName);
}

FileItem* FileList::AddEntry(const wchar_t* folder, const WIN32_FIND_DATAW& found) {
    records_.items.push_back(std::make_unique<FileItem>(MakeFileItem(folder, found)));
    totalBytes_ += records_.items.back()->size;
    return records_.items.back().get();
}

void FileList::FillView(const FileItem* selected) {
    std::vector<FileItem*> sorted;
    sorted.reserve(records_.items.size());
    for (const std::unique_ptr<FileItem>& item : records_.items)
        sorted.push_back(item.get());
    SortItems(sorted, options);
    ShowRows(window_, sorted);
    if (selected)
        SelectEntry(selected->row);
}

void FileList::SelectEntry(int index) {
    LVITEMW entry{};
    for (const UINT state : {LVIS_SELECTED, LVIS_FOCUSED}) {
        entry.state = state;
        entry.stateMask = state;
        SendMessageW(window_, LVM_SETITEMSTATE, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&entry));
    }
}

void FileList::EndListing(const Path& folder) {
    currentFolder_ = folder;
    ShowAddress(folder.View());
    UpdateStatusTexts();
    UpdateNavigationState();
}
