#include "platform/desktop/link_scan.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "platform/ce_api.h"
#include "tests/support/host.h"

namespace {

namespace fs = std::filesystem;

/// A tree "Goes" beside files, all of it last changed a while ago, and a folder "Stays" outside of them.
class LinkScanOfHost : public testing::Test {
  protected:
    LinkScanOfHost() {
        RunOnHost("rm -rf Temp/Scan\n"
                  "mkdir -p Temp/Scan/Goes/One/Deep Temp/Scan/Goes/Two Temp/Scan/Stays\n"
                  "echo kept > Temp/Scan/Stays/kept.txt\n"
                  "for i in 1 2 3; do for f in . Goes Goes/One Goes/One/Deep Goes/Two; do\n"
                  "  echo text > Temp/Scan/$f/$i.txt; done; done\n"
                  "sleep 0.2\n");
    }
    ~LinkScanOfHost() override { RunOnHost("chmod -R u+rwx Temp/Scan; rm -rf Temp/Scan"); }

    /// What the host says of "Goes" and the files beside it.
    void Begin() {
        scan_.AddTree(L"\\Temp\\Scan\\Goes");
        scan_.Begin();
    }
    void BeginAndWait() {
        Begin();
        WaitForAnswer(scan_);
    }
    static void WaitForAnswer(LinkScan& scan) {
        for (int tries = 0; tries < 1000 && !scan.HasAnswer(); ++tries)
            Sleep(10);
        ASSERT_TRUE(scan.HasAnswer());
    }
    bool IsNoLink(const std::wstring& below) { return scan_.IsNoLink((L"\\Temp\\Scan\\" + below).c_str()); }

