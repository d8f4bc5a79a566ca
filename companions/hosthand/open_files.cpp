#include "companions/hosthand/open_files.h"

#include <array>
#include <cstdio>
#include <string_view>

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// How long what was seen is taken for what is.
constexpr std::chrono::milliseconds holdsFor{100};

/// Calls `use` with the name of everything in a folder of the system's, until it says true.
template <class Use>
void ForEachIn(const char* path, Use use) {
    DIR* folder = opendir(path);
    if (!folder)
        return;
    while (const dirent* entry = readdir(folder))
        if (use(entry->d_name))
            break;
    closedir(folder);
}

} // namespace

OpenFiles::OpenFiles(const std::string& prefix) {
    struct stat status {};
    if (stat(prefix.c_str(), &status) != 0)
        return;
    std::array<char, 64> name{};
    std::snprintf(name.data(), name.size(), "/server-%llx-%llx",
                  static_cast<unsigned long long>(status.st_dev),
                  static_cast<unsigned long long>(status.st_ino));
    serverFolder_ = name.data();
}

bool OpenFiles::Has(ino_t number) {
    Refresh();
    const auto found = files_.lower_bound({number, 0});
    return found != files_.end() && found->first == number;
}

bool OpenFiles::Has(dev_t device, ino_t number) {
    Refresh();
    return files_.contains({number, device});
}

void OpenFiles::Refresh() {
    const auto now = std::chrono::steady_clock::now();
    if (serverFolder_.empty() || (read_ != std::chrono::steady_clock::time_point() && now - read_ < holdsFor))
        return;
    read_ = now;
    files_.clear();
    if (openFiles_.empty())
        FindServer();
    if (openFiles_.empty())
        return;
    ForEachIn(openFiles_.c_str(), [&](const char* name) {
        struct stat status {};
        if (stat((openFiles_ + name).c_str(), &status) == 0 && S_ISREG(status.st_mode))
            files_.emplace(status.st_ino, status.st_dev);
        return false;
    });
}

/// The server works in a folder that has its name of the prefix.
void OpenFiles::FindServer() {
    ForEachIn("/proc", [&](const char* process) {
        if (*process < '0' || *process > '9')
            return false;
        const std::string base = std::string("/proc/") + process;
        std::array<char, 4096> text{};
        const ssize_t length = readlink((base + "/cwd").c_str(), text.data(), text.size());
        if (length <= 0 ||
            !std::string_view(text.data(), static_cast<std::size_t>(length)).ends_with(serverFolder_))
            return false;
        openFiles_ = base + "/fd/";
        return true;
    });
}
