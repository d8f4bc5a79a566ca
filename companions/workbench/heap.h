#pragma once
// The memory that the phone's program takes from the heap, with marks around each block: writing beside a
// block, or freeing what is none, ends the program when the block is freed. Any thread.

#include <cstddef>

/// As malloc. The block is full of a pattern, so that what relies on zeros fails.
void* AllocateBlock(std::size_t size);

/// As free. What was in the block is gone.
void FreeBlock(void* block);
