#pragma once
// The device's registry: typed reading and writing by a key's full name, such as "HKCU\Software\Helvane".

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <windows.h>

struct RegistryValue {
    DWORD type = REG_NONE;
    std::vector<std::byte> bytes;

    bool operator==(const RegistryValue&) const = default;

    static RegistryValue Text(const std::wstring& text);
    static RegistryValue Number(std::uint32_t number);
    static RegistryValue Binary(const void* data, std::size_t size);

    /// The text up to its terminating zero or its end.
    std::wstring AsText() const;
    /// The whole value as one text, for comparing and for reports: `dword 12`, `words 0 1 1` or `text
    /// "\\Temp"`, the latter with its size in bytes when that is not the text's own.
    std::wstring Description() const;
    /// The bytes as 32-bit words; what is left over at the end is dropped.
    std::vector<std::uint32_t> AsWords() const;
};

namespace registry {

std::optional<RegistryValue> Read(const std::wstring& key, const std::wstring& name);
void Write(const std::wstring& key, const std::wstring& name, const RegistryValue& value);
void DeleteValue(const std::wstring& key, const std::wstring& name);
bool KeyExists(const std::wstring& key);
/// Deletes the key and everything below it.
void DeleteKey(const std::wstring& key);
std::vector<std::wstring> SubkeysOf(const std::wstring& key);
std::vector<std::wstring> ValueNamesOf(const std::wstring& key);
/// All the values of a key by their names, described; empty when there is no such key.
std::map<std::wstring, std::wstring> ValuesOf(const std::wstring& key);

/// A key with all below it, as it was at one moment; also that it was not there.
class Snapshot {
  public:
    explicit Snapshot(const std::wstring& key);
    const std::wstring& Key() const { return key_; }
    /// Brings the key back to what it was.
    void Restore() const;
    bool operator==(const Snapshot&) const = default;

  private:
    struct Value {
        std::wstring name;
        RegistryValue value;

        bool operator==(const Value&) const = default;
    };
    void WriteBack() const;

    std::wstring key_;
    bool existed_;
    std::vector<Value> values_;
    std::vector<Snapshot> subkeys_;
};

} // namespace registry
