#include "platform/ce_api.h"

namespace ce {

BOOL OwnsRegistry() {
    DWORD size = 0;
    return RegGetValueW(HKEY_CLASSES_ROOT, L"{000214A0-0000-0000-C000-000000000046}", L"DisplayName",
                        RRF_RT_REG_SZ, nullptr, nullptr, &size) == ERROR_SUCCESS;
}

} // namespace ce
