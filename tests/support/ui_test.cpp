#include "tests/support/ui_test.h"

#include <cstdio>

namespace {

DWORD ProcessOf(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process;
}

/// Ends what the program started and left on the screen.
void EndOtherPrograms() {
    EnumWindows(
        [](HWND window, LPARAM) WINAPI -> BOOL {
            const DWORD process = ProcessOf(window);
            if (!IsWindowVisible(window) || process == GetCurrentProcessId() ||
                process == ProcessOf(GetDesktopWindow()))
                return TRUE;
            if (const HANDLE other = OpenProcess(PROCESS_TERMINATE, FALSE, process)) {
                TerminateProcess(other, 0);
                CloseHandle(other);
            }
            return TRUE;
        },
        0);
}

} // namespace

void UiTest::TearDown() {
    // A program that ended by itself must have ended well.
    if (program.Process() && !program.IsRunning()) {
        EXPECT_EQ(program.ExitCode(), 0u) << "the program crashed";
    }

    EXPECT_EQ(TakePhoneReport(), "");

    if (program.IsRunning() && program.Window()) {
        EXPECT_TRUE(Answers(program.Window())) << "the program hangs";
    }

    if (HasFailure()) {
        const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
        const std::string picture = KeepScreenshot(std::string(test.test_suite_name()) + "." + test.name());
        std::printf("The screen at the end of the test: %s\n", picture.c_str());
    }
    program.Kill();
    EndOtherPrograms();
}

void UiTest::ShowTree() {
    device.WriteNumber(settingsKey, L"ShowFolder", 1);
    device.WriteNumber(settingsKey, L"TreeViewHeight", 130);
}

void UiTest::ExpectMessage(const std::wstring& text) {
    MessageBoxShown message = program.WaitForMessageBox();
    EXPECT_EQ(message.Text(), text);
    EXPECT_EQ(message.Caption(), L"");
    EXPECT_EQ(message.Buttons(), std::vector<int>{IDOK});
    EXPECT_EQ(message.Owner(), program.Window());
    message.Answer(IDOK);
}
