#include "companions/archiver/file.h"

#include <algorithm>
#include <utility>

#include "companions/archiver/failure.h"

namespace archiver {

namespace {

constexpr std::wstring_view letterByLetter = L"\\\\?\\";
constexpr std::wstring_view letterByLetterShare = L"\\\\?\\UNC\\";
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// At most this much in one call: a call takes 32 bits.
DWORD OneCall(std::size_t size) {
    return static_cast<DWORD>(std::min<std::size_t>(size, 1u << 24));
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
        return std::wstring(fullPath.substr(letterByLetter.size()));
    return std::wstring(fullPath);
}

std::wstring_view LeafOf(std::wstring_view path) {
    return path.substr(path.rfind(L'\\') + 1);
}

std::wstring_view ParentOf(std::wstring_view path) {
    const std::size_t cut = path.rfind(L'\\');
    return cut == std::wstring_view::npos || cut < letterByLetter.size() ? path : path.substr(0, cut);
}

DWORD AttributesOf(const std::wstring& path) {
    // A drive's root is only one with its backslash.
    return GetFileAttributesW(path.ends_with(L':') ? (path + L'\\').c_str() : path.c_str());
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
    const std::wstring spelt = path.ends_with(L':') ? path + L'\\' : path;
    return {CreateFileW(spelt.c_str(), FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES, shareAll, nullptr,
                        OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr),
            path};
}

File File::Create(const std::wstring& path) {
    return {CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                        FILE_ATTRIBUTE_NORMAL, nullptr),
            path};
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

void File::CutOff() {
    if (!SetEndOfFile(handle_))
        FailBySystem(L"'" + DisplayPath(path_) + L"' cannot be written");
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

FileIdentity File::Identity() const {
    BY_HANDLE_FILE_INFORMATION known{};
    GetFileInformationByHandle(handle_, &known);
    return {static_cast<std::uint64_t>(known.nFileIndexHigh) << 32 | known.nFileIndexLow,
            known.dwVolumeSerialNumber};
}

std::wstring File::FinalPath() const {
    std::wstring path(GetFinalPathNameByHandleW(handle_, nullptr, 0, 0) + 1, L'\0');
    path.resize(GetFinalPathNameByHandleW(handle_, path.data(), static_cast<DWORD>(path.size()), 0));
    while (path.ends_with(L'\\'))
        path.pop_back();
    return path;
}

void File::Flush() {
    if (!FlushFileBuffers(handle_))
        FailBySystem(L"'" + DisplayPath(path_) + L"' cannot be written");
}

FileInTheMaking::FileInTheMaking(std::wstring place) : place_(std::move(place)) {
    unsigned number = GetTickCount();
    do
        path_ = std::wstring(ParentOf(place_)) + L"\\~" + std::to_wstring(number++) + L".tmp";
    while (AttributesOf(path_) != INVALID_FILE_ATTRIBUTES);
    file_.emplace(File::Create(path_));
}

FileInTheMaking::~FileInTheMaking() {
    if (!file_)
        return;
    file_.reset();
    DeleteFileW(path_.c_str());
}

void FileInTheMaking::TakePlace() {
    file_.reset();
    if (MoveFileExW(path_.c_str(), place_.c_str(), MOVEFILE_REPLACE_EXISTING))
        return;
    const DWORD error = GetLastError();
    DeleteFileW(path_.c_str());
    SetLastError(error);
    FailBySystem(L"'" + DisplayPath(place_) + L"' cannot be written");
}

} // namespace archiver
