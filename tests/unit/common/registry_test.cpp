#include "common/registry.h"

#include <array>
#include <string>

#include "tests/unit/app/stored_values.h"

namespace {

class Registry : public StoredValues {
  protected:
    RegistryKey key_ = OpenOrCreateKey(HKEY_CURRENT_USER, settingsKey);

    HKEY Key() const { return key_.Get(); }

    void StoreBytes(const wchar_t* name, const std::string& bytes, DWORD type = REG_BINARY) {
        Store(settingsKey, name, type, bytes.data(), bytes.size());
    }

    void StoreCharacters(const wchar_t* name, const std::wstring& text, DWORD type = REG_SZ) {
        // The platform adds a terminator that it finds behind the text: there must be none.
        Store(settingsKey, name, type, (text + L"#").data(), text.size() * sizeof(wchar_t));
    }
};

TEST_F(Registry, MakesAMissingKey) {
    ASSERT_TRUE(key_);
    Forget();
    EXPECT_TRUE(OpenOrCreateKey(HKEY_CURRENT_USER, recentKey));
}

TEST_F(Registry, GivesNoKeyWhereNoneCanBe) {
    EXPECT_FALSE(OpenOrCreateKey(reinterpret_cast<HKEY>(1), settingsKey));
}

TEST_F(Registry, LeavesTheFieldWithoutAValue) {
    std::uint32_t number = 7;
    ReadNumber(Key(), L"Missing", number);
    EXPECT_EQ(number, 7u);
    std::array<wchar_t, 8> text{L"kept"};
    EXPECT_FALSE(ReadText(Key(), L"Missing", text));
    EXPECT_STREQ(text.data(), L"kept");
}

TEST_F(Registry, LeavesTheFieldForAValueOfMoreThan520Bytes) {
    std::uint32_t number = 7;
    StoreBytes(L"Number", std::string(521, '\1'));
    ReadNumber(Key(), L"Number", number);
    EXPECT_EQ(number, 7u);
    std::array<wchar_t, 300> text{L"kept"};
    StoreCharacters(L"Text", std::wstring(261, L'x'));
    EXPECT_FALSE(ReadText(Key(), L"Text", text));
    EXPECT_STREQ(text.data(), L"kept");
}

TEST_F(Registry, ReadsANumberOfAnyType) {
    for (DWORD type : {REG_DWORD, REG_BINARY, REG_SZ, REG_NONE, REG_MULTI_SZ}) {
        std::uint32_t number = 7;
        StoreNumber(settingsKey, L"Number", 0x12345678, type);
        ReadNumber(Key(), L"Number", number);
        EXPECT_EQ(number, 0x12345678u) << "type " << type;
    }
}

TEST_F(Registry, ReplacesOnlyTheBytesThatAShortNumberHas) {
    std::uint32_t number = 0xAABBCCDD;
    StoreBytes(L"Number", "");
    ReadNumber(Key(), L"Number", number);
    EXPECT_EQ(number, 0xAABBCCDDu);
    StoreBytes(L"Number", "\x11");
    ReadNumber(Key(), L"Number", number);
    EXPECT_EQ(number, 0xAABBCC11u);
    StoreBytes(L"Number", "\x11\x22\x33");
    ReadNumber(Key(), L"Number", number);
    EXPECT_EQ(number, 0xAA332211u);
}

TEST_F(Registry, NeverWritesPastANumber) {
    std::array<std::uint32_t, 3> numbers{1, 2, 3};
    StoreBytes(L"Number", std::string(520, '\xFF'));
    ReadNumber(Key(), L"Number", numbers[1]);
    EXPECT_EQ(numbers, (std::array<std::uint32_t, 3>{1, 0xFFFFFFFF, 3}));
}

TEST_F(Registry, CutsATextToItsField) {
    std::array<wchar_t, 9> field;
    field.fill(L'#');
    StoreText(settingsKey, L"Text", L"0123456789");
    EXPECT_TRUE(ReadText(Key(), L"Text", std::span(field).first(8)));
    EXPECT_STREQ(field.data(), L"0123456");
    EXPECT_EQ(field[8], L'#');
}

TEST_F(Registry, EndsATextThatHasNoTerminator) {
    std::array<wchar_t, 260> field{L"\\Windows\\SendTo"};
    StoreCharacters(L"Text", L"\\Aa");
    EXPECT_TRUE(ReadText(Key(), L"Text", field));
    EXPECT_STREQ(field.data(), L"\\Aa");
    StoreCharacters(L"Text", std::wstring(260, L'x'));
    EXPECT_TRUE(ReadText(Key(), L"Text", field));
    EXPECT_EQ(field.data(), std::wstring(259, L'x'));
}

TEST_F(Registry, DropsHalfACharacter) {
    std::array<wchar_t, 8> field{L"kept"};
    StoreBytes(L"Text", std::string("A\0B\0C", 5), REG_SZ);
    EXPECT_TRUE(ReadText(Key(), L"Text", field));
    EXPECT_STREQ(field.data(), L"AB");
}

TEST_F(Registry, TakesAnEmptyTextAndLeavesWhatStandsBehindIt) {
    std::array<wchar_t, 8> field{L"kept"};
    StoreText(settingsKey, L"Text", L"");
    EXPECT_TRUE(ReadText(Key(), L"Text", field));
    EXPECT_STREQ(field.data(), L"");
    EXPECT_STREQ(field.data() + 1, L"ept");
}

TEST_F(Registry, ReadsATextOfAnyType) {
    for (DWORD type : {REG_SZ, REG_EXPAND_SZ, REG_BINARY, REG_MULTI_SZ, REG_NONE}) {
        std::array<wchar_t, 8> field{};
        StoreCharacters(L"Text", std::wstring(L"%A%\0", 4), type);
        EXPECT_TRUE(ReadText(Key(), L"Text", field));
        EXPECT_STREQ(field.data(), L"%A%") << "type " << type;
    }
}

TEST_F(Registry, WritesEachKindInItsType) {
    WriteNumber(Key(), L"Number", -2);
    WriteNumberBytes(Key(), L"NumberBytes", 3);
    WriteText(Key(), L"Text", L"ab");

    EXPECT_EQ(Read(settingsKey, L"Number").type, static_cast<DWORD>(REG_DWORD));
    EXPECT_EQ(Read(settingsKey, L"Number").Number(), static_cast<DWORD>(-2));
    EXPECT_EQ(Read(settingsKey, L"NumberBytes").type, static_cast<DWORD>(REG_BINARY));
    EXPECT_EQ(Read(settingsKey, L"NumberBytes").Number(), 3u);
    EXPECT_EQ(Read(settingsKey, L"Text").type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(Read(settingsKey, L"Text").bytes.size(), 6u);
    EXPECT_EQ(Read(settingsKey, L"Text").Text(), L"ab");
}

} // namespace
