#include "fileops/transfer_rules.h"

#include <algorithm>
#include <array>

#include "app/text.h"

namespace {

bool PathOf(const SelectionEntry& entry, Path& path) {
    return path.AssignChild(entry.folder.data(), entry.name.data());
}

/// The slot of an up-level entry is empty: it stays out of everything.
bool StaysInFolder(const TransferRequest& request) {
    return std::ranges::any_of(request.entries, [&](const SelectionEntry& entry) {
        return entry.kind != ItemKind::UpLevel && request.targetFolder == entry.folder.data();
    });
}

} // namespace

const wchar_t* RefuseTransfer(const TransferRequest& request) {
    if (request.isMove && StaysInFolder(request))
        return L"Illegal move operation.";
    for (const SelectionEntry& entry : request.entries) {
        Path path;
        if (entry.kind != ItemKind::Folder || !PathOf(entry, path))
            continue;
        // Copying it is refused in the same words: the system's folder is never the source of a job.
        if (EqualNoCase(path.View(), request.systemFolder))
            return systemFolderMessage;
        if (IsWithin(request.targetFolder, path.View()))
            return request.isMove ? L"Illegal move operation." : L"Illegal copy operation.";
    }
    return nullptr;
}

bool IsWithin(std::wstring_view path, std::wstring_view folder) {
    return EqualNoCase(path.substr(0, folder.size()), folder) &&
           (path.size() == folder.size() || path[folder.size()] == L'\\');
}

std::wstring_view FolderCaption(std::wstring_view folder) {
    return folder.find(L'\\') == std::wstring_view::npos ? std::wstring_view(L"\\") : LeafOf(folder);
}

bool AssignCopyName(Path& path, std::wstring_view folder, std::wstring_view name, int number) {
    std::array<wchar_t, 32> prefix{};
    if (number == 1)
        CopyTextTo(prefix, L"copy of ");
    else
        FormatText(prefix, L"copy (%d) of ", number);
    Path named;
    if (!named.AssignChild(folder, prefix.data()) || !named.Append(name))
        return false;
    path = named;
    return true;
}
