// Extracting archives onto what is there already, and calls that are none.

#include "companions/archiver/window/resource.h"
#include "resources/resource.h"
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

TEST_P(ExtractingArchives, BeforeAFileIsReplacedTheUserIsAsked) {
    MakeSample();
    device.File(L"\\Out\\f.txt", "earlier and longer");
    device.SetWriteTime(L"\\Out\\f.txt", SYSTEMTIME{2005, 7, 0, 8, 9, 10, 12, 0});
    device.File(L"\\Out\\h.txt", "mine");
    device.File(L"\\Out\\Dir\\other.txt", "other");
    User user({IDM_ANSWER_YES, IDM_ANSWER_NO});
    const ArchiverAnswer answer = TryToExtract(kind, L"\\x.bin", L"\\Out");
    EXPECT_EQ(answer.result, 0) << Narrow(answer.text);
    EXPECT_EQ(device.Content(L"\\Out\\f.txt"), "new f");
    EXPECT_EQ(device.Content(L"\\Out\\h.txt"), "mine");
    EXPECT_EQ(device.NamesIn(L"\\Out\\Dir"), (Texts{L"g.txt", L"other.txt"}));
    const Texts first = user.Questions().at(0);
    ASSERT_EQ(first.size(), 7u);
    EXPECT_EQ(first[0], L"this file 'f.txt' already exists.");
    EXPECT_EQ(first[2], L"Size : 18 bytes");
    EXPECT_TRUE(first[3].starts_with(L"Modified : 7/8/2005 ")) << Narrow(first[3]);
    EXPECT_EQ(first[5], L"Size : 5 bytes");
    EXPECT_EQ(user.Questions().at(1).at(0), L"this file 'h.txt' already exists.");
}

TEST_P(ExtractingArchives, AnAnswerForAllIsAskedForOnce) {
    MakeSample();
    for (const int answer : {IDM_ANSWER_ALL, IDM_ANSWER_NONE}) {
        for (const wchar_t* name : {L"\\Out\\f.txt", L"\\Out\\Dir\\g.txt", L"\\Out\\h.txt"})
            device.File(name, "mine");
        User user({answer});
        EXPECT_EQ(TryToExtract(kind, L"\\x.bin", L"\\Out").result, 0);
        const bool replaced = answer == IDM_ANSWER_ALL;
        EXPECT_EQ(device.Content(L"\\Out\\f.txt"), replaced ? "new f" : "mine");
        EXPECT_EQ(device.Content(L"\\Out\\Dir\\g.txt"), replaced ? "new g" : "mine");
        EXPECT_EQ(device.Content(L"\\Out\\h.txt"), replaced ? "new h" : "mine");
    }
}

TEST_P(ExtractingArchives, CancelEndsTheWorkAndSaysWhatHasComeOut) {
    MakeSample();
    device.File(L"\\Out\\h.txt", "mine");
    User user({IDM_ANSWER_CANCEL});
    const ArchiverAnswer answer = TryToExtract(kind, L"\\x.bin", L"\\Out");
    EXPECT_NE(answer.result, 0);
    EXPECT_EQ(answer.text, L"Canceled: 2 of 3 files were extracted.");
    EXPECT_EQ(device.Content(L"\\Out\\h.txt"), "mine");
    EXPECT_EQ(device.NamesIn(L"\\Out"), (Texts{L"Dir", L"f.txt", L"h.txt"}));
}

TEST_P(ExtractingArchives, AReadOnlyFileIsReplacedLikeAnyOther) {
    MakeSample();
    device.File(L"\\Out\\f.txt", "earlier");
    device.SetAttributes(L"\\Out\\f.txt", FILE_ATTRIBUTE_READONLY);
    {
        User user({IDM_ANSWER_NO});
        Extract(kind, L"\\x.bin", L"\\Out");
        EXPECT_EQ(user.Questions().at(0).at(0), L"this READ-ONLY file 'f.txt' already exists.");
    }
    EXPECT_EQ(device.Content(L"\\Out\\f.txt"), "earlier");
    EXPECT_NE(device.Attributes(L"\\Out\\f.txt") & FILE_ATTRIBUTE_READONLY, 0u);
    User user({IDM_ANSWER_ALL});
    Extract(kind, L"\\x.bin", L"\\Out");
    EXPECT_EQ(device.Content(L"\\Out\\f.txt"), "new f");
}

