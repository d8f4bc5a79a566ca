#include "tests/support/inside.h"

#include <stdexcept>
#include <string>

#include "tests/support/file_places.h"
#include "tests/support/live_window.h"
#include "tests/support/probe/probe.h"
#include "tests/support/text.h"

namespace {

constexpr DWORD threadPatience = 10000; // milliseconds

std::wstring ProbePath() {
    return BesideTests(L"test_probe.dll");
}

/// Runs a function of the program's address space in the program and returns its result.
DWORD RunThere(HANDLE process, void* function, void* parameter) {
    const HANDLE thread = CreateRemoteThread(
        process, nullptr, 0, reinterpret_cast<LPTHREAD_START_ROUTINE>(function), parameter, 0, nullptr);
    if (!thread)
        throw std::runtime_error("nothing can be run inside the program: it has ended");
    WaitForSingleObject(thread, threadPatience);
    DWORD result = 0;
    GetExitCodeThread(thread, &result);
    CloseHandle(thread);
    return result;
}

/// Loads the probe into the process of `window`, if it is not there yet, and returns its base there. The
/// probe is linked to lie below 4 GB, so that a thread's exit code holds the whole address.
std::byte* LoadProbe(HWND window) {
    const std::wstring path = ProbePath();
    RemoteMemory text(window, (path.size() + 1) * sizeof(wchar_t));
    text.Write(path.c_str(), (path.size() + 1) * sizeof(wchar_t));
    // The system's libraries lie at the same address in every process.
    void* const load = reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32"), "LoadLibraryW"));
    const DWORD base = RunThere(text.Process(), load, text.Address());
    if (!base)
        throw std::runtime_error("the program could not load " + Narrow(path));
    return reinterpret_cast<std::byte*>(static_cast<std::uintptr_t>(base));
}

/// Where an export lies from the library's base on.
std::size_t OffsetOf(const char* function) {
    static const HMODULE probe = LoadLibraryW(ProbePath().c_str());
    const auto* place = reinterpret_cast<std::byte*>(GetProcAddress(probe, function));
    return static_cast<std::size_t>(place - reinterpret_cast<std::byte*>(probe));
}

} // namespace

void RunInside(HWND window, const char* function, void* record, std::size_t size) {
    std::byte* const probe = LoadProbe(window);
    RemoteMemory memory(window, size);
    memory.Write(record, size);
    RunThere(memory.Process(), probe + OffsetOf(function), memory.Address());
    memory.Read(record, size);
}

LRESULT AskInside(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    MessageReport report{window, message, wParam, lParam, 0};
    RunInside(window, "ReportMessage", &report, sizeof(report));
    return report.answer;
}

Asked AskedByList(HWND list) {
    DrawingReport report{list, 0, 0};
    RunInside(list, "ReportDrawing", &report, sizeof(report));
    return {report.texts, report.icons};
}

UINT LooksOf(HWND window) {
    LooksReport report{};
    RunInside(window, "CountLooks", &report, sizeof(report));
    return report.looks;
}

LOGFONTW FontOf(HWND window) {
    FontReport report{window, {}};
    RunInside(window, "ReportFont", &report, sizeof(report));
    return report.font;
}
