#include "companions/workbench/traps.h"

#include <windows.h>

#include <array>
#include <atomic>
#include <mutex>

#include "companions/workbench/ending.h"

namespace {

constexpr unsigned limit = 4096;
constexpr std::uint32_t softwareInterrupt = 0xef000000;

std::array<Trap, limit> traps;
std::atomic<unsigned> count = 1; // the first one is the return
std::mutex oneAtATime;

std::uint32_t* Words() {
    static auto* const words = [] {
        auto* memory = static_cast<std::uint32_t*>(
            VirtualAlloc(nullptr, limit * sizeof(std::uint32_t), MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
        for (unsigned number = 0; number < limit; ++number)
            memory[number] = softwareInterrupt | number;
        return memory;
    }();
    return words;
}

std::uint32_t AddressOf(unsigned number) {
    return reinterpret_cast<std::uint32_t>(Words() + number);
}

} // namespace

TrapPages PagesOfTraps() {
    return {AddressOf(0), AddressOf(limit)};
}

std::uint32_t TrapFor(HostFunction function, const char* name) {
    const std::lock_guard lock(oneAtATime);
    for (unsigned number = 1; number < count; ++number)
        if (traps[number].function == function)
            return AddressOf(number);
    if (count == limit)
        EndWith("there are more calls out of the phone's program than traps");
    traps[count] = {function, name};
    return AddressOf(count++);
}

const Trap* TrapAt(std::uint32_t address) {
    const std::uint32_t number = (address - AddressOf(0)) / sizeof(std::uint32_t);
    return address >= AddressOf(1) && number < count ? &traps[number] : nullptr;
}

bool ReplaceCall(HostFunction function, HostFunction replacement) {
    const std::lock_guard lock(oneAtATime);
    for (unsigned number = 1; number < count; ++number)
        if (traps[number].function == function) {
            traps[number].function = replacement;
            return true;
        }
    return false;
}

std::uint32_t ReturnTrap() {
    return AddressOf(0);
}
