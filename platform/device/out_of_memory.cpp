#include "platform/device/out_of_memory.h"

#include "platform/handles.h"

namespace {

constexpr DWORD kept = 64 * 1024; // bytes: a thread and a box

void* keptMemory = nullptr;
CRITICAL_SECTION oneAtATime;

void KeepMemory() {
    keptMemory = VirtualAlloc(nullptr, kept, MEM_COMMIT, PAGE_READWRITE);
}

DWORD WINAPI Ask(void*) {
    return static_cast<DWORD>(MessageBoxW(nullptr,
                                          L"There is not enough memory.\nEnd other programs, then choose "
                                          L"Retry. Cancel ends the file manager; no file is lost.",
                                          L"Tarvik File Manager",
                                          MB_RETRYCANCEL | MB_ICONSTOP | MB_SETFOREGROUND | MB_TOPMOST));
}

/// Asks on a thread of its own: a box here would hand out the program's messages. 0 when it could not ask.
DWORD AskElsewhere() {
    const ObjectHandle thread(CreateThread(nullptr, 0, Ask, nullptr, 0, nullptr));
    if (!thread)
        return 0;
    WaitForSingleObject(thread.Get(), INFINITE);
    DWORD answer = 0;
    GetExitCodeThread(thread.Get(), &answer);
    return answer;
}

} // namespace

void PrepareForTheEnd() {
    InitializeCriticalSection(&oneAtATime);
    KeepMemory();
}

bool AskToTryAgain() {
    EnterCriticalSection(&oneAtATime);
    VirtualFree(keptMemory, 0, MEM_RELEASE);
    const DWORD answer = AskElsewhere();
    KeepMemory();
    LeaveCriticalSection(&oneAtATime);
    return answer == IDRETRY;
}
