// A disk that does not answer, or not soon: loaded before the hand (LD_PRELOAD), it stands between the hand
// and the host. What is named "hangs..." can be found but is never read nor removed, what is named "lost..."
// cannot even be found, what is named "slow..." takes a second, and what is named "waits..." as long as there
// is no file "go" in the device's root.

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string>

#include <dlfcn.h>
#include <errno.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

bool Begins(const char* name, const char* beginning) {
    return std::strncmp(name, beginning, std::strlen(beginning)) == 0;
}

void Delay(const char* name) {
    if (std::strcmp(program_invocation_short_name, "hosthand") != 0)
        return;
    while (Begins(name, "hangs"))
        pause();
    while (Begins(name, "waits") && access("go", F_OK) != 0)
        usleep(10000);
    if (Begins(name, "slow"))
        sleep(1);
}

/// By the name of the open file.
void DelayOpen(int file) {
    char text[4096] = "";
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    if (readlink(link.c_str(), text, sizeof(text) - 1) > 0 && std::strrchr(text, '/'))
        Delay(std::strrchr(text, '/') + 1);
}

template <class Call>
Call Next(const char* name) {
    return reinterpret_cast<Call>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

ssize_t copy_file_range(int from, off_t* fromOffset, int to, off_t* toOffset, size_t size, unsigned flags) {
    DelayOpen(from);
    return Next<decltype(&copy_file_range)>("copy_file_range")(from, fromOffset, to, toOffset, size, flags);
}

int unlinkat(int folder, const char* name, int flags) noexcept {
    Delay(name);
    return Next<int (*)(int, const char*, int)>("unlinkat")(folder, name, flags);
}

int faccessat(int folder, const char* name, int mode, int flags) noexcept {
    if (Begins(name, "lost"))
        Delay("hangs");
    return Next<int (*)(int, const char*, int, int)>("faccessat")(folder, name, mode, flags);
}
}
