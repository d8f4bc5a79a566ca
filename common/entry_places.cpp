#include "common/entry_places.h"

#include "common/text.h"

ce::RealPlace PlaceOfFolder(std::wstring_view folder) {
    return folder.empty() ? ce::RealPlace(L"\\") : ce::RealPlace(CopyText(folder).get());
}

const ce::RealPlace& EntryPlaces::Folder(const wchar_t* folder) {
    if (!place_ || folder_.View() != folder) {
        place_ = PlaceOfFolder(folder);
        if (!folder_.Assign(folder))
            folder_.Clear();
    }
    return *place_;
}

/// The entry's place. Nothing when it is a link, and when it cannot be `place` or hold it: what lies in a
/// folder holds only what the folder does, but for the storage cards of the root, whose files are elsewhere.
std::optional<ce::RealPlace> EntryPlaces::EntryNear(const wchar_t* folder, const wchar_t* name,
                                                    const ce::RealPlace& place) {
    const ce::RealPlace& holder = Folder(folder);
    const bool isRoot = *folder == L'\0';
    Path path;
    if ((!isRoot && !place.IsWithin(holder)) || !path.AssignChild(folder, name))
        return std::nullopt;
    const DWORD attributes = ce::GetFileAttributesW(path.Text());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        return std::nullopt;
    const bool isCard = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_STORAGE_CARD);
    return isCard ? ce::RealPlace(path.Text()) : holder.Entry(name);
}

bool EntryPlaces::Is(const wchar_t* folder, const wchar_t* name, const ce::RealPlace& place) {
    const std::optional<ce::RealPlace> entry = EntryNear(folder, name, place);
    return entry && entry->Is(place);
}

bool EntryPlaces::Holds(const wchar_t* folder, const wchar_t* name, const ce::RealPlace& place) {
    const std::optional<ce::RealPlace> entry = EntryNear(folder, name, place);
    return entry && place.IsWithin(*entry);
}
