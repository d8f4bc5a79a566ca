#pragma once
// How a run of the phone's program ends when it does not end by itself.

#include <cstdint>
#include <string>
#include <vector>

#include "companions/workbench/cpu/cpu.h"

/// What the process ends with after the phone's program has done what a phone would punish.
constexpr unsigned exitFault = 0xfa17;

/// Where the names of the program's functions are, and where reports go besides the standard error: files of
/// the host, the second written by whoever faults first. Either may be empty.
void PrepareReports(std::wstring symbols, std::wstring report);

/// Ends the process: the workbench itself cannot go on.
[[noreturn]] void EndWith(const char* why);

/// Reports what the program did, by the names of its functions, and ends the process.
[[noreturn]] void EndAfterFault(const CpuFault& fault);

/// The same for what a check found; `registers` are those of the moment.
[[noreturn]] void EndAfterCheck(const std::string& finding, const std::uint32_t* registers);

/// Places in the program: of the call that is being made, and of those before it, and perhaps some more.
using Callers = std::vector<std::uint32_t>;

/// By what lies on the stack of this thread and could be returned to.
Callers CallersOf(const std::uint32_t* registers);

/// Reports what the program should have given back, and who made it, and ends the process.
[[noreturn]] void EndAfterLeftover(const std::string& what, const Callers& made);
