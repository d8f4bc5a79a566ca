#pragma once
// The program's registry keys as a test sees them: emptied before and after, written and read as raw bytes.

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "app/settings_keys.h"

/// A value as it lies in the registry.
struct StoredValue {
    DWORD type = 0;
    std::vector<unsigned char> bytes;

    /// The bytes as a text, its terminator cut off; what is not a terminated text has none.
    std::optional<std::wstring> Text() const {
        if (bytes.size() < 2 || bytes.size() % 2 != 0)
            return std::nullopt;
        std::wstring text(reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / 2);
        if (text.back() != L'\0')
            return std::nullopt;
        text.pop_back();
        return text;
    }

    std::optional<DWORD> Number() const {
        if (bytes.size() != sizeof(DWORD))
            return std::nullopt;
        return *reinterpret_cast<const DWORD*>(bytes.data());
    }
};

class StoredValues : public testing::Test {
  protected:
    StoredValues() { Forget(); }
    ~StoredValues() override { Forget(); }

    static void Forget() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Helvane"); }

    static void Store(const wchar_t* key, const std::wstring& name, DWORD type, const void* data,
                      std::size_t size) {
        ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, key, name.c_str(), type, data, static_cast<DWORD>(size)),
                  ERROR_SUCCESS);
    }

    /// Stores a text with its terminator, as the program does.
    static void StoreText(const wchar_t* key, const std::wstring& name, const std::wstring& text) {
        Store(key, name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }

    static void StoreNumber(const wchar_t* key, const std::wstring& name, DWORD number,
                            DWORD type = REG_DWORD) {
        Store(key, name, type, &number, sizeof(number));
    }

    static std::optional<StoredValue> Find(const wchar_t* key, const std::wstring& name) {
        DWORD size = 0;
        if (RegGetValueW(HKEY_CURRENT_USER, key, name.c_str(), RRF_RT_ANY, nullptr, nullptr, &size) !=
            ERROR_SUCCESS)
            return std::nullopt;
        // Asked for by handle: RegGetValueW would mend a text without a terminator.
        StoredValue value;
        value.bytes.resize(size);
        HKEY handle = nullptr;
        RegOpenKeyExW(HKEY_CURRENT_USER, key, 0, KEY_READ, &handle);
        RegQueryValueExW(handle, name.c_str(), nullptr, &value.type, value.bytes.data(), &size);
        RegCloseKey(handle);
        value.bytes.resize(size);
        return value;
    }

    static StoredValue Read(const wchar_t* key, const std::wstring& name) {
        const std::optional<StoredValue> value = Find(key, name);
        if (!value)
            ADD_FAILURE() << "no such value: " << testing::PrintToString(name);
        return value.value_or(StoredValue{});
    }
};
