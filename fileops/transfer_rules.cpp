#include "fileops/transfer_rules.h"

#include <algorithm>
#include <array>

#include "common/entry_places.h"
#include "common/system_folder.h"
#include "common/text.h"

namespace {

/// The slot of an up-level entry is empty: it stays out of everything.
bool StaysInFolder(const TransferRequest& request, EntryPlaces& places, const ce::RealPlace& target) {
    return std::ranges::any_of(request.entries, [&](const SelectionEntry& entry) {
        return entry.kind != ItemKind::UpLevel &&
               (request.targetFolder == entry.folder.data() || places.Folder(entry.folder.data()).Is(target));
    });
}

} // namespace

const wchar_t* RefuseTransfer(const TransferRequest& request) {
    const wchar_t* illegal = request.isMove ? L"Illegal move operation." : L"Illegal copy operation.";
    const ce::RealPlace target = PlaceOfFolder(request.targetFolder);
    EntryPlaces places;
    if (request.isMove && StaysInFolder(request, places, target))
        return illegal;
    SystemFolder system(request.systemFolder);
    for (const SelectionEntry& entry : request.entries) {
        if (entry.kind != ItemKind::Folder)
            continue;
        const wchar_t* folder = entry.folder.data();
        const wchar_t* name = entry.name.data();
        // Copying it is refused in the same words: the system's folder is never the source of a job.
        if (request.isMove ? system.GoesWith(folder, name) : system.Is(folder, name))
            return systemFolderMessage;
        if (places.Holds(folder, name, target))
            return illegal;
    }
    return nullptr;
}

std::wstring_view FolderCaption(std::wstring_view folder) {
    if (folder.ends_with(L'\\')) // as it was typed
        folder.remove_suffix(1);
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
