#include "fileops/delete.h"

#include <array>

#include "app/app_state.h"
#include "common/system_folder.h"
#include "common/text.h"
#include "fileops/confirm_delete_dialog.h"
#include "fileops/delete_rules.h"
#include "fileops/file_job.h"
#include "fileops/transfer_rules.h"
#include "resources/resource.h"

namespace {

constexpr JobLook look{{{216, 217, 107}, IDR_MENUBAR_JOB}, nullptr, L"'%s' cannot be deleted."};

class DeleteJob final : public FileJob {
  public:
    DeleteJob(const Path& sourceFolder, std::span<SelectionEntry> entries)
        : FileJob(look, sourceFolder.View(), entries), mode_(FirstDeleteMode(entries.size())) {}

    using FileJob::DropJob;
    using FileJob::PrepareJob;
    using FileJob::RunJob;

  private:
    const wchar_t* Work() override;
    std::size_t TargetLength(const SelectionEntry&) override { return 0; }
    int AnswerQuestion(UINT message, const wchar_t* text, const wchar_t* source) override;

    bool DeleteEntry(SelectionEntry& entry);
    bool AskAbout(const SelectionEntry& entry);

    SystemFolder system_{appState.settings.windowsPath.data()};
    ConflictMode mode_;
    Path path_;
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
    OnName(entry.name.data());
    if (DeleteAsks(mode_) && !AskAbout(entry))
        return false;
    if (mode_ == modeSkipped || mode_ == modeStop)
        return true;
    const ce::StepResult result =
        Steps().Remove({entry.folder.data(), entry.name.data(), entry.kind == ItemKind::Folder}, *this);
    entry.done = result == ce::StepResult::Done;
    return entry.done != 0 || result == ce::StepResult::Stopped;
}

/// Nothing inside a folder that goes is asked about, read-only and system files included. A "No" also passes
/// over the plain files after it, until another answer. False when the entry is not there.
bool DeleteJob::AskAbout(const SelectionEntry& entry) {
    QuestionText question{};
    if (entry.kind == ItemKind::Folder) {
        WriteFolderQuestion(question, path_.View());
        mode_ = Ask(UM_ASKREPLACEFILE, question.data());
        return true;
    }
    const DWORD attributes = ce::GetFileAttributesW(path_.Text());
    if (attributes != INVALID_FILE_ATTRIBUTES && WriteFileQuestion(question, path_.View(), attributes))
        mode_ = Ask(UM_ASKREPLACEFILE, question.data());
    return attributes != INVALID_FILE_ATTRIBUTES;
}

int DeleteJob::AnswerQuestion(UINT, const wchar_t* text, const wchar_t*) {
    return ConfirmDelete(Window(), text);
}

} // namespace

bool StartDelete(const Path& sourceFolder, std::span<SelectionEntry> entries) {
    QuestionText question{};
    WriteOpeningQuestion(question, entries);
    DeleteJob job(sourceFolder, entries);
    job.PrepareJob();
    if (AgreesTo(ConfirmDelete(appState.mainWindow, question.data())))
        return job.RunJob();
    job.DropJob();
    return false;
}
