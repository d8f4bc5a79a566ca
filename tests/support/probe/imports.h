#pragma once
// Functions of ours in the place of those that the program takes from libraries.

#include <span>

struct Patch {
    const char* name;  // of the platform's function
    void* replacement; // ours
    void** original;   // gets the function that was there
};

/// Puts the replacements into the program's own tables of what it takes from libraries.
void ReplaceImports(std::span<const Patch> patches);
