#pragma once
// The words that lead out of the phone's program: each stands for a function of the host.

#include <cstdint>

/// A function of the host that the phone's program calls, with the words of its arguments: four registers and
/// what lies on the stack. It takes as many as it wants and may leave either the caller or itself to drop
/// them.
using HostFunction = void*;

struct Trap {
    HostFunction function;
    const char* name; // for reports; must last
};

/// The pages of the words.
struct TrapPages {
    std::uint32_t begin, end;
};
TrapPages PagesOfTraps();

/// The address that the phone's program may call for `function`; the same one every time. Any thread.
std::uint32_t TrapFor(HostFunction function, const char* name);

/// The trap of this address; null when there is none.
const Trap* TrapAt(std::uint32_t address);

/// Has the phone's program call `replacement` wherever it calls `function`; whether it calls that at all.
/// Exported: the tests' probe inside the process stands before some calls.
extern "C" __declspec(dllexport) bool ReplaceCall(HostFunction function, HostFunction replacement);

/// What a call of the host's into the phone's program returns to.
std::uint32_t ReturnTrap();
