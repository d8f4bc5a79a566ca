#include "tests/support/waiting.h"

#include <stdexcept>

#include <windows.h>

namespace {

constexpr DWORD pollPause = 15; // milliseconds

} // namespace

bool HoldsWithin(int milliseconds, const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    while (!condition()) {
        if (GetTickCount64() >= end)
            return condition();
        Sleep(pollPause);
    }
    return true;
}

bool Eventually(const std::function<bool()>& condition) {
    return HoldsWithin(defaultPatience, condition);
}

bool HoldsFor(int milliseconds, const std::function<bool()>& condition) {
    return !HoldsWithin(milliseconds, [&] { return !condition(); });
}

void WaitFor(const std::string& what, const std::function<bool()>& condition, int milliseconds) {
    if (!HoldsWithin(milliseconds, condition))
        throw std::runtime_error("waited in vain " + what);
}
