// Extracting archives onto what is there already, and calls that are none.

#include "tests/archiver/archiver_test.h"
#include "tests/support/text.h"

namespace {

using Texts = std::vector<std::wstring>;

class ExtractingArchives : public ArchiverTest, public testing::WithParamInterface<int> {
  protected:
    Kind kind = GetParam() == 0 ? Zip : Lha;

    /// An archive \x.bin of \In with f.txt, Dir\g.txt and h.txt.
    void MakeSample() {
        device.File(L"\\In\\f.txt", "new f");
        device.File(L"\\In\\Dir\\g.txt", "new g");
        device.File(L"\\In\\h.txt", "new h");
        Make(kind, L"\\x.bin", L"\\In", {L"\\In\\f.txt", L"\\In\\Dir\\*", L"\\In\\h.txt"});
    }
};

INSTANTIATE_TEST_SUITE_P(ZipAndLha, ExtractingArchives, testing::Values(0, 1));

} // namespace

TEST_P(ExtractingArchives, SaysHowManyFilesThereWere) {
    MakeSample();
    const ArchiverAnswer answer = TryToExtract(kind, L"\\x.bin", L"\\Out\\Made\\On the way");
    EXPECT_EQ(answer.result, 0);
    EXPECT_EQ(answer.text, L"3 files were extracted.");
    EXPECT_EQ(device.NamesIn(L"\\Out\\Made\\On the way"), (Texts{L"Dir", L"f.txt", L"h.txt"}));
}

TEST_P(ExtractingArchives, NewFilesTakeThePlaceOfEarlierOnes) {
    MakeSample();
    device.File(L"\\Out\\f.txt", "earlier and longer");
    device.File(L"\\Out\\Dir\\other.txt", "other");
    Extract(kind, L"\\x.bin", L"\\Out");
    EXPECT_EQ(device.Content(L"\\Out\\f.txt"), "new f");
    EXPECT_EQ(device.NamesIn(L"\\Out\\Dir"), (Texts{L"g.txt", L"other.txt"}));
}

TEST_P(ExtractingArchives, WhatIsInTheWayIsKeptAndTheRestExtracted) {
    MakeSample();
    device.File(L"\\Out\\f.txt", "earlier");
    device.SetAttributes(L"\\Out\\f.txt", FILE_ATTRIBUTE_READONLY);
    device.File(L"\\Out\\Dir", "a file");
    const ArchiverAnswer answer = TryToExtract(kind, L"\\x.bin", L"\\Out");
    EXPECT_NE(answer.result, 0);
    EXPECT_NE(answer.text.find(L"1 of 3 files were extracted.\n"), std::wstring::npos) << Narrow(answer.text);
    EXPECT_NE(answer.text.find(L"'f.txt' was left out: a read-only file of that name is in its way."),
              std::wstring::npos)
        << Narrow(answer.text);
    EXPECT_EQ(device.Content(L"\\Out\\f.txt"), "earlier");
    EXPECT_EQ(device.Content(L"\\Out\\Dir"), "a file");
    EXPECT_EQ(device.Content(L"\\Out\\h.txt"), "new h");
    EXPECT_EQ(device.NamesIn(L"\\Out"), (Texts{L"Dir", L"f.txt", L"h.txt"}));
}

TEST_P(ExtractingArchives, AFolderInAFilesWayIsKept) {
    MakeSample();
    device.File(L"\\Out\\f.txt\\inside", "inside");
    EXPECT_NE(TryToExtract(kind, L"\\x.bin", L"\\Out").text.find(L"a folder of that name is in its way"),
              std::wstring::npos);
    EXPECT_EQ(device.Content(L"\\Out\\f.txt\\inside"), "inside");
}

TEST_P(ExtractingArchives, NothingGoesThroughALinkInTheTarget) {
    MakeSample();
    device.HostFile("Elsewhere/f.txt", "elsewhere");
    device.HostLink("Out/Dir", "../Elsewhere");
    device.HostLink("Out/f.txt", "../Elsewhere/f.txt");
    const ArchiverAnswer answer = TryToExtract(kind, L"\\x.bin", L"\\Out");
    EXPECT_NE(answer.result, 0);
    EXPECT_NE(answer.text.find(L"the folder 'Dir' is a link"), std::wstring::npos) << Narrow(answer.text);
    EXPECT_EQ(device.NamesIn(L"\\Elsewhere"), (Texts{L"f.txt"}));
    EXPECT_EQ(device.Content(L"\\Elsewhere\\f.txt"), "elsewhere");
}

