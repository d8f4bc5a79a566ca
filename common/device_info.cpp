#include "common/device_info.h"

#include "common/path.h"
#include "common/registry.h"
#include "common/text.h"

int GetOsVersion() {
    static int osVersion = 0;
    if (osVersion == 0) {
        OSVERSIONINFOW version{};
        version.dwOSVersionInfoSize = sizeof(version);
        if (GetVersionExW(&version))
            osVersion = static_cast<int>(version.dwMajorVersion * 100 + version.dwMinorVersion);
    }
    return osVersion;
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
        const RegistryKey device = OpenKey(HKEY_CLASSES_ROOT, L"{000214A0-0000-0000-C000-000000000046}");
        if (!device || !ReadText(device.Get(), L"DisplayName", name) || name[0] == L'\0')
            CopyTextTo(name, L"\\");
    }
    return name.data();
}
