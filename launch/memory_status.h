#pragma once
// "Memory Status": what is free of the program memory, the internal store and the storage cards.

void showMemoryStatus();
