#include "companions/hosthand/removal.h"

#include <cerrno>
#include <vector>

#include <fcntl.h>

namespace {

/// A folder on the way down.
struct Level {
    Level(Descriptor opened, const std::string& itsName, const std::string& itsPath)
        : folder(std::move(opened)), reader(folder.Get()), name(itsName), path(itsPath) {}

    Descriptor folder;
    FolderReader reader;
    std::string name; // in the level above
    std::string path; // below the entry
    bool hasShrunk = false;
};

class Removal {
  public:
    Removal(const Chosen& entry, Employer& employer) : entry_(entry), employer_(employer) {}

    Outcome Run();

  private:
    Outcome RemoveFolder();
    Outcome RemoveNext(Level& level, const FolderReader::Entry& found);
    Outcome RemoveSingle(int folder, const FolderReader::Entry& found, const std::string& path);
    Outcome Enter(int parent, const std::string& name, const std::string& path);
    Outcome Leave();

    const Chosen& entry_;
    Employer& employer_;
    std::vector<Level> levels_;
    bool isCard_ = false; // the entry: it is emptied, and taken out by other means
};

Outcome Removal::Run() {
    const auto status = StatusOf(entry_.folder, entry_.name);
    if (!status)
        return Failure();
    employer_.Name(entry_.name);
    isCard_ = entry_.cards.Has(entry_.folder, *status);
    if (S_ISDIR(status->st_mode) || isCard_)
        return entry_.isFolder ? RemoveFolder() : Failure(EISDIR);
    if (entry_.isFolder && !S_ISLNK(status->st_mode))
        return Failure(ENOTDIR);
    return RemoveSingle(entry_.folder, {entry_.name, status->st_ino, false}, {});
}

Outcome Removal::RemoveFolder() {
    Outcome outcome = Enter(entry_.folder, entry_.name, {});
    while (outcome.IsDone() && !levels_.empty()) {
        if (!employer_.KeepGoing())
            return {hand::ResultCode::Stopped};
        Level& level = levels_.back();
        FolderReader::Entry found;
        outcome = level.reader.Next(found) ? RemoveNext(level, found) : Leave();
    }
    return outcome;
}

Outcome Removal::Enter(int parent, const std::string& name, const std::string& path) {
    const bool isEnteredCard = isCard_ && levels_.empty();
    Descriptor folder = isEnteredCard ? OpenThroughLink(parent, name) : OpenFolder(parent, name);
    if (!folder && errno == EACCES && !isEnteredCard) { // one that cannot be listed goes when it is empty
        employer_.CompleteUnit();
        return unlinkat(parent, name.c_str(), AT_REMOVEDIR) == 0 ? Outcome{} : Failure(EACCES);
    }
    if (!folder)
        return Failure();
    if (!isEnteredCard && IsMountPoint(folder.Get()))
        return Failure(EBUSY);
    employer_.Name(name);
    levels_.emplace_back(std::move(folder), name, path);
    return {};
}

Outcome Removal::RemoveNext(Level& level, const FolderReader::Entry& found) {
    const std::string path = Below(level.path, found.name);
    if (found.mayBeFolder) {
        level.hasShrunk = true; // or it will not come to that
        const Outcome entered = Enter(level.folder.Get(), found.name, path);
        if (entered.IsDone())
            return {};
        if (entered.error == ENOENT)
            return {};
        if (entered.error != ENOTDIR && entered.error != ELOOP)
            return entered;
    }
    employer_.Name(found.name);
    const Outcome removed = RemoveSingle(level.folder.Get(), found, path);
    if (removed.error == EISDIR && !found.mayBeFolder)
        return RemoveNext(level, {found.name, found.number, true});
    level.hasShrunk = level.hasShrunk || removed.IsDone();
    return removed.error == ENOENT ? Outcome{} : removed;
}

Outcome Removal::RemoveSingle(int folder, const FolderReader::Entry& found, const std::string& path) {
    if (employer_.MightBeOpenElsewhere(found.number)) {
        const auto status = StatusOf(folder, found.name);
        if (status && S_ISREG(status->st_mode) && employer_.IsOpenElsewhere(status->st_dev, status->st_ino) &&
            !employer_.MayTouchSource(path, true))
            return Failure(EBUSY);
    }
    if (!RemoveFile(folder, found.name))
        return Failure();
    employer_.CompleteUnit();
    return {};
}

/// The folder has been read to its end: it goes, unless more has come into it.
Outcome Removal::Leave() {
    Level& level = levels_.back();
    const bool isTop = levels_.size() == 1;
    const int parent = isTop ? entry_.folder : levels_[levels_.size() - 2].folder.Get();
    if (level.reader.Failed())
        return Failure(EIO);
    if (isTop && isCard_)
        return Failure(EACCES);
    if (unlinkat(parent, level.name.c_str(), AT_REMOVEDIR) != 0) {
        const int error = errno;
        // Something is left where entries came, or slipped past the reading, while others went.
        if ((error == ENOTEMPTY || error == EEXIST) && level.hasShrunk) {
            level.hasShrunk = false;
            level.reader.Rewind();
            return {};
        }
        if (isTop || error != ENOENT)
            return Failure(error);
    }
    employer_.CompleteUnit();
    levels_.pop_back();
    return {};
}

} // namespace

Outcome Remove(const Chosen& entry, Employer& employer) {
    return Removal(entry, employer).Run();
}

bool RemoveFile(int folder, const std::string& name) {
    return unlinkat(folder, name.c_str(), 0) == 0;
}
