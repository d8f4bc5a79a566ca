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

/// A hand that has just made its meeting place may not have got to calling it its own.
constexpr time_t claimedWithin = 2; // seconds

/// An entry that was announced is made at once. Some disks keep only every other second.
constexpr std::int64_t madeWithin = 10;
constexpr std::int64_t clockStep = 2;

/// What tells an entry from every other that has been, or will be, at its place. Without a number it has not
/// been seen yet, and the time is that of its announcement.
struct Birth {
    std::uint64_t deviceMajor;
    std::uint64_t deviceMinor;
    std::uint64_t number;
    std::int64_t seconds; // when it was made
    std::uint64_t nanoseconds;
    bool operator==(const Birth&) const = default;
};

bool ReadBirth(int folder, const std::string& name, Birth& birth) {
    struct statx status {};
    if (statx(folder, name.c_str(), AT_SYMLINK_NOFOLLOW, STATX_INO | STATX_BTIME, &status) != 0)
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

/// Whether the entry can be the one that was announced: it holds nothing, and came about then.
bool IsAsAnnounced(int folder, const std::string& name, const Birth& announced) {
    const auto status = StatusOf(folder, name);
    if (!status || S_ISDIR(status->st_mode) || (S_ISREG(status->st_mode) && status->st_size != 0))
        return false;
    const std::int64_t after = status->st_ctim.tv_sec - announced.seconds;
    return after >= -clockStep && after <= madeWithin;
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
    if (!folder || name.find('/') != std::string::npos)
        return;
    Birth found{};
    if (noted.number == 0 ? IsAsAnnounced(folder.Get(), name, noted)
                          : ReadBirth(folder.Get(), name, found) && found == noted)
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

void Journal::Announce(int folder, const std::string& name) {
    if (!Open())
        return;
    timespec now{};
    clock_gettime(CLOCK_REALTIME_COARSE, &now); // the one that files get their times from
    const Birth birth{0, 0, 0, now.tv_sec, 0};
    std::string note(reinterpret_cast<const char*>(&birth), sizeof(birth));
    note += name;
    note += '\0';
    note += FolderPath(folder);
    note += '\0';
    // A note cut short by the hand's end tells of nothing.
    if (pwrite(notes_.Get(), note.data(), note.size(), 0) != static_cast<ssize_t>(note.size()))
        Clear();
}

/// What was announced gets its number.
void Journal::Note(int folder, const std::string& name) {
    Birth birth{};
    if (notes_ && ReadBirth(folder, name, birth) &&
        pwrite(notes_.Get(), &birth, sizeof(birth), 0) != static_cast<ssize_t>(sizeof(birth)))
        Clear();
}

void Journal::Clear() {
    if (notes_ && ftruncate(notes_.Get(), 0) != 0)
        notes_.Close();
}

namespace {

/// Whether somebody may be about to call it his own.
bool IsNew(const Descriptor& opened) {
    const auto status = StatusOf(opened.Get());
    return !status || time(nullptr) - status->st_mtim.tv_sec < claimedWithin;
}

/// Removes the place where a hand and its program did not come together. False when it is too new to tell.
bool RemovePlace(const std::string& path) {
    const Descriptor place = OpenOwned(path, O_RDONLY | O_DIRECTORY);
    if (!place)
        return true; // somebody's own
    if (IsNew(place))
        return false;
    for (const char* end : {"ask", "tell"})
        unlinkat(place.Get(), end, 0);
    rmdir(path.c_str());
    return true;
}

/// The same with notes, and what they tell of.
bool RemoveNotes(const std::string& path) {
    const Descriptor notes = OpenOwned(path, O_RDONLY);
    if (!notes)
        return true;
    const std::vector<char> note = ReadNote(notes.Get());
    if (note.empty() && IsNew(notes))
        return false;
    if (!note.empty())
        RemoveNoted(note);
    unlink(path.c_str());
    return true;
}

bool RemoveOwn(const std::string& path) {
    return path.ends_with(notesSuffix) ? RemoveNotes(path) : RemovePlace(path);
}

} // namespace

void SweepJournals(const std::string& folder) {
    const Descriptor own(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    std::vector<std::string> tooNew;
    FolderReader reader(own.Get());
    for (FolderReader::Entry entry; own && reader.Next(entry);) {
        const std::string path = folder + '/' + entry.name;
        if (entry.name.starts_with(ownPrefix) && !RemoveOwn(path))
            tooNew.push_back(path);
    }
    if (tooNew.empty())
        return;
    sleep(claimedWithin);
    for (const std::string& path : tooNew)
        RemoveOwn(path);
}
