#include "launch/preferred_programs.h"

#include <array>
#include <string>

#include <gtest/gtest.h>

#include "platform/handles.h"
#include "resources/resource.h"

namespace {

using Texts = std::vector<std::wstring>;

bool IsOffered(const wchar_t* name, DWORD attributes = 0) {
    WIN32_FIND_DATAW found{};
    CopyTextTo(found.cFileName, name);
    found.dwFileAttributes = attributes;
    return IsOfferedProgram(found);
}

/// Two menus of six entries and a folder of programs.
class PreferredProgramsTest : public testing::Test {
  protected:
    PreferredProgramsTest() {
        CreateDirectoryW(folder, nullptr);
        for (HMENU menu : menus_) {
            for (UINT_PTR entry = 1; entry <= 6; ++entry)
                AppendMenuW(menu, MF_STRING, entry, L"own");
        }
    }
    ~PreferredProgramsTest() override {
        for (const std::wstring& file : files_)
            DeleteFileW(file.c_str());
        RemoveDirectoryW(folder);
    }

    void File(const std::wstring& name, const std::string& content = "") {
        files_.push_back(std::wstring(folder) + L"\\" + name);
        const FileHandle file(
            CreateFileW(files_.back().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        DWORD written = 0;
        WriteFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
    }
    void Build() { programs_.buildPreferredMenu(folder, menus_); }

    /// The entries behind the six of its own, "-" for a separator.
    Texts Entries(std::size_t which) const {
        Texts entries;
        HMENU menu = menus_[which];
        for (int position = 6; position < GetMenuItemCount(menu); ++position) {
            wchar_t text[300] = L"";
            GetMenuStringW(menu, static_cast<UINT>(position), text, 300, MF_BYPOSITION);
            const bool separator =
                GetMenuState(menu, static_cast<UINT>(position), MF_BYPOSITION) & MF_SEPARATOR;
            entries.push_back(separator ? L"-"
                                        : std::to_wstring(GetMenuItemID(menu, position)) + L" " + text);
        }
        return entries;
    }

    static constexpr wchar_t folder[] = L"\\Temp\\preferred";
    MenuHandle first_{CreatePopupMenu()};
    MenuHandle second_{CreatePopupMenu()};
    std::array<HMENU, 2> menus_{first_.Get(), second_.Get()};
    PreferredPrograms programs_;
    std::vector<std::wstring> files_;
};

} // namespace

TEST(PreferredProgram, IsAProgramOrAShortcut) {
    EXPECT_TRUE(IsOffered(L"a.EXE"));
    EXPECT_TRUE(IsOffered(L"a.b.Lnk"));
    EXPECT_FALSE(IsOffered(L"a.exe", FILE_ATTRIBUTE_DIRECTORY));
    for (const wchar_t* name : {L"a.exe.txt", L"exe", L"lnk", L"a.ex", L"a.exes"})
        EXPECT_FALSE(IsOffered(name));
}

TEST(PreferredProgram, IsCalledByItsNameWithoutExtension) {
    EXPECT_EQ(ProgramMenuText(L"My Tool 1.2.lnk"), L"My Tool 1.2");
    EXPECT_EQ(ProgramMenuText(L".exe"), L"");
}

TEST(PreferredProgram, OfAShortcutIsWhatItsQuotesEnclose) {
    EXPECT_EQ(ProgramOfShortcut(L"\"\\a b\\c.exe\" -x"), L"\\a b\\c.exe");
    EXPECT_EQ(ProgramOfShortcut(L"\"\\a b"), L"\\a b");
    EXPECT_EQ(ProgramOfShortcut(L"\\a b\\c.exe"), L"\\a b\\c.exe");
    EXPECT_EQ(ProgramOfShortcut(L"\""), L"");
}

TEST_F(PreferredProgramsTest, BecomeEntriesOfBothMenus) {
    File(L"Tool.exe");
    File(L"Way.lnk", "26#\"\\Program Files\\x.exe\" -a ");
    File(L"readme.txt");
    Build();
    ASSERT_EQ(Entries(0).size(), 3u);
    EXPECT_EQ(Entries(0)[0], L"-");
    EXPECT_EQ(Entries(0), Entries(1));
    const int tool = Entries(0)[1] == L"50000 Tool" ? 0 : 1;
    EXPECT_STREQ(programs_.Target(tool), L"\\Temp\\preferred\\Tool.exe");
    EXPECT_STREQ(programs_.Target(1 - tool), L"\\Program Files\\x.exe");
    EXPECT_EQ(programs_.Target(2), nullptr);
    EXPECT_EQ(programs_.Target(-1), nullptr);
}

TEST_F(PreferredProgramsTest, NoneLeaveTheMenusAlone) {
    Build();
    EXPECT_EQ(Entries(0), Texts{});
    programs_.buildPreferredMenu(L"\\Temp\\missing", menus_);
    programs_.buildPreferredMenu(std::wstring(259, L'x'), menus_);
    EXPECT_EQ(Entries(1), Texts{});
}

TEST_F(PreferredProgramsTest, AreReplacedByTheNextBuild) {
    File(L"a.exe");
    Build();
    Build();
    EXPECT_EQ(Entries(0), (Texts{L"-", L"50000 a"}));
    DeleteFileW(files_.back().c_str());
    Build();
    EXPECT_EQ(Entries(0), Texts{});
    EXPECT_EQ(GetMenuItemCount(menus_[1]), 6);
}

TEST_F(PreferredProgramsTest, ASeventeenthGetsNoEntry) {
    for (int number = 0; number < 17; ++number)
        File(std::to_wstring(number) + L".exe");
    Build();
    EXPECT_EQ(Entries(0).size(), 17u); // with the separator
    EXPECT_NE(programs_.Target(15), nullptr);
    EXPECT_EQ(programs_.Target(16), nullptr);
}
