#pragma once
// Functions of the phone's program that the host calls back.

#include <windows.h>

#include <cstdint>

/// Which code is the phone's program.
void SetGuestCode(std::uint32_t begin, std::uint32_t end);

bool IsGuestCode(std::uint32_t address);

/// What the host can call for `function`, which takes `arguments` words (1 or 4) and drops them itself: a
/// function of the phone's program becomes one of the host's, the same one every time; any other, also null,
/// stays. Any thread.
void* Callable(void* function, unsigned arguments);

template <class Function>
Function CallableAs(Function function, unsigned arguments = 4) {
    return reinterpret_cast<Function>(Callable(reinterpret_cast<void*>(function), arguments));
}
