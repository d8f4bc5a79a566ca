// Making archives: what goes in, and that the earlier archive lives until the new one does.

#include "tests/archiver/archiver_test.h"
#include "tests/support/text.h"
#include "tests/support/waiting.h"

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

    /// What the user is told in a window of the archiver's although the call goes well.
    std::wstring ToldOf(const std::wstring& commandLine) {
        std::wstring told;
        {
            User user([&told] {
                WaitFor("for a message", [] { return !MessageBoxesOf(GetCurrentProcessId()).empty(); });
                MessageBoxShown box(MessageBoxesOf(GetCurrentProcessId()).front());
                told = box.Text();
                box.Answer(IDOK);
            });
            const ArchiverAnswer answer = Call(kind, commandLine);
            EXPECT_EQ(answer.result, 0) << Narrow(answer.text);
            EXPECT_FALSE(answer.text.empty());
        }
        return told;
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
    EXPECT_EQ(Refusal(L"a \"\\x.bin\" \"\\\" \"\\f.txt\" "), L"'\\x.bin' is read-only.");
    device.Folder(L"\\d");
    EXPECT_EQ(Refusal(L"a \"\\d\" \"\\\" \"\\f.txt\" "), L"'\\d' is a folder.");
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
    // Met below a folder or named themselves: they are left out, and that is told once.
    EXPECT_EQ(ToldOf(L"a \"\\x.bin\" \"\\\" \"\\A\\*\" "),
              L"1 file was compressed.\n'A/folder' and 2 more were left out: links are not followed.");
    Extract(kind, L"\\x.bin", L"\\Out");
    EXPECT_EQ(device.NamesIn(L"\\Out\\A"), (Texts{L"f.txt"}));
    EXPECT_EQ(ToldOf(L"a \"\\y.bin\" \"\\A\\\" \"\\A\\f.txt\" \"\\A\\file.txt\" \"\\A\\folder\\*\" "),
              L"1 file was compressed.\n'folder' and 1 more were left out: links are not followed.");
    EXPECT_EQ(Refusal(L"a \"\\z.bin\" \"\\A\\\" \"\\A\\file.txt\" "),
              L"There is nothing to compress.\n'file.txt' was left out: links are not followed.");
    EXPECT_FALSE(device.Exists(L"\\z.bin"));
}

TEST_P(MakingArchives, WhatCouldNotBeExtractedAgainIsLeftOut) {
    device.File(L"\\A\\f.txt", "f");
    device.HostFile("A/aux.txt", "device");
    RunOnHost("deep=A; for i in 1 2 3 4 5 6; do deep=$deep/0123456789012345678901234567890123456789012345; "
              "done; mkdir -p $deep; echo deep >$deep/deep.txt");
    const std::wstring told = ToldOf(L"a \"\\x.bin\" \"\\\" \"\\A\\*\" ");
    EXPECT_TRUE(told.starts_with(L"1 file was compressed.\n")) << Narrow(told);
    EXPECT_NE(told.find(L"...' was left out: the path is longer than the device can have."),
              std::wstring::npos)
        << Narrow(told);
    EXPECT_NE(told.find(L"'A/aux.txt' was left out: the name is a device's."), std::wstring::npos)
        << Narrow(told);
    Extract(kind, L"\\x.bin", L"\\Out");
    EXPECT_TRUE(device.Exists(L"\\Out\\A\\f.txt"));
}