TEST_P(ExtractingArchives, AHeldFileIsLeftOutAndSaid) {
    MakeSample();
    device.File(L"\\Out\\f.txt", "earlier");
    {
        const HeldFile held = device.Hold(L"\\Out\\f.txt");
        const ArchiverAnswer answer = TryToExtract(kind, L"\\x.bin", L"\\Out");
        EXPECT_NE(answer.result, 0);
        EXPECT_NE(answer.text.find(L"2 of 3 files were extracted."), std::wstring::npos)
            << Narrow(answer.text);
    }
    EXPECT_EQ(device.Content(L"\\Out\\f.txt"), "earlier");
    EXPECT_EQ(device.NamesIn(L"\\Out"), (Texts{L"Dir", L"f.txt", L"h.txt"}));
}

TEST_P(ExtractingArchives, MissingAndWrongArchivesAreSaid) {
    EXPECT_NE(TryToExtract(kind, L"\\none.zip", L"\\Out").text, L"");
    EXPECT_NE(TryToExtract(kind, L"\\Windows", L"\\Out").text, L"");
    device.File(L"\\f.txt", "f");
    Make(kind == Zip ? Lha : Zip, L"\\x.bin", L"", {L"\\f.txt"});
    const ArchiverAnswer answer = TryToExtract(kind, L"\\x.bin", L"\\Out");
    EXPECT_NE(answer.result, 0);
    EXPECT_EQ(answer.text, kind == Zip ? L"The file is not a ZIP archive, or is damaged."
                                       : L"The file is not an LHA archive, or is damaged.");
}

TEST_P(ExtractingArchives, AFullDiskEndsTheWorkAndLeavesNoPart) {
    try {
        RunOnHost("mkdir -p \"$TARVIK_WORK/small\"\n"
                  "mount -t tmpfs -o size=3m tmpfs \"$TARVIK_WORK/small\" 2>/dev/null");
    } catch (const std::exception&) {
        GTEST_SKIP() << "only the superuser can mount a small disk";
    }
    RunOnHost("ln -s \"$TARVIK_WORK/small\" Small\nhead -c 2500000 /dev/urandom >f.bin");
    Make(kind, L"\\x.bin", L"", {L"\\f.bin"});
    // Too little even before it is begun: 1 MB stays free.
    const ArchiverAnswer refused = TryToExtract(kind, L"\\x.bin", L"\\Small");
    EXPECT_NE(refused.result, 0);
    EXPECT_EQ(refused.text, L"The archive needs 2441 KB, and only 3072 KB are free.");
    EXPECT_TRUE(device.NamesIn(L"\\Small").empty());
    // An archive does not fit either.
    device.File(L"\\Small\\filler", std::string(1'500'000, 'f'));
    const ArchiverAnswer answer = Call(kind, L"a \"\\Small\\y.bin\" \"\\\" \"\\f.bin\" ");
    EXPECT_NE(answer.result, 0);
    EXPECT_NE(answer.text.find(L"full"), std::wstring::npos) << Narrow(answer.text);
    EXPECT_EQ(device.NamesIn(L"\\Small"), Texts{L"filler"});
    RunOnHost("rm Small\numount \"$TARVIK_WORK/small\"");
}

TEST_P(ExtractingArchives, CallsThatAreNoneDoNothing) {
    const ArchiverEntry entry = EntryOfArchiver(kind == Zip ? "UnZip" : "Unlha");
    wchar_t text[1024] = {};
    EXPECT_NE(entry(nullptr, nullptr, text, sizeof(text)), 0);
    EXPECT_EQ(std::wstring(text), L"This is not a command of the archiver.");
    EXPECT_NE(entry(nullptr, nullptr, nullptr, 0), 0);
    EXPECT_NE(entry(nullptr, L"e \"\\none.zip\" \"\\Out\\\"", nullptr, 2048), 0);
    EXPECT_NE(entry(nullptr, L"e \"\\none.zip\" \"\\Out\\\"", text, 0), 0);
    wchar_t small[4] = {L'#', L'#', L'#', L'#'};
    EXPECT_NE(entry(nullptr, L"", small, 6), 0);
    EXPECT_EQ(std::wstring(small, 4), std::wstring(L"Th\0#", 4));
    EXPECT_NE(Call(kind, L"e \"" + std::wstring(100000, L'x') + L"\" \"\\Out\\\"").result, 0);
    EXPECT_NE(Call(kind, L"e \"\\<|>\" \"\\?*\\\"").result, 0);
}
