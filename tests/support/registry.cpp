#include "tests/support/registry.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <stdexcept>
#include <utility>

#include "tests/support/text.h"

namespace {

HKEY RootOf(const std::wstring& key) {
    static const std::map<std::wstring, HKEY> roots{
        {L"HKCU", HKEY_CURRENT_USER}, {L"HKCR", HKEY_CLASSES_ROOT}, {L"HKLM", HKEY_LOCAL_MACHINE}};
    const auto root = roots.find(key.substr(0, key.find(L'\\')));
    if (root == roots.end())
        throw std::runtime_error("a registry key begins with HKCU, HKCR or HKLM, not " + Narrow(key));
    return root->second;
}

std::wstring BelowRoot(const std::wstring& key) {
    const std::size_t slash = key.find(L'\\');
    return slash == std::wstring::npos ? std::wstring() : key.substr(slash + 1);
}

/// A key held open.
class OpenKey {
  public:
    static OpenKey Existing(const std::wstring& key) {
        OpenKey open;
        if (RegOpenKeyExW(RootOf(key), BelowRoot(key).c_str(), 0, KEY_ALL_ACCESS, &open.key_) != 0)
            open.key_ = nullptr;
        return open;
    }
    static OpenKey Created(const std::wstring& key) {
        OpenKey open;
        if (RegCreateKeyExW(RootOf(key), BelowRoot(key).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                            &open.key_, nullptr) != 0)
            throw std::runtime_error("cannot make the registry key " + Narrow(key));
        return open;
    }
    OpenKey(OpenKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
    ~OpenKey() {
        if (key_)
            RegCloseKey(key_);
    }
    HKEY Get() const { return key_; }
    explicit operator bool() const { return key_ != nullptr; }

  private:
    OpenKey() = default;
    HKEY key_ = nullptr;
};

constexpr DWORD nameCapacity = 300;

} // namespace

RegistryValue RegistryValue::Text(const std::wstring& text) {
    RegistryValue value = Binary(text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    value.type = REG_SZ;
    return value;
}

RegistryValue RegistryValue::Number(std::uint32_t number) {
    RegistryValue value = Binary(&number, sizeof(number));
    value.type = REG_DWORD;
    return value;
}

RegistryValue RegistryValue::Binary(const void* data, std::size_t size) {
    const auto* bytes = static_cast<const std::byte*>(data);
    return {REG_BINARY, {bytes, bytes + size}};
}

std::wstring RegistryValue::AsText() const {
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
    text.resize(std::min(text.find(L'\0'), text.size()));
    return text;
}

std::wstring RegistryValue::Description() const {
    if (type == REG_SZ) {
        const std::wstring text = AsText();
        const bool exact = bytes.size() == (text.size() + 1) * sizeof(wchar_t);
        return L"text \"" + text + L"\"" +
               (exact ? L"" : L" in " + std::to_wstring(bytes.size()) + L" bytes");
    }
    std::wstring description = type == REG_DWORD ? L"dword" : type == REG_BINARY ? L"words" : L"other";
    for (const std::uint32_t word : AsWords())
        description += L" " + std::to_wstring(word);
    if (bytes.size() % sizeof(std::uint32_t) != 0)
        description += L" in " + std::to_wstring(bytes.size()) + L" bytes";
    return description;
}

std::vector<std::uint32_t> RegistryValue::AsWords() const {
    std::vector<std::uint32_t> words(bytes.size() / sizeof(std::uint32_t));
    std::memcpy(words.data(), bytes.data(), words.size() * sizeof(std::uint32_t));
    return words;
}

namespace registry {

std::optional<RegistryValue> Read(const std::wstring& key, const std::wstring& name) {
    const OpenKey open = OpenKey::Existing(key);
    DWORD size = 0;
    RegistryValue value;
    if (!open || RegQueryValueExW(open.Get(), name.c_str(), nullptr, &value.type, nullptr, &size) != 0)
        return std::nullopt;
    value.bytes.resize(size);
    RegQueryValueExW(open.Get(), name.c_str(), nullptr, &value.type,
                     reinterpret_cast<BYTE*>(value.bytes.data()), &size);
    return value;
}

void Write(const std::wstring& key, const std::wstring& name, const RegistryValue& value) {
    RegSetValueExW(OpenKey::Created(key).Get(), name.c_str(), 0, value.type,
                   reinterpret_cast<const BYTE*>(value.bytes.data()), static_cast<DWORD>(value.bytes.size()));
}

void DeleteValue(const std::wstring& key, const std::wstring& name) {
    if (const OpenKey open = OpenKey::Existing(key))
        RegDeleteValueW(open.Get(), name.c_str());
}

bool KeyExists(const std::wstring& key) {
    return static_cast<bool>(OpenKey::Existing(key));
}

void DeleteKey(const std::wstring& key) {
    RegDeleteTreeW(RootOf(key), BelowRoot(key).c_str());
}

std::vector<std::wstring> SubkeysOf(const std::wstring& key) {
    std::vector<std::wstring> names;
    const OpenKey open = OpenKey::Existing(key);
    wchar_t name[nameCapacity];
    for (DWORD index = 0, length = nameCapacity;
         open && RegEnumKeyExW(open.Get(), index, name, &length, nullptr, nullptr, nullptr, nullptr) == 0;
         ++index, length = nameCapacity)
        names.emplace_back(name, length);
    return names;
}

std::vector<std::wstring> ValueNamesOf(const std::wstring& key) {
    std::vector<std::wstring> names;
    const OpenKey open = OpenKey::Existing(key);
    wchar_t name[nameCapacity];
    for (DWORD index = 0, length = nameCapacity;
         open && RegEnumValueW(open.Get(), index, name, &length, nullptr, nullptr, nullptr, nullptr) == 0;
         ++index, length = nameCapacity)
        names.emplace_back(name, length);
    return names;
}

std::map<std::wstring, std::wstring> ValuesOf(const std::wstring& key) {
    std::map<std::wstring, std::wstring> values;
    for (const std::wstring& name : ValueNamesOf(key))
        values[name] = Read(key, name)->Description();
    return values;
}

Snapshot::Snapshot(const std::wstring& key) : key_(key), existed_(KeyExists(key)) {
    for (const std::wstring& name : ValueNamesOf(key))
        values_.push_back({name, *Read(key, name)});
    for (const std::wstring& name : SubkeysOf(key))
        subkeys_.emplace_back(key + L"\\" + name);
}

void Snapshot::WriteBack() const {
    OpenKey::Created(key_);
    for (const Value& value : values_)
        Write(key_, value.name, value.value);
    for (const Snapshot& subkey : subkeys_)
        subkey.WriteBack();
}

void Snapshot::Restore() const {
    DeleteKey(key_);
    if (existed_)
        WriteBack();
}

} // namespace registry
