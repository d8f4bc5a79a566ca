#include "companions/workbench/heap.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <mutex>
#include <string>

#include "companions/workbench/ending.h"
#include "companions/workbench/processor.h"
#include "companions/workbench/shadow.h"

namespace {

constexpr unsigned char freed = 0xdd, margin = 0xfd;
constexpr std::uint32_t taken = 0xb10cb10c, given = 0xdeadb10c;

/// Before each block. Its own size keeps the block on eight bytes.
struct Head {
    std::uint32_t size;
    std::uint32_t mark;
    unsigned char before[8];
};
constexpr std::size_t behind = 16;

/// With what lies before and behind it.
std::size_t SizeOf(const Head& head) {
    return sizeof(Head) + head.size + behind;
}

bool IsMargin(const unsigned char* bytes, std::size_t count) {
    for (std::size_t number = 0; number < count; ++number)
        if (bytes[number] != margin)
            return false;
    return true;
}

/// Keeps a freed block from being used again for a good while, so that who still uses it is found.
void Retire(Head* head) {
    constexpr std::size_t room = 16 << 20;
    static std::mutex oneAtATime;
    static std::deque<Head*> retired;
    static std::size_t kept = 0;
    const std::lock_guard lock(oneAtATime);
    Note(head + 1, head->size, Known::Freed);
    retired.push_back(head);
    kept += SizeOf(*head);
    while (kept > room) {
        Head* oldest = retired.front();
        retired.pop_front();
        kept -= SizeOf(*oldest);
        Note(oldest, SizeOf(*oldest), Known::Nothing);
        std::free(oldest);
    }
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
    std::memset(block, freshByte, size);
    std::memset(block + size, margin, behind);
    if (EachAccessIsChecked()) {
        Note(head, sizeof(Head), Known::Beside);
        Note(block, size, Known::Unwritten);
        Note(block + size, behind, Known::Beside);
    }
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
    if (EachAccessIsChecked())
        Retire(head);
    else
        std::free(head);
}
