#include "launch/network.h"

#include <cstdint>

#include "app/app_state.h"
#include "common/registry.h"

namespace {

constexpr wchar_t caption[] = L"Network Folder";
constexpr wchar_t enabledValue[] = L"RegisterFSRoot";

constexpr auto cancelled = static_cast<DWORD>(-1); // what the platform's dialogs answer then

RegistryKey OpenRedirectorKey() {
    return OpenOrCreateKey(HKEY_LOCAL_MACHINE, L"Comm\\Redir");
}

/// True for success; reports anything else but the user's own cancelling.
bool Succeeded(DWORD result, const wchar_t* failure) {
    if (result != NO_ERROR && result != cancelled)
        MessageBoxW(appState.mainWindow, failure, L"", MB_ICONERROR);
    return result == NO_ERROR;
}

} // namespace

bool networkFolderEnabled(bool ask) {
    const RegistryKey key = OpenRedirectorKey();
    std::uint32_t enabled = 0;
    if (key)
        ReadNumber(key.Get(), enabledValue, enabled);
    if (enabled)
        return true;
    if (ask &&
        MessageBoxW(appState.mainWindow, L"The 'Network' folder is not enabled :\ndo you want to enable it?",
                    caption, MB_YESNO | MB_ICONQUESTION) != IDYES)
        return false;
    if (key)
        WriteNumber(key.Get(), enabledValue, 1);
    if (ask)
        MessageBoxW(appState.mainWindow,
                    L"Soft-reset your device to activate the changes.\nAfter reset, run this command again.",
                    caption, MB_ICONEXCLAMATION);
    return false;
}

bool connectNetwork() {
    if (!networkFolderEnabled(true))
        return false;
    NETRESOURCEW resource{};
    resource.dwType = RESOURCETYPE_DISK;
    CONNECTDLGSTRUCTW request{};
    request.cbStructure = sizeof(request);
    request.hwndOwner = appState.mainWindow;
    request.lpConnRes = &resource;
    return Succeeded(ce::WNetConnectionDialog1W(&request), L"Network Connection failed.");
}

bool disconnectNetwork() {
    return Succeeded(ce::WNetDisconnectDialog(appState.mainWindow, 0), L"Network Disconnection failed.");
}
