#include "companions/hosthand/channel.h"

#include <cerrno>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>

#include "companions/hosthand/journal.h"

namespace {

/// It looks for the place every millisecond; one that was killed meanwhile never comes.
constexpr int programComesWithin = 5000; // milliseconds

bool IsReady(int end, short what, int milliseconds) {
    pollfd waited{end, what, 0};
    return poll(&waited, 1, milliseconds) == 1;
}

} // namespace

bool Channel::HasIncoming() const {
    return IsReady(in_.Get(), POLLIN, 0);
}

bool Channel::HasRoom() const {
    return IsReady(out_.Get(), POLLOUT, 0);
}

bool Channel::ReadAll(void* data, std::size_t size) {
    auto* next = static_cast<char*>(data);
    while (size > 0) {
        const ssize_t count = read(in_.Get(), next, size);
        if (count == 0 || (count < 0 && errno != EINTR))
            return false;
        if (count > 0) {
            next += count;
            size -= static_cast<std::size_t>(count);
        }
    }
    return true;
}

bool Channel::Read(Message& message) {
    hand::Header header{};
    if (!ReadAll(&header, sizeof(header)) || header.length > hand::longestMessage)
        return false;
    message.kind = static_cast<hand::Kind>(header.kind);
    message.fields.resize(header.length);
    return ReadAll(message.fields.data(), message.fields.size());
}

bool Channel::Send(const std::vector<std::byte>& message) {
    const auto* next = message.data();
    for (std::size_t left = message.size(); left > 0;) {
        const ssize_t count = write(out_.Get(), next, left);
        if (count < 0 && errno != EINTR)
            return false;
        if (count > 0) {
            next += count;
            left -= static_cast<std::size_t>(count);
        }
    }
    return true;
}

Channel MeetProgram(const std::string& folder, const std::string& token) {
    const std::string place = folder + '/' + ownPrefix + token;
    const std::string coming = place + ".new"; // until both ends are open the program must not find it
    if (mkdir(coming.c_str(), 0700) != 0)
        return {{}, {}};
    const Descriptor own = OpenOwned(coming, O_RDONLY | O_DIRECTORY);
    mkfifoat(own.Get(), "ask", 0600);
    mkfifoat(own.Get(), "tell", 0600);
    Descriptor in(openat(own.Get(), "ask", O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    const Descriptor tellOpen(openat(own.Get(), "tell", O_RDWR | O_NONBLOCK | O_CLOEXEC));
    Descriptor out(openat(own.Get(), "tell", O_WRONLY | O_CLOEXEC));
    const bool isReady = in && out && rename(coming.c_str(), place.c_str()) == 0;
    // The program's first words say that it has both ends.
    const bool came = isReady && IsReady(in.Get(), POLLIN, programComesWithin);
    for (const char* end : {"ask", "tell"})
        unlinkat(own.Get(), end, 0);
    rmdir(isReady ? place.c_str() : coming.c_str());
    if (!came || fcntl(in.Get(), F_SETFL, 0) != 0)
        return {{}, {}};
    return {std::move(in), std::move(out)};
}
