#include "companions/hosthand/copying.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <vector>

#include <fcntl.h>
#include <sys/xattr.h>

#include "companions/hosthand/removal.h"

namespace {

/// As much as may be copied between two looks at whether to go on.
constexpr std::size_t portion = 8 * 1024 * 1024;
constexpr std::size_t blockSize = 256 * 1024;

constexpr mode_t permissions = 0777; // rights of another user's are not handed on

/// Where Wine keeps what the phone calls hidden and system.
constexpr char attributesName[] = "user.DOSATTRIB";

constexpr int temporaryNames = 1000;

std::string TemporaryName(int number) {
    std::array<char, 16> name{};
    std::snprintf(name.data(), name.size(), "~job%03d.tmp", number);
    return name.data();
}

/// An entry that is there for the time of the job only.
class Temporary {
  public:
    /// Has `make` make it under a name of the job's that is free. There is none, with errno set, when it
    /// cannot.
    template <class Make>
    Temporary(int folder, Employer& employer, Make make) : folder_(folder), employer_(employer) {
        for (int number = 0; number < temporaryNames && name_.empty(); ++number) {
            const std::string name = TemporaryName(number);
            if (StatusOf(folder, name))
                continue;
            employer.BeginTemporary(folder, name);
            if (make(name)) {
                name_ = name;
                employer.MadeTemporary();
                return;
            }
            const int error = errno;
            employer.EndTemporary();
            errno = error;
            if (error != EEXIST)
                return;
        }
        errno = EEXIST;
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;
    ~Temporary() {
        if (name_.empty())
            return;
        RemoveFile(folder_, name_);
        employer_.EndTemporary();
    }

    explicit operator bool() const { return !name_.empty(); }
    const std::string& Name() const { return name_; }
    /// It has its last name now.
    void Keep() {
        name_.clear();
        employer_.EndTemporary();
    }

  private:
    int folder_;
    Employer& employer_;
    std::string name_;
};

bool MayGoOn(Employer& employer) {
    return employer.KeepGoing() || employer.MayFinishFile();
}

bool IsForPlainCopy(int error) {
    return error == EXDEV || error == EINVAL || error == ENOSYS || error == EOPNOTSUPP || error == EPERM ||
           error == EBADF;
}

bool WriteAll(int to, const char* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t written = write(to, bytes, size);
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0) {
            bytes += written;
            size -= static_cast<std::size_t>(written);
        }
    }
    return true;
}

Outcome CopyByBlocks(int from, int to, Employer& employer) {
    std::vector<char> block(blockSize);
    for (;;) {
        if (!MayGoOn(employer))
            return {hand::ResultCode::Stopped};
        const ssize_t size = read(from, block.data(), block.size());
        if (size == 0)
            return {};
        if ((size < 0 && errno != EINTR) ||
            (size > 0 && !WriteAll(to, block.data(), static_cast<std::size_t>(size))))
            return Failure();
    }
}

/// All that the file holds, by the host's own hand where it has one. Some files of the system's own say that
/// they are empty and are not: the rest is read.
Outcome CopyContents(int from, int to, off_t size, Employer& employer) {
    for (off_t done = 0; done < size;) {
        if (!MayGoOn(employer))
            return {hand::ResultCode::Stopped};
        const ssize_t copied = copy_file_range(from, nullptr, to, nullptr, portion, 0);
        if (copied < 0 && errno == EINTR)
            continue;
        if (copied < 0 && !IsForPlainCopy(errno))
            return Failure();
        if (copied <= 0)
            break;
        done += copied;
    }
    return CopyByBlocks(from, to, employer);
}

/// What a copy takes over besides what is in it.
void TakeOver(const struct stat& status, int from, int to) {
    std::array<char, 32> attributes{};
    const ssize_t length = fgetxattr(from, attributesName, attributes.data(), attributes.size());
    if (length > 0)
        fsetxattr(to, attributesName, attributes.data(), static_cast<std::size_t>(length), 0);
    fchmod(to, status.st_mode & permissions);
    const std::array<timespec, 2> times{status.st_atim, status.st_mtim};
    futimens(to, times.data());
}

