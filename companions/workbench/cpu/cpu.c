// Drives the emulator. What the phone's program asks of the system are svc words: they end the run, and the
// runner makes the call outside, so that the emulator is never inside itself.
#define _GNU_SOURCE
#include "cpu.h"

#include <dlfcn.h>
#include <stdlib.h>

#include <unicorn/unicorn.h>

#define ENTRY __attribute__((force_align_arg_pointer))

enum { lowest = 0x10000, highest = 0x7fff0000, softwareInterrupt = 2 };

struct Cpu {
    uc_engine* engine;
    CpuCheck* check;
    CpuStop stop;
    uint32_t address;
    int finding;
    int located;
    CpuRegisters registers;
};

static __thread Cpu* running;

// --- The exact instruction ---
// While generated code runs, the emulator's registers are of its last block's start. It can work out the rest
// from the place in the generated code, which is among what lies on the stack, by a function it keeps to
// itself; that wants the emulator's own record of the processor, which is seen when it fills the memory map.

static __thread void* record;
static void (*setPage)(void);

static void ENTRY __attribute__((used)) NoteRecord(void* itsRecord) {
    record = itsRecord;
}

__asm__(".globl tlb_set_page_with_attrs_arm\n"
        "tlb_set_page_with_attrs_arm:\n"
        "    pushl 4(%esp)\n"
        "    call NoteRecord\n"
        "    addl $4, %esp\n"
        "    call 1f\n"
        "1:  popl %eax\n"
        "    addl $_GLOBAL_OFFSET_TABLE_ + (. - 1b), %eax\n"
        "    movl setPage@GOTOFF(%eax), %eax\n"
        "    jmp *%eax\n");

static void ReadRegisters(Cpu* cpu, uint32_t* registers) {
    for (int number = 0; number < 13; ++number)
        uc_reg_read(cpu->engine, UC_ARM_REG_R0 + number, &registers[number]);
    uc_reg_read(cpu->engine, UC_ARM_REG_SP, &registers[13]);
    uc_reg_read(cpu->engine, UC_ARM_REG_LR, &registers[14]);
    uc_reg_read(cpu->engine, UC_ARM_REG_PC, &registers[15]);
}

/// Has the emulator work out the registers at `place`; 0 when that is not in the generated code.
static int RestoreAt(uintptr_t place) {
    static bool (*restore)(void*, uintptr_t, bool);
    if (!restore)
        restore = (bool (*)(void*, uintptr_t, bool))dlsym(RTLD_NEXT, "cpu_restore_state_arm");
    return restore && record && running && restore(record, place, false);
}

/// Finds the place in the generated code among `count` words of the stack and reads the registers there.
/// Behind the first one, which may be of code that several instructions share, the emulator hands the very
/// place on.
static int Restore(const uintptr_t* words, unsigned count, uint32_t* registers) {
    enum { handedOn = 6 };
    unsigned number = 0;
    while (number < count && !RestoreAt(words[number]))
        ++number;
    if (number == count)
        return 0;
    for (unsigned next = number + 1; next < count && next <= number + handedOn; ++next)
        RestoreAt(words[next]);
    ReadRegisters(running, registers);
    return 1;
}

enum { stackWords = 400, returnAdjustment = 2 };

int ENTRY CpuLocate(uintptr_t instruction, const uintptr_t* stack, uint32_t* registers) {
    const uintptr_t behind = instruction + returnAdjustment;
    return Restore(&behind, 1, registers) || Restore(stack, stackWords, registers);
}

// --- What ends a run ---

static void Stop(Cpu* cpu, CpuStop stop, uint32_t address) {
    cpu->stop = stop;
    cpu->address = address;
    uc_emu_stop(cpu->engine);
}

static void ENTRY OnInterrupt(uc_engine* engine, uint32_t number, void* user) {
    (void)engine;
    Stop(user, number == softwareInterrupt ? CpuTrapped : CpuBadInstruction, 0);
}

static bool ENTRY OnBadInstruction(uc_engine* engine, void* user) {
    (void)engine;
    Stop(user, CpuBadInstruction, 0);
    return false;
}

