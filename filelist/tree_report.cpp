#include "filelist/tree_report.h"

#include "app/app_state.h"

bool TellTreeOfFolders(std::span<const SelectionEntry> entries, ReportedFolders which) {
    const wchar_t* told = nullptr; // entries come folder by folder: each is read once
    for (const SelectionEntry& entry : entries) {
        if (entry.kind != ItemKind::Folder || (which == ReportedFolders::Done && !entry.done))
            continue;
        const wchar_t* folder = entry.folder.data();
        if (!told || std::wstring_view(told) != folder)
            appState.folderTree.selectPath(folder, true, false);
        told = folder;
    }
    return told != nullptr;
}
