#include "companions/workbench/heap.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "companions/workbench/ending.h"
#include "companions/workbench/processor.h"

namespace {

constexpr unsigned char fresh = 0xcd, freed = 0xdd, margin = 0xfd;
constexpr std::uint32_t taken = 0xb10cb10c, given = 0xdeadb10c;

/// Before each block. Its own size keeps the block on eight bytes.
struct Head {
    std::uint32_t size;
    std::uint32_t mark;
    unsigned char before[8];
};
constexpr std::size_t behind = 16;

bool IsMargin(const unsigned char* bytes, std::size_t count) {
    for (std::size_t number = 0; number < count; ++number)
        if (bytes[number] != margin)
            return false;
    return true;
}

[[noreturn]] void Punish(const std::string& what) {
    EndAfterCheck(what, RegistersOfCall());
}

} // namespace

void* AllocateBlock(std::size_t size) {
    auto* head = size < SIZE_MAX - sizeof(Head) - behind
                     ? static_cast<Head*>(std::malloc(sizeof(Head) + size + behind))
                     : nullptr;
    if (!head)
        return nullptr;
    head->size = size;
    head->mark = taken;
    std::memset(head->before, margin, sizeof(head->before));
    auto* block = reinterpret_cast<unsigned char*>(head + 1);
    std::memset(block, fresh, size);
    std::memset(block + size, margin, behind);
    return block;
}

void FreeBlock(void* memory) {
    if (!memory)
        return;
    auto* block = static_cast<unsigned char*>(memory);
    Head* head = reinterpret_cast<Head*>(block) - 1;
    if (head->mark != taken)
        Punish("memory is freed that is no block of the heap, or no more");
    if (!IsMargin(head->before, sizeof(head->before)) || !IsMargin(block + head->size, behind))
        Punish("a block of " + std::to_string(head->size) + " bytes was written beside");
    head->mark = given;
    std::memset(block, freed, head->size);
    std::free(head);
}