/// Renames where the host cannot say "only when the name is free".
bool RenameToFreeName(const Step& step) {
    if (linkat(step.sourceFolder, step.name.c_str(), step.targetFolder, step.targetName.c_str(), 0) == 0)
        return RemoveFile(step.sourceFolder, step.name);
    if (errno == EEXIST)
        return false;
    if (StatusOf(step.targetFolder, step.targetName)) {
        errno = EEXIST;
        return false;
    }
    return renameat(step.sourceFolder, step.name.c_str(), step.targetFolder, step.targetName.c_str()) == 0;
}

bool Replace(const Step& step) {
    const auto source = StatusOf(step.sourceFolder, step.name);
    const auto target = StatusOf(step.targetFolder, step.targetName);
    const auto from = StatusOf(step.sourceFolder);
    const auto into = StatusOf(step.targetFolder);
    const bool isSameFile = source && target && IdentityOf(*source) == IdentityOf(*target);
    if (isSameFile && from && into && IdentityOf(*from) == IdentityOf(*into) && step.name == step.targetName)
        return true; // it is where it shall be
    if (isSameFile)  // two names of one file: the host would leave both
        return RemoveFile(step.sourceFolder, step.name);
    return renameat(step.sourceFolder, step.name.c_str(), step.targetFolder, step.targetName.c_str()) == 0;
}

} // namespace

bool Rename(const Step& step) {
    if (step.replaces)
        return Replace(step);
    if (renameat2(step.sourceFolder, step.name.c_str(), step.targetFolder, step.targetName.c_str(),
                  RENAME_NOREPLACE) == 0)
        return true;
    return (errno == EINVAL || errno == ENOSYS) && RenameToFreeName(step);
}

Outcome CopyFile(const Step& step, Employer& employer) {
    // Opened without waiting: what was a file a moment ago may be a pipe.
    const Descriptor from(openat(step.sourceFolder, step.name.c_str(),
                                 O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!from)
        return Failure();
    const auto status = StatusOf(from.Get());
    if (!status || !S_ISREG(status->st_mode))
        return Failure(EINVAL);
    Descriptor into;
    Temporary copy(step.targetFolder, employer, [&](const std::string& name) {
        into = Descriptor(openat(step.targetFolder, name.c_str(),
                                 O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
        return static_cast<bool>(into);
    });
    if (!copy)
        return Failure();
    const Outcome outcome = CopyContents(from.Get(), into.Get(), status->st_size, employer);
    if (!outcome.IsDone())
        return outcome;
    TakeOver(*status, from.Get(), into.Get());
    if (!into.Close() ||
        !Rename({step.targetFolder, copy.Name(), step.targetFolder, step.targetName, step.replaces}))
        return Failure();
    copy.Keep();
    return {};
}

namespace {

/// Makes something that is whole at once, beside what it replaces if need be.
template <class Make>
Outcome MakeSingle(const Step& step, Employer& employer, Make make) {
    if (!step.replaces)
        return make(step.targetName) ? Outcome{} : Failure();
    Temporary made(step.targetFolder, employer, make);
    if (!made || !Rename({step.targetFolder, made.Name(), step.targetFolder, step.targetName, true}))
        return Failure();
    made.Keep();
    return {};
}

} // namespace

Outcome CopyLink(const Step& step, Employer& employer) {
    std::vector<char> text(64 * 1024);
    const ssize_t length = readlinkat(step.sourceFolder, step.name.c_str(), text.data(), text.size() - 1);
    if (length < 0)
        return Failure();
    text[static_cast<std::size_t>(length)] = '\0';
    return MakeSingle(step, employer, [&](const std::string& name) {
        return symlinkat(text.data(), step.targetFolder, name.c_str()) == 0;
    });
}

Outcome CopySpecial(const Step& step, mode_t mode, Employer& employer) {
    return MakeSingle(step, employer, [&](const std::string& name) {
        // By its name the permissions could be given to what somebody puts in its place.
        const mode_t mask = umask(0);
        const bool isMade = mknodat(step.targetFolder, name.c_str(), mode & (S_IFMT | permissions), 0) == 0;
        umask(mask);
        return isMade;
    });
}
