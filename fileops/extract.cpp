// "Extract to..." and "Extract to here"

#include <vector>

#include "app/app_state.h"
#include "common/file_facts.h"
#include "fileops/archive_commands.h"
#include "fileops/archiver.h"
#include "fileops/archives.h"
#include "fileops/folder_chooser.h"

namespace {

/// Makes the folder and those above it, as far as they are missing.
bool MakeFolders(const Path& folder) {
    Path part;
    for (std::size_t end = 1; end <= folder.Length(); ++end) {
        if (end < folder.Length() && folder.View()[end] != L'\\')
            continue;
        if (!part.Assign(folder.View().substr(0, end)) ||
            (!IsExistingFolder(part.Text()) && !ce::CreateDirectoryW(part.Text(), nullptr)))
            return false;
    }
    return true;
}

bool MakeTarget(const Path& target) {
    appState.changeWatcher.PauseWatcher();
    const bool made = IsExistingFolder(target.Text()) || MakeFolders(target);
    appState.changeWatcher.ResumeWatcher();
    return made;
}

void ReportNoTarget() {
    MessageBoxW(appState.mainWindow, L"'Extraction to folder' is not found.", L"", MB_ICONHAND);
}

struct Extraction {
    std::wstring_view base;
    ArchiveType type = ArchiveType::None;
    bool open = false;      // the list goes to what came out
    bool ownFolder = false; // named like the archive
};

ArchiverRun ExtractArchive(const SelectionEntry& entry, const Extraction& extraction) {
    Path archive;
    Path target;
    if (!archive.AssignChild(entry.folder.data(), entry.name.data()) ||
        !AssignExtractTarget(target, extraction.base, entry.name.data(), extraction.ownFolder) ||
        !MakeTarget(target)) {
        ReportNoTarget();
        return {};
    }
    const Path began = appState.fileList.CurrentFolder();
    const ArchiverRun run = RunArchiver(extraction.type, ExtractCommand(archive.View(), target.View()).get());
    // The target may be new, and there may be new folders in it, also of what failed in its middle.
    appState.folderTree.selectPath(ParentOf(target.View()), true, false);
    appState.folderTree.selectPath(target.View(), true, false);
    if (run.succeeded && extraction.open)
        appState.fileList.ShowAfterWork(began, target.View(), treeRescan);
    return {true, run.succeeded};
}

/// The folder that archives go to while the user has chosen none: the default one of the options.
Path DefaultTarget() {
    std::wstring_view folder = appState.fileList.compressFolder.data();
    while (folder.ends_with(L'\\'))
        folder.remove_suffix(1);
    Path target;
    return target.Assign(folder) ? target : Path();
}

/// Asks where to extract to, and returns that. Whatever the answer, it is the last folder chosen that counts.
/// `shown` becomes the folder that the list shows when something was extracted, `began` the one that it shows
/// when that is chosen.
Path AskForTarget(Path& shown, Path& began) {
    if (!IsExistingFolder(shown.Text()))
        shown.Clear(); // search results
    FolderChooserRequest choice{shown};
    if (ChooseFolder(L"Extract To", choice)) {
        shown = choice.folder;
        began = appState.fileList.CurrentFolder();
        appState.lastExtractTarget = choice.folder;
    }
    const Path target = appState.lastExtractTarget ? *appState.lastExtractTarget : DefaultTarget();
    CopyTextTo(appState.fileList.compressFolder, target.View());
    if (choice.changed) {
        appState.folderTree.selectPath(choice.folder.View(), true, false);
        appState.fileList.GoToFolder(appState.fileList.CurrentFolder().View(), treeSelectOnly);
    }
    return target;
}

/// Extracts each entry that is an archive. Says whether one was tried, and whether one succeeded.
ArchiverRun ExtractEach(std::span<const SelectionEntry> entries, std::wstring_view commonBase) {
    const ListOptions& options = appState.fileList.options;
    ArchiverRun any;
    for (const SelectionEntry& entry : entries) {
        const ArchiveType type = ArchiveTypeOf(entry.name.data());
        if (entry.kind != ItemKind::File || !appState.archivers.IsArchiverAvailable(type) ||
            !StillExists(entry))
            continue;
        const std::wstring_view base = options.extractInPlace ? entry.folder.data() : commonBase;
        const ArchiverRun run = ExtractArchive(
            entry, {base, type, options.alwaysOpenExtractFolder != 0, options.automaticFolderCreation != 0});
        any.ran = any.ran || run.ran;
        any.succeeded = any.succeeded || run.succeeded;
    }
    return any;
}

} // namespace

void ExtractSelection() {
    FileList& list = appState.fileList;
    // What is selected now is meant: the list may show something else by the time a folder is chosen.
    const std::vector<SelectionEntry> entries = list.CollectSelection();
    Path began = list.CurrentFolder();
    Path shown = began;
    Path base;
    if (!list.options.extractInPlace)
        base = AskForTarget(shown, began);
    const ArchiverRun run = ExtractEach(entries, base.View());
    if (!run.ran)
        return;
    if (list.options.alwaysOpenExtractFolder || !run.succeeded)
        shown = list.CurrentFolder(); // where the last archive has taken it, or where it stayed
    list.ShowAfterWork(began, shown.View(), treeRescan);
}

void ExtractHere() {
    FileList& list = appState.fileList;
    const std::vector<SelectionEntry> entries = list.CollectSelection();
    if (entries.empty())
        return;
    const SelectionEntry& first = entries.front();
    const Path folder = list.CurrentFolder();
    if (ExtractArchive(first, {first.folder.data(), ArchiveType::Zip}).ran)
        list.ShowAfterWork(folder, folder.View(), treeRescan);
}
