#include "platform/ce_api.h"

#include "platform/desktop/device_path.h"
#include "platform/desktop/rooted_path.h"
#include "platform/entry_names.h"

// The calls that the host does as the phone does, once they are kept on the device.

namespace {

bool MayMakeFile(DWORD creation) {
    return creation == CREATE_NEW || creation == CREATE_ALWAYS || creation == OPEN_ALWAYS;
}

/// Whether the phone takes the name of what is to be made. The error says so.
bool IsForPhone(const DevicePath& path) {
    if (IsNewPhoneName(NamePart(path.Rooted())))
        return true;
    SetLastError(ERROR_INVALID_NAME);
    return false;
}

} // namespace

namespace ce {

HANDLE CreateFileW(const wchar_t* path, DWORD access, DWORD sharing, SECURITY_ATTRIBUTES* security,
                   DWORD creation, DWORD flags, HANDLE pattern) {
    const DevicePath device(path);
    if (!device || (MayMakeFile(creation) && !IsForPhone(device)))
        return INVALID_HANDLE_VALUE;
    if ((access & (GENERIC_READ | GENERIC_WRITE)) != 0 && IsHostSpecial(device)) {
        SetLastError(ERROR_ACCESS_DENIED);
        return INVALID_HANDLE_VALUE;
    }
    return ::CreateFileW(device.Text(), access, sharing, security, creation, flags, pattern);
}

BOOL CreateDirectoryW(const wchar_t* path, SECURITY_ATTRIBUTES* security) {
    const DevicePath device(path);
    return device && IsForPhone(device) && ::CreateDirectoryW(device.Text(), security);
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
