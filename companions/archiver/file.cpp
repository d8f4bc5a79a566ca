#include "companions/archiver/file.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "companions/archiver/failure.h"
#include "platform/desktop/noted_files.h"

namespace archiver {

namespace {

constexpr std::wstring_view letterByLetter = L"\\\\?\\";
constexpr std::wstring_view letterByLetterShare = L"\\\\?\\UNC\\";
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

constexpr std::size_t longestDevicePath = MAX_PATH - 1;

/// The drive that is the device, as its letter: the one of the current folder.
wchar_t DeviceDrive() {
    wchar_t folder[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, folder);
    return folder[1] == L':' ? folder[0] : L'\0';
}

/// At most this much in one call: a call takes 32 bits.
DWORD OneCall(std::size_t size) {
    return static_cast<DWORD>(std::min<std::size_t>(size, 1u << 24));
}

HANDLE OpenForAttributes(const std::wstring& path, DWORD access) {
    const std::wstring spelt = path.ends_with(L':') ? path + L'\\' : path;
    return CreateFileW(spelt.c_str(), access, shareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                       nullptr);
}

} // namespace

std::wstring FullPath(std::wstring_view path) {
    const std::wstring asked(path);
    const DWORD room = GetFullPathNameW(asked.c_str(), 0, nullptr, nullptr);
    std::wstring full(room, L'\0');
    if (room != 0)
        full.resize(GetFullPathNameW(asked.c_str(), room, full.data(), nullptr));
    if (full.empty())
        throw FinalFailure(L"'" + asked + L"' is not a path");
    while (full.ends_with(L'\\'))
        full.pop_back();
    if (full.starts_with(letterByLetter))
        return full;
    if (full.starts_with(L"\\\\"))
        return std::wstring(letterByLetterShare) + full.substr(2);
    return std::wstring(letterByLetter) + full;
}

std::wstring DisplayPath(std::wstring_view fullPath) {
    if (fullPath.starts_with(letterByLetterShare))
        return L"\\\\" + std::wstring(fullPath.substr(letterByLetterShare.size()));
    if (fullPath.starts_with(letterByLetter))
        fullPath.remove_prefix(letterByLetter.size());
    if (fullPath.size() > 1 && fullPath[1] == L':' &&
        SameName(fullPath.substr(0, 1), std::wstring(1, DeviceDrive())))
        fullPath.remove_prefix(2);
    return fullPath.empty() ? L"\\" : std::wstring(fullPath);
}

bool DeviceCanName(std::wstring_view fullPath) {
    return DisplayPath(fullPath).size() <= longestDevicePath;
}

std::wstring PlaceInTheMaking(std::wstring_view folder) {
    static NotedFiles noted; // as long as the library stays loaded
    static std::wstring last;
    std::wstring place = std::wstring(folder) + L"\\~arc" + std::wstring(noted.Mark()) + L".tmp";
    if (place != last) { // one file after another is made in a folder
        noted.Note(place);
        last = place;
    }
    return place;
}

bool SameName(std::wstring_view a, std::wstring_view b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()),
                                TRUE) == CSTR_EQUAL;
}

DWORD AttributesOf(const std::wstring& path) {
    // A drive's root is only one with its backslash.
    return GetFileAttributesW(path.ends_with(L':') ? (path + L'\\').c_str() : path.c_str());
}

std::wstring Folded(std::wstring_view name) {
    std::wstring folded(name);
    CharUpperBuffW(folded.data(), static_cast<DWORD>(folded.size()));
    return folded;
}

bool MakeFolder(const std::wstring& path) {
    return CreateDirectoryW(path.c_str(), nullptr) != FALSE;
}

std::optional<std::uint64_t> FreeSpaceAt(const std::wstring& folder) {
    ULARGE_INTEGER room{};
    if (!GetDiskFreeSpaceExW((folder + L'\\').c_str(), &room, nullptr, nullptr))
        return std::nullopt;
    return room.QuadPart;
}

File::File(HANDLE handle, const std::wstring& path) : handle_(handle), path_(path) {
    if (handle_ == INVALID_HANDLE_VALUE)
        FailBySystem(L"'" + DisplayPath(path) + L"' cannot be opened");
}

