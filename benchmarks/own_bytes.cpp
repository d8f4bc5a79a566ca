// Counts what the program takes from operator new.

#include <malloc.h>

#include <cstdlib>
#include <new>

#include "benchmarks/measuring.h"

namespace {

std::size_t ownBytes = 0; // of the user-interface thread alone: no job runs here

}

std::size_t OwnBytes() {
    return ownBytes;
}

void* operator new(std::size_t size) {
    void* block = std::malloc(size);
    if (!block)
        std::abort();
    ownBytes += _msize(block);
    return block;
}

void operator delete(void* block) noexcept {
    if (!block)
        return;
    ownBytes -= _msize(block);
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}
