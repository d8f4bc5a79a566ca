#include "companions/hosthand/folder.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>

#include <dirent.h>
#include <fcntl.h>
#include <sys/syscall.h>

#include "companions/hosthand/names.h"

namespace {

constexpr std::size_t blockSize = 32 * 1024;

/// One entry as the host's call lays it down.
struct HostEntry {
    std::uint64_t number;
    std::int64_t offset;
    unsigned short length;
    unsigned char type;
};
constexpr std::size_t nameOffset = offsetof(struct dirent64, d_name);
static_assert(nameOffset == 19);

} // namespace

Identity IdentityOf(const struct stat& status) {
    return {status.st_dev, status.st_ino};
}

std::optional<struct stat> StatusOf(int folder, const std::string& name) {
    struct stat status {};
    if (fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    return status;
}

std::optional<struct stat> StatusOf(int opened) {
    struct stat status {};
    if (fstat(opened, &status) != 0)
        return std::nullopt;
    return status;
}

Cards::Cards(int root) {
    const Descriptor opened(openat(root, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const auto rootStatus = opened ? StatusOf(opened.Get()) : std::nullopt;
    if (!rootStatus)
        return;
    root_ = IdentityOf(*rootStatus);
    FolderReader reader(opened.Get());
    for (FolderReader::Entry entry; reader.Next(entry);) {
        const auto status = StatusOf(opened.Get(), entry.name);
        struct stat behind {};
        if (status && S_ISLNK(status->st_mode) &&
            fstatat(opened.Get(), entry.name.c_str(), &behind, 0) == 0 && S_ISDIR(behind.st_mode))
            links_.push_back(IdentityOf(*status));
    }
}

bool Cards::Has(int folder, const struct stat& status) const {
    if (!S_ISLNK(status.st_mode) || std::ranges::find(links_, IdentityOf(status)) == links_.end())
        return false;
    const auto folderStatus = StatusOf(folder);
    return folderStatus && IdentityOf(*folderStatus) == root_;
}

Descriptor OpenFolder(int parent, const std::string& name) {
    return Descriptor(openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

Descriptor OpenThroughLink(int parent, const std::string& name) {
    return Descriptor(openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

bool IsMountPoint(int folder) {
    struct statx status {};
    return statx(folder, "", AT_EMPTY_PATH, STATX_INO, &status) == 0 &&
           (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

std::string FindName(int folder, std::string_view name) {
    std::string exact(name);
    if (faccessat(folder, exact.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0)
        return exact;
    const Descriptor opened(openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::string upper = UpperCase(name);
    FolderReader reader(opened.Get());
    for (FolderReader::Entry entry; opened && reader.Next(entry);)
        if (UpperCase(entry.name) == upper)
            return entry.name;
    errno = ENOENT;
    return {};
}

Descriptor OpenPath(int root, std::string_view path) {
    // Only its name is needed of a folder on the way: it may be one that cannot be listed.
    constexpr int flags = O_PATH | O_DIRECTORY | O_CLOEXEC;
    Descriptor folder(openat(root, ".", flags));
    while (folder && !path.empty()) {
        const std::string_view part = path.substr(0, path.find('/'));
        path.remove_prefix(std::min(path.size(), part.size() + 1));
        if (part.empty())
            continue;
        if (part == "." || part == "..") {
            errno = EINVAL;
            return {};
        }
        const std::string name = FindName(folder.Get(), part);
        if (name.empty())
            return {};
        folder = Descriptor(openat(folder.Get(), name.c_str(), flags));
    }
    return folder;
}

bool FolderReader::Next(Entry& entry) {
    for (;;) {
        if (used_ == filled_) {
            block_.resize(blockSize);
            const long size = syscall(SYS_getdents64, folder_, block_.data(), block_.size());
            failed_ = size < 0 && errno != ENOENT; // a folder that was removed meanwhile is at its end
            if (size <= 0)
                return false;
            used_ = 0;
            filled_ = static_cast<std::size_t>(size);
        }
        HostEntry head{};
        std::memcpy(&head, block_.data() + used_, nameOffset);
        entry.name = block_.data() + used_ + nameOffset;
        entry.number = head.number;
        entry.mayBeFolder = head.type == DT_DIR || head.type == DT_UNKNOWN;
        used_ += head.length;
        if (entry.name != "." && entry.name != "..")
            return true;
    }
}

void FolderReader::Rewind() {
    lseek(folder_, 0, SEEK_SET);
    used_ = filled_ = 0;
    failed_ = false;
}

std::string TargetNames::Find(int folder, const std::string& name, int sourceFolder) {
    if (StatusOf(folder, name))
        return name;
    if (!isRead_)
        Read(folder);
    const auto found = byUpperCase_.find(UpperCase(name));
    if (found == byUpperCase_.end() || added_.contains(found->second) ||
        StatusOf(sourceFolder, found->second) || !StatusOf(folder, found->second))
        return {};
    return found->second;
}

void TargetNames::Read(int folder) {
    isRead_ = true;
    const Descriptor opened(openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    FolderReader reader(opened.Get());
    for (FolderReader::Entry entry; opened && reader.Next(entry);)
        byUpperCase_.emplace(UpperCase(entry.name), entry.name);
}
