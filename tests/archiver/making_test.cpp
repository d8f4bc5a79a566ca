// Making archives: what goes in, and that the earlier archive lives until the new one does.

#include "tests/archiver/archiver_test.h"
#include "tests/support/text.h"

namespace {

using Texts = std::vector<std::wstring>;

class MakingArchives : public ArchiverTest, public testing::WithParamInterface<int> {
  protected:
    Kind kind = GetParam() == 0 ? Zip : Lha;

    /// What a call that must fail says.
    std::wstring Refusal(const std::wstring& commandLine) {
        const ArchiverAnswer answer = Call(kind, commandLine);
        EXPECT_NE(answer.result, 0) << Narrow(commandLine);
        return answer.text;
    }
};

INSTANTIATE_TEST_SUITE_P(ZipAndLha, MakingArchives, testing::Values(0, 1));

} // namespace

TEST_P(MakingArchives, NamesAreRelativeToTheBase) {
    device.File(L"\\A\\B\\Dir\\deep\\f.txt", "deep");
    device.File(L"\\A\\B\\g.txt", "g");
    device.Folder(L"\\A\\B\\Empty");
    Make(kind, L"\\x.bin", L"\\A\\B", {L"\\A\\B\\Dir\\*", L"\\A\\B\\g.txt", L"\\A\\B\\Empty\\*"});
    Extract(kind, L"\\x.bin", L"\\Out");
    EXPECT_EQ(device.NamesIn(L"\\Out"), (Texts{L"Dir", L"Empty", L"g.txt"}));
    EXPECT_EQ(device.Content(L"\\Out\\Dir\\deep\\f.txt"), "deep");
    EXPECT_TRUE(device.IsFolder(L"\\Out\\Empty"));
}

TEST_P(MakingArchives, FilesFromElsewhereKeepTheirPath) {
    device.File(L"\\One\\same.txt", "1");
    device.File(L"\\Two\\same.txt", "2");
    Make(kind, L"\\x.bin", L"File Search", {L"\\One\\same.txt", L"\\Two\\same.txt"});
    Extract(kind, L"\\x.bin", L"\\Out");
    EXPECT_EQ(device.Content(L"\\Out\\One\\same.txt"), "1");
    EXPECT_EQ(device.Content(L"\\Out\\Two\\same.txt"), "2");
}

TEST_P(MakingArchives, TheNewArchiveTakesTheEarlierOnesPlaceAndIsNotPartOfItself) {
    device.File(L"\\A\\f.txt", "f");
    device.File(L"\\A\\x.bin", "earlier");
    Make(kind, L"\\A\\x.bin", L"", {L"\\A\\*"});
    EXPECT_EQ(device.NamesIn(L"\\A"), (Texts{L"f.txt", L"x.bin"}));
    Extract(kind, L"\\A\\x.bin", L"\\Out");
    EXPECT_EQ(device.NamesIn(L"\\Out\\A"), (Texts{L"f.txt"}));
}

TEST_P(MakingArchives, TheEarlierArchiveStaysWhenTheNewOneFails) {
    device.File(L"\\A\\x.bin", "earlier");
    device.File(L"\\A\\f.txt", "f");
    device.File(L"\\A\\held.txt", "held");
    const HeldFile held = device.Hold(L"\\A\\held.txt");
    EXPECT_NE(Refusal(L"a \"\\A\\x.bin\" \"\\\" \"\\A\\*\" ").find(L"held.txt"), std::wstring::npos);
    EXPECT_EQ(device.Content(L"\\A\\x.bin"), "earlier");
    EXPECT_EQ(device.NamesIn(L"\\A"), (Texts{L"f.txt", L"held.txt", L"x.bin"}));
}

TEST_P(MakingArchives, WhatCannotBeReplacedIsSaid) {
    device.File(L"\\f.txt", "f");
    device.File(L"\\x.bin", "earlier");
    device.SetAttributes(L"\\x.bin", FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Refusal(L"a \"\\x.bin\" \"\\\" \"\\f.txt\" "), L"'E:\\x.bin' is read-only.");
    device.Folder(L"\\d");
    EXPECT_EQ(Refusal(L"a \"\\d\" \"\\\" \"\\f.txt\" "), L"'E:\\d' is a folder.");
    EXPECT_FALSE(Refusal(L"a \"\\none\\x.bin\" \"\\\" \"\\f.txt\" ").empty());
    EXPECT_FALSE(Refusal(L"a \"\\y.bin\" \"\\\" \"\\none.txt\" ").empty());
    EXPECT_FALSE(device.Exists(L"\\y.bin"));
}

TEST_P(MakingArchives, LinksOfTheHostAreNotFollowed) {
    device.File(L"\\A\\f.txt", "f");
    device.HostFile("B/secret.txt", "secret");
    device.HostLink("A/folder", "../B");
    device.HostLink("A/file.txt", "../B/secret.txt");
    device.HostLink("A/loop", ".");
    const ArchiverAnswer answer = Call(kind, L"a \"\\x.bin\" \"\\\" \"\\A\\*\" ");
    EXPECT_EQ(answer.result, 0);
    EXPECT_EQ(answer.text, L"1 file was compressed.\nLinks left out: 3.");
    Extract(kind, L"\\x.bin", L"\\Out");
    EXPECT_EQ(device.NamesIn(L"\\Out\\A"), (Texts{L"f.txt"}));
    EXPECT_EQ(Refusal(L"a \"\\y.bin\" \"\\A\\\" \"\\A\\file.txt\" "),
              L"'E:\\A\\file.txt' is a link, and links are not followed.");
    EXPECT_FALSE(device.Exists(L"\\y.bin"));
}

TEST_P(MakingArchives, AStorageCardIsEntered) {
    device.StorageCard("Card", {"a.txt"});
    Make(kind, L"\\Card\\x.bin", L"", {L"\\Card\\*"});
    Extract(kind, L"\\Card\\x.bin", L"\\Card\\Out");
    EXPECT_TRUE(device.Exists(L"\\Card\\Out\\Card\\a.txt"));
    device.RemoveStorageCard("Card");
}

TEST_P(MakingArchives, PathsMayBeOfAnyLength) {
    RunOnHost(R"sh(
part=0123456789012345678901234567890123456789; deep=In
for i in 1 2 3 4 5 6 7 8 9 10 11 12; do deep=$deep/$part$i; done
mkdir -p $deep; echo deep >$deep/f.txt)sh");
    Make(kind, L"\\x.bin", L"", {L"\\In\\*"});
    Extract(kind, L"\\x.bin", L"\\Out");
    RunOnHost("diff -r In Out/In");
}

TEST_P(MakingArchives, FoldersMayBeOfAnyDepth) {
    RunOnHost("deep=In; i=0; while [ $i -lt 150 ]; do deep=$deep/d; i=$((i+1)); done; mkdir -p "
              "$deep; echo deep >$deep/f.txt");
    Make(kind, L"\\x.bin", L"", {L"\\In\\*"});
    Extract(kind, L"\\x.bin", L"\\Out");
    RunOnHost("diff -r In Out/In");
}

TEST_P(MakingArchives, ManyFilesFit) {
    device.Files(L"\\In", L"f", 300);
    Make(kind, L"\\x.bin", L"", {L"\\In\\*"});
    Extract(kind, L"\\x.bin", L"\\Out");
    EXPECT_EQ(device.NamesIn(L"\\Out\\In").size(), 300u);
}
