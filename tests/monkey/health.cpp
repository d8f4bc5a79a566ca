#include "tests/monkey/health.h"

#include <stdexcept>

#include <windows.h>

#include <psapi.h>

#include "tests/support/input.h"
#include "tests/support/live_window.h"
#include "tests/support/text.h"
#include "tests/support/waiting.h"

namespace {

constexpr int leavingPatience = 60000; // milliseconds: a job that is left finishes its file

std::string OpenWindows(Program& program) {
    std::string open;
    for (HWND window : TopWindowsOf(program.ProcessId()))
        if (IsWindowVisible(window))
            open += " [" + Narrow(ClassOf(window)) + " \"" + Narrow(TextOf(window)) + "\"]";
    return open;
}

/// Back; now and then Return, for messages that want an answer, and "Ok", where the only control is an edit
/// field, in which Back erases.
void PressToLeave(int presses) {
    if (presses % 5 == 0)
        return PressKey(VK_RETURN);
    if (presses % 7 == 0)
        return PressLeftSoftKey();
    PressBack();
}

} // namespace

void ExpectAnswer(Program& program, unsigned milliseconds) {
    if (!program.IsRunning()) {
        if (const DWORD code = program.ExitCode(); code != 0)
            throw std::runtime_error("the program ended with " + std::to_string(code));
        return;
    }
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutW(program.Window(), WM_NULL, 0, 0, SMTO_NORMAL, milliseconds, &answer) == 0 &&
        program.IsRunning() && IsWindow(program.Window()))
        throw std::runtime_error("no answer within " + std::to_string(milliseconds) +
                                 " ms; open:" + OpenWindows(program));
}

bool IsAtRest(Program& program) {
    return !program.HasDialog() && !program.HasMessageBox() && !program.MenuIsOpen() &&
           IsWindowEnabled(program.Window());
}

void LeaveByKeys(Program& program) {
    int presses = 0;
    const bool left = HoldsWithin(leavingPatience, [&] {
        if (!program.IsRunning() || IsAtRest(program))
            return true;
        // Another program may be in front by now; its owner would go back to ours.
        DWORD inFront = 0;
        GetWindowThreadProcessId(GetForegroundWindow(), &inFront);
        if (inFront != program.ProcessId())
            for (HWND window : TopWindowsOf(program.ProcessId()))
                if (IsWindowVisible(window) && IsWindowEnabled(window)) {
                    SetForegroundWindow(window);
                    break;
                }
        PressKey(VK_CONTROL); // what the program keeps down until it is told otherwise
        PressKey(VK_SHIFT);
        PressToLeave(++presses);
        Sleep(150);
        return false;
    });
    if (!left)
        throw std::runtime_error("cannot be left by keys; open:" + OpenWindows(program));
}

Holdings HoldingsOf(const Program& program) {
    Holdings holdings;
    PROCESS_MEMORY_COUNTERS_EX memory{};
    if (GetProcessMemoryInfo(program.Process(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory),
                             sizeof(memory)))
        holdings.bytes = memory.PrivateUsage;
    GetProcessHandleCount(program.Process(), &holdings.handles);
    return holdings;
}

void ExpectNoGrowth(const Holdings& first, const Holdings& last) {
    constexpr std::size_t listing = std::size_t{120} << 20;
    constexpr DWORD handles = 60;
    if (last.bytes > first.bytes + listing)
        throw std::runtime_error("memory grows from " + std::to_string(first.bytes) + " to " +
                                 std::to_string(last.bytes));
    if (last.handles > first.handles + handles)
        throw std::runtime_error("handles grow from " + std::to_string(first.handles) + " to " +
                                 std::to_string(last.handles));
}
