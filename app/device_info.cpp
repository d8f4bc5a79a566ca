#include "app/device_info.h"

#include "app/app_state.h"
#include "app/registry.h"

int GetOsVersion() {
    if (appState.osVersion == 0) {
        OSVERSIONINFOW version{};
        version.dwOSVersionInfoSize = sizeof(version);
        if (GetVersionExW(&version))
            appState.osVersion =
                static_cast<std::int32_t>(version.dwMajorVersion * 100 + version.dwMinorVersion);
    }
    return appState.osVersion;
}

DWORD GetSipFlags() {
    SIPINFO info{};
    info.cbSize = sizeof(info);
    ce::SipGetInfo(&info);
    return info.fdwFlags;
}

const wchar_t* DeviceDisplayName() {
    static PathText name{};
    if (name[0] == L'\0') {
        HKEY key = nullptr;
        RegOpenKeyExW(HKEY_CLASSES_ROOT, L"{000214A0-0000-0000-C000-000000000046}", 0, KEY_READ, &key);
        const RegistryKey device(key);
        if (!device || !ReadText(device.Get(), L"DisplayName", name) || name[0] == L'\0')
            CopyTextTo(name, L"\\");
    }
    return name.data();
}
