// "Copy To...", "Move To..." and "Send Shortcut To...": the selection goes to a folder that is asked for.

#include "app/app_state.h"
#include "common/wait_cursor.h"
#include "filelist/file_list.h"
#include "fileops/folder_chooser.h"

void FileList::CopyTo() {
    TransferTo(Transfer::Copy, L"Copy file to");
}

void FileList::MoveTo() {
    TransferTo(Transfer::Move, L"Move file to");
}

void FileList::TransferTo(Transfer transfer, const wchar_t* title) {
    // What is selected now is meant: the list may show something else by the time a folder is chosen.
    const Path folder = currentFolder_;
    std::vector<SelectionEntry> entries = CollectSelection();
    // A selected up-level entry leaves an empty slot, which the job passes over.
    entries.resize(static_cast<std::size_t>(SendMessageW(window_, LVM_GETSELECTEDCOUNT, 0, 0)));
    FolderChooserRequest choice{folder};
    const bool refresh = ChooseFolder(title, choice) && !entries.empty() &&
                         StartTransfer(transfer, folder, choice.folder, entries);
    if (!refresh && !choice.changed)
        return;
    appState.folderTree.selectPath(choice.folder.View(), true, false);
    ShowAfterWork(folder, folder.View(), transfer == Transfer::Move ? treeRescan : treeSelectOnly);
}

void FileList::ShortcutsTo() {
    const std::vector<Path> targets = SelectedPaths(); // as above: what is selected now
    FolderChooserRequest choice{currentFolder_};
    if (!ChooseFolder(L"Create shortcut to", choice))
        return;
    const Path& destination = choice.folder;
    {
        const WaitCursor wait;
        for (const Path& target : targets)
            MakeShortcut(destination.View(), ParentOf(target.View()), LeafOf(target.View()));
    }
    if (EqualNoCase(destination.View(), currentFolder_.View()))
        GoToFolder(destination.View(), treeSelectOnly);
}
