// "New Folder".

#include "app/app_state.h"
#include "filelist/file_list.h"
#include "filelist/new_folder_names.h"

/// Makes the folder under the first name that is free. The last number counts as none, even when it was free.
bool FileList::CreateNewFolder(Path& name) {
    for (int number = 1; number <= lastNewFolderNumber; ++number) {
        name = NewFolderName(number);
        Path path;
        if (path.AssignChild(currentFolder_.View(), name.View()) && CreateDirectoryW(path.Text(), nullptr))
            return number < lastNewFolderNumber;
    }
    return false;
}

void FileList::NewFolder() {
    Path name;
    appState.changeWatcher.PauseWatcher();
    if (!CreateNewFolder(name)) {
        MessageBoxW(appState.mainWindow, L"This folder cannot be created.", L"", MB_OK);
        appState.changeWatcher.ResumeWatcher();
        return;
    }
    GoToFolder(currentFolder_.View(), treeRescan);
    if (const int index = IndexOfFolder(name.View()); index >= 0) {
        SendMessageW(window_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(index), FALSE);
        EditLabel(index);
    }
    appState.changeWatcher.ResumeWatcher();
}

int FileList::IndexOfFolder(std::wstring_view name) const {
    for (const std::unique_ptr<FileItem>& item : records_.items) {
        if (item->kind == ItemKind::Folder && name == item->name.get())
            return item->row;
    }
    return -1;
}
