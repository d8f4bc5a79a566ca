#include "fileops/transfer.h"

#include <array>

#include "app/app_state.h"
#include "common/entry_places.h"
#include "common/text.h"
#include "fileops/file_job.h"
#include "fileops/replace_dialogs.h"
#include "fileops/transfer_rules.h"
#include "resources/resource.h"

namespace {

constexpr JobLook copyLook{{{214, 215, 106}, IDR_MENUBAR_JOB}, L"Copy Files", L"'%s' cannot be copied."};
constexpr JobLook moveLook{{{214, 215, 106}, IDR_MENUBAR_JOB}, L"Move Files", L"'%s' cannot be copied."};

class TransferJob final : public FileJob {
  public:
    TransferJob(Transfer kind, const Path& sourceFolder, const Path& targetFolder,
                std::span<SelectionEntry> entries)
        : FileJob(kind == Transfer::Move ? moveLook : copyLook, sourceFolder.View(), entries),
          isMove_(kind == Transfer::Move), targetFolder_(targetFolder) {}

    using FileJob::RunJob;

  private:
    const wchar_t* Work() override;
    std::size_t TargetLength(const SelectionEntry& entry) override {
        return ChooseName(entry) ? target_.Length() : pathCapacity;
    }
    int AnswerQuestion(UINT message, const wchar_t* text, const wchar_t* source) override;

    bool MayReplaceFile(const wchar_t* target, const wchar_t* source) override;
    bool MayUseFolder(const wchar_t* target) override;

    ce::StepResult TransferEntry(const SelectionEntry& entry);
    bool ChooseName(const SelectionEntry& entry);
    void ReportEnd(const SelectionEntry& entry, ce::StepResult result);

    const bool isMove_;
    const Path& targetFolder_;
    const ce::RealPlace targetPlace_{PlaceOfFolder(targetFolder_.View())};
    EntryPlaces places_;
    ConflictMode conflictMode_ = modeAsk;
    Path target_;
};

const wchar_t* TransferJob::Work() {
    Steps().Hold(targetFolder_.Text(), *this);
    for (const SelectionEntry& entry : Entries()) {
        if (IsCancelled())
            return L"Canceled";
        const ce::StepResult result = TransferEntry(entry);
        if (result != ce::StepResult::Done) {
            ReportEnd(entry, result);
            return L"Canceled";
        }
        if (conflictMode_ == modeStop)
            return L"Canceled";
    }
    return L"Done";
}

void TransferJob::ReportEnd(const SelectionEntry& entry, ce::StepResult result) {
    if (result == ce::StepResult::Failed)
        ReportFailure(entry);
    if (result != ce::StepResult::SourceStays)
        return;
    std::array<wchar_t, 2 * pathCapacity + 128> text{};
    const int count = Steps().AtBothPlaces();
    FormatText(text,
               count == 0 ? L"'%s' cannot be removed from '%s'. What could not be removed is still there."
                          : L"'%s' cannot be removed from '%s'. What could not be removed is at both places.",
               entry.name.data(), FolderCaption(entry.folder.data()).data());
    Report(text.data());
}

ce::StepResult TransferJob::TransferEntry(const SelectionEntry& entry) {
    if (entry.kind != ItemKind::Folder && entry.kind != ItemKind::File)
        return ce::StepResult::Done;
    const std::wstring_view from = FolderCaption(entry.folder.data());
    const std::wstring_view to = FolderCaption(targetFolder_.View());
    std::array<wchar_t, 2 * pathCapacity + 16> line{};
    FormatText(line, L"'%s' to '%s'", from.data(), to.data());
    ShowSource(line.data());
    if (!ChooseName(entry))
        return ce::StepResult::Failed;
    OnName(entry.name.data());
    return Steps().Transfer({entry.folder.data(), entry.name.data(), entry.kind == ItemKind::Folder},
                            targetFolder_.Text(), LeafOf(target_.View()).data(), isMove_, *this);
}

/// A copy into the folder of the entry itself gets a name of its own.
bool TransferJob::ChooseName(const SelectionEntry& entry) {
    if (!places_.Folder(entry.folder.data()).Is(targetPlace_))
        return target_.AssignChild(targetFolder_.View(), entry.name.data());
    for (int number = 1; number <= lastCopyNumber; ++number) {
        if (!AssignCopyName(target_, targetFolder_.View(), entry.name.data(), number))
            return false;
        if (ce::GetFileAttributesW(target_.Text()) == INVALID_FILE_ATTRIBUTES)
            break;
    }
    return true;
}

bool TransferJob::MayReplaceFile(const wchar_t* target, const wchar_t* source) {
    if (conflictMode_ == modeAsk || conflictMode_ == modeSkipped)
        conflictMode_ = Ask(UM_ASKREPLACEFILE, target, source);
    return AgreesTo(conflictMode_);
}

bool TransferJob::MayUseFolder(const wchar_t* target) {
    const bool asks = conflictMode_ == modeAsk || conflictMode_ == modeSkipped;
    if (asks && Ask(UM_ASKREPLACEFOLDER, target) == skipExistingFolder)
        return false;
    return conflictMode_ != modeStop;
}

int TransferJob::AnswerQuestion(UINT message, const wchar_t* askTarget, const wchar_t* askSource) {
    return message == UM_ASKREPLACEFOLDER ? AskReplaceFolder(Window(), askTarget)
                                          : AskReplaceFile(Window(), askTarget, askSource);
}

} // namespace

bool StartTransfer(Transfer kind, const Path& sourceFolder, const Path& targetFolder,
                   std::span<SelectionEntry> entries) {
    const wchar_t* refusal = RefuseTransfer(
        {entries, targetFolder.View(), appState.settings.windowsPath.data(), kind == Transfer::Move});
    if (refusal) {
        MessageBoxW(appState.mainWindow, refusal, L"", MB_ICONHAND);
        return false;
    }
    TransferJob job(kind, sourceFolder, targetFolder, entries);
    return job.RunJob();
}
