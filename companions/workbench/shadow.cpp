#include "companions/workbench/shadow.h"

#include <atomic>
#include <cstdio>
#include <memory>

namespace {

constexpr std::uint32_t pageBits = 12, pageSize = 1 << pageBits;

/// Of one page of memory; only the heap's pages have one.
struct Page {
    Known bytes[pageSize];
};

std::atomic<Page*> pages[1 << (32 - pageBits)];
bool checking = false;

std::uint32_t AddressOf(const void* place) {
    return reinterpret_cast<std::uint32_t>(place);
}

/// What is known of the byte; null when it is not the heap's.
Known* At(std::uint32_t address) {
    Page* page = pages[address >> pageBits].load(std::memory_order_acquire);
    return page ? &page->bytes[address % pageSize] : nullptr;
}

Known& Make(std::uint32_t address) {
    std::atomic<Page*>& entry = pages[address >> pageBits];
    if (Page* page = entry.load(std::memory_order_acquire); !page) {
        auto made = std::make_unique<Page>();
        if (entry.compare_exchange_strong(page, made.get()))
            static_cast<void>(made.release()); // it stays
    }
    return *At(address);
}

/// Whether nobody wrote the byte, the host included.
bool IsFresh(std::uint32_t address, Known known) {
    return known == Known::Unwritten && *reinterpret_cast<const unsigned char*>(address) == freshByte;
}

Finding Forbidden(Known known) {
    return known == Known::Beside ? Finding::Beside : known == Known::Freed ? Finding::Freed : Finding::None;
}

} // namespace

void CheckEachAccess() {
    checking = true;
}

bool EachAccessIsChecked() {
    return checking;
}

void Note(const void* begin, std::size_t size, Known known) {
    for (std::uint32_t at = AddressOf(begin), end = at + size; at != end; ++at)
        Make(at) = known;
}

int CheckAccess(std::uint32_t address, std::uint32_t size, int writes) {
    if (address % size)
        return static_cast<int>(Finding::Unaligned);
    Known* const known = At(address);
    if (!known)
        return 0;
    bool fresh = true;
    for (std::uint32_t number = 0; number < size; ++number) {
        if (const Finding finding = Forbidden(known[number]); finding != Finding::None)
            return static_cast<int>(finding);
        if (writes && known[number] == Known::Unwritten)
            known[number] = Known::Written;
        fresh = fresh && IsFresh(address + number, known[number]);
    }
    return static_cast<int>(fresh ? Finding::Unwritten : Finding::None);
}

Finding CheckRange(const void* begin, std::size_t size) {
    for (std::uint32_t at = AddressOf(begin), end = at + size; at != end; ++at)
        if (const Known* known = At(at); known && Forbidden(*known) != Finding::None)
            return Forbidden(*known);
    return Finding::None;
}

void NoteCopy(const void* to, const void* from, std::size_t size) {
    for (std::uint32_t number = 0; number < size; ++number) {
        Known* const known = At(AddressOf(to) + number);
        if (!known)
            continue;
        const Known* const source = from ? At(AddressOf(from) + number) : nullptr;
        const bool fresh = source && IsFresh(AddressOf(to) + number, *source);
        *known = fresh ? Known::Unwritten : Known::Written;
    }
}

std::string Describe(Finding finding, std::uint32_t address) {
    char place[16];
    std::snprintf(place, sizeof(place), "%08x", static_cast<unsigned>(address));
    switch (finding) {
    case Finding::Unaligned:
        return std::string("an unaligned load or store at ") + place;
    case Finding::Unwritten:
        return std::string("a read of ") + place + ", which was never written since it came from the heap";
    case Finding::Beside:
        return std::string("a read of or write to ") + place + ", beside a block of the heap";
    case Finding::Freed:
        return std::string("a read of or write to ") + place + ", in a block of the heap that was freed";
    default:
        return {};
    }
}
