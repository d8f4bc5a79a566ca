#include "companions/workbench/processor.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <mutex>
#include <string>
#include <vector>

#include "companions/workbench/cpu/cpu.h"
#include "companions/workbench/ending.h"
#include "companions/workbench/shadow.h"
#include "companions/workbench/traps.h"

namespace {

constexpr std::uint32_t guard = 0x10000;
/// A call hands over twelve words of the stack, however few there are.
constexpr std::uint32_t headroom = 0x100;

enum Register { stackPointer = 13, linkRegister = 14, programCounter = 15 };

/// A processor with its stack: a thread's for as long as it is needed.
struct Processor {
    Cpu* cpu = nullptr;
    GuestStack stack{};
    std::uint32_t top = 0; // of the stack, where the next call begins
    bool runs = false;
    const std::uint32_t* call = nullptr; // the registers, while the host is called
};

CpuOpenFunction* openProcessor = nullptr;
CpuRunFunction* runProcessor = nullptr;
CpuLocateFunction* locateFault = nullptr;
std::vector<CpuCode> code;
std::uint32_t stackSize = 0;

std::mutex oneAtATime;
std::vector<Processor*> idle;
thread_local Processor* own = nullptr;

GuestStack MakeStack() {
    auto* memory =
        static_cast<std::uint8_t*>(VirtualAlloc(nullptr, guard + stackSize, MEM_RESERVE, PAGE_NOACCESS));
    // cppcheck-suppress leakReturnValNotUsed  ; it has its place
    if (!memory || !VirtualAlloc(memory + guard, stackSize, MEM_COMMIT, PAGE_READWRITE))
        EndWith("there is no memory for another stack");
    const auto begin = reinterpret_cast<std::uint32_t>(memory) + guard;
    return {begin, begin + stackSize};
}

Processor& Own() {
    if (own)
        return *own;
    const std::lock_guard lock(oneAtATime);
    if (!idle.empty()) {
        own = idle.back();
        idle.pop_back();
        return *own;
    }
    own = new Processor;
    own->cpu = openProcessor(code.data(), static_cast<unsigned>(code.size()),
                             EachAccessIsChecked() ? CheckAccess : nullptr);
    if (!own->cpu)
        EndWith("the emulated processor does not start");
    own->stack = MakeStack();
    own->top = own->stack.end - headroom;
    return *own;
}

/// Calls `function` with sixteen words on the stack and drops whatever it leaves of them there.
extern "C" std::uint64_t CallWithWords(HostFunction function, const std::uint32_t* words);
asm("    .globl _CallWithWords\n"
    "_CallWithWords:\n"
    "    pushl %ebp\n"
    "    movl %esp, %ebp\n"
    "    pushl %esi\n"
    "    pushl %edi\n"
    "    subl $64, %esp\n"
    "    andl $-16, %esp\n"
    "    movl 12(%ebp), %esi\n"
    "    movl %esp, %edi\n"
    "    movl $16, %ecx\n"
    "    cld\n"
    "    rep movsl\n"
    "    call *8(%ebp)\n"
    "    leal -8(%ebp), %esp\n"
    "    popl %edi\n"
    "    popl %esi\n"
    "    popl %ebp\n"
    "    ret\n");

std::uint64_t CallHost(HostFunction function, const std::uint32_t* registers) {
    constexpr unsigned inRegisters = 4, onStack = 12;
    std::uint32_t words[inRegisters + onStack];
    std::copy_n(registers, inRegisters, words);
    std::memcpy(words + inRegisters, reinterpret_cast<const void*>(registers[stackPointer]),
                onStack * sizeof(*words));
    return CallWithWords(function, words);
}

/// Lays the arguments of a call where the phone's functions look for them.
void LayArguments(std::uint32_t* registers, std::uint32_t top, const std::uint32_t* arguments,
                  unsigned count) {
    constexpr unsigned inRegisters = 4;
    const unsigned rest = count > inRegisters ? count - inRegisters : 0;
    registers[stackPointer] = (top - rest * sizeof(*arguments)) & ~7u;
    std::copy_n(arguments, count - rest, registers);
    std::memcpy(reinterpret_cast<void*>(registers[stackPointer]), arguments + count - rest,
                rest * sizeof(*arguments));
}

void Answer(std::uint32_t* registers, std::uint64_t answer) {
    registers[0] = static_cast<std::uint32_t>(answer);
    registers[1] = static_cast<std::uint32_t>(answer >> 32);
    registers[programCounter] = registers[linkRegister];
}

/// Runs until the program calls out, and returns the word that it called.
std::uint32_t RunToTrap(Processor& processor, std::uint32_t* registers) {
    CpuFault fault{};
    processor.runs = true;
    const CpuStop stop = runProcessor(processor.cpu, registers, &fault);
    processor.runs = false;
    if (stop != CpuTrapped)
        EndAfterFault(fault);
    return registers[programCounter] - sizeof(std::uint32_t);
}

} // namespace

void PrepareProcessors(const wchar_t* library, const Image& image) {
    const HMODULE module = LoadLibraryW(library);
    if (!module)
        EndWith("the emulated processor's library does not load");
    const auto find = [module](const char* name) {
        return reinterpret_cast<void*>(GetProcAddress(module, name));
    };
    openProcessor = reinterpret_cast<CpuOpenFunction*>(find("CpuOpen"));
    runProcessor = reinterpret_cast<CpuRunFunction*>(find("CpuRun"));
    locateFault = reinterpret_cast<CpuLocateFunction*>(find("CpuLocate"));
    const TrapPages traps = PagesOfTraps();
    code = {{image.codeBegin, image.codeEnd}, {traps.begin, traps.end}};
    stackSize = image.stackSize - stackOfThePlatform;
}

std::uint64_t CallGuest(std::uint32_t function, const std::uint32_t* arguments, unsigned count) {
    Processor& processor = Own();
    const std::uint32_t outerTop = processor.top;
    const std::uint32_t* const outerCall = processor.call;
    CpuRegisters registers{};
    LayArguments(registers, outerTop, arguments, count);
    registers[linkRegister] = ReturnTrap();
    registers[programCounter] = function;

    for (std::uint32_t word; (word = RunToTrap(processor, registers)) != ReturnTrap();) {
        const Trap* trap = TrapAt(word);
        if (!trap)
            EndAfterFault({CpuBadInstruction, word, 0, {}});
        registers[programCounter] = word;
        processor.top = registers[stackPointer];
        processor.call = registers;
        Answer(registers, CallHost(trap->function, registers));
    }
    processor.top = outerTop;
    processor.call = outerCall;
    return (static_cast<std::uint64_t>(registers[1]) << 32) | registers[0];
}

void GiveProcessorBack() {
    if (!own)
        return;
    const std::lock_guard lock(oneAtATime);
    idle.push_back(own);
    own = nullptr;
}

bool ProcessorRuns() {
    return own && own->runs;
}

const std::uint32_t* RegistersOfCall() {
    return own ? own->call : nullptr;
}

bool LocateFault(std::uintptr_t instruction, const std::uintptr_t* stack, std::uint32_t* registers) {
    return locateFault(instruction, stack, registers);
}

GuestStack StackOfThread() {
    return own ? own->stack : GuestStack{};
}
