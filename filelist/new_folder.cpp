// "New Folder".

#include "app/app_state.h"
#include "filelist/file_list.h"
#include "filelist/new_folder_names.h"

/// Makes the folder under the first name that is free. The last number counts as none, even when it was free.
bool FileList::CreateNewFolder(Path& path) {
    for (int number = 1; number <= lastNewFolderNumber; ++number) {
        if (path.AssignChild(currentFolder_.View(), NewFolderName(number).View()) &&
            ce::CreateDirectoryW(path.Text(), nullptr))
            return number < lastNewFolderNumber;
    }
    return false;
}

void FileList::NewFolder() {
    Path path;
    appState.changeWatcher.PauseWatcher();
    if (!CreateNewFolder(path)) {
        MessageBoxW(appState.mainWindow, L"This folder cannot be created.", L"", MB_OK);
        appState.changeWatcher.ResumeWatcher();
        return;
    }
    GoToFolder(currentFolder_.View(), treeRescan);
    const int index = IndexOf(path); // none while folders are not shown
    SendMessageW(window_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(index), FALSE);
    EditLabel(index);
    appState.changeWatcher.ResumeWatcher();
}
