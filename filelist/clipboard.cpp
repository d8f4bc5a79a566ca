// Cut, copy and paste with the program's own clipboard.

#include <algorithm>

#include "app/app_state.h"
#include "app/menu_state.h"
#include "app/wait_cursor.h"
#include "filelist/file_list.h"
#include "filelist/tree_report.h"

void FileList::CutSelection() {
    if (SelectedCount() < 1)
        return;
    FillClipboard(Transfer::Move);
    MarkSelectionCut(true);
}

/// Unlike a cut, copying nothing empties the clipboard.
void FileList::CopySelection() {
    if (SelectedCount() < 1)
        return EmptyClipboard();
    FillClipboard(Transfer::Copy);
    MarkSelectionCut(false);
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

void FileList::Paste(bool relist) {
    if (clipboard.IsEmpty())
        return;
    if (!std::ranges::all_of(clipboard.entries, StillExists)) {
        MessageBoxW(appState.mainWindow,
                    L"You cannot paste this file. The source file may have been deleted.", L"", MB_ICONHAND);
        return EmptyClipboard();
    }
    const Path destination = currentFolder_;
    const bool moves = clipboard.transfer == Transfer::Move;
    if (TransferEntries(clipboard.transfer, clipboard.sourceFolder, destination, clipboard.entries)) {
        if (relist)
            GoToFolder(destination.View(), treeSelectOnly);
        if (moves && clipboard.sourceFolder.IsSearchFolder())
            FollowMovedResults(destination);
        if (TellTreeOfFolders(clipboard.entries, ReportedFolders::All))
            appState.folderTree.SelectPath(destination.View(), true, relist);
    }
    if (moves)
        EmptyClipboard();
}

/// Search results stay where they are in the list and name the new place.
void FileList::FollowMovedResults(const Path& destination) {
    for (const SelectionEntry& entry : clipboard.entries) {
        if (SearchResult* result = searchResults.Find(entry.folder.data(), entry.name.data()))
            searchResults.SetFolder(*result, destination.View());
    }
}

void FileList::PasteShortcut(bool relist) {
    if (clipboard.IsEmpty())
        return;
    const Path destination = currentFolder_;
    {
        const WaitCursor wait;
        for (const SelectionEntry& entry : clipboard.entries)
            MakeShortcut(destination.View(), entry.folder.data(), entry.name.data());
    }
    if (relist)
        GoToFolder(destination.View(), treeSelectOnly);
}
