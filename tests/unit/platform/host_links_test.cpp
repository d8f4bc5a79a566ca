#include "platform/desktop/host_links.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "platform/ce_api.h"
#include "tests/support/host.h"

namespace {

namespace fs = std::filesystem;

/// A folder and a file with a link to each; `far` lies outside the tree that holds the links.
class HostLinks : public testing::Test {
  protected:
    HostLinks() {
        RunOnHost("rm -rf Temp/Links Temp/Far\n"
                  "mkdir -p Temp/Links/Real Temp/Far\n"
                  "echo kept > Temp/Links/Real/inner.txt\n"
                  "echo kept > Temp/Far/far.txt\n"
                  "ln -s Real Temp/Links/near\n"
                  "ln -s ../Far Temp/Links/far\n"
                  "ln -s ../Far/far.txt Temp/Links/far.txt\n"
                  "ln -s nowhere Temp/Links/broken\n"
                  "ln -s . Temp/Links/loop\n");
    }
    ~HostLinks() override { RunOnHost("rm -rf Temp/Links Temp/Far"); }

    static void ExpectTargetsKept() {
        EXPECT_TRUE(fs::exists(L"\\Temp\\Links\\Real\\inner.txt"));
        EXPECT_TRUE(fs::exists(L"\\Temp\\Far\\far.txt"));
    }
};

TEST_F(HostLinks, AreToldFromWhatTheyLeadTo) {
    EXPECT_TRUE(IsHostLink(L"\\Temp\\Links\\near"));
    EXPECT_TRUE(IsHostLink(L"\\Temp\\Links\\far"));
    EXPECT_TRUE(IsHostLink(L"\\Temp\\Links\\far.txt"));
    EXPECT_TRUE(IsHostLink(L"\\Temp\\Links\\loop"));
    for (const wchar_t* path :
         {L"\\Temp\\Links", L"\\Temp\\Links\\Real", L"\\Temp\\Links\\Real\\inner.txt",
          L"\\Temp\\Far\\far.txt", L"\\Temp\\LINKS\\real", L"\\Temp\\missing", L"\\", L""})
        EXPECT_FALSE(IsHostLink(path));
}

TEST_F(HostLinks, AreNotWhatLiesBehindThem) {
    EXPECT_FALSE(IsHostLink(L"\\Temp\\Links\\near\\inner.txt"));
    EXPECT_FALSE(IsHostLink(L"\\Temp\\Links\\far\\far.txt"));
}

TEST_F(HostLinks, ToFoldersAreRemovedAlone) {
    for (const wchar_t* name : {L"near", L"far", L"loop"})
        EXPECT_TRUE(ce::RemoveDirectoryW((std::wstring(L"\\Temp\\Links\\") + name).c_str()))
            << GetLastError();
    RunOnHost("test ! -L Temp/Links/near; test ! -L Temp/Links/far; test ! -L Temp/Links/loop");
    ExpectTargetsKept();
}

TEST_F(HostLinks, ToFilesAreDeletedAlone) {
    EXPECT_TRUE(ce::DeleteFileW(L"\\Temp\\Links\\far.txt"));
    RunOnHost("test ! -L Temp/Links/far.txt");
    ExpectTargetsKept();
}

TEST_F(HostLinks, AreDeletedAloneWhereALinkedFolderHasBecomeARealOne) {
    RunOnHost("echo other > Temp/Far/other.txt");
    ASSERT_TRUE(ce::DeleteFileW(L"\\Temp\\Links\\far\\other.txt"));
    RunOnHost("rm Temp/Links/far; mkdir Temp/Links/far; ln -s ../../Far/far.txt Temp/Links/far/far.txt\n"
              "sleep 0.2\n");
    EXPECT_TRUE(ce::DeleteFileW(L"\\Temp\\Links\\far\\far.txt"));
    RunOnHost("test ! -L Temp/Links/far/far.txt");
    ExpectTargetsKept();
}

TEST_F(HostLinks, AreMovedAlone) {
    EXPECT_TRUE(ce::MoveFileW(L"\\Temp\\Links\\near", L"\\Temp\\Links\\moved"));
    RunOnHost("test -L Temp/Links/moved; test ! -L Temp/Links/near");
    EXPECT_TRUE(ce::MoveFileW(L"\\Temp\\Links\\moved", L"\\Temp\\Links\\MOVED")) << "another spelling";
    RunOnHost("test -L Temp/Links/MOVED");
    ExpectTargetsKept();
}

TEST_F(HostLinks, AreNotMovedOverAnything) {
    EXPECT_FALSE(ce::MoveFileW(L"\\Temp\\Links\\near", L"\\Temp\\Links\\far.txt"));
    EXPECT_FALSE(ce::MoveFileW(L"\\Temp\\Links\\near", L"\\Temp\\Links\\Real"));
    RunOnHost("test -L Temp/Links/near; test -L Temp/Links/far.txt");
    ExpectTargetsKept();
}

TEST_F(HostLinks, TakeThePlaceOfAFileAlone) {
    RunOnHost("echo old > Temp/Links/old.txt");
    EXPECT_TRUE(ce::DeleteAndRenameFile(L"\\Temp\\Links\\old.txt", L"\\Temp\\Links\\far.txt"));
    RunOnHost("test -L Temp/Links/old.txt; test ! -e Temp/Links/far.txt");
    RunOnHost("echo new > Temp/Links/new.txt");
    EXPECT_TRUE(ce::DeleteAndRenameFile(L"\\Temp\\Links\\old.txt", L"\\Temp\\Links\\new.txt"));
    RunOnHost("test ! -L Temp/Links/old.txt; test \"$(cat Temp/Links/old.txt)\" = new");
    ExpectTargetsKept();
}

TEST_F(HostLinks, AreNotMovedIntoAFolderOfALikeName) {
    RunOnHost("mkdir Temp/Links/NEAR");
    EXPECT_FALSE(ce::MoveFileW(L"\\Temp\\Links\\near", L"\\Temp\\Links\\NEAR"));
    RunOnHost("test -L Temp/Links/near; test -z \"$(ls Temp/Links/NEAR)\"");
}

TEST_F(HostLinks, KeepTheAttributesOfWhatTheyLeadTo) {
    EXPECT_TRUE(ce::SetFileAttributesW(L"\\Temp\\Links\\far.txt", FILE_ATTRIBUTE_READONLY));
    EXPECT_FALSE(ce::GetFileAttributesW(L"\\Temp\\Far\\far.txt") & FILE_ATTRIBUTE_READONLY);
}

TEST_F(HostLinks, LeaveOrdinaryEntriesToTheirCalls) {
    EXPECT_FALSE(ce::RemoveDirectoryW(L"\\Temp\\Links\\Real")) << "not empty";
    EXPECT_TRUE(ce::MoveFileW(L"\\Temp\\Links\\Real\\inner.txt", L"\\Temp\\Links\\moved.txt"));
    EXPECT_TRUE(ce::DeleteFileW(L"\\Temp\\Links\\moved.txt"));
    EXPECT_TRUE(ce::RemoveDirectoryW(L"\\Temp\\Links\\Real"));
    EXPECT_FALSE(ce::RemoveDirectoryW(L"\\Temp\\Links\\Real"));
    EXPECT_FALSE(ce::DeleteFileW(L"\\Temp\\Links\\missing"));
}

} // namespace
