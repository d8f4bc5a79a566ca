#include "platform/desktop/own_entry.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

#include <winternl.h>

#include "platform/desktop/host_process.h"
#include "platform/desktop/rooted_path.h"
#include "platform/handles.h"

namespace {

constexpr std::size_t nameCapacity = 600;
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// What the host's own call fills: a counted text, and behind it the characters.
struct ObjectName {
    USHORT bytes;
    USHORT capacity;
    wchar_t* text;
    std::array<wchar_t, nameCapacity> room;

    std::wstring_view View() const { return {text, bytes / sizeof(wchar_t)}; }
};

/// The place of an open file with every link on the way followed. False when it has none that fits.
bool RealName(HANDLE file, ObjectName& name) {
    constexpr auto objectName = static_cast<OBJECT_INFORMATION_CLASS>(1);
    return NT_SUCCESS(NtQueryObject(file, objectName, &name, sizeof(name), nullptr)) && name.text;
}

/// How long a folder's real place is taken for granted: it changes when a link on the way to it does.
constexpr DWORD knownFor = 100; // milliseconds

/// A folder's path and its real place, kept because a job takes one file of a folder after another.
struct KnownFolder {
    std::array<wchar_t, nameCapacity> path{};
    std::size_t pathLength = 0;
    ObjectName real{};
    DWORD learned = 0;

    bool IsFor(std::wstring_view folder) const {
        return real.text && folder == std::wstring_view(path.data(), pathLength) &&
               GetTickCount() - learned < knownFor;
    }
};

thread_local KnownFolder knownFolder;

bool Learn(std::wstring_view folder) {
    KnownFolder& known = knownFolder;
    known.real.text = nullptr;
    if (folder.size() + 2 > known.path.size())
        return false;
    *std::copy(folder.begin(), folder.end(), known.path.begin()) = L'\\';
    known.path[folder.size() + 1] = L'\0';
    known.pathLength = folder.size();
    known.learned = GetTickCount();
    const FileHandle opened(CreateFileW(known.path.data(), 0, shareAll, nullptr, OPEN_EXISTING,
                                        FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return opened && RealName(opened.Get(), known.real);
}

/// Whether the open file lies where `path` says, under that very name.
bool IsItself(HANDLE file, std::wstring_view path) {
    const std::wstring_view folder = FolderPart(path);
    const std::wstring_view name = NamePart(path);
    ObjectName real;
    if ((!knownFolder.IsFor(folder) && !Learn(folder)) || !RealName(file, real))
        return false;
    std::wstring_view realFolder = knownFolder.real.View();
    if (realFolder.ends_with(L'\\')) // only a drive's root does
        realFolder.remove_suffix(1);
    const std::wstring_view realName = real.View();
    return realName.size() == realFolder.size() + 1 + name.size() && realName.starts_with(realFolder) &&
           realName.ends_with(name) && realName[realFolder.size()] == L'\\';
}

} // namespace

HANDLE OpenEntry(const wchar_t* path) {
    return CreateFileW(path, DELETE | SYNCHRONIZE, shareAll, nullptr, OPEN_EXISTING, 0, nullptr);
}

HANDLE OpenOwnEntry(const wchar_t* path) {
    if (!HasHostPrograms()) // on Windows the plain calls act on links themselves
        return INVALID_HANDLE_VALUE;
    FileHandle file(OpenEntry(path));
    return file && IsItself(file.Get(), path) ? file.Release() : INVALID_HANDLE_VALUE;
}

BOOL DeleteOwnEntry(HANDLE entry) {
    FILE_DISPOSITION_INFO disposition{TRUE};
    return SetFileInformationByHandle(entry, FileDispositionInfo, &disposition, sizeof(disposition));
}

BOOL RenameOwnEntry(HANDLE entry, const wchar_t* to, bool replace) {
    const std::vector<wchar_t> full = FullPath(to);
    if (full.empty())
        return FALSE;
    const std::size_t bytes = (full.size() - 1) * sizeof(wchar_t);
    std::vector<std::byte> block(sizeof(FILE_RENAME_INFO) + bytes);
    auto* info = reinterpret_cast<FILE_RENAME_INFO*>(block.data());
    info->ReplaceIfExists = static_cast<BOOLEAN>(replace);
    info->FileNameLength = static_cast<DWORD>(bytes);
    std::memcpy(info->FileName, full.data(), bytes);
    return SetFileInformationByHandle(entry, FileRenameInfo, info, static_cast<DWORD>(block.size()));
}
