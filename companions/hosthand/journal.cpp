#include "companions/hosthand/journal.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <string_view>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "companions/hosthand/folder.h"

namespace {

constexpr time_t longestMeeting = 60; // seconds that a hand and its program may take to come together

/// What tells a file from every other that has been, or will be, at its place.
struct Birth {
    std::uint64_t deviceMajor;
    std::uint64_t deviceMinor;
    std::uint64_t number;
    std::int64_t seconds; // when it was made
    std::uint64_t nanoseconds;
    bool operator==(const Birth&) const = default;
};

bool ReadBirth(int folder, const char* name, int flags, Birth& birth) {
    struct statx status {};
    if (statx(folder, name, flags, STATX_INO | STATX_BTIME, &status) != 0)
        return false;
    birth = {status.stx_dev_major, status.stx_dev_minor, status.stx_ino, status.stx_btime.tv_sec,
             status.stx_btime.tv_nsec};
    return true;
}

std::string FolderPath(int folder) {
    std::array<char, 4096> text{};
    const ssize_t length =
        readlink(("/proc/self/fd/" + std::to_string(folder)).c_str(), text.data(), text.size());
    return length > 0 && static_cast<std::size_t>(length) < text.size()
               ? std::string(text.data(), static_cast<std::size_t>(length))
               : std::string();
}

/// Removes the file that a note tells of, if it is still that.
void RemoveNoted(const std::vector<char>& note) {
    Birth noted{};
    std::memcpy(&noted, note.data(), sizeof(noted));
    const std::string name(note.data() + sizeof(noted));
    if (sizeof(noted) + name.size() + 1 >= note.size())
        return;
    const std::string path(note.data() + sizeof(noted) + name.size() + 1);
    const Descriptor folder(open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    Birth found{};
    if (folder && name.find('/') == std::string::npos &&
        ReadBirth(folder.Get(), name.c_str(), AT_SYMLINK_NOFOLLOW, found) && found == noted)
        unlinkat(folder.Get(), name.c_str(), 0);
}

std::vector<char> ReadNote(int notes) {
    std::vector<char> note(sizeof(Birth) + 8192);
    const ssize_t size = pread(notes, note.data(), note.size() - 1, 0);
    note.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    if (note.size() <= sizeof(Birth))
        return {};
    note.push_back('\0');
    return note;
}

} // namespace

Descriptor OpenOwned(const std::string& path, int flags) {
    Descriptor opened(open(path.c_str(), flags | O_NOFOLLOW | O_CLOEXEC, 0600));
    return opened && flock(opened.Get(), LOCK_EX | LOCK_NB) == 0 ? std::move(opened) : Descriptor();
}

Journal::~Journal() {
    if (notes_)
        unlink((folder_ + '/' + ownPrefix + token_ + notesSuffix).c_str());
}

bool Journal::Open() {
    if (!notes_)
        notes_ = OpenOwned(folder_ + '/' + ownPrefix + token_ + notesSuffix, O_RDWR | O_CREAT | O_EXCL);
    return static_cast<bool>(notes_);
}

void Journal::Note(int folder, const std::string& name, int file) {
    Birth birth{};
    if (!Open() || !ReadBirth(file, "", AT_EMPTY_PATH, birth))
        return;
    std::string note(reinterpret_cast<const char*>(&birth), sizeof(birth));
    note += name;
    note += '\0';
    note += FolderPath(folder);
    note += '\0';
    // A note cut short by the hand's end tells of nothing.
    if (pwrite(notes_.Get(), note.data(), note.size(), 0) != static_cast<ssize_t>(note.size()))
        Clear();
}

void Journal::Clear() {
    if (notes_ && ftruncate(notes_.Get(), 0) != 0)
        notes_.Close();
}

void SweepJournals(const std::string& folder) {
    const Descriptor own(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    FolderReader reader(own.Get());
    for (FolderReader::Entry entry; own && reader.Next(entry);) {
        if (!entry.name.starts_with(ownPrefix))
            continue;
        const std::string path = folder + '/' + entry.name;
        const bool isNotes = entry.name.ends_with(notesSuffix);
        const Descriptor opened = OpenOwned(path, isNotes ? O_RDONLY : O_RDONLY | O_DIRECTORY);
        if (!opened)
            continue;
        if (!isNotes) { // the place where a hand and its program did not come together
            const auto status = StatusOf(opened.Get());
            if (!status || time(nullptr) - status->st_mtim.tv_sec < longestMeeting)
                continue;
            for (const char* end : {"ask", "tell"})
                unlinkat(opened.Get(), end, 0);
            rmdir(path.c_str());
            continue;
        }
        const std::vector<char> note = ReadNote(opened.Get());
        if (!note.empty())
            RemoveNoted(note);
        unlink(path.c_str());
    }
}
