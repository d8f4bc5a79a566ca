#include "filelist/icons.h"

#include <algorithm>
#include <array>
#include <cwchar>

#include "app/app_state.h"
#include "filelist/shortcut_target.h"
#include "resources/resource.h"

namespace {

constexpr int largeSize = 32;
constexpr int smallSize = 16;

struct IconResource {
    WORD large;
    WORD small;
};

constexpr std::array<IconResource, fixedImageCount> fixedIcons = {{
    {IDI_FOLDER_LARGE, IDI_FOLDER_SMALL},
    {IDI_CARD_LARGE, IDI_CARD_SMALL},
    {IDI_DOCUMENTS_LARGE, IDI_DOCUMENTS_SMALL},
    {IDI_STARTMENU_LARGE, IDI_STARTMENU_SMALL},
    {IDI_FILE_LARGE, IDI_FILE_SMALL},
    {IDI_ROMFILE_LARGE, IDI_ROMFILE_SMALL},
    {IDI_NETWORK_LARGE, IDI_NETWORK_SMALL},
    {IDI_ARCHIVE_LARGE, IDI_ARCHIVE_SMALL},
}};

IconHandle LoadFixedIcon(const IconResource& icon, bool large) {
    if (large)
        return IconHandle(LoadIconW(appState.instance, MAKEINTRESOURCEW(icon.large)));
    return IconHandle(static_cast<HICON>(
        LoadImageW(appState.instance, MAKEINTRESOURCEW(icon.small), IMAGE_ICON, smallSize, smallSize, 0)));
}

SpecialFolderNames SpecialFolders() {
    const Settings& settings = appState.settings;
    return {settings.myDocumentsLeaf, settings.startMenuLeaf, L"Network"};
}

ArchiverAvailability ArchivesOpenedHere() {
    return appState.fileList.options.openArchivesHere ? appState.archivers : ArchiverAvailability{};
}

bool LeadsToServer(const Path& shortcut) {
    wchar_t target[pathCapacity] = {};
    return ce::SHGetShortcutTarget(shortcut.Text(), target, static_cast<int>(pathCapacity)) &&
           IsServerTarget(target);
}

} // namespace

int IconCache::Find(const wchar_t* key) const {
    const auto record = std::lower_bound(
        records_.begin(), records_.end(), key,
        [](const Record& kept, const wchar_t* sought) { return _wcsicmp(kept.key.get(), sought) < 0; });
    return record != records_.end() && _wcsicmp(record->key.get(), key) == 0 ? record->image : -1;
}

void IconCache::Add(const wchar_t* key, int image) {
    const auto place =
        std::upper_bound(records_.begin(), records_.end(), key, [](const wchar_t* added, const Record& kept) {
            return _wcsicmp(added, kept.key.get()) < 0;
        });
    records_.insert(place, Record{CopyText(key), image});
}

void IconSet::BuildIconSet(bool large) {
    const int size = large ? largeSize : smallSize;
    large_ = large;
    cache_.Clear();
    images_.Reset(ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, 3, 3));
    for (const IconResource& resource : fixedIcons) {
        const IconHandle icon = LoadFixedIcon(resource, large);
        ImageList_ReplaceIcon(images_.Get(), -1, icon.Get());
    }
}

int IconSet::IconIndexFor(std::wstring_view name, std::wstring_view folder, DWORD attributes) {
    const IconChoice choice = ChooseIcon(name, folder, attributes, appState.fileList.iconOptions,
                                         SpecialFolders(), ArchivesOpenedHere());
    if (choice.image >= 0)
        return choice.image;
    // A shortcut's key is its path.
    if (IsShortcutName(name) && LeadsToServer(choice.key))
        return imageNetwork;
    const int kept = cache_.Find(choice.key.Text());
    if (kept >= 0)
        return kept;
    Path path; // all that is left of the entry when the shell lets messages in
    if (appState.dragging || !path.AssignChild(folder, name))
        return imageFile;
    const IconHandle icon = ShellIcon(path.Text());
    int image = icon ? ImageList_ReplaceIcon(images_.Get(), -1, icon.Get()) : -1;
    if (image < 0)
        image = imageFile;
    cache_.Add(choice.key.Text(), image);
    return image;
}

void IconSet::RefreshFor(const Path& path) {
    const DWORD attributes = ce::GetFileAttributesW(path.Text());
    const int image = IconIndexFor(LeafOf(path.View()), ParentOf(path.View()), attributes);
    if (image < fixedImageCount)
        return;
    const IconHandle icon = ShellIcon(path.Text());
    if (icon)
        ImageList_ReplaceIcon(images_.Get(), image, icon.Get());
}

IconHandle IconSet::ShellIcon(const wchar_t* path) const {
    SHFILEINFOW info{};
    ce::SHGetFileInfo(path, 0, &info, sizeof(info), SHGFI_ICON | (large_ ? 0U : SHGFI_SMALLICON));
    return IconHandle(info.hIcon);
}

void FileList::BuildIconSets() {
    largeIcons_.BuildIconSet(true);
    smallIcons_.BuildIconSet(false);
    SendMessageW(window_, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(smallIcons_.Images()));
    SendMessageW(window_, LVM_SETIMAGELIST, LVSIL_NORMAL, reinterpret_cast<LPARAM>(largeIcons_.Images()));
}

void FileList::RefreshIconFor(std::wstring_view text) {
    Path path;
    if (iconOptions.genericIcons || !path.Assign(text))
        return;
    largeIcons_.RefreshFor(path);
    smallIcons_.RefreshFor(path);
}
