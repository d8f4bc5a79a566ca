#include "benchmarks/measuring.h"

#include <cstdint>
#include <cstdio>

#include "platform/ce_api.h"

namespace {

bool overLimit = false;

double Microseconds(FILETIME time) {
    const std::uint64_t ticks = (static_cast<std::uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
    return static_cast<double>(ticks) / 10;
}

} // namespace

double ProcessorTime() {
    FILETIME created{};
    FILETIME ended{};
    FILETIME kernel{};
    FILETIME user{};
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
    return Microseconds(kernel) + Microseconds(user);
}

double WallTime() {
    LARGE_INTEGER now{}, perSecond{};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&perSecond);
    return 1e6 * static_cast<double>(now.QuadPart) / static_cast<double>(perSecond.QuadPart);
}

void Rest() {
    Sleep(300);
}

void ReportRatio(const char* what, double ratio, double limit) {
    const bool over = ratio > limit;
    overLimit = overLimit || over;
    std::printf("  %-62s %8.2f  (at most %g)%s\n", what, ratio, limit, over ? "  OVER" : "");
}

void ReportTime(const char* what, double microseconds) {
    std::printf("  %-62s %8.2f us\n", what, microseconds);
}

bool AnyOverLimit() {
    return overLimit;
}
