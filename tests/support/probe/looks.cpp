// Counts the folders that the program begins to read.

#include <atomic>
#include <utility>

#include <windows.h>

#include "tests/support/probe/imports.h"
#include "tests/support/probe/probe.h"

namespace {

std::atomic<UINT> looks;
HANDLE(WINAPI* originalFindFirst)(const wchar_t*, WIN32_FIND_DATAW*);

HANDLE WINAPI CountLook(const wchar_t* pattern, WIN32_FIND_DATAW* found) {
    ++looks;
    return originalFindFirst(pattern, found);
}

} // namespace

DWORD WINAPI CountLooks(void* report) {
    static bool replaced;
    if (!std::exchange(replaced, true)) {
        const Patch patches[] = {{"FindFirstFileW", reinterpret_cast<void*>(CountLook),
                                  reinterpret_cast<void**>(&originalFindFirst)}};
        ReplaceImports(patches);
    }
    static_cast<LooksReport*>(report)->looks = looks.exchange(0);
    return 0;
}
