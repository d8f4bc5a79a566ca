#include "fileops/single_steps.h"

#include <utility>
#include <vector>

#include "common/entry_places.h"
#include "common/file_facts.h"
#include "common/path.h"
#include "fileops/file_mover.h"
#include "platform/handles.h"

namespace {

bool IsFolder(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// A folder that only points to another one.
bool IsFolderLink(DWORD attributes) {
    return IsFolder(attributes) && (attributes & FILE_ATTRIBUTE_REPARSE_POINT);
}

class SingleSteps final : public ce::TreeSteps, private CopyWatch {
  public:
    void Hold(const wchar_t*, ce::TreeWatch&) override {}
    ce::StepResult Remove(const ce::TreeEntry& entry, ce::TreeWatch& watch) override;
    ce::StepResult Transfer(const ce::TreeEntry& entry, const wchar_t* targetFolder,
                            const wchar_t* targetName, bool isMove, ce::TreeWatch& watch) override;

  private:
    enum class Task { Remove, Copy, Move };

    /// A folder on the way down.
    struct Level {
        FindHandle find;
        std::unique_ptr<WIN32_FIND_DATAW> next; // what it tells next
        bool hasNext = false;
        bool isCard = false;
        std::size_t sourceLength = 0; // of the paths
        std::size_t targetLength = 0;
    };

    bool KeepGoing() override { return watch_->KeepGoing(); }

    ce::StepResult Run();
    ce::StepResult Take(const WIN32_FIND_DATAW& found);
    ce::StepResult TakeNext();
    ce::StepResult Enter(bool isCard);
    ce::StepResult Leave(bool isCard);
    ce::StepResult RemoveFile(DWORD attributes);
    ce::StepResult TransferFile(const WIN32_FIND_DATAW& found);
    ce::StepResult TakeLink();

    FileMover mover_{*this};
    ce::TreeWatch* watch_ = nullptr; // of the request under way
    Task task_ = Task::Remove;
    std::vector<Level> levels_;

    // What is worked on. Both paths grow and shrink with the way down.
    Path source_;
    Path target_;
};

ce::StepResult SingleSteps::Remove(const ce::TreeEntry& entry, ce::TreeWatch& watch) {
    watch_ = &watch;
    task_ = Task::Remove;
    WIN32_FIND_DATAW found{};
    if (!source_.AssignChild(entry.folder, entry.name))
        return ce::StepResult::Failed;
    found.dwFileAttributes = ce::GetFileAttributesW(source_.Text());
    if (found.dwFileAttributes == INVALID_FILE_ATTRIBUTES ||
        IsFolder(found.dwFileAttributes) != entry.isFolder)
        return ce::StepResult::Failed;
    const ce::StepResult result = Take(found);
    return result == ce::StepResult::Done ? Run() : result;
}

ce::StepResult SingleSteps::Transfer(const ce::TreeEntry& entry, const wchar_t* targetFolder,
                                     const wchar_t* targetName, bool isMove, ce::TreeWatch& watch) {
    watch_ = &watch;
    task_ = isMove ? Task::Move : Task::Copy;
    WIN32_FIND_DATAW found{};
    if (!source_.AssignChild(entry.folder, entry.name) || !target_.AssignChild(targetFolder, targetName))
        return ce::StepResult::Failed;
    const FindHandle find(ce::FindFirstFileW(source_.Text(), &found));
    if (!find || IsFolder(found.dwFileAttributes) != entry.isFolder)
        return ce::StepResult::Failed;
    const ce::StepResult result = Take(found);
    return result == ce::StepResult::Done ? Run() : result;
}

/// Goes through the folders that have been entered, from the first step that fails on no more.
ce::StepResult SingleSteps::Run() {
    ce::StepResult result = ce::StepResult::Done;
    while (result == ce::StepResult::Done && !levels_.empty())
        result = watch_->KeepGoing() ? TakeNext() : ce::StepResult::Stopped;
    levels_.clear();
    return result;
}

ce::StepResult SingleSteps::TakeNext() {
    Level& level = levels_.back();
    source_.Truncate(level.sourceLength);
    target_.Truncate(level.targetLength);
    if (!level.hasNext) {
        const bool isCard = level.isCard;
        levels_.pop_back();
        return Leave(isCard);
    }
    const WIN32_FIND_DATAW found = *level.next;
    level.hasNext = ce::FindNextFileW(level.find.Get(), level.next.get()) != FALSE;
    const bool fits = source_.Append(L"\\") && source_.Append(found.cFileName) &&
                      (task_ == Task::Remove || (target_.Append(L"\\") && target_.Append(found.cFileName)));
    return fits ? Take(found) : ce::StepResult::Failed;
}

ce::StepResult SingleSteps::Take(const WIN32_FIND_DATAW& found) {
    watch_->OnName(LeafOf(source_.View()).data());
    if (IsFolderLink(found.dwFileAttributes))
        return TakeLink();
    if (IsFolder(found.dwFileAttributes))
        return Enter((found.dwFileAttributes & FILE_ATTRIBUTE_STORAGE_CARD) != 0);
    return task_ == Task::Remove ? RemoveFile(found.dwFileAttributes) : TransferFile(found);
}

ce::StepResult SingleSteps::Enter(bool isCard) {
    // A folder that cannot be made is most likely there.
    const bool existed = task_ != Task::Remove && !ce::CreateDirectoryW(target_.Text(), nullptr);
    if (existed && !watch_->MayUseFolder(target_.Text()))
        return ce::StepResult::Done;
    if (existed && PlaceOfFolder(target_.View()).IsWithin(PlaceOfFolder(source_.View())))
        return ce::StepResult::Failed; // a link has led back
    Level level;
    level.next = std::make_unique<WIN32_FIND_DATAW>();
    level.isCard = isCard;
    level.sourceLength = source_.Length();
    level.targetLength = target_.Length();
    if (!source_.Append(L"\\*.*"))
        return ce::StepResult::Failed;
    level.find.Reset(ce::FindFirstFileW(source_.Text(), level.next.get()));
    level.hasNext = static_cast<bool>(level.find);
    source_.Truncate(level.sourceLength);
    levels_.push_back(std::move(level));
    return ce::StepResult::Done;
}

/// A folder that goes has been emptied; one that moves stays when something was left in it.
ce::StepResult SingleSteps::Leave(bool isCard) {
    const bool isMove = task_ == Task::Move && !isCard;
    if (isMove && !IsExistingFolder(target_.Text()))
        return ce::StepResult::Failed;
    const bool isRemoved = (task_ == Task::Remove || isMove) && ce::RemoveDirectoryW(source_.Text()) != FALSE;
    watch_->OnUnits(1);
    return task_ != Task::Remove || isRemoved ? ce::StepResult::Done : ce::StepResult::Failed;
}

/// The file keeps its attributes when it cannot be deleted.
ce::StepResult SingleSteps::RemoveFile(DWORD attributes) {
    const bool readOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (readOnly)
        ce::SetFileAttributesW(source_.Text(), FILE_ATTRIBUTE_NORMAL);
    if (ce::DeleteFileW(source_.Text())) {
        watch_->OnUnits(1);
        return ce::StepResult::Done;
    }
    if (readOnly)
        ce::SetFileAttributesW(source_.Text(), attributes);
    return ce::StepResult::Failed;
}

ce::StepResult SingleSteps::TransferFile(const WIN32_FIND_DATAW& found) {
    const bool isMove = task_ == Task::Move;
    MoverResult result = isMove ? mover_.Move(source_, found, target_) : mover_.Copy(source_, found, target_);
    if (result == MoverResult::Exists && watch_->MayReplaceFile(target_.Text(), source_.Text()))
        result = isMove ? mover_.MoveOver(source_, found, target_) : mover_.CopyOver(source_, found, target_);
    if (result == MoverResult::Failed)
        return ce::StepResult::Failed;
    if (result == MoverResult::Stopped)
        return ce::StepResult::Stopped;
    watch_->OnUnits(1);
    return ce::StepResult::Done;
}

/// A link is deleted or moved as it stands or left out: what it points to is never gone through.
ce::StepResult SingleSteps::TakeLink() {
    if (task_ == Task::Copy)
        AddLeftOut(1, 0);
    else if (!(task_ == Task::Remove ? ce::RemoveDirectoryW(source_.Text())
                                     : ce::MoveFileW(source_.Text(), target_.Text())))
        return ce::StepResult::Failed;
    watch_->OnUnits(1);
    return ce::StepResult::Done;
}

} // namespace

std::unique_ptr<ce::TreeSteps> MakeSingleSteps() {
    return std::make_unique<SingleSteps>();
}
