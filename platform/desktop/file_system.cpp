#include "platform/ce_api.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/desktop/device_path.h"
#include "platform/desktop/hand.h"
#include "platform/desktop/rooted_path.h"
#include "platform/entry_names.h"
#include "platform/handles.h"

namespace {

/// The folders whose entries the phone marks.
enum class Place { Root, Rom, Other };

/// Where the entry lies that `path` names.
Place PlaceOf(const DevicePath& path) {
    const std::wstring_view folder = FolderPart(path.Rooted());
    if (folder.empty())
        return Place::Root;
    return SameText(folder, L"\\Windows") ? Place::Rom : Place::Other;
}

/// The attributes that the phone shows for an entry of `place`.
DWORD PhoneAttributes(Place place, DWORD attributes) {
    const bool folder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (place == Place::Rom && !folder)
        return attributes | FILE_ATTRIBUTE_INROM;
    if (place == Place::Root && folder && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
        return (attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_REPARSE_POINT)) | FILE_ATTRIBUTE_STORAGE_CARD;
    return attributes;
}

/// What a handle of ce::FindFirstFileW points to.
struct Search {
    HANDLE handle;
    Place place;
};

/// Passes over what the phone has not, and marks the entry. False when nothing is left.
bool SettleOnEntry(const Search& search, WIN32_FIND_DATAW& found) {
    while (!LeadsToEntry(found.cFileName)) {
        if (!::FindNextFileW(search.handle, &found))
            return false;
    }
    found.dwFileAttributes = PhoneAttributes(search.place, found.dwFileAttributes);
    return true;
}

/// Has the hand do what Wine would do with what is behind a link. Fails for a path that is not the device's.
BOOL HaveHandDo(hand::Kind kind, const wchar_t* path, std::optional<DWORD> number = {}) {
    const auto place = HandPath(path);
    if (!place) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return FALSE;
    }
    hand::MessageWriter request(kind);
    request.Text({place->data(), place->size()});
    if (number)
        request.Number(*number);
    return AskHandOnce(std::move(request));
}

/// Has the hand rename an entry, which other programs under Wine may have open so that they share it.
BOOL HaveHandRename(const wchar_t* from, const wchar_t* to, bool replaces) {
    const auto place = HandPath(from), newPlace = HandPath(to);
    if (!place || !newPlace) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return FALSE;
    }
    return AskHandOnce(std::move(hand::MessageWriter(hand::Kind::Rename)
                                     .Text({place->data(), place->size()})
                                     .Text({newPlace->data(), newPlace->size()})
                                     .Number(replaces)));
}

/// Whether other programs under Wine, of which the host knows nothing, let go of the file.
bool IsLetGo(const wchar_t* path) {
    const FileHandle file(ce::CreateFileW(path, DELETE,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                          OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return file || GetLastError() != ERROR_SHARING_VIOLATION;
}

} // namespace

namespace ce {

HANDLE FindFirstFileW(const wchar_t* pattern, WIN32_FIND_DATAW* found) {
    const DevicePath device(pattern);
    if (!device)
        return INVALID_HANDLE_VALUE;
    const Search search{::FindFirstFileW(device.Text(), found), PlaceOf(device)};
    if (search.handle == INVALID_HANDLE_VALUE)
        return INVALID_HANDLE_VALUE;
    if (SettleOnEntry(search, *found))
        return new Search(search);
    ::FindClose(search.handle);
    SetLastError(ERROR_NO_MORE_FILES); // what the phone gives for an empty folder
    return INVALID_HANDLE_VALUE;
}

BOOL FindNextFileW(HANDLE find, WIN32_FIND_DATAW* found) {
    if (find == nullptr || find == INVALID_HANDLE_VALUE) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    const Search& search = *static_cast<const Search*>(find);
    return ::FindNextFileW(search.handle, found) && SettleOnEntry(search, *found);
}

BOOL FindClose(HANDLE find) {
    if (find == nullptr || find == INVALID_HANDLE_VALUE) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    const Search* search = static_cast<const Search*>(find);
    const BOOL closed = ::FindClose(search->handle);
    delete search;
    return closed;
}

int CountUnlisted(const wchar_t* pattern) {
    const DevicePath device(pattern);
    WIN32_FIND_DATAW found{};
    const HANDLE search = device ? ::FindFirstFileW(device.Text(), &found) : INVALID_HANDLE_VALUE;
    if (search == INVALID_HANDLE_VALUE)
        return 0;
    int count = 0;
    do {
        const std::wstring_view name = found.cFileName;
        count += name != L"." && name != L".." && !LeadsToEntry(name) ? 1 : 0;
    } while (::FindNextFileW(search, &found));
    ::FindClose(search);
    return count;
}

DWORD GetFileAttributesW(const wchar_t* path) {
    const DevicePath device(path);
    if (!device)
        return INVALID_FILE_ATTRIBUTES;
    if (device.Rooted() == L"\\")
        return FILE_ATTRIBUTE_DIRECTORY;
    const DWORD attributes = ::GetFileAttributesW(device.Text());
    if (attributes == INVALID_FILE_ATTRIBUTES && IsHostSpecial(device))
        return FILE_ATTRIBUTE_ARCHIVE; // as it is listed
    return attributes == INVALID_FILE_ATTRIBUTES ? attributes : PhoneAttributes(PlaceOf(device), attributes);
}

BOOL SetFileAttributesW(const wchar_t* path, DWORD attributes) {
    constexpr DWORD kept =
        FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;
    const DWORD wanted = attributes & kept;
    if (HasHand())
        return HaveHandDo(hand::Kind::SetAttributes, path, wanted);
    const DevicePath device(path);
    return device && ::SetFileAttributesW(device.Text(), wanted != 0 ? wanted : FILE_ATTRIBUTE_NORMAL);
}

BOOL RemoveDirectoryW(const wchar_t* path) {
    if (HasHand())
        return HaveHandDo(hand::Kind::RemoveFolder, path);
    const DevicePath device(path);
    return device && ::RemoveDirectoryW(device.Text());
}

BOOL DeleteFileW(const wchar_t* path) {
    if (HasHand())
        return IsLetGo(path) && HaveHandDo(hand::Kind::RemoveFile, path);
    const DevicePath device(path);
    return device && ::DeleteFileW(device.Text());
}

BOOL MoveFileW(const wchar_t* from, const wchar_t* to) {
    const DevicePath source(from), target(to);
    if (!source || !target)
        return FALSE;
    if (!IsNewPhoneName(NamePart(target.Rooted()))) {
        SetLastError(ERROR_INVALID_NAME);
        return FALSE;
    }
    if (HasHand())
        return IsLetGo(from) && HaveHandRename(from, to, false);
    return ::MoveFileExW(source.Text(), target.Text(), 0);
}

BOOL DeleteAndRenameFile(const wchar_t* to, const wchar_t* from) {
    const DevicePath target(to), source(from);
    if (!target || !source)
        return FALSE;
    const DWORD attributes = ::GetFileAttributesW(target.Text());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return FALSE;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    if (!HasHand())
        return ::MoveFileExW(source.Text(), target.Text(), MOVEFILE_REPLACE_EXISTING);
    return IsLetGo(from) && IsLetGo(to) && HaveHandRename(from, to, true);
}

} // namespace ce
