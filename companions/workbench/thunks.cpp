#include "companions/workbench/thunks.h"

#include <cstring>
#include <map>
#include <mutex>

#include "companions/workbench/ending.h"
#include "companions/workbench/processor.h"

namespace {

std::uint32_t codeBegin = 0, codeEnd = 0;

extern "C" std::uint32_t __attribute__((used))
EnterGuest(std::uint32_t function, const std::uint32_t* arguments, unsigned count) {
    return static_cast<std::uint32_t>(CallGuest(function, arguments, count));
}

extern "C" void EnterGuestWith1();
extern "C" void EnterGuestWith4();

// From a thunk: eax is the phone's function; above the place to return to lie the arguments, which are
// dropped.
asm(".macro entry count\n"
    "    .globl _EnterGuestWith\\count\n"
    "_EnterGuestWith\\count:\n"
    "    leal 4(%esp), %edx\n"
    "    pushl $\\count\n"
    "    pushl %edx\n"
    "    pushl %eax\n"
    "    call _EnterGuest\n"
    "    addl $12, %esp\n"
    "    ret $4*\\count\n"
    ".endm\n"
    "entry 1\n"
    "entry 4\n");

#pragma pack(push, 1)
/// mov eax, function; jmp to the entry.
struct Thunk {
    std::uint8_t load = 0xb8;
    std::uint32_t function = 0;
    std::uint8_t jump = 0xe9;
    std::uint32_t distance = 0;
};
#pragma pack(pop)

constexpr std::size_t limit = 4096;

Thunk* Thunks() {
    static auto* const memory = static_cast<Thunk*>(
        VirtualAlloc(nullptr, limit * sizeof(Thunk), MEM_RESERVE | MEM_COMMIT, PAGE_EXECUTE_READWRITE));
    return memory;
}

} // namespace

void SetGuestCode(std::uint32_t begin, std::uint32_t end) {
    codeBegin = begin;
    codeEnd = end;
}

bool IsGuestCode(std::uint32_t address) {
    return address >= codeBegin && address < codeEnd;
}

void* Callable(void* function, unsigned arguments) {
    const auto address = reinterpret_cast<std::uint32_t>(function);
    if (!IsGuestCode(address))
        return function;

    static std::mutex oneAtATime;
    static std::map<std::pair<std::uint32_t, unsigned>, Thunk*> known;
    const std::lock_guard lock(oneAtATime);
    Thunk*& thunk = known[{address, arguments}];
    if (!thunk) {
        if (known.size() > limit)
            EndWith("there are more calls into the phone's program than thunks");
        thunk = Thunks() + known.size() - 1;
        const auto entry =
            reinterpret_cast<std::uint32_t>(arguments == 1 ? &EnterGuestWith1 : &EnterGuestWith4);
        Thunk made;
        made.function = address;
        made.distance = entry - reinterpret_cast<std::uint32_t>(thunk + 1);
        std::memcpy(thunk, &made, sizeof(made));
    }
    return thunk;
}
