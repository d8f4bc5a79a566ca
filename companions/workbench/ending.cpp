#include "companions/workbench/ending.h"

#include <windows.h>

#include <cstdio>

#include "companions/workbench/processor.h"
#include "companions/workbench/shadow.h"
#include "companions/workbench/symbols.h"
#include "companions/workbench/thunks.h"
#include "companions/workbench/traps.h"

namespace {

constexpr unsigned exitCannot = 0xfa16;

const std::string punished = "The phone's program did what a phone punishes: ";

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

/// The names of those that called.
std::string NamesOf(const Callers& callers) {
    constexpr unsigned enough = 26;
    ReadSymbols(symbolsFile);
    std::string text;
    unsigned found = 0;
    for (const std::uint32_t place : callers)
        if (found < 2 || (found < enough && !NameOfPlace(place).empty())) {
            text += "    " + Place(place) + "\n";
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
    case CpuChecked:
        return Describe(static_cast<Finding>(fault.finding), fault.address);
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
    Finish(punished + finding + "\n" + NamesOf(CallersOf(registers)) + Registers(registers), exitFault);
}

void EndAfterLeftover(const std::string& what, const Callers& made) {
    Finish(punished + what + " is left at the end, made by\n" + NamesOf(made), exitFault);
}

Callers CallersOf(const std::uint32_t* registers) {
    constexpr unsigned enough = 200;
    constexpr std::uint32_t callSize = 4;
    Callers callers{registers[15], registers[14] - callSize};
    const GuestStack stack = StackOfThread();
    for (std::uint32_t at = registers[13] & ~3u;
         at >= stack.begin && at < stack.end && callers.size() < enough; at += sizeof(at)) {
        const std::uint32_t word = *reinterpret_cast<const std::uint32_t*>(at);
        if (word % callSize == 0 && IsGuestCode(word))
            callers.push_back(word - callSize);
    }
    return callers;
}
