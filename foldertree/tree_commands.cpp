// Commands of the list for the folder selected in the tree.

#include "app/app_state.h"
#include "common/file_facts.h"
#include "foldertree/folder_tree.h"

void FolderTree::OperateOnFolder(void (*operation)(int command), int command) {
    Path folder;
    if (!FolderToCarry(Caret(), folder)) // nothing to work on
        return;
    FileList& list = appState.fileList;
    list.ShowSingleEntry(folder.View());
    operation(command);
    if (list.CurrentFolder().View() != folder.View())
        return; // to what it made, where the options want that
    const std::size_t length = folder.View().size();
    CutToExisting(folder);
    const bool stays = folder.View().size() == length;
    list.GoToFolder(folder.View(), stays ? treeSelectOnly : treeRescan);
}
