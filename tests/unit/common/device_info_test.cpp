#include "common/device_info.h"

#include <string>

#include <gtest/gtest.h>

#include "platform/ce_api.h"

namespace {

TEST(DeviceInfo, TellsTheVersion) {
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof(version);
    ASSERT_TRUE(GetVersionExW(&version));
    EXPECT_EQ(GetOsVersion(), static_cast<int>(version.dwMajorVersion * 100 + version.dwMinorVersion));
}

TEST(DeviceInfo, ReadsTheDisplayNameOnce) {
    const std::wstring first = DeviceDisplayName();
    EXPECT_FALSE(first.empty());
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CLASSES_ROOT, L"{000214A0-0000-0000-C000-000000000046}", 0, nullptr, 0,
                    KEY_ALL_ACCESS, nullptr, &key, nullptr);
    wchar_t before[64] = L"";
    DWORD size = sizeof(before);
    const bool stored =
        RegQueryValueExW(key, L"DisplayName", nullptr, nullptr, reinterpret_cast<BYTE*>(before), &size) == 0;
    RegSetValueExW(key, L"DisplayName", 0, REG_SZ, reinterpret_cast<const BYTE*>(L"Other"), 12);
    EXPECT_EQ(DeviceDisplayName(), first);
    if (stored)
        RegSetValueExW(key, L"DisplayName", 0, REG_SZ, reinterpret_cast<const BYTE*>(before), size);
    else
        RegDeleteValueW(key, L"DisplayName");
    RegCloseKey(key);
}

} // namespace
