#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "platform/ce_api.h"
#include "platform/handles.h"

namespace {

namespace fs = std::filesystem;

class Shell : public testing::Test {
  protected:
    Shell() {
        fs::remove_all(home);
        fs::create_directories(home);
    }
    ~Shell() override { fs::remove_all(home); }

    static std::string Content(const fs::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    static inline const fs::path home = L"\\Temp\\Shell Test";
};

std::wstring SpecialFolder(int id) {
    wchar_t path[MAX_PATH] = L"-";
    return ce::SHGetSpecialFolderPath(nullptr, path, id, FALSE) ? path : L"";
}

TEST_F(Shell, KnowsThePhonesSpecialFolders) {
    EXPECT_EQ(SpecialFolder(CSIDL_DESKTOP), L"\\Windows\\Desktop");
    EXPECT_EQ(SpecialFolder(CSIDL_FAVORITES), L"\\Windows\\Favorites");
    EXPECT_EQ(SpecialFolder(CSIDL_STARTMENU), L"\\Windows\\Start Menu");
    EXPECT_EQ(SpecialFolder(CSIDL_PERSONAL), L"\\My Documents");
    EXPECT_EQ(SpecialFolder(0x21), L"") << "not on this phone";
}

TEST_F(Shell, MakesASpecialFolderWhenAskedTo) {
    wchar_t path[MAX_PATH] = L"";
    fs::remove_all(L"\\Windows\\Start Menu\\Programs");
    EXPECT_TRUE(ce::SHGetSpecialFolderPath(nullptr, path, CSIDL_PROGRAMS, TRUE));
    EXPECT_TRUE(fs::is_directory(path));
}

TEST_F(Shell, TellsTheTypeOfAFileByItsRootedPath) {
    std::ofstream(home / L"a.txt") << "x";
    SHFILEINFOW rooted{};
    SHFILEINFOW full{};
    ASSERT_TRUE(ce::SHGetFileInfo(L"\\Temp\\Shell Test\\a.txt", 0, &rooted, sizeof(rooted), SHGFI_TYPENAME));
    ASSERT_TRUE(::SHGetFileInfoW(L"E:\\Temp\\Shell Test\\a.txt", 0, &full, sizeof(full), SHGFI_TYPENAME));
    EXPECT_STREQ(rooted.szTypeName, full.szTypeName);
    EXPECT_NE(rooted.szTypeName[0], L'\0');
}

TEST_F(Shell, StartsAProgramWithItsCommandLineAsGiven) {
    fs::create_directory(home / L"two words");
    const fs::path program = home / L"two words" / L"cmd.exe";
    fs::copy_file(L"C:\\windows\\system32\\cmd.exe", program);
    wchar_t words[] = L"/c echo a  \"b c\">\"\\Temp\\Shell Test\\out.txt\"";
    PROCESS_INFORMATION started{};
    ASSERT_TRUE(ce::CreateProcessW(program.c_str(), words, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                   nullptr, &started))
        << GetLastError();
    const ObjectHandle process(started.hProcess);
    const ObjectHandle thread(started.hThread);
    ASSERT_EQ(WaitForSingleObject(process.Get(), 30000), static_cast<DWORD>(WAIT_OBJECT_0));
    EXPECT_EQ(Content(home / L"out.txt"), "a  \"b c\"\r\n");
}

TEST_F(Shell, DoesNotStartWhatIsMissing) {
    wchar_t words[] = L"/c exit";
    PROCESS_INFORMATION started{};
    EXPECT_FALSE(ce::CreateProcessW(L"\\Temp\\Shell Test\\none.exe", words, nullptr, nullptr, FALSE, 0,
                                    nullptr, nullptr, nullptr, &started));
    for (const wchar_t* file : {L"\\Temp\\Shell Test\\none.exe", L"none.exe"}) {
        SHELLEXECUTEINFOW info{};
        info.cbSize = sizeof(info);
        info.lpFile = file;
        EXPECT_FALSE(ce::ShellExecuteEx(&info));
    }
}

TEST_F(Shell, FindsFunctionsByWideNames) {
    HMODULE library = GetModuleHandleW(L"kernel32");
    EXPECT_EQ(ce::GetProcAddressW(library, L"GetTickCount"), ::GetProcAddress(library, "GetTickCount"));
    EXPECT_EQ(ce::GetProcAddressW(library, L"NoSuchFunction"), nullptr);
    EXPECT_EQ(ce::GetProcAddressW(library, L"GetTickCo\u00FCnt"), nullptr);
    EXPECT_EQ(ce::GetProcAddressW(library, L""), nullptr);
}

TEST_F(Shell, ModifiesEvents) {
    const ObjectHandle event(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    const auto isSet = [&] { return WaitForSingleObject(event.Get(), 0) == WAIT_OBJECT_0; };
    EXPECT_TRUE(ce::EventModify(event.Get(), EVENT_SET));
    EXPECT_TRUE(isSet());
    EXPECT_TRUE(ce::EventModify(event.Get(), EVENT_RESET));
    EXPECT_FALSE(isSet());
    EXPECT_TRUE(ce::EventModify(event.Get(), EVENT_PULSE));
    EXPECT_FALSE(isSet());
    EXPECT_FALSE(ce::EventModify(event.Get(), 0));
    EXPECT_FALSE(ce::EventModify(event.Get(), 4));
}

} // namespace
