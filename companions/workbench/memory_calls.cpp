// The phone's calls that move memory, looking at both ends when each access is checked.

#include <cstring>

#include "companions/workbench/ending.h"
#include "companions/workbench/processor.h"
#include "companions/workbench/replacements.h"
#include "companions/workbench/shadow.h"

namespace {

void Check(const void* begin, std::size_t size) {
    if (const Finding finding = CheckRange(begin, size); finding != Finding::None)
        EndAfterCheck(Describe(finding, reinterpret_cast<std::uint32_t>(begin)), RegistersOfCall());
}

} // namespace

namespace replaced {

void* MoveBlock(void* to, const void* from, std::size_t size) {
    if (!EachAccessIsChecked())
        return std::memmove(to, from, size);
    Check(from, size);
    Check(to, size);
    std::memmove(to, from, size);
    NoteCopy(to, from, size);
    return to;
}

void* FillBlock(void* to, int byte, std::size_t size) {
    if (!EachAccessIsChecked())
        return std::memset(to, byte, size);
    Check(to, size);
    std::memset(to, byte, size);
    NoteCopy(to, nullptr, size);
    return to;
}

} // namespace replaced