    LinkScan scan_{L"\\Temp\\Scan"};
};

TEST_F(LinkScanOfHost, IsSureOfFilesWhereThereIsNoLink) {
    BeginAndWait();
    for (const wchar_t* file : {L"Goes\\One\\Deep\\1.txt", L"Goes\\One\\2.txt", L"Goes\\3.txt", L"1.txt"})
        EXPECT_TRUE(IsNoLink(file)) << file;
}

TEST_F(LinkScanOfHost, IsSureOfNothingBeforeTheAnswer) {
    EXPECT_FALSE(IsNoLink(L"Goes\\1.txt"));
    EXPECT_FALSE(scan_.HasAnswer());
}

TEST_F(LinkScanOfHost, SaysNothingOfWhatItWasNotToldOf) {
    BeginAndWait();
    EXPECT_FALSE(IsNoLink(L"Stays\\kept.txt")); // only the files right in the folder were looked at
    EXPECT_FALSE(IsNoLink(L"Goes too\\1.txt"));
    EXPECT_FALSE(scan_.IsNoLink(L"\\Temp\\1.txt"));
    EXPECT_FALSE(scan_.IsNoLink(L"\\1.txt"));
    EXPECT_FALSE(scan_.IsNoLink(L""));
}

TEST_F(LinkScanOfHost, IsSureOfNothingWhereALinkLies) {
    RunOnHost("ln -s ../../../Stays/kept.txt Temp/Scan/Goes/One/Deep/link.txt\n"
              "sleep 0.2\n");
    BeginAndWait();
    EXPECT_FALSE(IsNoLink(L"Goes\\One\\Deep\\link.txt"));
    EXPECT_FALSE(IsNoLink(L"Goes\\Two\\1.txt"));
}

TEST_F(LinkScanOfHost, SeesALinkBesideTheTreesAndATreeThatIsOne) {
    RunOnHost("ln -s Stays/kept.txt Temp/Scan/link.txt\n"
              "sleep 0.2\n");
    BeginAndWait();
    EXPECT_FALSE(IsNoLink(L"1.txt"));

    RunOnHost("rm Temp/Scan/link.txt; ln -s Goes Temp/Scan/Linked; ln -s ../Goes/Two Temp/Scan/Stays/Linked\n"
              "sleep 0.2\n");
    LinkScan ofLink(L"\\Temp\\Scan\\Goes");
    ofLink.AddTree(L"\\Temp\\Scan\\Stays\\Linked");
    ofLink.Begin();
    WaitForAnswer(ofLink);
    EXPECT_FALSE(ofLink.IsNoLink(L"\\Temp\\Scan\\Stays\\Linked\\1.txt"));
}

TEST_F(LinkScanOfHost, IsSureOfNothingWhereTheHostCannotLook) {
    RunOnHost("chmod 0 Temp/Scan/Goes/One/Deep");
    BeginAndWait();
    EXPECT_FALSE(IsNoLink(L"Goes\\Two\\1.txt"));
}

TEST_F(LinkScanOfHost, IsUnsureOfAFolderThatSomebodyHasChangedSince) {
    BeginAndWait();
    RunOnHost("ln -s ../../Stays/kept.txt Temp/Scan/Goes/One/1.link");
    EXPECT_FALSE(IsNoLink(L"Goes\\One\\1.link"));
    EXPECT_FALSE(IsNoLink(L"Goes\\One\\1.txt"));
    EXPECT_TRUE(IsNoLink(L"Goes\\Two\\1.txt"));
}

TEST_F(LinkScanOfHost, IsUnsureOfAllBelowAFolderThatWasMovedThere) {
    RunOnHost(
        "mkdir -p Temp/Scan/Stays/Moved/Deep; ln -s ../../kept.txt Temp/Scan/Stays/Moved/Deep/link.txt\n"
        "sleep 0.2\n");
    BeginAndWait();
    EXPECT_TRUE(IsNoLink(L"Goes\\One\\1.txt"));
    RunOnHost("mv Temp/Scan/Stays/Moved Temp/Scan/Goes/One/");
    EXPECT_FALSE(IsNoLink(L"Goes\\One\\Moved\\Deep\\link.txt"));
    EXPECT_FALSE(IsNoLink(L"Goes\\One\\Moved\\1.txt"));
}

TEST_F(LinkScanOfHost, IsUnsureOfAFolderThatWasChangedWhileTheJobWasBelowIt) {
    BeginAndWait();
    EXPECT_TRUE(IsNoLink(L"Goes\\One\\1.txt"));
    RunOnHost("ln -sf ../Stays/kept.txt Temp/Scan/Goes/3.txt; ln -sf Stays/kept.txt Temp/Scan/3.txt");
    EXPECT_TRUE(IsNoLink(L"Goes\\One\\2.txt"));
    EXPECT_FALSE(IsNoLink(L"Goes\\3.txt"));
    EXPECT_FALSE(IsNoLink(L"3.txt"));
}

TEST_F(LinkScanOfHost, IsNotDeceivedByATimeThatWasSetBack) {
    BeginAndWait();
    RunOnHost(
        "ln -s ../../Stays/kept.txt Temp/Scan/Goes/One/1.link; touch -d '1 hour ago' Temp/Scan/Goes/One");
    EXPECT_FALSE(IsNoLink(L"Goes\\One\\1.link"));
}

TEST_F(LinkScanOfHost, LooksAtTreesOfTheRoot) {
    LinkScan ofRoot(L"");
    ofRoot.AddTree(L"\\Temp\\Scan");
    ofRoot.Begin();
    WaitForAnswer(ofRoot);
    EXPECT_TRUE(ofRoot.IsNoLink(L"\\Temp\\Scan\\1.txt"));
    EXPECT_FALSE(ofRoot.IsNoLink(L"\\Scan.txt"));
}

TEST_F(LinkScanOfHost, IsUnsureOfAFolderThatLiesInAnotherOneNow) {
    RunOnHost("mkdir -p Temp/Scan/Other/One/Deep\n"
              "ln -s ../../Stays/kept.txt Temp/Scan/Other/One/1.txt\n"
              "ln -s ../../../Stays/kept.txt Temp/Scan/Other/One/Deep/1.txt\n"
              "sleep 0.2\n");
    const std::wstring folder = L"\\Temp\\Scan\\Goes\\One";
    const std::wstring tree = folder + L"\\Deep";
    LinkScan unmoved(folder.c_str()), ofFolder(folder.c_str()), ofTree(L"");
    for (LinkScan* scan : {&unmoved, &ofFolder, &ofTree}) {
        scan->AddTree(tree.c_str());
        scan->Begin();
        WaitForAnswer(*scan);
    }
    EXPECT_TRUE(unmoved.IsNoLink((folder + L"\\1.txt").c_str()));
    EXPECT_TRUE(unmoved.IsNoLink((tree + L"\\1.txt").c_str()));
    // Neither "One" nor "Deep" changes with this.
    RunOnHost("cd Temp/Scan; mv Goes Gone; mv Other Goes");
    EXPECT_FALSE(ofFolder.IsNoLink((folder + L"\\1.txt").c_str()));
    EXPECT_FALSE(ofFolder.IsNoLink((tree + L"\\1.txt").c_str()));
    EXPECT_FALSE(ofTree.IsNoLink((tree + L"\\1.txt").c_str()));
}

TEST_F(LinkScanOfHost, DoesNotLookUnderANameThatTheHostCannotBeTold) {
    RunOnHost(
        "d=Temp/Scan/Goes/$(printf 'A\\351'); mkdir \"$d\"; ln -s ../../Stays/kept.txt \"$d/link.txt\"\n"
        "sleep 0.2\n");
    WIN32_FIND_DATAW found{};
    const HANDLE find = FindFirstFileW(L"\\Temp\\Scan\\Goes\\A*", &found);
    ASSERT_NE(find, INVALID_HANDLE_VALUE);
    FindClose(find);
    const std::wstring folder = std::wstring(L"\\Temp\\Scan\\Goes\\") + found.cFileName;
    ce::RemovalSeries series(L"\\Temp\\Scan\\Goes");
    series.AddTree(folder.c_str());
    series.Begin();
    Sleep(500); // more than the host would need
    ce::DeleteFileW((folder + L"\\link.txt").c_str());
    EXPECT_TRUE(fs::exists(L"\\Temp\\Scan\\Stays\\kept.txt"));
}

TEST_F(LinkScanOfHost, StaysSureOfAFolderThatTheJobItselfHasChanged) {
    BeginAndWait();
    for (const wchar_t* folder : {L"Goes\\One\\Deep", L"Goes\\One", L"Goes"}) {
        const std::wstring path = std::wstring(L"\\Temp\\Scan\\") + folder;
        for (const wchar_t* name : {L"\\1.txt", L"\\2.txt", L"\\3.txt"}) {
            EXPECT_TRUE(scan_.IsNoLink((path + name).c_str())) << folder << name;
            EXPECT_TRUE(DeleteFileW((path + name).c_str()));
        }
        if (folder != std::wstring_view(L"Goes")) { // which is not empty yet
            EXPECT_TRUE(scan_.IsNoLink(path.c_str())) << folder;
            EXPECT_TRUE(RemoveDirectoryW(path.c_str()));
        }
    }
    EXPECT_TRUE(IsNoLink(L"1.txt"));
}

TEST_F(LinkScanOfHost, TakesWhatHasGoneMeanwhileForNoLink) {
    RunOnHost("rm -r Temp/Scan/Stays; sleep 0.2");
    scan_.AddTree(L"\\Temp\\Scan\\Stays");
    BeginAndWait();
    EXPECT_TRUE(IsNoLink(L"Goes\\Two\\1.txt"));
}

TEST_F(LinkScanOfHost, ASeriesOfDeletionsLeavesWhatALinkMadeMeanwhilePointsTo) {
    ce::RemovalSeries series(L"\\Temp\\Scan");
    series.AddTree(L"\\Temp\\Scan\\Goes");
    series.Begin();
    ASSERT_TRUE(ce::DeleteFileW(L"\\Temp\\Scan\\Goes\\Two\\1.txt"));
    Sleep(1000); // the host has answered long ago
    RunOnHost("ln -s ../../Stays/kept.txt Temp/Scan/Goes/One/link.txt");
    EXPECT_TRUE(ce::DeleteFileW(L"\\Temp\\Scan\\Goes\\One\\link.txt"));
    EXPECT_TRUE(ce::DeleteFileW(L"\\Temp\\Scan\\Goes\\Two\\2.txt"));
    RunOnHost("test ! -L Temp/Scan/Goes/One/link.txt; test ! -e Temp/Scan/Goes/Two/2.txt");
    EXPECT_TRUE(fs::exists(L"\\Temp\\Scan\\Stays\\kept.txt"));
}

TEST_F(LinkScanOfHost, ASeriesOfMovesMovesALinkMadeMeanwhileAsItStands) {
    ce::RemovalSeries series(L"\\Temp\\Scan");
    series.AddTree(L"\\Temp\\Scan\\Goes");
    series.Begin();
    Sleep(1000); // the host has answered long ago
    ASSERT_TRUE(ce::MoveFileW(L"\\Temp\\Scan\\Goes\\Two\\1.txt", L"\\Temp\\Scan\\Stays\\1.txt"));
    ASSERT_TRUE(ce::DeleteAndRenameFile(L"\\Temp\\Scan\\Stays\\1.txt", L"\\Temp\\Scan\\Goes\\Two\\2.txt"));
    EXPECT_FALSE(ce::MoveFileW(L"\\Temp\\Scan\\Goes\\Two\\3.txt", L"\\Temp\\Scan\\Stays\\1.txt"));
    RunOnHost("ln -s \"$PWD/Temp/Scan/Stays/kept.txt\" Temp/Scan/Goes/One/link.txt");
    EXPECT_TRUE(ce::MoveFileW(L"\\Temp\\Scan\\Goes\\One\\link.txt", L"\\Temp\\Scan\\Stays\\link.txt"));
    RunOnHost("test -L Temp/Scan/Stays/link.txt; test ! -e Temp/Scan/Goes/One/link.txt\n"
              "test ! -e Temp/Scan/Goes/Two/2.txt; test -e Temp/Scan/Goes/Two/3.txt");
    EXPECT_TRUE(fs::exists(L"\\Temp\\Scan\\Stays\\kept.txt"));
}

TEST_F(LinkScanOfHost, IsNotLedAstrayByWhatLiesOutside) {
    BeginAndWait();
    EXPECT_TRUE(IsNoLink(L"Goes\\One\\1.txt"));
    ASSERT_TRUE(DeleteFileW(L"\\Temp\\Scan\\Goes\\One\\1.txt"));
    EXPECT_FALSE(IsNoLink(L"Stays\\kept.txt"));
    EXPECT_TRUE(IsNoLink(L"Goes\\One\\2.txt"));
}

TEST_F(LinkScanOfHost, ASeriesOfMovesTrustsNoFolderThatIsCopiedFrom) {
    RunOnHost("disk=\"/dev/shm/$(basename \"$(dirname \"$TARVIK_WORK\")\")-scan\"\n"
              "mkdir -p \"$disk\"; ln -sfn \"$disk\" Temp/Scan/Stays/Disk\n"
              "sleep 0.2\n");
    ce::RemovalSeries series(L"\\Temp\\Scan");
    series.AddTree(L"\\Temp\\Scan\\Goes");
    series.Begin();
    Sleep(1000); // the host has answered long ago
    EXPECT_FALSE(ce::MoveFileW(L"\\Temp\\Scan\\Goes\\One\\1.txt", L"\\Temp\\Scan\\Stays\\Disk\\1.txt"));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NOT_SAME_DEVICE));
    RunOnHost("ln -sf ../../Stays/kept.txt Temp/Scan/Goes/One/2.txt");
    EXPECT_TRUE(ce::DeleteFileW(L"\\Temp\\Scan\\Goes\\One\\2.txt"));
    RunOnHost("test ! -L Temp/Scan/Goes/One/2.txt; rm -r \"$(readlink Temp/Scan/Stays/Disk)\"");
    EXPECT_TRUE(fs::exists(L"\\Temp\\Scan\\Stays\\kept.txt"));
}

} // namespace
