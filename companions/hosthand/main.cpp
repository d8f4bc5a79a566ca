// The program's hand on the host: what Wine cannot do with files, done by the host's own calls. The program
// starts it for a job or a question and it ends with that, or with the program.
//
//   hosthand TOKEN   meets the program at the place of this name, beside this file, and does what it asks for
//   hosthand         removes what former hands, ended suddenly, have left
//
// It is started in the device's root and lies in C:\windows of Wine's prefix.

#include <array>
#include <clocale>
#include <csignal>
#include <string>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "companions/hosthand/server.h"

namespace {

/// The folder of this very program.
std::string OwnFolder() {
    std::array<char, 4096> text{};
    const ssize_t length = readlink("/proc/self/exe", text.data(), text.size() - 1);
    if (length <= 0)
        return {};
    const std::string path(text.data(), static_cast<std::size_t>(length));
    return path.substr(0, path.rfind('/'));
}

/// A job holds as many folders open as it is deep.
void AllowManyFolders() {
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return;
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
}

bool IsToken(const std::string& text) {
    return !text.empty() && text.size() <= 64 &&
           text.find_first_not_of("0123456789abcdef") == std::string::npos;
}

} // namespace

int main(int count, char** words) {
    std::signal(SIGPIPE, SIG_IGN);
    std::setlocale(LC_CTYPE, "C.UTF-8");
    umask(077);
    AllowManyFolders();
    const std::string folder = OwnFolder();
    if (folder.empty())
        return 1;
    if (count < 2) {
        SweepJournals(folder);
        return 0;
    }
    Descriptor root(open(".", O_PATH | O_DIRECTORY | O_CLOEXEC));
    const std::string token = words[1];
    if (!root || !IsToken(token))
        return 1;
    Server(MeetProgram(folder, token), std::move(root), folder, folder + "/../..", token).Run();
    return 0;
}
