#include "platform/ce_api.h"

#include "platform/desktop/device_path.h"

// The calls that the host does as the phone does, once they are kept on the device.

namespace ce {

HANDLE CreateFileW(const wchar_t* path, DWORD access, DWORD sharing, SECURITY_ATTRIBUTES* security,
                   DWORD creation, DWORD flags, HANDLE pattern) {
    const DevicePath device(path);
    return device ? ::CreateFileW(device.Text(), access, sharing, security, creation, flags, pattern)
                  : INVALID_HANDLE_VALUE;
}

BOOL CreateDirectoryW(const wchar_t* path, SECURITY_ATTRIBUTES* security) {
    const DevicePath device(path);
    return device && ::CreateDirectoryW(device.Text(), security);
}

HANDLE FindFirstChangeNotificationW(const wchar_t* folder, BOOL subfolders, DWORD filter) {
    const DevicePath device(folder);
    return device ? ::FindFirstChangeNotificationW(device.Text(), subfolders, filter) : INVALID_HANDLE_VALUE;
}

BOOL GetDiskFreeSpaceExW(const wchar_t* folder, ULARGE_INTEGER* available, ULARGE_INTEGER* total,
                         ULARGE_INTEGER* free) {
    const DevicePath device(folder);
    return device && ::GetDiskFreeSpaceExW(device.Text(), available, total, free);
}

} // namespace ce
