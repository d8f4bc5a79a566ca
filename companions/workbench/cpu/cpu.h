// The emulated processor, as the runner sees it. It lives in a library of the host's own kind, because the
// emulator does; both sides are of one process, so that the phone's addresses are the process's own.
#pragma once
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct Cpu Cpu;

/// r0 to r15 of the phone's program: 13 is the stack, 14 where a call returns to, 15 what is run next.
typedef uint32_t CpuRegisters[16];

/// Why the processor stopped.
typedef enum {
    CpuTrapped,        // an svc, whose address is in r15
    CpuBadInstruction, // in r15
    CpuBadRead,        // of memory that is not the program's
    CpuBadWrite,
    CpuBadCall, // to r15, which is no code of the program's
    CpuChecked, // a load or store that the check does not allow
} CpuStop;

/// What a stop other than a trap was about.
typedef struct {
    CpuStop stop;
    uint32_t address;
    int finding;            // of the check
    CpuRegisters registers; // r15 is the very instruction, as far as it is known
} CpuFault;

/// Looks at a load or store of 1, 2 or 4 bytes before it is done: 0 lets it pass.
typedef int CpuCheck(uint32_t address, uint32_t size, int writes);

/// Code that the processor may run: the program's own, and the words that lead out of it.
typedef struct {
    uint32_t begin, end; // in whole pages
} CpuCode;

/// A processor that sees the memory of the process as its own. `check` is asked at each load and store, which
/// is slow; it may be null. One at a time; null when there is no memory for it.
typedef Cpu* CpuOpenFunction(const CpuCode* code, unsigned count, CpuCheck* check);

/// Runs from r15 on until something stops it. Only one thread at a time, and not while it runs.
typedef CpuStop CpuRunFunction(Cpu* cpu, uint32_t* registers, CpuFault* fault);

/// While the processor runs and the process has faulted at `instruction` of the host, with this stack: the
/// registers as they were. 0 when the fault was none of the phone's program.
typedef int CpuLocateFunction(uintptr_t instruction, const uintptr_t* stack, uint32_t* registers);

#ifdef __cplusplus
}
#endif
