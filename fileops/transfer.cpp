#include "fileops/transfer.h"

#include <array>

#include "app/app_state.h"
#include "app/entry_places.h"
#include "app/file_facts.h"
#include "app/text.h"
#include "fileops/file_job.h"
#include "fileops/file_mover.h"
#include "fileops/replace_dialogs.h"
#include "fileops/transfer_rules.h"
#include "resources/resource.h"

namespace {

constexpr JobLook copyLook{{{214, 215, 106}, IDR_MENUBAR_JOB}, L"Copy Files", L"'%s' cannot be copied."};
constexpr JobLook moveLook{{{214, 215, 106}, IDR_MENUBAR_JOB}, L"Move Files", L"'%s' cannot be copied."};

bool IsFolder(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// A folder that only points to another one.
bool IsFolderLink(DWORD attributes) {
    return IsFolder(attributes) && (attributes & FILE_ATTRIBUTE_REPARSE_POINT);
}

/// How much of a folder was gone through.
enum class Contents { Whole, Stopped, Failed };

class TransferJob final : public FileJob {
  public:
    TransferJob(Transfer kind, const Path& sourceFolder, const Path& targetFolder,
                std::span<SelectionEntry> entries)
        : FileJob(kind == Transfer::Move ? moveLook : copyLook, sourceFolder.View(), entries),
          isMove_(kind == Transfer::Move), targetFolder_(targetFolder), mover_(*this) {}

    using FileJob::RunJob;

  private:
    bool RemovesEntries() const override { return isMove_; }
    const wchar_t* Work() override;
    std::size_t TargetLength(const SelectionEntry& entry) override {
        return ChooseTarget(entry) ? target_.Length() : pathCapacity;
    }
    int AnswerQuestion(UINT message, const wchar_t* text, const wchar_t* source) override;

    bool TransferEntry(const SelectionEntry& entry);
    bool ChooseTarget(const SelectionEntry& entry);
    bool TransferFound();
    bool TransferFile();
    bool TransferFolder();
    Contents TransferContents();
    bool TransferLink();
    bool MayUseExisting();
    bool RemoveEmptied();

    const bool isMove_;
    const Path& targetFolder_;
    const ce::RealPlace targetPlace_{PlaceOfFolder(targetFolder_.View())};
    EntryPlaces places_;
    FileMover mover_;
    int conflictMode_ = modeAsk;
    bool fileAbandoned_ = false; // "Cancel" came in the middle of a file

    // What is worked on. Both paths grow and shrink with the way down, so that the depth of the folders costs
    // little of the worker's stack.
    Path source_;
    Path target_;
    WIN32_FIND_DATAW found_{};
};

const wchar_t* TransferJob::Work() {
    for (const SelectionEntry& entry : Entries()) {
        if (IsCancelled())
            return L"Canceled";
        if (!TransferEntry(entry)) {
            ReportFailure(entry);
            return L"Canceled";
        }
        if (conflictMode_ == modeStop || fileAbandoned_)
            return L"Canceled";
    }
    return L"Done";
}

bool TransferJob::TransferEntry(const SelectionEntry& entry) {
    if (entry.kind != ItemKind::Folder && entry.kind != ItemKind::File)
        return true;
    const std::wstring_view from = FolderCaption(entry.folder.data());
    const std::wstring_view to = FolderCaption(targetFolder_.View());
    std::array<wchar_t, 2 * pathCapacity + 16> line{};
    FormatText(line, L"'%s' to '%s'", from.data(), to.data());
    ShowSource(line.data());

    if (!source_.AssignChild(entry.folder.data(), entry.name.data()) || !ChooseTarget(entry))
        return false;
    const FindHandle find(ce::FindFirstFileW(source_.Text(), &found_));
    // A link that was itself chosen cannot be copied; one met on the way is passed over.
    return find && (isMove_ || !IsFolderLink(found_.dwFileAttributes)) && TransferFound();
}

/// A copy into the folder of the entry itself gets a name of its own.
bool TransferJob::ChooseTarget(const SelectionEntry& entry) {
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

/// Brings what `found_` tells of from `source_` to `target_`. False when that failed, which ends the job.
bool TransferJob::TransferFound() {
    if (IsFolderLink(found_.dwFileAttributes))
        return TransferLink();
    return IsFolder(found_.dwFileAttributes) ? TransferFolder() : TransferFile();
}

bool TransferJob::TransferFile() {
    ShowName(source_.View());
    MoverResult result =
        isMove_ ? mover_.Move(source_, found_, target_) : mover_.Copy(source_, found_, target_);
    if (result == MoverResult::Exists) {
        if (conflictMode_ == modeAsk || conflictMode_ == modeSkipped)
            conflictMode_ = Ask(UM_ASKREPLACEFILE, target_.Text(), source_.Text());
        if (conflictMode_ == modeAsk || conflictMode_ == modeAll)
            result = isMove_ ? mover_.MoveOver(source_, found_, target_)
                             : mover_.CopyOver(source_, found_, target_);
    }
    if (result == MoverResult::Failed)
        return false;
    fileAbandoned_ = result == MoverResult::Stopped;
    if (!fileAbandoned_)
        CompleteUnit();
    return true;
}

bool TransferJob::TransferFolder() {
    const bool isCard = (found_.dwFileAttributes & FILE_ATTRIBUTE_STORAGE_CARD) != 0;
    ShowName(source_.View());
    const bool existed = !ce::CreateDirectoryW(target_.Text(), nullptr);
    if (existed && !MayUseExisting())
        return true;
    if (existed && PlaceOfFolder(target_.View()).IsWithin(PlaceOfFolder(source_.View())))
        return false; // a link has led back
    const Contents contents = TransferContents();
    if (contents != Contents::Whole)
        return contents == Contents::Stopped;
    if (isMove_ && !isCard && !RemoveEmptied())
        return false;
    CompleteUnit();
    return true;
}

/// The folder could not be made, most likely because it is there.
bool TransferJob::MayUseExisting() {
    if (conflictMode_ == modeAsk || conflictMode_ == modeSkipped) {
        if (Ask(UM_ASKREPLACEFOLDER, target_.Text()) == skipExistingFolder)
            return false;
    }
    return conflictMode_ != modeStop;
}

Contents TransferJob::TransferContents() {
    const std::size_t sourceLength = source_.Length();
    const std::size_t targetLength = target_.Length();
    if (!source_.Append(L"\\*.*"))
        return Contents::Failed;
    const FindHandle find(ce::FindFirstFileW(source_.Text(), &found_));
    source_.Truncate(sourceLength);
    for (bool more = static_cast<bool>(find); more; more = ce::FindNextFileW(find.Get(), &found_)) {
        if (IsCancelled())
            return Contents::Stopped;
        const bool goOn = source_.Append(L"\\") && source_.Append(found_.cFileName) &&
                          target_.Append(L"\\") && target_.Append(found_.cFileName) && TransferFound();
        source_.Truncate(sourceLength);
        target_.Truncate(targetLength);
        if (!goOn)
            return Contents::Failed;
    }
    return fileAbandoned_ ? Contents::Stopped : Contents::Whole;
}

/// A link is moved as it stands or stays where it is: what it points to is never gone through.
bool TransferJob::TransferLink() {
    ShowName(source_.View());
    if (isMove_)
        ce::MoveFileW(source_.Text(), target_.Text());
    CompleteUnit();
    return true;
}

/// The folder goes once all it held is at the new place; it stays when something was left in it.
bool TransferJob::RemoveEmptied() {
    if (!IsExistingFolder(target_.Text()))
        return false;
    ce::RemoveDirectoryW(source_.Text());
    return true;
}

int TransferJob::AnswerQuestion(UINT message, const wchar_t* text, const wchar_t* source) {
    return message == UM_ASKREPLACEFOLDER ? AskReplaceFolder(Window(), text)
                                          : AskReplaceFile(Window(), text, source);
}

} // namespace

bool TransferEntries(Transfer kind, const Path& sourceFolder, const Path& targetFolder,
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