static bool ENTRY OnBadAccess(uc_engine* engine, uc_mem_type type, uint64_t address, int size, int64_t value,
                              void* user) {
    (void)engine, (void)size, (void)value;
    Cpu* const cpu = user;
    CpuStop stop = CpuBadRead;
    if (type == UC_MEM_WRITE_UNMAPPED || type == UC_MEM_WRITE_PROT)
        stop = CpuBadWrite;
    if (type == UC_MEM_FETCH_UNMAPPED || type == UC_MEM_FETCH_PROT)
        stop = CpuBadCall;
    else
        cpu->located = Restore((const uintptr_t*)__builtin_frame_address(0), stackWords, cpu->registers);
    Stop(cpu, stop, (uint32_t)address);
    return false;
}

static void ENTRY OnAccess(uc_engine* engine, uc_mem_type type, uint64_t address, int size, int64_t value,
                           void* user) {
    (void)engine, (void)value;
    Cpu* const cpu = user;
    if (cpu->stop != CpuTrapped)
        return;
    cpu->finding = cpu->check((uint32_t)address, (uint32_t)size, type == UC_MEM_WRITE);
    if (cpu->finding == 0)
        return;
    cpu->located = Restore((const uintptr_t*)__builtin_frame_address(0), stackWords, cpu->registers);
    Stop(cpu, CpuChecked, (uint32_t)address);
}

// --- What the runner calls ---

static int Map(uc_engine* engine, uint32_t begin, uint32_t end, uint32_t rights) {
    return begin == end || uc_mem_map_ptr(engine, begin, end - begin, rights, (void*)begin) == UC_ERR_OK;
}

static int Hook(Cpu* cpu, int kind, void* function) {
    uc_hook hook;
    return uc_hook_add(cpu->engine, &hook, kind, function, cpu, 1, 0) == UC_ERR_OK;
}

/// The code is in ascending order.
static int MapAll(uc_engine* engine, const CpuCode* code, unsigned count) {
    uint32_t place = lowest;
    for (; count; --count, ++code) {
        if (!Map(engine, place, code->begin, UC_PROT_READ | UC_PROT_WRITE) ||
            !Map(engine, code->begin, code->end, UC_PROT_READ | UC_PROT_EXEC))
            return 0;
        place = code->end;
    }
    return Map(engine, place, highest, UC_PROT_READ | UC_PROT_WRITE);
}

Cpu* ENTRY CpuOpen(const CpuCode* code, unsigned count, CpuCheck* check) {
    if (!setPage)
        setPage = (void (*)(void))dlsym(RTLD_NEXT, "tlb_set_page_with_attrs_arm");
    Cpu* const cpu = calloc(1, sizeof(Cpu));
    if (!cpu || !setPage || uc_open(UC_ARCH_ARM, UC_MODE_ARM, &cpu->engine) != UC_ERR_OK)
        return NULL;
    cpu->check = check;
    uc_ctl_set_cpu_model(cpu->engine, UC_CPU_ARM_926);
    if (MapAll(cpu->engine, code, count) && Hook(cpu, UC_HOOK_INTR, OnInterrupt) &&
        Hook(cpu, UC_HOOK_INSN_INVALID, OnBadInstruction) && Hook(cpu, UC_HOOK_MEM_INVALID, OnBadAccess) &&
        (!check || Hook(cpu, UC_HOOK_MEM_READ | UC_HOOK_MEM_WRITE, OnAccess)))
        return cpu;
    return NULL;
}

CpuStop ENTRY CpuRun(Cpu* cpu, uint32_t* registers, CpuFault* fault) {
    static const uint32_t never = 0xfffffffc;
    for (int number = 0; number < 13; ++number)
        uc_reg_write(cpu->engine, UC_ARM_REG_R0 + number, &registers[number]);
    uc_reg_write(cpu->engine, UC_ARM_REG_SP, &registers[13]);
    uc_reg_write(cpu->engine, UC_ARM_REG_LR, &registers[14]);
    cpu->stop = CpuTrapped;
    cpu->located = 0;
    Cpu* const outer = running;
    running = cpu;
    uc_emu_start(cpu->engine, registers[15], never, 0, 0);
    running = outer;
    ReadRegisters(cpu, registers);
    if (cpu->stop != CpuTrapped) {
        fault->stop = cpu->stop;
        fault->address = cpu->address;
        fault->finding = cpu->finding;
        for (int number = 0; number < 16; ++number)
            fault->registers[number] = cpu->located ? cpu->registers[number] : registers[number];
    }
    return cpu->stop;
}

/// Nothing is to be done when the library comes and goes.
int __attribute__((stdcall)) DllMain(void* module, uint32_t reason, void* reserved) {
    (void)module, (void)reason, (void)reserved;
    return 1;
}
