// Screens: 240x320

// Shares of the network.

#include "tests/support/ui_test.h"

namespace {

const std::wstring redirectorKey = L"HKLM\\Comm\\Redir";

class NetworkUi : public UiTest {
  protected:
    void SetUp() override { device.Preserve(redirectorKey); }
    MessageBoxShown Connect() {
        program.PostCommand(IDM_NETWORK_CONNECT);
        return program.WaitForMessageBox();
    }
};

TEST_F(NetworkUi, TheFolderIsEnabledFirst) {
    program.Start();
    MessageBoxShown question = Connect();
    EXPECT_EQ(question.Text(), L"The 'Network' folder is not enabled :\ndo you want to enable it?");
    EXPECT_EQ(question.Caption(), L"Network Folder");
    EXPECT_EQ(question.Buttons(), (std::vector<int>{IDYES, IDNO}));
    question.Answer(IDYES);
    MessageBoxShown advice = program.WaitForMessageBox();
    EXPECT_EQ(advice.Text(),
              L"Soft-reset your device to activate the changes.\nAfter reset, run this command again.");
    EXPECT_EQ(advice.Caption(), L"Network Folder");
    advice.Answer(IDOK);
    program.WaitUntilIdle();
    EXPECT_FALSE(program.HasMessageBox());
    EXPECT_FALSE(program.HasDialog());
    EXPECT_EQ(device.NumberValue(redirectorKey, L"RegisterFSRoot"), 1u);
}

TEST_F(NetworkUi, NoLeavesTheFolderDisabled) {
    program.Start();
    Connect().Answer(IDNO);
    program.WaitUntilIdle();
    EXPECT_FALSE(program.HasMessageBox());
    EXPECT_FALSE(device.HasValue(redirectorKey, L"RegisterFSRoot"));
}

TEST_F(NetworkUi, AValueOfZeroIsNotEnabled) {
    device.WriteNumber(redirectorKey, L"RegisterFSRoot", 0);
    program.Start();
    Connect().Answer(IDNO);
    program.WaitUntilIdle();
    EXPECT_EQ(device.NumberValue(redirectorKey, L"RegisterFSRoot"), 0u);
}

} // namespace
