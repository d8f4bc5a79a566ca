#include "platform/ce_api.h"

#include <iterator>
#include <string_view>

#include "platform/desktop/device_path.h"
#include "platform/desktop/host_links.h"
#include "platform/desktop/link_scan.h"
#include "platform/desktop/own_entry.h"
#include "platform/desktop/rooted_path.h"
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

/// Whether the phone has an entry of this name. A name with a backslash, or with a blank or dot at its end,
/// would as a path mean another file.
bool IsPhoneName(std::wstring_view name) {
    return name != L"." && name != L".." && !name.empty() && name.back() != L'.' && name.back() != L' ' &&
           name.find(L'\\') == std::wstring_view::npos;
}

/// Passes over what the phone has not, and marks the entry. False when nothing is left.
bool SettleOnEntry(const Search& search, WIN32_FIND_DATAW& found) {
    while (!IsPhoneName(found.cFileName)) {
        if (!::FindNextFileW(search.handle, &found))
            return false;
    }
    found.dwFileAttributes = PhoneAttributes(search.place, found.dwFileAttributes);
    return true;
}

/// Takes "\Folder\name" to "\Folder\~0" and from there to where only letters' case differs: the host
/// takes the two names for one and would by itself rename nothing.
BOOL ChangeCase(const wchar_t* from, const wchar_t* to) {
    const std::wstring_view folder = FolderPart(from);
    wchar_t aside[MAX_PATH + 20] = {};  // with the host's prefix
    constexpr std::size_t nameRoom = 4; // "\~0" and the end
    if (folder.size() + nameRoom > std::size(aside))
        return FALSE;
    folder.copy(aside, folder.size());
    wchar_t* name = aside + folder.size();
    for (wchar_t digit = L'0'; digit <= L'9'; ++digit) {
        name[0] = L'\\';
        name[1] = L'~';
        name[2] = digit;
        if (::GetFileAttributesW(aside) == INVALID_FILE_ATTRIBUTES)
            break;
    }
    if (!::MoveFileExW(from, aside, 0))
        return FALSE;
    if (::MoveFileExW(aside, to, 0))
        return TRUE;
    const DWORD error = GetLastError();
    ::MoveFileExW(aside, from, 0);
    SetLastError(error);
    return FALSE;
}

/// Of what this thread has announced to remove, while there is one.
thread_local LinkScan* currentScan = nullptr;

/// Whether a quick answer says so: to be asked of everything that goes, before it goes.
bool IsSurelyNoLink(const wchar_t* path) {
    return currentScan != nullptr && currentScan->IsNoLink(path);
}

/// Opens a file to move it, when it is known, or can quickly be told, to be no link. By its handle a file is
/// moved with fewer calls than by its name.
HANDLE OpenNoLink(const wchar_t* path, const DevicePath& device) {
    return IsSurelyNoLink(path) ? OpenEntry(device.Text()) : OpenOwnEntry(device.Text());
}

/// To another volume files are copied, which takes longer than a folder may be trusted.
BOOL MoveOpened(HANDLE entry, const wchar_t* to) {
    const BOOL moved = RenameOwnEntry(entry, to, false);
    if (!moved && GetLastError() == ERROR_NOT_SAME_DEVICE)
        currentScan = nullptr;
    return moved;
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

DWORD GetFileAttributesW(const wchar_t* path) {
    const DevicePath device(path);
    if (!device)
        return INVALID_FILE_ATTRIBUTES;
    if (device.Rooted() == L"\\")
        return FILE_ATTRIBUTE_DIRECTORY;
    const DWORD attributes = ::GetFileAttributesW(device.Text());
    return attributes == INVALID_FILE_ATTRIBUTES ? attributes : PhoneAttributes(PlaceOf(device), attributes);
}

BOOL SetFileAttributesW(const wchar_t* path, DWORD attributes) {
    constexpr DWORD kept =
        FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;
    const DevicePath device(path);
    if (!device)
        return FALSE;
    if (!IsSurelyNoLink(path) && IsHostLink(device.Text()))
        return TRUE; // a link has none of its own, and what is behind it is not meant
    const auto set = [&device](DWORD wanted) {
        return ::SetFileAttributesW(device.Text(), wanted != 0 ? wanted : FILE_ATTRIBUTE_NORMAL);
    };
    // The host refuses to note the others at a file that is read-only: that comes last.
    const DWORD wanted = attributes & kept;
    const BOOL done = set(wanted & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
    return (wanted & FILE_ATTRIBUTE_READONLY) != 0 ? done && set(wanted) : done;
}

BOOL RemoveDirectoryW(const wchar_t* path) {
    const DevicePath device(path);
    if (!device)
        return FALSE;
    if (IsSurelyNoLink(path))
        return ::RemoveDirectoryW(device.Text());
    // The host marks a link to a folder, and some folders that are none.
    const DWORD attributes = ::GetFileAttributesW(device.Text());
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0 || !IsHostLink(device.Text()))
        return ::RemoveDirectoryW(device.Text());
    if (PlaceOf(device) != Place::Root)
        return RemoveHostLink(device.Text());
    SetLastError(ERROR_ACCESS_DENIED); // a card is taken out, not removed
    return FALSE;
}

BOOL DeleteFileW(const wchar_t* path) {
    const DevicePath device(path);
    if (!device)
        return FALSE;
    if (IsSurelyNoLink(path))
        return ::DeleteFileW(device.Text());
    if (const FileHandle entry(OpenOwnEntry(device.Text())); entry)
        return DeleteOwnEntry(entry.Get());
    return IsHostLink(device.Text()) ? RemoveHostLink(device.Text()) : ::DeleteFileW(device.Text());
}

RemovalSeries::RemovalSeries(const wchar_t* folder) : scan_(std::make_unique<LinkScan>(folder)) {}

RemovalSeries::~RemovalSeries() {
    currentScan = nullptr;
}

void RemovalSeries::AddTree(const wchar_t* path) {
    scan_->AddTree(path);
}

void RemovalSeries::Begin() {
    scan_->Begin();
    currentScan = scan_.get();
}

BOOL MoveFileW(const wchar_t* from, const wchar_t* to) {
    const DevicePath source(from), target(to);
    if (!source || !target)
        return FALSE;
    const bool sameButCase = SameText(source.Rooted(), target.Rooted()) && source.Rooted() != target.Rooted();
    if (!sameButCase) // which a rename by the open file takes for done
        if (const FileHandle entry(OpenNoLink(from, source)); entry)
            return MoveOpened(entry.Get(), target.Text());
    if (IsHostLink(source.Text()))
        return MoveHostLink(source.Text(), target.Text(), false);
    return sameButCase ? ChangeCase(source.Text(), target.Text())
                       : ::MoveFileExW(source.Text(), target.Text(), 0);
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
    if (const FileHandle entry(OpenNoLink(from, source)); entry)
        return RenameOwnEntry(entry.Get(), target.Text(), true);
    return IsHostLink(source.Text()) ? MoveHostLink(source.Text(), target.Text(), true)
                                     : ::MoveFileExW(source.Text(), target.Text(), MOVEFILE_REPLACE_EXISTING);
}

BOOL MoveAndCloseFile(HANDLE file, const wchar_t* from, const wchar_t* to) {
    const DevicePath source(from), target(to);
    // By its handle a file is moved for a third of what a path costs.
    const BOOL moved = target && RenameOwnEntry(file, target.Text(), false);
    CloseHandle(file);
    return moved || (source && target && ::MoveFileExW(source.Text(), target.Text(), 0));
}

} // namespace ce