File File::OpenToRead(const std::wstring& path) {
    return {CreateFileW(path.c_str(), GENERIC_READ, shareAll, nullptr, OPEN_EXISTING,
                        FILE_FLAG_SEQUENTIAL_SCAN, nullptr),
            path};
}

File File::OpenToKnow(const std::wstring& path) {
    return {OpenForAttributes(path, FILE_READ_ATTRIBUTES), path};
}

File File::OpenToMark(const std::wstring& path) {
    return {OpenForAttributes(path, FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES), path};
}

std::optional<File> File::TryToCreate(const std::wstring& path, const std::wstring& place) {
    const HANDLE handle = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, FILE_SHARE_READ,
                                      nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE && GetLastError() == ERROR_FILE_EXISTS)
        return std::nullopt;
    return File(handle, place);
}

File File::Create(const std::wstring& path) {
    std::optional<File> file = TryToCreate(path, path);
    if (!file)
        throw Failure(L"'" + DisplayPath(path) + L"' is there already");
    return std::move(*file);
}

File::File(File&& other) noexcept
    : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)), path_(std::move(other.path_)) {}

File::~File() {
    if (handle_ != INVALID_HANDLE_VALUE)
        CloseHandle(handle_);
}

std::size_t File::Read(void* buffer, std::size_t size) {
    DWORD read = 0;
    if (!ReadFile(handle_, buffer, OneCall(size), &read, nullptr))
        FailBySystem(L"'" + DisplayPath(path_) + L"' cannot be read");
    return read;
}

void File::Write(const void* bytes, std::size_t size) {
    const char* next = static_cast<const char*>(bytes);
    while (size > 0) {
        DWORD written = 0;
        if (!WriteFile(handle_, next, OneCall(size), &written, nullptr))
            FailBySystem(L"'" + DisplayPath(path_) + L"' cannot be written");
        if (written == 0)
            throw FinalFailure(L"'" + DisplayPath(path_) + L"' cannot be written: the disk is full");
        next += written;
        size -= written;
    }
}

void File::Seek(std::uint64_t position) {
    LARGE_INTEGER distance;
    distance.QuadPart = static_cast<LONGLONG>(position);
    if (!SetFilePointerEx(handle_, distance, nullptr, FILE_BEGIN))
        FailBySystem(L"'" + DisplayPath(path_) + L"' cannot be read");
}

std::uint64_t File::Position() const {
    LARGE_INTEGER position{};
    SetFilePointerEx(handle_, LARGE_INTEGER{}, &position, FILE_CURRENT);
    return static_cast<std::uint64_t>(position.QuadPart);
}

std::uint64_t File::Size() const {
    LARGE_INTEGER size{};
    GetFileSizeEx(handle_, &size);
    return static_cast<std::uint64_t>(size.QuadPart);
}

FILETIME File::WriteTime() const {
    FILETIME time{};
    GetFileTime(handle_, nullptr, nullptr, &time);
    return time;
}

void File::SetWriteTime(const FILETIME& time) {
    SetFileTime(handle_, nullptr, nullptr, &time);
}

std::wstring File::FinalPath() const {
    std::wstring path(longestDevicePath * 2, L'\0');
    DWORD length = GetFinalPathNameByHandleW(handle_, path.data(), static_cast<DWORD>(path.size()), 0);
    if (length > path.size()) {
        path.resize(length);
        length = GetFinalPathNameByHandleW(handle_, path.data(), length, 0);
    }
    path.resize(length < path.size() ? length : 0);
    while (path.ends_with(L'\\'))
        path.pop_back();
    return path;
}

bool File::Rename(const std::wstring& to, bool replace) {
    const std::size_t bytes = to.size() * sizeof(wchar_t);
    std::vector<std::byte> block(sizeof(FILE_RENAME_INFO) + bytes);
    auto* info = reinterpret_cast<FILE_RENAME_INFO*>(block.data());
    info->ReplaceIfExists = static_cast<BOOLEAN>(replace);
    info->FileNameLength = static_cast<DWORD>(bytes);
    std::memcpy(info->FileName, to.data(), bytes);
    if (SetFileInformationByHandle(handle_, FileRenameInfo, info, static_cast<DWORD>(block.size())))
        return true;
    const DWORD error = GetLastError();
    if (!replace && (error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS))
        return false;
    FailBySystem(L"'" + DisplayPath(to) + L"' cannot be written");
}

} // namespace archiver
