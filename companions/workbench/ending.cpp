#include "companions/workbench/ending.h"

#include <windows.h>

#include <cstdio>

#include "companions/workbench/processor.h"
#include "companions/workbench/symbols.h"
#include "companions/workbench/traps.h"

namespace {

constexpr unsigned exitCannot = 0xfa16;

std::wstring symbolsFile, reportFile;

[[noreturn]] void Finish(const std::string& text, unsigned code) {
    std::fputs(text.c_str(), stderr);
    if (std::FILE* file = reportFile.empty() ? nullptr : _wfopen(reportFile.c_str(), L"w")) {
        std::fputs(text.c_str(), file);
        std::fclose(file);
    }
    for (;;)
        TerminateProcess(GetCurrentProcess(), code);
}

std::string Hex(std::uint32_t number) {
    char text[16];
    std::snprintf(text, sizeof(text), "%08x", static_cast<unsigned>(number));
    return text;
}

std::string Place(std::uint32_t address) {
    if (const Trap* trap = TrapAt(address))
        return Hex(address) + " " + trap->name;
    const std::string name = NameOfPlace(address);
    return Hex(address) + (name.empty() ? "" : " " + name);
}

/// The names of what lies on the stack and could be returned to: those that called, and perhaps some more.
std::string CallersOf(const std::uint32_t* registers) {
    constexpr unsigned enough = 24;
    constexpr std::uint32_t callSize = 4;
    std::string text = "    " + Place(registers[15]) + "\n    " + Place(registers[14] - callSize) + "\n";
    const GuestStack stack = StackOfThread();
    unsigned found = 0;
    for (std::uint32_t at = registers[13] & ~3u; at >= stack.begin && at < stack.end && found < enough;
         at += 4) {
        const std::uint32_t word = *reinterpret_cast<const std::uint32_t*>(at);
        if (word % callSize || NameOfPlace(word).empty())
            continue;
        text += "    " + Place(word - callSize) + "\n";
        ++found;
    }
    return text;
}

std::string Registers(const std::uint32_t* registers) {
    std::string text = "registers";
    for (int number = 0; number < 16; ++number)
        text += (number % 8 ? " " : "\n    ") + Hex(registers[number]);
    return text + "\n";
}

std::string WhatHappened(const CpuFault& fault) {
    const GuestStack stack = StackOfThread();
    const std::string place = Hex(fault.address);
    switch (fault.stop) {
    case CpuBadInstruction:
        return "an instruction that the phone does not know";
    case CpuBadCall:
        return "a call of " + place + ", where there is no code";
    case CpuUnaligned:
        return "an unaligned load or store at " + place;
    default:
        break;
    }
    const std::string access = fault.stop == CpuBadRead ? "a read of " : "a write to ";
    if (fault.address < stack.begin && fault.address >= stack.begin - 0x10000)
        return access + place + ": the stack is at its end";
    return access + place;
}

} // namespace

void PrepareReports(std::wstring symbols, std::wstring report) {
    symbolsFile = std::move(symbols);
    reportFile = std::move(report);
}

void EndWith(const char* why) {
    Finish(std::string("The phone's program cannot be run: ") + why + ".\n", exitCannot);
}

void EndAfterFault(const CpuFault& fault) {
    EndAfterCheck(WhatHappened(fault), fault.registers);
}

void EndAfterCheck(const std::string& finding, const std::uint32_t* registers) {
    ReadSymbols(symbolsFile);
    Finish("The phone's program did what a phone punishes: " + finding + "\n" + CallersOf(registers) +
               Registers(registers),
           exitFault);
}
