// "ZIP Archive..."

#include <vector>

#include "app/app_state.h"
#include "common/file_dialogs.h"
#include "fileops/archive_commands.h"
#include "fileops/archiver.h"
#include "fileops/archives.h"

namespace {

/// False when the user cancelled.
bool AskForArchive(ArchiveType type, const Path& folder, Path& archive) {
    const bool lha = type == ArchiveType::Lha;
    PathText file{};
    OPENFILENAMEW request{};
    request.lStructSize = OPENFILENAME_SIZE_VERSION_400W; // the phone knows no longer one
    request.hwndOwner = appState.mainWindow;
    request.lpstrFilter =
        lha ? L"LHA Files(*.lzh)\0*.lzh\0All Files\0*.*\0" : L"ZIP Files(*.zip)\0*.zip\0All Files\0*.*\0";
    request.lpstrFile = file.data();
    request.nMaxFile = static_cast<DWORD>(file.size());
    request.lpstrInitialDir = folder.Text();
    request.lpstrTitle = L"Compress Filename";
    request.Flags = OFN_OVERWRITEPROMPT | OFN_LONGNAMES;
    request.lpstrDefExt = lha ? L"lzh" : L"zip";
    const bool chosen = ShowSaveFileDialog(request);
    file.back() = L'\0';
    return chosen && archive.Assign(file.data());
}

} // namespace

void CompressSelection() {
    FileList& list = appState.fileList;
    const auto type = static_cast<ArchiveType>(list.options.archiveType);
    const Path folder = list.CurrentFolder();
    std::vector<SelectionEntry> entries = list.CollectSelection();
    std::erase_if(entries, [](const SelectionEntry& entry) { return !StillExists(entry); });
    Path archive;
    if (entries.empty() || !AskForArchive(type, folder, archive))
        return;
    const OwnedText command = CompressCommand(archive.View(), folder.View(), ArchiverFileList(entries).get());
    const ArchiverRun run = RunArchiver(type, command.get());
    if (!run.ran)
        return;
    const bool open = run.succeeded && list.options.alwaysOpenExtractFolder != 0;
    list.ShowAfterWork(folder, open ? ParentOf(archive.View()) : folder.View(), treeSelectOnly);
}