TEST_P(ExtractingArchives, AFileInAFoldersWayIsKeptAndTheRestExtracted) {
    MakeSample();
    device.File(L"\\Out\\Dir", "a file");
    const ArchiverAnswer answer = TryToExtract(kind, L"\\x.bin", L"\\Out");
    EXPECT_NE(answer.result, 0);
    EXPECT_TRUE(answer.text.starts_with(L"2 of 3 files were extracted.\n")) << Narrow(answer.text);
    EXPECT_NE(answer.text.find(L"and 1 more were left out: a file is where the folder 'Dir' should be."),
              std::wstring::npos)
        << Narrow(answer.text);
    EXPECT_EQ(device.Content(L"\\Out\\Dir"), "a file");
    EXPECT_EQ(device.NamesIn(L"\\Out"), (Texts{L"Dir", L"f.txt", L"h.txt"}));
}

TEST_P(ExtractingArchives, AFolderInAFilesWayIsKept) {
    MakeSample();
    device.File(L"\\Out\\f.txt\\inside", "inside");
    EXPECT_NE(TryToExtract(kind, L"\\x.bin", L"\\Out").text.find(L"a folder of that name is in the way"),
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
    EXPECT_NE(answer.text.find(L"'f.txt' was left out: a link of that name is in the way."),
              std::wstring::npos)
        << Narrow(answer.text);
    EXPECT_EQ(device.NamesIn(L"\\Elsewhere"), (Texts{L"f.txt"}));
    EXPECT_EQ(device.Content(L"\\Elsewhere\\f.txt"), "elsewhere");
}

TEST_P(ExtractingArchives, TheFolderNamedLikeTheArchiveIsNoLink) {
    MakeSample();
    device.HostFile("Elsewhere/f.txt", "elsewhere");
    device.HostFolder("Docs");
    device.HostLink("Docs/x", "../Elsewhere");
    RunOnHost("mv x.bin Docs/x.zip");
    const ArchiverAnswer answer = TryToExtract(kind, L"\\Docs\\x.zip", L"\\Docs\\x");
    EXPECT_NE(answer.result, 0);
    EXPECT_EQ(answer.text, L"The folder 'x' is a link.");
    EXPECT_EQ(device.NamesIn(L"\\Elsewhere"), (Texts{L"f.txt"}));
    EXPECT_EQ(device.Content(L"\\Elsewhere\\f.txt"), "elsewhere");
}

TEST_P(ExtractingArchives, AHeldFileIsLeftOutAndSaid) {
    MakeSample();
    device.File(L"\\Out\\f.txt", "earlier");
    {
        const HeldFile held = device.Hold(L"\\Out\\f.txt");
        User user({IDM_ANSWER_YES});
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
    Extract(kind, L"\\x.bin", L"\\Out"); // its content tells what it is
    EXPECT_EQ(device.Content(L"\\Out\\f.txt"), "f");
    device.File(L"\\text.bin", "This is no archive.");
    const ArchiverAnswer answer = TryToExtract(kind, L"\\text.bin", L"\\Out");
    EXPECT_NE(answer.result, 0);
    EXPECT_EQ(answer.text, kind == Zip ? L"The file is not a ZIP archive, or is damaged."
                                       : L"The file is not an LHA archive, or is damaged.");
}

TEST_P(ExtractingArchives, AnEmptyArchiveIsCalledEmpty) {
    device.File(L"\\x.bin",
                kind == Zip ? std::string("PK\5\6") + std::string(18, '\0') : std::string(1, '\0'));
    EXPECT_EQ(TryToExtract(kind, L"\\x.bin", L"\\Out").text, L"The archive is empty.");
    device.File(L"\\nothing.bin");
    EXPECT_EQ(TryToExtract(kind, L"\\nothing.bin", L"\\Out").text, L"The archive is empty.");
}

TEST_P(ExtractingArchives, AFullDiskEndsTheWorkAndLeavesNoPart) {
    try {
        RunOnHost("mkdir -p \"$TARVIK_WORK/small\"\n"
                  "mount -t tmpfs -o size=3m tmpfs \"$TARVIK_WORK/small\" 2>/dev/null");
    } catch (const std::exception&) {
        GTEST_SKIP() << "only the superuser can mount a small disk";
    }
    RunOnHost("ln -s \"$TARVIK_WORK/small\" Small\nhead -c 3500000 /dev/urandom >f.bin\n"
              "head -c 1000000 /dev/urandom >a.bin; head -c 1500000 /dev/urandom >b.bin");
    Make(kind, L"\\x.bin", L"", {L"\\f.bin"});
    // Too little even before it is begun.
    const ArchiverAnswer refused = TryToExtract(kind, L"\\x.bin", L"\\Small");
    EXPECT_NE(refused.result, 0);
    EXPECT_EQ(refused.text, L"The archive needs 3418 KB, and only 3072 KB are free.");
    EXPECT_TRUE(device.NamesIn(L"\\Small").empty());
    // An archive does not fit either.
    const ArchiverAnswer answer = Call(kind, L"a \"\\Small\\y.bin\" \"\\\" \"\\f.bin\" ");
    EXPECT_NE(answer.result, 0);
    EXPECT_EQ(answer.text, L"'\\Small\\y.bin' cannot be written: the disk is full.");
    EXPECT_TRUE(device.NamesIn(L"\\Small").empty());
    // Somebody else fills the disk in the middle.
    Make(kind, L"\\y.bin", L"", {L"\\a.bin", L"\\b.bin"});
    device.File(L"\\Small\\b.bin", "mine");
    User user([this] {
        Dialog question = WaitForArchiverDialog(L"Replace existing File?");
        device.File(L"\\Small\\filler", std::string(1'200'000, 'f'));
        question.Command(IDM_ANSWER_YES);
    });
    const ArchiverAnswer partly = TryToExtract(kind, L"\\y.bin", L"\\Small");
    EXPECT_NE(partly.result, 0);
    EXPECT_EQ(partly.text,
              L"1 of 2 files were extracted.\nThen '\\Small\\b.bin' cannot be written: the disk is full.");
    EXPECT_EQ(device.NamesIn(L"\\Small"), (Texts{L"a.bin", L"b.bin", L"filler"}));
    EXPECT_EQ(device.Content(L"\\Small\\b.bin"), "mine");
    RunOnHost("cmp a.bin Small/a.bin\nrm Small\numount \"$TARVIK_WORK/small\"");
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

TEST_F(ArchiverTest, MembersOfOneNameAreToldApart) {
    RunOnHost("/usr/bin/python3 -W ignore - <<'END'\n"
              "import zipfile\n"
              "with zipfile.ZipFile('x.zip', 'w') as archive:\n"
              "    for number, name in enumerate(['a.txt', 'A.TXT', 'a.txt', 'b.txt']):\n"
              "        archive.writestr(name, str(number))\n"
              "END");
    const ArchiverAnswer answer = TryToExtract(Zip, L"\\x.zip", L"\\Out");
    EXPECT_NE(answer.result, 0);
    EXPECT_EQ(answer.text, L"2 of 4 files were extracted.\n'A.TXT' and 1 more were left out: another file of "
                           L"the archive has that name.");
    EXPECT_EQ(device.NamesIn(L"\\Out"), (Texts{L"a.txt", L"b.txt"}));
    EXPECT_EQ(device.Content(L"\\Out\\a.txt"), "0");
}

TEST_F(ArchiverTest, APathThatIsTooLongForTheDeviceIsLeftOut) {
    RunOnHost("/usr/bin/python3 - <<'END'\n"
              "import zipfile\n"
              "with zipfile.ZipFile('x.zip', 'w') as archive:\n"
              "    for length in 254, 255:\n" // with \Out\ before it 259 and 260
              "        archive.writestr('d' * 100 + '/' + 'f' * (length - 101), 'text')\n"
              "END");
    const ArchiverAnswer answer = TryToExtract(Zip, L"\\x.zip", L"\\Out");
    EXPECT_NE(answer.result, 0);
    EXPECT_TRUE(answer.text.starts_with(L"1 of 2 files were extracted.\n")) << Narrow(answer.text);
    EXPECT_TRUE(answer.text.ends_with(L"was left out: the path would be longer than the device can have."))
        << Narrow(answer.text);
    EXPECT_EQ(device.NamesIn(L"\\Out\\" + std::wstring(100, L'd')), Texts{std::wstring(153, L'f')});
}

TEST_F(ArchiverTest, AnHonestArchiveMayExpandAThousandTimes) {
    RunOnHost(
        "mkdir In; yes 'the same line again and again' | head -c 100000000 >In/log.txt; zip -q9r x.zip In\n"
        "test $(stat -c %s x.zip) -lt 300000");
    Extract(Zip, L"\\x.zip", L"\\Out");
    RunOnHost("cmp In/log.txt Out/In/log.txt; rm -r Out");
    Make(Zip, L"\\y.zip", L"", {L"\\In\\*"});
    RunOnHost("test $(stat -c %s y.zip) -lt 400000");
    Extract(Zip, L"\\y.zip", L"\\Out");
    RunOnHost("cmp In/log.txt Out/In/log.txt");
}
