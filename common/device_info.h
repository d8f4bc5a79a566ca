#pragma once
// What the device says about itself.

#include "platform/ce_api.h"

/// The platform's version, major times 100 plus minor; read once.
int GetOsVersion();

/// The input panel's flags (SIPF_...).
DWORD GetSipFlags();

/// The device's display name, which names the root; a single backslash when it has none. Read once.
const wchar_t* DeviceDisplayName();
