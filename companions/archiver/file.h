#pragma once
// Files and paths of any length. Every path here is a full one that begins with "\\?\", so that the system
// takes it letter by letter; DisplayPath is for messages.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <windows.h>

namespace archiver {

/// `path` made full from the current folder, without a backslash at its end. A drive's root is "\\?\E:".
std::wstring FullPath(std::wstring_view path);

/// A full path as the device names it: from the root down, without the drive that is the device.
std::wstring DisplayPath(std::wstring_view fullPath);

/// Whether the device can name it at all, in 259 characters: what it cannot name it could not even delete.
bool DeviceCanName(std::wstring_view fullPath);

/// The part behind the last backslash.
inline std::wstring_view LeafOf(std::wstring_view path) {
    return path.substr(path.rfind(L'\\') + 1);
}

/// The part before the last backslash; the volume of a volume.
inline std::wstring_view ParentOf(std::wstring_view path) {
    constexpr std::size_t prefix = 4; // "\\?\"
    const std::size_t cut = path.rfind(L'\\');
    return cut == std::wstring_view::npos || cut < prefix ? path : path.substr(0, cut);
}

/// Attributes of what is there; INVALID_FILE_ATTRIBUTES when nothing is.
DWORD AttributesOf(const std::wstring& path);

/// Makes a folder in one that is there. False when it cannot, with the system's error set.
bool MakeFolder(const std::wstring& path);

/// What is free for this user on the disk of a folder; nothing when the system does not say.
std::optional<std::uint64_t> FreeSpaceAt(const std::wstring& folder);

/// Where a file of `folder` is made before it has its name: a name that nobody else uses. It is noted, so
/// that the program's next start removes what a sudden end leaves there.
std::wstring PlaceInTheMaking(std::wstring_view folder);

/// Whether two paths or names are the same one to the device, which takes capital and small letters for
/// equal.
bool SameName(std::wstring_view a, std::wstring_view b);

/// The same text for all names that are the same one to the device.
std::wstring Folded(std::wstring_view name);

/// An open file or folder, closed when it goes. Failures are thrown.
class File {
  public:
    static File OpenToRead(const std::wstring& path);
    /// A folder or file, for what is known of it, whoever else has it open.
    static File OpenToKnow(const std::wstring& path);
    /// The same to set its times.
    static File OpenToMark(const std::wstring& path);
    /// A new file, to be written and renamed; nothing when there is one already. `place` is what it is called
    /// in words about failures.
    static std::optional<File> TryToCreate(const std::wstring& path, const std::wstring& place);
    /// The same under its own name; one that is there is a failure.
    static File Create(const std::wstring& path);

    File(File&& other) noexcept;
    File& operator=(File&&) = delete;
    ~File();

    /// At the file's end 0.
    std::size_t Read(void* buffer, std::size_t size);
    void Write(const void* bytes, std::size_t size);
    void Seek(std::uint64_t position);
    std::uint64_t Position() const;
    std::uint64_t Size() const;
    FILETIME WriteTime() const;
    void SetWriteTime(const FILETIME& time);
    /// Where it really is, once every link on the way is followed; empty when the system does not say. It
    /// tells files apart where numbers do not: two cards may each have a file of the same number.
    std::wstring FinalPath() const;
    /// Gives it another name on its volume. False when that is taken and it is not to `replace` what is
    /// there.
    bool Rename(const std::wstring& to, bool replace);

  private:
    File(HANDLE handle, const std::wstring& path);

    HANDLE handle_;
    std::wstring path_; // for words about failures
};

} // namespace archiver
