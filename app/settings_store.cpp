#include "app/settings_store.h"

#include "app/settings_keys.h"
#include "common/registry.h"

namespace {

struct NumberValue {
    const wchar_t* name;
    std::int32_t Settings::*field;
};

struct PathValue {
    const wchar_t* name;
    PathText Settings::*field;
};

constexpr NumberValue numberValues[] = {
    {L"TreeViewWidth", &Settings::treeViewWidth}, {L"TreeViewHeight", &Settings::treeViewHeight},
    {L"ShowStatusWnd", &Settings::showStatusBar}, {L"ShowFolder", &Settings::showFolderTree},
    {L"ViewSide", &Settings::viewSide},           {L"DragDrop", &Settings::dragDrop},
    {L"CheckQAdd", &Settings::quoteFilePath},     {L"OverLapped", &Settings::overlapped},
    {L"ContextMenu", &Settings::dragContextMenu}, {L"FontChange", &Settings::fontChange},
    {L"FontSize", &Settings::fontSize},
};

constexpr wchar_t fontNameValue[] = L"FontName";

constexpr PathValue pathValues[] = {
    {L"FavoritesPath", &Settings::favoritesPath}, {L"DesktopPath", &Settings::desktopPath},
    {L"StartMenuPath", &Settings::startMenuPath}, {L"MyDocumentPath", &Settings::myDocumentsPath},
    {L"NetworkPath", &Settings::networkPath},     {L"SendAppPath", &Settings::sendToPath},
};

const wchar_t* LeafIn(const PathText& path) {
    return LeafOf(path.data()).data();
}

void TakeSpecialFolder(PathText& path, int folder, const wchar_t* fallback) {
    wchar_t found[MAX_PATH] = L"";
    CopyTextTo(path, ce::SHGetSpecialFolderPath(nullptr, found, folder, FALSE) ? found : fallback);
}

void TakeSpecialFolders(Settings& settings) {
    TakeSpecialFolder(settings.favoritesPath, CSIDL_FAVORITES, L"\\Windows\\Favorites");
    TakeSpecialFolder(settings.desktopPath, CSIDL_DESKTOP, L"\\Windows\\Desktop");
    TakeSpecialFolder(settings.startMenuPath, CSIDL_STARTMENU, L"\\Windows\\Start Menu");
    TakeSpecialFolder(settings.myDocumentsPath, CSIDL_PERSONAL, L"\\My Documents");
    settings.startMenuLeaf = LeafIn(settings.startMenuPath);
    settings.myDocumentsLeaf = LeafIn(settings.myDocumentsPath);
}

} // namespace

void LoadSettings(Settings& settings) {
    TakeSpecialFolders(settings);
    const RegistryKey key = OpenOrCreateKey(HKEY_CURRENT_USER, settingsKey);
    if (!key)
        return;
    for (const NumberValue& value : numberValues)
        ReadNumber(key.Get(), value.name, settings.*value.field);
    ReadText(key.Get(), fontNameValue, settings.fontName);
    for (const PathValue& value : pathValues)
        ReadText(key.Get(), value.name, settings.*value.field);

    // The network's leaf stays where the default's began, and so does that of an emptied documents path.
    if (settings.myDocumentsPath[0] != L'\0')
        settings.myDocumentsLeaf = LeafIn(settings.myDocumentsPath);
    settings.startMenuLeaf = LeafIn(settings.startMenuPath);
}

void SaveSettings(const Settings& settings) {
    const RegistryKey key = OpenOrCreateKey(HKEY_CURRENT_USER, settingsKey);
    if (!key)
        return;
    for (const NumberValue& value : numberValues)
        WriteNumber(key.Get(), value.name, settings.*value.field);
    WriteText(key.Get(), fontNameValue, settings.fontName.data());
    for (const PathValue& value : pathValues)
        WriteText(key.Get(), value.name, (settings.*value.field).data());
}

void SaveProgramPath() {
    const RegistryKey key = OpenOrCreateKey(HKEY_CURRENT_USER, productKey);
    if (!key)
        return;
    // The whole buffer, whatever the text's length: readers of the value expect its full size.
    PathText path{};
    GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    RegSetValueExW(key.Get(), L"Path", 0, REG_SZ, reinterpret_cast<const BYTE*>(path.data()), sizeof(path));
}
