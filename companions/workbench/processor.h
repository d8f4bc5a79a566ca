#pragma once
// The emulated processors, one for each thread that runs the phone's program, and the calls in and out.

#include <cstdint>

#include "companions/workbench/image.h"

/// What the phone's own libraries take of a thread's stack when they are called: the program has the rest.
constexpr std::uint32_t stackOfThePlatform = 0x4000;

/// Once, before the first call: `library` is the processor's, a file of the host's.
void PrepareProcessors(const wchar_t* library, const Image& image);

/// Calls a function of the phone's program on this thread, with `count` words of arguments, and returns r0
/// and r1. Each thread gets a processor and a stack at its first call.
std::uint64_t CallGuest(std::uint32_t function, const std::uint32_t* arguments, unsigned count);

/// This thread calls the phone's program no more: another may have its processor.
void GiveProcessorBack();

/// Whether the processor of this thread is at work now, and not the host on its behalf.
bool ProcessorRuns();

/// The registers with which this thread's program has called the host; null when it has not.
const std::uint32_t* RegistersOfCall();

/// Where a fault of the host's happened in the phone's program, if it did: as CpuLocate.
bool LocateFault(std::uintptr_t instruction, const std::uintptr_t* stack, std::uint32_t* registers);

/// The stack of this thread's program, its guard below not counted.
struct GuestStack {
    std::uint32_t begin, end;
};
GuestStack StackOfThread();
