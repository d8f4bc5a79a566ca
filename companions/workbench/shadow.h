#pragma once
// What is known of each byte that the phone's program has from its heap, for the expensive checks: the
// processor asks before each load and store. Any thread.

#include <cstddef>
#include <cstdint>
#include <string>

/// A byte of memory. What is not the heap's is unknown and may be used at will.
enum class Known : std::uint8_t { Nothing, Unwritten, Written, Beside, Freed };

/// What is wrong with a load or store; 0 is nothing.
enum class Finding : int { None, Unaligned, Unwritten, Beside, Freed };

/// What the bytes of a block that was never written are full of: what differs was written by the host, which
/// nobody sees writing.
constexpr unsigned char freshByte = 0xcd;

/// Has the heap and the processors note and look. Before the first call of the program.
void CheckEachAccess();
bool EachAccessIsChecked();

/// Notes this of a range, as the heap does.
void Note(const void* begin, std::size_t size, Known known);

/// Looks at an access of 1, 2 or 4 bytes (CpuCheck).
extern "C" int CheckAccess(std::uint32_t address, std::uint32_t size, int writes);

/// Looks at a range that the host is to read or write for the program; reading what was never written is
/// allowed.
Finding CheckRange(const void* begin, std::size_t size);

/// After `size` bytes were copied: what was never written there was not written here.
void NoteCopy(const void* to, const void* from, std::size_t size);

/// "an unaligned load or store at ...".
std::string Describe(Finding finding, std::uint32_t address);
