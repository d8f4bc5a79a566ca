#include "companions/hosthand/transfer.h"

#include <array>
#include <cerrno>
#include <vector>

#include <fcntl.h>

#include "companions/hosthand/copying.h"
#include "companions/hosthand/names.h"
#include "companions/hosthand/removal.h"

namespace {

constexpr mode_t permissions = 0777;

bool HasSameContents(const struct stat& a, const struct stat& b) {
    return IdentityOf(a) == IdentityOf(b) && a.st_size == b.st_size && a.st_mtim.tv_sec == b.st_mtim.tv_sec &&
           a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

/// A folder on the way down, and the one it becomes.
struct Level {
    Descriptor source;
    Descriptor target;
    FolderReader reader;
    TargetNames names;
    std::string name;       // of the source in the level above
    std::string targetName; // of the target there
    std::string path;       // below the entry
    struct stat status;     // of the source
    bool isNew;             // the job has made the target
    bool isCard;            // it is not for the job to remove
    bool keepsSome = false; // something was skipped or left out
};

/// A folder that was made takes over what its source was before anything went.
void FinishTarget(const Level& level) {
    if (!level.isNew)
        return;
    fchmod(level.target.Get(), level.status.st_mode & permissions);
    const std::array<timespec, 2> times{level.status.st_atim, level.status.st_mtim};
    futimens(level.target.Get(), times.data());
}

class TreeTransfer {
  public:
    TreeTransfer(const Chosen& entry, const TransferPlace& place, bool isMove, Employer& employer)
        : entry_(entry), place_(place), isMove_(isMove), employer_(employer) {}

    Outcome Run();

  private:
    /// One entry and where it goes.
    struct Item {
        int folder;
        std::string name;
        int targetFolder;
        std::string targetName;
        TargetNames& names;
        std::string path;
        struct stat status;
    };

    Outcome TakeTop();
    Outcome TakeNext();
    Outcome Take(const Item& item);
    Outcome Enter(const Item& item, bool isCard);
    Outcome Leave();
    void LeaveUndone(const Outcome& outcome);
    Descriptor OpenTarget(const Item& item, bool& isNew);
    Outcome TakeSingle(const Item& item);
    Outcome Bring(const Item& item, const Step& step);
    Outcome Copy(const Item& item, const Step& step);
    Outcome MoveAcross(const Item& item, const Step& step);
    Outcome LeaveOut();
    bool MayTouch(const Item& item, const std::string& occupied);
    void KeepsSome();

    const Chosen& entry_;
    const TransferPlace& place_;
    const bool isMove_;
    Employer& employer_;
    std::vector<Level> levels_;
    std::optional<Identity> topTarget_;
    unsigned leftOut_ = 0;
    unsigned atBothPlaces_ = 0;
};

Outcome TreeTransfer::Run() {
    Outcome outcome = TakeTop();
    while (outcome.IsDone() && !levels_.empty())
        outcome = employer_.KeepGoing() ? TakeNext() : Outcome{hand::ResultCode::Stopped};
    for (; !levels_.empty(); levels_.pop_back())
        LeaveUndone(outcome);
    outcome.leftOut = leftOut_;
    outcome.atBothPlaces = atBothPlaces_;
    return outcome;
}

Outcome TreeTransfer::TakeTop() {
    const auto status = StatusOf(entry_.folder, entry_.name);
    if (!status)
        return Failure();
    const Item item{entry_.folder, entry_.name, place_.folder, place_.name, place_.names, {}, *status};
    if (!S_ISLNK(status->st_mode) && S_ISDIR(status->st_mode) != entry_.isFolder)
        return Failure(entry_.isFolder ? ENOTDIR : EISDIR);
    return Take(item);
}

Outcome TreeTransfer::TakeNext() {
    Level& level = levels_.back();
    FolderReader::Entry found;
    if (!level.reader.Next(found))
        return level.reader.Failed() ? Failure(EIO) : Leave();
    const auto status = StatusOf(level.source.Get(), found.name);
    if (!status)
        return Failure();
    return Take({level.source.Get(), found.name, level.target.Get(), found.name, level.names,
                 Below(level.path, found.name), *status});
}

Outcome TreeTransfer::Take(const Item& item) {
    employer_.Name(item.name);
    const bool isCard = entry_.cards.Has(item.folder, item.status);
    return S_ISDIR(item.status.st_mode) || isCard ? Enter(item, isCard) : TakeSingle(item);
}

void TreeTransfer::KeepsSome() {
    for (Level& level : levels_)
        level.keepsSome = true;
}

Outcome TreeTransfer::LeaveOut() {
    ++leftOut_;
    KeepsSome();
    employer_.CompleteUnit();
    return {};
}

// --- Folders ---

Outcome TreeTransfer::Enter(const Item& item, bool isCard) {
    Descriptor source = isCard ? OpenThroughLink(item.folder, item.name) : OpenFolder(item.folder, item.name);
    const bool isHidden = !source && errno == EACCES; // what cannot be listed counts as one that is left out
    if (!source && !isHidden)
        return Failure();
    if (isHidden || (!isCard && IsMountPoint(source.Get())))
        return LeaveOut();
    const auto status = StatusOf(source.Get());
    if (!status || (topTarget_ && IdentityOf(*status) == *topTarget_)) // it would go into itself
        return Failure(ELOOP);
    bool isNew = false;
    Descriptor target = OpenTarget(item, isNew);
    if (!target && errno == ECANCELED) {
        leftOut_ += CanBeTold(item.path) ? 0 : 1;
        KeepsSome();
        return {};
    }
    if (!target)
        return Failure();
    const auto targetStatus = StatusOf(target.Get());
    if (!targetStatus || IdentityOf(*targetStatus) == IdentityOf(*status))
        return Failure(ELOOP);
    if (levels_.empty())
        topTarget_ = IdentityOf(*targetStatus);
    if (isNew)
        item.names.Add(item.targetName);
    const int sourceNumber = source.Get();
    levels_.push_back({std::move(source), std::move(target), FolderReader(sourceNumber), TargetNames(isNew),
                       item.name, item.targetName, item.path, *status, isNew, isCard});
    return {};
}

/// The folder that receives, made or found. ECANCELED when what is there may not be used.
Descriptor TreeTransfer::OpenTarget(const Item& item, bool& isNew) {
    std::string name = item.names.Find(item.targetFolder, item.targetName, item.folder);
    isNew = name.empty() && mkdirat(item.targetFolder, item.targetName.c_str(), 0700) == 0;
    if (isNew)
        return OpenFolder(item.targetFolder, item.targetName);
    if (name.empty())
        name = item.targetName;
    if (!CanBeTold(item.path) || !employer_.MayUseFolder(item.path)) {
        errno = ECANCELED;
        return {};
    }
    const auto status = StatusOf(item.targetFolder, name);
    return status && entry_.cards.Has(item.targetFolder, *status) ? OpenThroughLink(item.targetFolder, name)
                                                                  : OpenFolder(item.targetFolder, name);
}

Outcome TreeTransfer::Leave() {
    Level level = std::move(levels_.back());
    levels_.pop_back();
    FinishTarget(level);
    const int parent = levels_.empty() ? entry_.folder : levels_.back().source.Get();
    if (isMove_ && !level.isCard && !level.keepsSome &&
        unlinkat(parent, level.name.c_str(), AT_REMOVEDIR) != 0) {
        // What came into it meanwhile stays with it.
        if (errno != ENOTEMPTY && errno != EEXIST)
            return {hand::ResultCode::SourceStays, errno};
        KeepsSome();
    }
    employer_.CompleteUnit();
    return {};
}

/// What was made for a folder whose contents stay where they are goes again, unless something is in it.
void TreeTransfer::LeaveUndone(const Outcome& outcome) {
    const Level& level = levels_.back();
    FinishTarget(level);
    const int parent = levels_.size() == 1 ? place_.folder : levels_[levels_.size() - 2].target.Get();
    if (level.isNew && outcome.code == hand::ResultCode::SourceStays)
        unlinkat(parent, level.targetName.c_str(), AT_REMOVEDIR);
}

// --- Single entries ---

Outcome TreeTransfer::TakeSingle(const Item& item) {
    for (;;) {
        const std::string occupied = item.names.Find(item.targetFolder, item.targetName, item.folder);
        if (!occupied.empty() && !CanBeTold(item.path)) // nobody could be asked about it
            return LeaveOut();
        if (!occupied.empty() && !employer_.MayReplaceFile(item.path)) {
            KeepsSome();
            employer_.CompleteUnit();
            return {};
        }
        if (!MayTouch(item, occupied))
            return Failure(EBUSY);
        const std::string& targetName = occupied.empty() ? item.targetName : occupied;
        const Outcome outcome =
            Bring(item, {item.folder, item.name, item.targetFolder, targetName, !occupied.empty()});
        if (outcome.error == EEXIST && occupied.empty())
            continue; // somebody was faster
        if (outcome.IsDone()) {
            item.names.Add(targetName);
            employer_.CompleteUnit();
        }
        return outcome;
    }
}

bool TreeTransfer::MayTouch(const Item& item, const std::string& occupied) {
    if (employer_.IsOpenElsewhere(item.status.st_dev, item.status.st_ino) &&
        !employer_.MayTouchSource(item.path, isMove_))
        return false;
    const auto target = occupied.empty() ? std::nullopt : StatusOf(item.targetFolder, occupied);
    return !target || !employer_.IsOpenElsewhere(target->st_dev, target->st_ino) ||
           employer_.MayTouchTarget(item.path);
}

Outcome TreeTransfer::Bring(const Item& item, const Step& step) {
    if (!isMove_)
        return Copy(item, step);
    if (Rename(step))
        return {};
    return errno == EXDEV ? MoveAcross(item, step) : Failure();
}

Outcome TreeTransfer::Copy(const Item& item, const Step& step) {
    if (S_ISREG(item.status.st_mode))
        return CopyFile(step, employer_);
    const bool isLink = S_ISLNK(item.status.st_mode);
    const bool isMadeAnew = isMove_ && (S_ISFIFO(item.status.st_mode) || S_ISSOCK(item.status.st_mode));
    Outcome outcome = isLink       ? CopyLink(step, employer_)
                      : isMadeAnew ? CopySpecial(step, item.status.st_mode, employer_)
                                   : Failure(EPERM);
    if (outcome.error != EPERM && outcome.error != EOPNOTSUPP) // where the host has no links
        return outcome;
    ++leftOut_;
    KeepsSome();
    return {};
}

/// To another file system: a copy, and the source goes once that is whole. A copy whose source cannot go is
/// taken back, where it has not replaced anything.
Outcome TreeTransfer::MoveAcross(const Item& item, const Step& step) {
    if (faccessat(step.sourceFolder, ".", W_OK, AT_EACCESS) != 0)
        return {hand::ResultCode::SourceStays, errno};
    const unsigned leftOutBefore = leftOut_;
    const Outcome outcome = Copy(item, step);
    if (!outcome.IsDone() || leftOut_ != leftOutBefore)
        return outcome;
    const auto now = StatusOf(step.sourceFolder, step.name);
    const bool isSame = now && HasSameContents(*now, item.status); // or the copy is not all there is
    if (isSame && RemoveFile(step.sourceFolder, step.name))
        return {};
    const int error = isSame ? errno : ESTALE;
    if (step.replaces || !RemoveFile(step.targetFolder, step.targetName))
        ++atBothPlaces_;
    return {hand::ResultCode::SourceStays, error};
}

} // namespace

Outcome Transfer(const Chosen& entry, const TransferPlace& place, bool isMove, Employer& employer) {
    return TreeTransfer(entry, place, isMove, employer).Run();
}
