// Texts and icons, made when an entry is first drawn.

#include "app/app_state.h"
#include "common/text_format.h"
#include "filelist/file_list.h"

namespace {

OwnedText MakeText(std::size_t capacity) {
    return OwnedText(new wchar_t[capacity]());
}

wchar_t* NameText(FileItem& item, bool withoutExtension) {
    if (!item.displayName && withoutExtension) {
        item.displayName = CopyText(item.name.get());
        CutExtension(item.displayName.get());
    }
    return item.displayName ? item.displayName.get() : item.name.get();
}

wchar_t* SizeText(FileItem& item) {
    if (!item.sizeText) {
        item.sizeText = MakeText(sizeTextCapacity);
        FormatSize(item.size, {item.sizeText.get(), sizeTextCapacity}, L"%s KB", L"%s MB");
    }
    return item.sizeText.get();
}

wchar_t* DateText(FileItem& item, std::uint32_t mode) {
    if (!item.dateText) {
        item.dateText = MakeText(dateTextCapacity);
        SYSTEMTIME time{};
        if (FileTimeToSystemTime(&item.time, &time))
            FormatDateTime(time, {item.dateText.get(), dateTextCapacity}, mode);
    }
    return item.dateText.get();
}

} // namespace

void FileList::OnGetDisplayInfo(NMLVDISPINFOW* info) {
    LVITEMW& entry = info->item;
    const FileItem* item = ItemAt(entry.iItem);
    if (item && (entry.mask & LVIF_IMAGE)) {
        entry.iImage = item->iconIndex == iconWhenDrawn
                           ? icons_->IconIndexFor(item->name.get(), item->folder, item->attributes)
                           : item->iconIndex;
    }
    if (entry.mask & LVIF_TEXT) {
        if (wchar_t* text = TextOf(entry.iItem, entry.iSubItem))
            entry.pszText = text;
    }
}

wchar_t* FileList::TextOf(int row, int column) {
    static wchar_t folderType[] = L"Folder";
    FileItem* item = ItemAt(row);
    if (!item || item->kind == ItemKind::UpLevel)
        return nullptr;
    if (item->kind == ItemKind::Folder)
        return column == 0 ? item->name.get() : column == 2 ? folderType : nullptr;
    switch (column) {
    case 0:
        return NameText(*item, options.noExtension != 0);
    case 1:
        return SizeText(*item);
    case 2:
        return item->typeText ? item->typeText.get() : MakeTypeText(row);
    case 3:
        return DateText(*item, dateMode);
    default:
        return nullptr;
    }
}

/// Asks the shell, which may let messages in: the list may have been read anew when it answers.
wchar_t* FileList::MakeTypeText(int row) {
    const std::optional<SelectionEntry> entry = EntryAt(row);
    Path path;
    SHFILEINFOW info{};
    if (entry && path.AssignChild(entry->folder.data(), entry->name.data()))
        ce::SHGetFileInfo(path.Text(), 0, &info, sizeof(info), SHGFI_TYPENAME);
    FileItem* item = ItemAt(row);
    if (!entry || !item || !Names(*item, *entry))
        return nullptr;
    item->typeText = MakeText(typeTextCapacity);
    CopyTextTo({item->typeText.get(), typeTextCapacity}, info.szTypeName);
    return item->typeText.get();
}
