#include "fileops/delete.h"

#include <array>

#include "app/app_state.h"
#include "app/system_folder.h"
#include "app/text.h"
#include "fileops/confirm_delete_dialog.h"
#include "fileops/delete_rules.h"
#include "fileops/file_job.h"
#include "fileops/transfer_rules.h"
#include "resources/resource.h"

namespace {

constexpr JobLook look{{{216, 217, 107}, IDR_MENUBAR_JOB}, nullptr, L"'%s' cannot be deleted."};

constexpr DWORD linkedFolder = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;

class DeleteJob final : public FileJob {
  public:
    DeleteJob(const Path& sourceFolder, std::span<SelectionEntry> entries)
        : FileJob(look, sourceFolder.View(), entries), mode_(FirstDeleteMode(entries.size())) {}

    using FileJob::DropJob;
    using FileJob::PrepareJob;
    using FileJob::RunJob;

  private:
    bool RemovesEntries() const override { return true; }
    const wchar_t* Work() override;
    std::size_t TargetLength(const SelectionEntry&) override { return 0; }
    int AnswerQuestion(UINT message, const wchar_t* text, const wchar_t* source) override;

    bool DeleteEntry(SelectionEntry& entry);
    bool DeleteFileEntry(SelectionEntry& entry);
    bool DeleteFolderEntry(SelectionEntry& entry);
    bool RemoveFile(DWORD attributes);
    bool RemoveFolder(bool& removed);
    bool RemoveLink(bool& removed);
    bool EmptyFolder();
    bool RemoveFound();

    SystemFolder system_{appState.settings.windowsPath.data()};
    int mode_;
    bool stopped_ = false; // "Cancel" came while a folder was emptied

    Path path_; // grows and shrinks with the way down
    WIN32_FIND_DATAW found_{};
};

const wchar_t* DeleteJob::Work() {
    for (SelectionEntry& entry : Entries()) {
        if (IsCancelled())
            return L"Canceled";
        if (entry.kind == ItemKind::Folder && system_.GoesWith(entry.folder.data(), entry.name.data())) {
            Report(systemFolderMessage);
            return systemFolderMessage;
        }
        if (!DeleteEntry(entry)) {
            ReportFailure(entry);
            return L"Canceled";
        }
        if (mode_ == modeStop)
            return L"Canceled";
    }
    return L"Done";
}

bool DeleteJob::DeleteEntry(SelectionEntry& entry) {
    std::array<wchar_t, pathCapacity + 16> line{};
    FormatText(line, L"from '%s'...", FolderCaption(entry.folder.data()).data());
    ShowSource(line.data());
    entry.done = 0;
    if (entry.kind != ItemKind::Folder && entry.kind != ItemKind::File)
        return true;
    if (!path_.AssignChild(entry.folder.data(), entry.name.data()))
        return false;
    ShowName(path_.View());
    return entry.kind == ItemKind::Folder ? DeleteFolderEntry(entry) : DeleteFileEntry(entry);
}

/// A "No" also passes over the plain files after it, until another answer.
bool DeleteJob::DeleteFileEntry(SelectionEntry& entry) {
    const DWORD attributes = ce::GetFileAttributesW(path_.Text());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return false;
    QuestionText question{};
    if (DeleteAsks(mode_) && WriteFileQuestion(question, path_.View(), attributes))
        mode_ = Ask(UM_ASKREPLACEFILE, question.data());
    if (mode_ == modeSkipped || mode_ == modeStop)
        return true;
    entry.done = RemoveFile(attributes);
    return entry.done != 0;
}

bool DeleteJob::DeleteFolderEntry(SelectionEntry& entry) {
    QuestionText question{};
    WriteFolderQuestion(question, path_.View());
    if (DeleteAsks(mode_))
        mode_ = Ask(UM_ASKREPLACEFILE, question.data());
    if (mode_ == modeSkipped || mode_ == modeStop)
        return true;
    const DWORD attributes = ce::GetFileAttributesW(path_.Text());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return false;
    bool removed = false;
    const bool isLink = (attributes & linkedFolder) == linkedFolder;
    const bool goOn = isLink ? RemoveLink(removed) : RemoveFolder(removed);
    entry.done = removed;
    return goOn;
}

/// Deletes the file at `path_`. It keeps its attributes when it cannot be deleted.
bool DeleteJob::RemoveFile(DWORD attributes) {
    const bool readOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (readOnly)
        ce::SetFileAttributesW(path_.Text(), FILE_ATTRIBUTE_NORMAL);
    if (!ce::DeleteFileW(path_.Text())) {
        if (readOnly)
            ce::SetFileAttributesW(path_.Text(), attributes);
        return false;
    }
    CompleteUnit();
    return true;
}

/// Removes the link at `path_` alone: what it points to is not touched.
bool DeleteJob::RemoveLink(bool& removed) {
    removed = ce::RemoveDirectoryW(path_.Text()) != FALSE;
    if (removed)
        CompleteUnit();
    return removed;
}

/// Empties and removes the folder at `path_`. False when that failed, which ends the job.
bool DeleteJob::RemoveFolder(bool& removed) {
    if (!EmptyFolder())
        return false;
    if (stopped_)
        return true;
    CompleteUnit();
    removed = ce::RemoveDirectoryW(path_.Text()) != FALSE;
    return removed;
}

/// Nothing inside a folder that goes is asked about, read-only and system files included.
bool DeleteJob::EmptyFolder() {
    const std::size_t length = path_.Length();
    if (!path_.Append(L"\\*.*"))
        return false;
    const FindHandle find(ce::FindFirstFileW(path_.Text(), &found_));
    path_.Truncate(length);
    for (bool more = static_cast<bool>(find); more; more = ce::FindNextFileW(find.Get(), &found_)) {
        stopped_ = stopped_ || IsCancelled();
        if (stopped_)
            return true;
        const bool goOn = path_.Append(L"\\") && path_.Append(found_.cFileName) && RemoveFound();
        path_.Truncate(length);
        if (!goOn)
            return false;
    }
    return true;
}

bool DeleteJob::RemoveFound() {
    const DWORD attributes = found_.dwFileAttributes;
    bool removed = false;
    ShowName(path_.View());
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY))
        return RemoveFile(attributes);
    return (attributes & linkedFolder) == linkedFolder ? RemoveLink(removed) : RemoveFolder(removed);
}

int DeleteJob::AnswerQuestion(UINT, const wchar_t* text, const wchar_t*) {
    return ConfirmDelete(Window(), text);
}

} // namespace

bool DeleteEntries(const Path& sourceFolder, std::span<SelectionEntry> entries) {
    QuestionText question{};
    WriteOpeningQuestion(question, entries);
    DeleteJob job(sourceFolder, entries);
    job.PrepareJob();
    if (AgreesTo(ConfirmDelete(appState.mainWindow, question.data())))
        return job.RunJob();
    job.DropJob();
    return false;
}
