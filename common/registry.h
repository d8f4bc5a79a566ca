#pragma once
// Registry values. A failing call leaves the caller's field as it was and is otherwise ignored.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "platform/handles.h"

/// The most that is read of any value; a longer one counts as unreadable.
constexpr std::size_t registryValueLimit = 520;

/// Opens a key for reading and writing, and makes it when it is missing. Null when neither can be done.
RegistryKey OpenOrCreateKey(HKEY root, const wchar_t* path);

/// Opens a key for reading. Null when it is not there.
RegistryKey OpenKey(HKEY root, const wchar_t* path);

/// Copies as many of the value's bytes as fit over the start of `field`, whatever the value's type.
/// Returns the number of bytes stored, or nothing when there is no such value.
std::optional<std::size_t> ReadBytes(HKEY key, const wchar_t* name, std::span<std::byte> field);

/// As ReadBytes for a 32-bit number: a value of fewer bytes replaces only the number's low bytes.
template <class Number>
void ReadNumber(HKEY key, const wchar_t* name, Number& number) {
    static_assert(sizeof(number) == sizeof(std::uint32_t));
    ReadBytes(key, name, std::as_writable_bytes(std::span(&number, 1)));
}

/// Reads a text, cut to fit and always terminated; what stands in `field` behind the terminator stays.
/// False when there is no such value, or one without even a terminator.
bool ReadText(HKEY key, const wchar_t* name, std::span<wchar_t> field);

/// Writes bytes as REG_BINARY.
void WriteBytes(HKEY key, const wchar_t* name, std::span<const std::byte> bytes);

/// Writes a 32-bit number as REG_BINARY of four bytes.
void WriteNumberBytes(HKEY key, const wchar_t* name, std::uint32_t number);

/// Writes a 32-bit number as REG_DWORD.
void WriteNumber(HKEY key, const wchar_t* name, std::int32_t number);

/// Writes a terminated text as REG_SZ, its terminator included. False when it could not be written.
bool WriteText(HKEY key, const wchar_t* name, const wchar_t* text);
