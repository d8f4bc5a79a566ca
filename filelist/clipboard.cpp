// Cut, copy and paste with the program's own clipboard.

#include <algorithm>

#include "app/app_state.h"
#include "app/menu_state.h"
#include "common/wait_cursor.h"
#include "filelist/file_list.h"
#include "filelist/tree_report.h"

bool FileList::CutSelection() {
    if (SelectedCount() < 1)
        return false;
    FillClipboard(Transfer::Move);
    MarkSelectionCut(true);
    return true;
}

/// Unlike a cut, copying nothing empties the clipboard.
bool FileList::CopySelection() {
    if (SelectedCount() < 1) {
        EmptyClipboard();
        return false;
    }
    FillClipboard(Transfer::Copy);
    MarkSelectionCut(false);
    return true;
}

void FileList::FillClipboard(Transfer transfer) {
    clipboard.entries = CollectSelection();
    clipboard.transfer = transfer;
    clipboard.sourceFolder = currentFolder_;
    UpdatePasteItems(true, true);
}

void FileList::EmptyClipboard() {
    clipboard = {};
    UpdatePasteItems(false, true);
}

void FileList::MarkSelectionCut(bool cut) {
    for (int index = NextSelected(-1); index >= 0; index = NextSelected(index)) {
        const auto focused = static_cast<UINT>(
            SendMessageW(window_, LVM_GETITEMSTATE, static_cast<WPARAM>(index), LVIS_FOCUSED));
        LVITEMW state{};
        state.state = cut ? LVIS_CUT | focused : 0;
        state.stateMask = cut ? LVIS_CUT | focused : LVIS_CUT;
        SendMessageW(window_, LVM_SETITEMSTATE, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&state));
    }
}

void FileList::Paste() {
    PasteInto(currentFolder_, true);
}

void FileList::PasteInto(const Path& folder, bool relist) {
    const Path destination = folder, began = currentFolder_;
    // A copy: while the job runs, something else may be cut or copied.
    FileClipboard pasted = clipboard;
    if (pasted.IsEmpty())
        return;
    if (!std::ranges::all_of(pasted.entries, StillExists)) {
        MessageBoxW(appState.mainWindow,
                    L"You cannot paste this file. The source file may have been deleted.", L"", MB_ICONHAND);
        return EmptyClipboard();
    }
    const bool moves = pasted.transfer == Transfer::Move;
    if (StartTransfer(pasted.transfer, pasted.sourceFolder, destination, pasted.entries)) {
        if (relist)
            ShowAfterWork(began, destination.View(), treeSelectOnly);
        if (moves && pasted.sourceFolder.IsSearchFolder())
            FollowMovedResults(pasted.entries, destination);
        if (TellTreeOfFolders(pasted.entries, ReportedFolders::All))
            appState.folderTree.selectPath(destination.View(), true,
                                           relist && currentFolder_.View() == destination.View());
    }
    if (moves)
        EmptyClipboard();
}

/// Search results stay where they are in the list and name the new place.
void FileList::FollowMovedResults(std::span<const SelectionEntry> entries, const Path& destination) {
    for (const SelectionEntry& entry : entries) {
        if (SearchResult* result = searchResults.Find(entry.folder.data(), entry.name.data()))
            searchResults.SetFolder(*result, destination.View());
    }
}

void FileList::PasteShortcut() {
    if (clipboard.IsEmpty())
        return;
    const Path destination = currentFolder_;
    PasteShortcutInto(destination);
    ShowAfterWork(destination, destination.View(), treeSelectOnly);
}

void FileList::PasteShortcutInto(const Path& destination) {
    const std::vector<SelectionEntry> entries = clipboard.entries; // as above
    const WaitCursor wait;
    for (const SelectionEntry& entry : entries)
        MakeShortcut(destination.View(), entry.folder.data(), entry.name.data());
}
