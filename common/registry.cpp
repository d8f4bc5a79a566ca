#include "common/registry.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <string_view>

#include "common/text.h"

namespace {

bool Write(HKEY key, const wchar_t* name, DWORD type, const void* data, std::size_t size) {
    return RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(size)) ==
           ERROR_SUCCESS;
}

std::optional<std::size_t> Query(HKEY key, const wchar_t* name, void* buffer) {
    DWORD size = registryValueLimit;
    if (RegQueryValueExW(key, name, nullptr, nullptr, static_cast<BYTE*>(buffer), &size) != ERROR_SUCCESS)
        return std::nullopt;
    return size;
}

} // namespace

RegistryKey OpenOrCreateKey(HKEY root, const wchar_t* path) {
    wchar_t noClass[] = L"";
    HKEY key = nullptr;
    RegCreateKeyExW(root, path, 0, noClass, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    return RegistryKey(key);
}

RegistryKey OpenKey(HKEY root, const wchar_t* path) {
    HKEY key = nullptr;
    RegOpenKeyExW(root, path, 0, KEY_READ, &key);
    return RegistryKey(key);
}

std::optional<std::size_t> ReadBytes(HKEY key, const wchar_t* name, std::span<std::byte> field) {
    std::array<std::byte, registryValueLimit> buffer;
    const std::optional<std::size_t> stored = Query(key, name, buffer.data());
    if (stored)
        std::copy_n(buffer.begin(), std::min(*stored, field.size()), field.begin());
    return stored;
}

bool ReadText(HKEY key, const wchar_t* name, std::span<wchar_t> field) {
    std::array<wchar_t, registryValueLimit / sizeof(wchar_t)> buffer;
    const std::optional<std::size_t> stored = Query(key, name, buffer.data());
    if (!stored || *stored < sizeof(wchar_t))
        return false; // no text, not even an empty one
    const std::wstring_view characters(buffer.data(), *stored / sizeof(wchar_t));
    CopyTextTo(field, characters.substr(0, characters.find(L'\0')));
    return true;
}

void WriteBytes(HKEY key, const wchar_t* name, std::span<const std::byte> bytes) {
    Write(key, name, REG_BINARY, bytes.data(), bytes.size());
}

void WriteNumberBytes(HKEY key, const wchar_t* name, std::uint32_t number) {
    Write(key, name, REG_BINARY, &number, sizeof(number));
}

void WriteNumber(HKEY key, const wchar_t* name, std::int32_t number) {
    Write(key, name, REG_DWORD, &number, sizeof(number));
}

bool WriteText(HKEY key, const wchar_t* name, const wchar_t* text) {
    return Write(key, name, REG_SZ, text, (std::wcslen(text) + 1) * sizeof(wchar_t));
}