/// Two names that look alike, one that means another file, and a pipe that somebody keeps open.
TEST_P(MakingArchives, WhatNoPathLeadsToIsLeftOut) {
    device.File(L"\\A\\f.txt", "f");
    device.HostFile("A/a\\f.txt", "other");
    device.HostFile("A/bad\xFF", "bad");
    device.HostFile("A/bad\xFE", "worse");
    RunOnHost("mkdir A/a; echo elsewhere >A/a/f.txt; mkfifo A/pipe\n"
              "sh -c 'exec 3<>A/pipe; exec sleep 30' >/dev/null 2>&1 </dev/null &");
    EXPECT_EQ(
        ToldOf(L"a \"\\x.bin\" \"\\\" \"\\A\\*\" "),
        L"2 files were compressed.\n'a\\f.txt' and 2 more were left out: the device cannot open files by "
        L"such names.\n'A/pipe' was left out: pipes and devices are not packed.");
    EXPECT_EQ(ToldOf(L"a \"\\y.bin\" \"\\A\\\" \"\\A\\f.txt\" \"\\A\\pipe\" "),
              L"1 file was compressed.\n'pipe' was left out: pipes and devices are not packed.");
    Extract(kind, L"\\x.bin", L"\\Out");
    EXPECT_EQ(device.NamesIn(L"\\Out\\A"), (Texts{L"a", L"f.txt"}));
    EXPECT_EQ(device.Content(L"\\Out\\A\\a\\f.txt"), "elsewhere\n");
}

TEST_P(MakingArchives, FilesOfTwoCardsAreNotTakenForOneAnother) {
    // Both cards number their files from the same number on, as fresh file systems do.
    try {
        RunOnHost("for n in 1 2; do mkdir -p \"$TARVIK_WORK/card$n\"\n"
                  "mount -t tmpfs -o size=1m tmpfs \"$TARVIK_WORK/card$n\" 2>/dev/null; done");
    } catch (const std::exception&) {
        GTEST_SKIP() << "only the superuser can mount cards";
    }
    RunOnHost("ln -s \"$TARVIK_WORK/card1\" One; ln -s \"$TARVIK_WORK/card2\" Two\n"
              "echo archive >One/x.bin; echo source >Two/f.txt\n"
              "test $(stat -Lc %i One/x.bin) = $(stat -Lc %i Two/f.txt)");
    Make(kind, L"\\One\\x.bin", L"", {L"\\Two\\f.txt"});
    Extract(kind, L"\\One\\x.bin", L"\\Out");
    EXPECT_TRUE(device.Exists(L"\\Out\\Two\\f.txt"));
    RunOnHost("rm One Two; umount \"$TARVIK_WORK/card1\" \"$TARVIK_WORK/card2\"");
}

TEST_P(MakingArchives, AStorageCardIsEntered) {
    device.StorageCard("Card", {"a.txt"});
    Make(kind, L"\\Card\\x.bin", L"", {L"\\Card\\*"});
    Extract(kind, L"\\Card\\x.bin", L"\\Card\\Out");
    EXPECT_TRUE(device.Exists(L"\\Card\\Out\\Card\\a.txt"));
    device.RemoveStorageCard("Card");
}

TEST_P(MakingArchives, PathsMayBeAsLongAsTheDeviceCanHave) {
    RunOnHost(
        "deep=; i=0; while [ $i -lt 60 ]; do deep=$deep/ddd; i=$((i+1)); done; mkdir -p I$deep; "
        "echo deep >I$deep/012345678901.txt; test $(find I -name '0*.txt' | wc -c) = 259"); // a line break
                                                                                            // for the
                                                                                            // backslash in
                                                                                            // front
    Make(kind, L"\\x.bin", L"", {L"\\I\\*"});
    RunOnHost("mv I In");
    Extract(kind, L"\\x.bin", L"");
    RunOnHost("diff -r In I");
}

TEST_P(MakingArchives, FoldersAreExtractedUpToADepth) {
    RunOnHost("deep=I; i=0; while [ $i -lt 110 ]; do deep=$deep/d; i=$((i+1)); done; mkdir -p $deep");
    Make(kind, L"\\x.bin", L"", {L"\\I\\*"});
    const ArchiverAnswer answer = TryToExtract(kind, L"\\x.bin", L"\\O");
    EXPECT_NE(answer.result, 0);
    EXPECT_NE(answer.text.find(L" and 9 more were left out: more than 100 folders deep."), std::wstring::npos)
        << Narrow(answer.text);
}

TEST_P(MakingArchives, ManyFilesFit) {
    device.Files(L"\\In", L"f", 300);
    Make(kind, L"\\x.bin", L"", {L"\\In\\*"});
    Extract(kind, L"\\x.bin", L"\\Out");
    EXPECT_EQ(device.NamesIn(L"\\Out\\In").size(), 300u);
}
