// "New Folder".

#include "app/app_state.h"
#include "filelist/file_list.h"
#include "filelist/new_folder_names.h"

/// Makes the folder in `path`, under the first name that is free, and gives back its own path there. The last
/// number counts as none, even when it was free.
bool FileList::CreateNewFolder(Path& path) {
    const Path folder = path;
    for (int number = 1; number <= lastNewFolderNumber; ++number) {
        if (path.AssignChild(folder.View(), NewFolderName(number).View()) &&
            ce::CreateDirectoryW(path.Text(), nullptr))
            return number < lastNewFolderNumber;
    }
    return false;
}

void FileList::NewFolder() {
    const Path folder = currentFolder_; // the list may go elsewhere in the watcher's pause
    Path path = folder;
    appState.changeWatcher.PauseWatcher();
    if (!CreateNewFolder(path)) {
        MessageBoxW(appState.mainWindow, L"This folder cannot be created.", L"", MB_OK);
        appState.changeWatcher.ResumeWatcher();
        return;
    }
    GoToFolder(folder.View(), treeRescan);
    if (const int index = IndexOf(path); index >= 0) // none while folders are not shown
        SendMessageW(window_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(index), FALSE);
    EditName(path);
    appState.changeWatcher.ResumeWatcher();
}
