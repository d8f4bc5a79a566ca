#include "launch/open_commands.h"

#include <string>

#include <gtest/gtest.h>

namespace {

struct Parsed {
    std::wstring program;
    std::wstring parameters;
    bool operator==(const Parsed&) const = default;
};

std::optional<Parsed> Parse(const std::wstring& command) {
    const std::optional<OpenCommand> parsed = ParseOpenCommand(command);
    if (!parsed)
        return std::nullopt;
    return Parsed{std::wstring(parsed->program), std::wstring(parsed->parameters)};
}

std::wstring Filled(const std::wstring& parameters) {
    return FillInDocument(parameters, L"\\Temp\\100% a.txt").get();
}

} // namespace

TEST(OpenCommands, QuotedProgram) {
    EXPECT_EQ(Parse(L"\"\\Program Files\\App\\app.EXE\"   -o \"%1\""),
              (Parsed{L"\\Program Files\\App\\app.EXE", L"-o \"%1\""}));
    EXPECT_EQ(Parse(L"\"\\a.exe\"\"%1\""), (Parsed{L"\\a.exe", L"\"%1\""}));
}

TEST(OpenCommands, UnquotedProgram) {
    EXPECT_EQ(Parse(L"tool.exe %1"), (Parsed{L"tool.exe", L"%1"}));
    EXPECT_EQ(Parse(L"\\Program Files\\a b.exe \"%1\""), (Parsed{L"\\Program Files\\a b.exe", L"\"%1\""}));
    EXPECT_EQ(Parse(L"tool.Exe"), (Parsed{L"tool.Exe", L""}));
    EXPECT_EQ(Parse(L"tool.exe\"%1\""), (Parsed{L"tool.exe", L"\"%1\""}));
}

TEST(OpenCommands, TheFirstExeEndsTheProgram) {
    EXPECT_EQ(Parse(L"\\v1.2\\tool.exe other.exe"), (Parsed{L"\\v1.2\\tool.exe", L"other.exe"}));
    EXPECT_EQ(Parse(L"a..exe"), (Parsed{L"a..exe", L""}));
    EXPECT_EQ(Parse(L"\\a.executables\\b.exe"), (Parsed{L"\\a.exe", L"cutables\\b.exe"}));
}

TEST(OpenCommands, WithoutAProgram) {
    for (const wchar_t* command : {L"", L"\"", L"tool.com %1", L"tool.ex", L".", L"exe", L"tool. exe"})
        EXPECT_FALSE(Parse(command));
}

TEST(OpenCommands, AProgramWithoutAFolderIsInTheSystemFolder) {
    Path path;
    EXPECT_TRUE(LocateProgram(L"tool.exe", L"\\Windows", path));
    EXPECT_EQ(path.View(), L"\\Windows\\tool.exe");
    EXPECT_TRUE(LocateProgram(L"\\tool.exe", L"\\Windows", path));
    EXPECT_EQ(path.View(), L"\\tool.exe");
    EXPECT_FALSE(LocateProgram(std::wstring(255, L'x') + L".exe", L"\\Windows", path));
}

TEST(OpenCommands, OnlyTheFirstMarkTakesTheDocument) {
    EXPECT_EQ(Filled(L"-o \"%1\" -x"), L"-o \"\\Temp\\100% a.txt\" -x");
    EXPECT_EQ(Filled(L"%1 %1"), L"\\Temp\\100% a.txt %1");
    EXPECT_EQ(Filled(L"-o"), L"-o");
    EXPECT_EQ(Filled(L""), L"");
}

TEST(OpenCommands, OtherPercentSignsAreOnlyCharacters) {
    EXPECT_EQ(Filled(L"%s%n%99999s %1 %n%s%%"), L"%s%n%99999s \\Temp\\100% a.txt %n%s%%");
    EXPECT_EQ(Filled(L"%s %n %"), L"%s %n %");
    EXPECT_EQ(Filled(L"%%1"), L"%\\Temp\\100% a.txt");
    EXPECT_EQ(Filled(L"%1$s"), L"\\Temp\\100% a.txt$s");
}

TEST(OpenCommands, ABrowsedProgramMakesUpTheRest) {
    const AssociationTexts texts = ComposeAssociation({.program = L"\\Storage Card\\Tool.exe"}, L"\\Windows");
    EXPECT_STREQ(texts.className.get(), L"Tool");
    EXPECT_STREQ(texts.description.get(), L"Tool");
    EXPECT_STREQ(texts.command.get(), L"\"\\Storage Card\\Tool.exe\" \"%1\"");
    EXPECT_STREQ(texts.iconSource.get(), L"\\Storage Card\\Tool.exe,0");
}

TEST(OpenCommands, AProgramOfTheSystemIsWrittenByItsName) {
    const AssociationTexts texts = ComposeAssociation({.program = L"\\WINDOWS\\tool.exe"}, L"\\Windows");
    EXPECT_STREQ(texts.command.get(), L"tool.exe \"%1\"");
    EXPECT_STREQ(texts.iconSource.get(), L"tool.exe,0");
    EXPECT_STREQ(ComposeAssociation({.program = L"\\Windows\\a b.exe"}, L"\\Windows").command.get(),
                 L"\"a b.exe\" \"%1\"");
}

TEST(OpenCommands, WhatIsGivenIsTaken) {
    const AssociationTexts texts = ComposeAssociation({.program = L"\\p\\tool",
                                                       .className = L"toolfile",
                                                       .description = L"A %s document",
                                                       .parameters = L"/x %1",
                                                       .iconFile = L"\\p\\icons.dll",
                                                       .iconIndex = -7},
                                                      L"\\Windows");
    EXPECT_STREQ(texts.className.get(), L"toolfile");
    EXPECT_STREQ(texts.description.get(), L"A %s document");
    EXPECT_STREQ(texts.command.get(), L"\\p\\tool /x %1");
    EXPECT_STREQ(texts.iconSource.get(), L"\\p\\icons.dll,-7");
    EXPECT_STREQ(ComposeAssociation({.program = L"\\p\\tool"}, L"\\Windows").className.get(), L"tool");
}
