// Screens: 240x320

// Shares of the network.

#include <memory>

#include "tests/support/library_stand_in.h"
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
    void StartEnabled(const std::wstring& folder) {
        device.WriteNumber(redirectorKey, L"RegisterFSRoot", 1);
        program.Start(folder);
    }
    /// The network's library; its dialogs end with `result`.
    std::unique_ptr<LibraryStandIn> Network(int result) {
        // The host takes its own library for one of the same name unless it is told.
        device.WriteText(L"HKCU\\Software\\Wine\\AppDefaults\\TarvikFileManager.exe\\DllOverrides", L"mpr",
                         L"native");
        auto library = std::make_unique<LibraryStandIn>(L"mpr.dll");
        library->Answer(result);
        return library;
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

TEST_F(NetworkUi, ConnectAsksForADiskAndShowsWhatIsNew) {
    const auto network = Network(0);
    StartEnabled(L"\\Temp");
    device.File(L"\\Temp\\new.txt");
    program.Command(IDM_NETWORK_CONNECT);
    EXPECT_EQ(network->Calls(),
              Texts{L"connect owner=Tarvik File Manager type=1 local=none remote=none flags=0"});
    EXPECT_TRUE(program.List().Has(L"new"));
    EXPECT_FALSE(program.HasMessageBox());
}

TEST_F(NetworkUi, AConnectionCancelledChangesNothing) {
    const auto network = Network(-1);
    StartEnabled(L"\\Temp");
    device.File(L"\\Temp\\new.txt");
    program.Command(IDM_NETWORK_CONNECT);
    EXPECT_EQ(network->Calls().size(), 1u);
    EXPECT_FALSE(program.List().Has(L"new"));
    EXPECT_FALSE(program.HasMessageBox());
}

TEST_F(NetworkUi, FailuresAreReported) {
    const auto network = Network(1222);
    StartEnabled(L"\\Temp");
    MessageBoxShown connection = Connect();
    EXPECT_EQ(connection.Text(), L"Network Connection failed.");
    EXPECT_EQ(connection.Caption(), L"");
    connection.Answer(IDOK);
    program.PostCommand(IDM_NETWORK_DISCONNECT);
    MessageBoxShown disconnection = program.WaitForMessageBox();
    EXPECT_EQ(disconnection.Text(), L"Network Disconnection failed.");
    EXPECT_EQ(disconnection.Caption(), L"");
    disconnection.Answer(IDOK);
    EXPECT_EQ(program.Folder(), L"\\Temp");
}

TEST_F(NetworkUi, AfterDisconnectingTheNearestFolderThatIsThereIsShown) {
    const auto network = Network(0);
    device.Folder(L"\\Network\\Share\\Sub");
    StartEnabled(L"\\Network\\Share\\Sub");
    RunOnHost("rm -r Network/Share");
    program.Command(IDM_NETWORK_DISCONNECT);
    EXPECT_EQ(network->Calls(), Texts{L"disconnect owner=Tarvik File Manager type=0"});
    program.WaitForFolder(L"\\Network");
    RunOnHost("rm -r Network");
    program.Command(IDM_NETWORK_DISCONNECT);
    program.WaitForFolder(L"My PocketPC");
    EXPECT_FALSE(program.HasMessageBox());
}

TEST_F(NetworkUi, ADisconnectionCancelledChangesNothing) {
    const auto network = Network(-1);
    StartEnabled(L"\\Temp");
    device.File(L"\\Temp\\new.txt");
    program.Command(IDM_NETWORK_DISCONNECT);
    EXPECT_EQ(network->Calls().size(), 1u);
    EXPECT_FALSE(program.List().Has(L"new"));
    EXPECT_FALSE(program.HasMessageBox());
}

} // namespace
