#include "tests/support/stored_settings.h"

#include <windows.h>

std::vector<std::uint32_t> DefaultListOptions() {
    const auto half = static_cast<std::uint32_t>(GetSystemMetrics(SM_CXSCREEN) / 2);
    return {0, 1, 0, 0, 1, 0, 0, half, half, half, half, 0, 0, 1, 1, 0, 1, 2, 0, 0, 0, 0};
}
