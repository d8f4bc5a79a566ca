#pragma once
// What the stand-in for the platform answers; a fuzzer fills it before each call.

#include <cstdint>
#include <string>
#include <vector>

struct Answers {
    std::vector<std::uint8_t> registryValue; // of every name
    bool registryFails = false;
    std::vector<std::uint8_t> resource;
    std::wstring text; // of every resource text, locale setting, date, time and formatted number
};

/// Of the one thread that there is.
extern Answers answers;
