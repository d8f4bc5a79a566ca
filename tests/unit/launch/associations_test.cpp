#include "launch/associations.h"

#include <string>

#include <gtest/gtest.h>

#include "common/registry.h"
#include "tests/support/registry.h"

namespace {

const std::wstring rootKey = L"HKCU\\Software\\AssociationsTest";

/// Classes in a key of their own, and programs that every device has.
class Associations : public testing::Test {
  protected:
    Associations() {
        registry::DeleteKey(rootKey);
        root_ = OpenOrCreateKey(HKEY_CURRENT_USER, L"Software\\AssociationsTest");
    }
    ~Associations() override {
        root_.Reset();
        registry::DeleteKey(rootKey);
        DeleteFileW(L"\\Windows\\tool.exe");
    }

    static void MakeProgram() {
        CloseHandle(
            CreateFileW(L"\\Windows\\tool.exe", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    }
    static void Class(const std::wstring& name, const std::wstring& description,
                      const std::wstring& command) {
        Text(name, description);
        Text(name + L"\\Shell\\Open\\Command", command);
    }
    static void Text(const std::wstring& key, const std::wstring& text) {
        registry::Write(rootKey + L"\\" + key, L"", RegistryValue::Text(text));
    }
    static std::wstring Stored(const std::wstring& key) {
        const auto value = registry::Read(rootKey + L"\\" + key, L"");
        return value ? value->AsText() : L"(none)";
    }
    ProgramList Enumerate(const wchar_t* extension = L".txt") {
        return enumeratePrograms(root_.Get(), extension, L"\\Windows");
    }
    std::vector<std::wstring> Found(const wchar_t* extension = L".txt") {
        std::vector<std::wstring> found;
        for (const ProgramRecord& record : Enumerate(extension).records)
            found.push_back(std::wstring(record.className.get()) + L"|" + record.description.get() + L"|" +
                            record.program.get() + L"|" + record.parameters.get());
        return found;
    }

    RegistryKey root_;
};

using Texts = std::vector<std::wstring>;

} // namespace

TEST_F(Associations, ProgramsThatExistAreFound) {
    MakeProgram();
    Class(L"a", L"First", L"tool.exe -o \"%1\"");
    Class(L"b", L"Second", L"\"\\Windows\\TOOL.EXE\"");
    Class(L"c", L"Missing", L"\\Windows\\missing.exe %1");
    Class(L"d", L"No program", L"tool %1");
    EXPECT_EQ(Found(), (Texts{L"a|First|\\Windows\\tool.exe|-o \"%1\"", L"b|Second|\\Windows\\TOOL.EXE|"}));
}

TEST_F(Associations, AClassNeedsACommandAndADescription) {
    MakeProgram();
    Text(L"onlyname", L"Described");
    Text(L"onlycommand\\Shell\\Open\\Command", L"tool.exe");
    EXPECT_EQ(Found(), Texts{});
    EXPECT_TRUE(registry::KeyExists(rootKey + L"\\onlyname\\Shell\\Open\\Command"));
    EXPECT_EQ(Stored(L"onlyname\\Shell\\Open\\Command"), L"(none)");
}

TEST_F(Associations, OnlyTheFilesOwnExtensionCounts) {
    MakeProgram();
    Class(L".txt", L"txtfile", L"tool.exe %1");
    Class(L".doc", L"docfile", L"tool.exe %1");
    EXPECT_EQ(Found(L".TXT"), (Texts{L".txt|txtfile|\\Windows\\tool.exe|%1"}));
    EXPECT_STREQ(Enumerate(L".TXT").extensionClass.data(), L"txtfile");
    EXPECT_STREQ(Enumerate(L".none").extensionClass.data(), L"");
    EXPECT_FALSE(registry::KeyExists(rootKey + L"\\.none"));
}

TEST_F(Associations, HostileValuesAreSkipped) {
    MakeProgram();
    Class(L"a%s%n", L"%s%n%s", L"tool.exe %s%n%1");
    Class(L"huge", L"Huge", L"\\Windows\\" + std::wstring(300, L'x') + L".exe");
    Class(L"long", L"Long", std::wstring(255, L'x') + L".exe");
    Class(std::wstring(250, L'n'), L"Long name", L"tool.exe");
    registry::Write(rootKey + L"\\odd", L"", RegistryValue::Binary("abc", 3));
    registry::Write(rootKey + L"\\odd\\Shell\\Open\\Command", L"", RegistryValue::Binary("t\0.", 3));
    EXPECT_EQ(Found(), (Texts{L"a%s%n|%s%n%s|\\Windows\\tool.exe|%s%n%1",
                              std::wstring(250, L'n') + L"|Long name|\\Windows\\tool.exe|"}));
}

TEST_F(Associations, AreWrittenAndFoundAgain) {
    MakeProgram();
    EXPECT_TRUE(
        writeAssociation(root_.Get(), ComposeAssociation({.program = L"\\Windows\\tool.exe"}, L"\\Windows")));
    EXPECT_EQ(Stored(L"tool"), L"tool");
    EXPECT_EQ(Stored(L"tool\\Shell\\Open\\Command"), L"tool.exe \"%1\"");
    EXPECT_EQ(Stored(L"tool\\DefaultIcon"), L"tool.exe,0");
    EXPECT_EQ(Found(), (Texts{L"tool|tool|\\Windows\\tool.exe|\"%1\""}));
    EXPECT_TRUE(setExtensionClass(root_.Get(), L".xyz", L"tool"));
    EXPECT_EQ(Stored(L".xyz"), L"tool");
}

TEST_F(Associations, WhatCannotBeWrittenIsReported) {
    const HKEY none = reinterpret_cast<HKEY>(1);
    EXPECT_FALSE(writeAssociation(none, ComposeAssociation({.program = L"\\tool.exe"}, L"\\Windows")));
    EXPECT_FALSE(setExtensionClass(none, L".xyz", L"tool"));
}
