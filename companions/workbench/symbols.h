#pragma once
// The names of the program's functions, read from the linker's file when a report is written.

#include <cstdint>
#include <string>

/// Takes the names from the ELF file `path`; without it there are none.
void ReadSymbols(const std::wstring& path);

/// "Function(arguments)+0x12" for a place in the program's code; nothing for any other place.
std::string NameOfPlace(std::uint32_t address);
