// Links of the host, under the calls for single files.

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "platform/ce_api.h"
#include "tests/support/host.h"

namespace {

namespace fs = std::filesystem;

/// A folder and a file with a link to each; `far` lies outside the tree that holds the links.
class Links : public testing::Test {
  protected:
    Links() {
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
    ~Links() override { RunOnHost("rm -rf Temp/Links Temp/Far"); }

    static void ExpectTargetsKept() {
        EXPECT_TRUE(fs::exists(L"\\Temp\\Links\\Real\\inner.txt"));
        EXPECT_TRUE(fs::exists(L"\\Temp\\Far\\far.txt"));
    }
};

TEST_F(Links, ToFoldersAreRemovedAlone) {
    for (const wchar_t* name : {L"near", L"far", L"loop"})
        EXPECT_TRUE(ce::RemoveDirectoryW((std::wstring(L"\\Temp\\Links\\") + name).c_str()))
            << GetLastError();
    RunOnHost("test ! -L Temp/Links/near; test ! -L Temp/Links/far; test ! -L Temp/Links/loop");
    ExpectTargetsKept();
}

TEST_F(Links, ToFilesAreDeletedAlone) {
    EXPECT_TRUE(ce::DeleteFileW(L"\\Temp\\Links\\far.txt"));
    RunOnHost("test ! -L Temp/Links/far.txt");
    ExpectTargetsKept();
}

TEST_F(Links, AreDeletedAloneWhereALinkedFolderHasBecomeARealOne) {
    RunOnHost("echo other > Temp/Far/other.txt");
    ASSERT_TRUE(ce::DeleteFileW(L"\\Temp\\Links\\far\\other.txt"));
    RunOnHost("rm Temp/Links/far; mkdir Temp/Links/far; ln -s ../../Far/far.txt Temp/Links/far/far.txt\n");
    EXPECT_TRUE(ce::DeleteFileW(L"\\Temp\\Links\\far\\far.txt"));
    RunOnHost("test ! -L Temp/Links/far/far.txt");
    ExpectTargetsKept();
}

TEST_F(Links, AreMovedAlone) {
    EXPECT_TRUE(ce::MoveFileW(L"\\Temp\\Links\\near", L"\\Temp\\Links\\moved"));
    RunOnHost("test -L Temp/Links/moved; test ! -L Temp/Links/near");
    EXPECT_TRUE(ce::MoveFileW(L"\\Temp\\Links\\moved", L"\\Temp\\Links\\MOVED")) << "another spelling";
    RunOnHost("test -L Temp/Links/MOVED");
    ExpectTargetsKept();
}

TEST_F(Links, AreNotMovedOverAnything) {
    EXPECT_FALSE(ce::MoveFileW(L"\\Temp\\Links\\near", L"\\Temp\\Links\\far.txt"));
    EXPECT_FALSE(ce::MoveFileW(L"\\Temp\\Links\\near", L"\\Temp\\Links\\Real"));
    RunOnHost("test -L Temp/Links/near; test -L Temp/Links/far.txt");
    ExpectTargetsKept();
}

TEST_F(Links, TakeThePlaceOfAFileAlone) {
    RunOnHost("echo old > Temp/Links/old.txt");
    EXPECT_TRUE(ce::DeleteAndRenameFile(L"\\Temp\\Links\\old.txt", L"\\Temp\\Links\\far.txt"));
    RunOnHost("test -L Temp/Links/old.txt; test ! -e Temp/Links/far.txt");
    RunOnHost("echo new > Temp/Links/new.txt");
    EXPECT_TRUE(ce::DeleteAndRenameFile(L"\\Temp\\Links\\old.txt", L"\\Temp\\Links\\new.txt"));
    RunOnHost("test ! -L Temp/Links/old.txt; test \"$(cat Temp/Links/old.txt)\" = new");
    ExpectTargetsKept();
}

TEST_F(Links, AreNotMovedIntoAFolderOfALikeName) {
    RunOnHost("mkdir Temp/Links/NEAR");
    EXPECT_FALSE(ce::MoveFileW(L"\\Temp\\Links\\near", L"\\Temp\\Links\\NEAR"));
    RunOnHost("test -L Temp/Links/near; test -z \"$(ls Temp/Links/NEAR)\"");
}

TEST_F(Links, KeepTheAttributesOfWhatTheyLeadTo) {
    EXPECT_TRUE(ce::SetFileAttributesW(L"\\Temp\\Links\\far.txt", FILE_ATTRIBUTE_READONLY));
    EXPECT_FALSE(ce::GetFileAttributesW(L"\\Temp\\Far\\far.txt") & FILE_ATTRIBUTE_READONLY);
}

TEST_F(Links, LeaveOrdinaryEntriesToTheirCalls) {
    EXPECT_FALSE(ce::RemoveDirectoryW(L"\\Temp\\Links\\Real")) << "not empty";
    EXPECT_TRUE(ce::MoveFileW(L"\\Temp\\Links\\Real\\inner.txt", L"\\Temp\\Links\\moved.txt"));
    EXPECT_TRUE(ce::DeleteFileW(L"\\Temp\\Links\\moved.txt"));
    EXPECT_TRUE(ce::RemoveDirectoryW(L"\\Temp\\Links\\Real"));
    EXPECT_FALSE(ce::RemoveDirectoryW(L"\\Temp\\Links\\Real"));
    EXPECT_FALSE(ce::DeleteFileW(L"\\Temp\\Links\\missing"));
}

} // namespace
