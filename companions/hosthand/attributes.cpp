#include "companions/hosthand/attributes.h"

#include <array>
#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include "companions/hosthand/descriptor.h"
#include "companions/hosthand/folder.h"

namespace {

constexpr std::uint32_t readOnly = 1;
constexpr std::uint32_t hiddenAndSystem = 2 | 4;
constexpr char attributesName[] = "user.DOSATTRIB";

/// The owner may write again; nobody else gets what they may not have had.
mode_t WithWriting(mode_t mode) {
    return mode | S_IRUSR | S_IWUSR;
}

} // namespace

bool SetAttributes(int folder, const std::string& name, std::uint32_t attributes) {
    const Descriptor entry(openat(folder, name.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    const auto status = entry ? StatusOf(entry.Get()) : std::nullopt;
    if (!status)
        return false;
    if (!S_ISREG(status->st_mode) && !S_ISDIR(status->st_mode))
        return true;
    const std::string opened = "/proc/self/fd/" + std::to_string(entry.Get());
    // What is read-only takes no notes: that comes last. A folder is not read-only on the phone either.
    const mode_t mode = status->st_mode & 07777;
    const mode_t writable = WithWriting(mode);
    if (mode != writable && chmod(opened.c_str(), writable) != 0)
        return false;
    std::array<char, 16> text{};
    const int length = std::snprintf(text.data(), text.size(), "0x%x", attributes & hiddenAndSystem);
    const bool isNoted =
        (attributes & hiddenAndSystem) == 0
            ? removexattr(opened.c_str(), attributesName) == 0 || errno == ENODATA || errno == EOPNOTSUPP
            : setxattr(opened.c_str(), attributesName, text.data(), static_cast<std::size_t>(length), 0) == 0;
    if ((attributes & readOnly) == 0 || !S_ISREG(status->st_mode))
        return isNoted;
    return chmod(opened.c_str(), writable & ~static_cast<mode_t>(S_IWUSR | S_IWGRP | S_IWOTH)) == 0 &&
           isNoted;
}
