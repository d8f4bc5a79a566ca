#include "platform/desktop/host_links.h"

#include <string_view>
#include <utility>
#include <vector>

#include "platform/desktop/host_process.h"
#include "platform/desktop/rooted_path.h"
#include "platform/handles.h"

namespace {

/// Where `path` leads once every link in it is followed; empty when it cannot be opened.
std::vector<wchar_t> FinalPath(const wchar_t* path) {
    const FileHandle file(CreateFileW(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file)
        return {};
    std::vector<wchar_t> text(GetFinalPathNameByHandleW(file.Get(), nullptr, 0, 0) + 1);
    text.resize(GetFinalPathNameByHandleW(file.Get(), text.data(), static_cast<DWORD>(text.size()), 0));
    while (!text.empty() && text.back() == L'\\')
        text.pop_back(); // only a drive's root ends in one
    return text;
}

/// The entry that `path` names, as its folder holds it.
bool FindEntry(const wchar_t* path, WIN32_FIND_DATAW& entry) {
    const HANDLE find = ::FindFirstFileW(path, &entry);
    if (find == INVALID_HANDLE_VALUE)
        return false;
    ::FindClose(find);
    return true;
}

/// Waits until the host has done what it was started for. False when it does not within two seconds, which
/// is how its refusal shows.
template <class Condition>
BOOL WaitForHost(Condition done) {
    for (int i = 0; i < 2000; ++i) {
        if (done())
            return TRUE;
        Sleep(1);
    }
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
}

} // namespace

bool IsHostLink(const wchar_t* path) {
    WIN32_FIND_DATAW entry;
    if (!HasHostPrograms() || !FindEntry(path, entry))
        return false;
    const std::wstring_view folderView = FolderPart(path);
    std::vector<wchar_t> folderText(folderView.begin(), folderView.end());
    folderText.insert(folderText.end(), {L'\\', L'\0'});

    const std::vector<wchar_t> item = FinalPath(path);
    const std::vector<wchar_t> folder = FinalPath(folderText.data());
    if (item.empty() || folder.empty())
        return (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    const std::wstring_view real(item.data(), item.size());
    return NamePart(real) != entry.cFileName ||
           FolderPart(real) != std::wstring_view(folder.data(), folder.size());
}

BOOL RemoveHostLink(const wchar_t* path) {
    const std::vector<wchar_t> host[] = {HostPath(path)};
    if (!StartOnHost(L"\\\\?\\unix\\bin\\rm", L"rm -f --", host))
        return FALSE;
    return WaitForHost([&] { return ::GetFileAttributesW(path) == INVALID_FILE_ATTRIBUTES; });
}

BOOL MoveHostLink(const wchar_t* from, const wchar_t* to, bool replace) {
    if (std::wstring_view(from) == to)
        return TRUE;
    if (!replace && !SameText(from, to) && ::GetFileAttributesW(to) != INVALID_FILE_ATTRIBUTES) {
        SetLastError(ERROR_ALREADY_EXISTS);
        return FALSE;
    }
    // The host's path of `to` is `to` itself spelt as its folder is; a like name must not stand in for it.
    const std::wstring_view name = NamePart(to);
    const std::wstring_view folder = FolderPart(to);
    std::vector<wchar_t> folderText(folder.begin(), folder.end());
    folderText.insert(folderText.end(), {L'\\', L'\0'});
    std::vector<wchar_t> target = HostPath(folderText.data());
    if (!target.empty()) {
        target.back() = L'/';
        target.insert(target.end(), name.begin(), name.end());
        target.push_back(L'\0');
    }
    const std::vector<wchar_t> paths[] = {HostPath(from), std::move(target)};
    const wchar_t* words = replace ? L"mv -fT --" : L"mv -nT --";
    if (!StartOnHost(L"\\\\?\\unix\\bin\\mv", words, paths))
        return FALSE;
    return WaitForHost([&] {
        WIN32_FIND_DATAW entry;
        const bool stays = FindEntry(from, entry) && NamePart(from) == entry.cFileName;
        return !stays && FindEntry(to, entry) && name == entry.cFileName;
    });
}
