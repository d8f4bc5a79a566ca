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

/// A full path as people write it.
std::wstring DisplayPath(std::wstring_view fullPath);

/// The part behind the last backslash.
std::wstring_view LeafOf(std::wstring_view path);

/// The part before the last backslash; the volume of a volume.
std::wstring_view ParentOf(std::wstring_view path);

/// Attributes of what is there; INVALID_FILE_ATTRIBUTES when nothing is.
DWORD AttributesOf(const std::wstring& path);

/// Which file it is on its volume, under whatever name.
struct FileIdentity {
    std::uint64_t index;
    DWORD volume;
    bool operator==(const FileIdentity&) const = default;
};

/// An open file or folder, closed when it goes. Failures are thrown.
class File {
  public:
    static File OpenToRead(const std::wstring& path);
    /// A folder or file, for its identity and its times.
    static File OpenToKnow(const std::wstring& path);
    /// A new file; one that is there already is a failure.
    static File Create(const std::wstring& path);

    File(File&& other) noexcept;
    File& operator=(File&&) = delete;
    ~File();

    /// At the file's end 0.
    std::size_t Read(void* buffer, std::size_t size);
    void Write(const void* bytes, std::size_t size);
    void Seek(std::uint64_t position);
    std::uint64_t Position() const;
    /// The file ends here from now on.
    void CutOff();
    std::uint64_t Size() const;
    FILETIME WriteTime() const;
    void SetWriteTime(const FILETIME& time);
    FileIdentity Identity() const;
    /// Where it really is, once every link on the way is followed; empty when the system does not say.
    std::wstring FinalPath() const;
    /// Brings what was written to the disk.
    void Flush();

  private:
    File(HANDLE handle, const std::wstring& path);

    HANDLE handle_;
    std::wstring path_;
};

/// A file in the making beside the place it is meant for: it takes that place when it is complete, and
/// vanishes when it never is.
class FileInTheMaking {
  public:
    explicit FileInTheMaking(std::wstring place);
    FileInTheMaking(const FileInTheMaking&) = delete;
    FileInTheMaking& operator=(const FileInTheMaking&) = delete;
    ~FileInTheMaking();

    File& Content() { return *file_; }
    /// Closes the file and puts it into its place, over what is there.
    void TakePlace();

  private:
    std::wstring place_;
    std::wstring path_;
    std::optional<File> file_;
};

} // namespace archiver
