// Archives made here open in the tools of others, and theirs here.

#include "tests/archiver/archiver_test.h"
#include "tests/support/text.h"

namespace {

class ArchiverInterchange : public ArchiverTest {
  protected:
    /// A tree with all that archives must keep, in \In; the host knows it as "In".
    void MakeTree() {
        RunOnHost(R"sh(
mkdir -p 'In/Sub folder/empty' 'In/Größe'
printf 'plain text\n' >In/plain.txt
: >In/nothing.bin
head -c 300000 /dev/urandom >In/random.bin
seq 1 60000 >'In/Sub folder/numbers.txt'
printf 'umlaut\n' >'In/Größe/Übergröße.txt'
printf 'kana\n' >'In/日本語 テスト.txt'
find In -type f -exec touch -d '2005-07-08 09:10:12 UTC' {} +
find In -depth -type d -exec touch -d '2006-01-02 03:04:06 UTC' {} +)sh");
    }
    /// The tree that was extracted into Out must be the one made, with its dates.
    void CompareTrees(const std::string& out = "Out/In") {
        RunOnHost("diff -r In '" + out + "'\n" +
                  "list() { (cd \"$1\" && find . -mindepth 1 -printf '%P %y %T@\\n' | sed 's/[.][0-9]*$//' | "
                  "sort); }\n" +
                  "list In >listed.in; list '" + out + "' >listed.out; diff listed.in listed.out");
    }
};

} // namespace

TEST_F(ArchiverInterchange, UnzipOpensOurZip) {
    MakeTree();
    Make(Zip, L"\\a.zip", L"", {L"\\In\\*"});
    RunOnHost("unzip -tqq a.zip; unzip -qq a.zip -d Out");
    CompareTrees();
}

TEST_F(ArchiverInterchange, SevenZipOpensOurZip) {
    MakeTree();
    Make(Zip, L"\\a.zip", L"", {L"\\In\\*"});
    RunOnHost("7z t a.zip; 7z x -oOut a.zip");
    CompareTrees();
}

TEST_F(ArchiverInterchange, OurZipOpensHere) {
    MakeTree();
    Make(Zip, L"\\a.zip", L"", {L"\\In\\*"});
    Extract(Zip, L"\\a.zip", L"\\Out");
    CompareTrees();
}

TEST_F(ArchiverInterchange, ZipsOfTheHostOpenHere) {
    MakeTree();
    RunOnHost("zip -qr a.zip In");
    Extract(Zip, L"\\a.zip", L"\\Out");
    CompareTrees();
}

TEST_F(ArchiverInterchange, ZipsOfSevenZipOpenHere) {
    MakeTree();
    RunOnHost("7z a a.zip In");
    Extract(Zip, L"\\a.zip", L"\\Out");
    CompareTrees();
}

TEST_F(ArchiverInterchange, LhasaOpensOurLha) {
    MakeTree();
    Make(Lha, L"\\a.lzh", L"", {L"\\In\\*"});
    RunOnHost("lha t a.lzh; lha xw=Out a.lzh");
    CompareTrees();
}

TEST_F(ArchiverInterchange, SevenZipOpensOurLha) {
    MakeTree();
    Make(Lha, L"\\a.lzh", L"", {L"\\In\\*"});
    RunOnHost("7z t a.lzh; 7z x -oOut a.lzh; diff -r In Out/In");
}

TEST_F(ArchiverInterchange, OurLhaOpensHere) {
    MakeTree();
    Make(Lha, L"\\a.lzh", L"", {L"\\In\\*"});
    Extract(Lha, L"\\a.lzh", L"\\Out");
    CompareTrees();
}

TEST_F(ArchiverInterchange, LhasOfEveryMakerOpenHere) {
    // What the programs of forty years made, all of it known to lhasa.
    RunOnHost("mkdir Samples\ncd '" LHASA_ARCHIVES "'\n"
              "for file in */*.lz[hs]; do cp $file \"$TARVIK_DEVICE/Samples/$(echo $file | tr / -)\"; done");
    std::string whole;
    int count = 0;
    for (const std::wstring& name : device.NamesIn(L"\\Samples")) {
        if (TryToExtract(Lha, L"\\Samples\\" + name, L"\\Out\\" + name).result == 0) {
            whole += ' ' + Narrow(name);
            ++count;
        } else { // links and whole paths, and what lhasa cannot read either
            EXPECT_TRUE(name.find(L"symlink") != std::wstring::npos ||
                        name.find(L"subdir") != std::wstring::npos || name.starts_with(L"regression-"))
                << Narrow(name);
        }
    }
    EXPECT_GE(count, 130);
    // The superuser's lha gives files to those who once made them: they are taken back.
    // Nor does it keep capitals.
    RunOnHost("lower() { find $1 -mindepth 1 -depth | LC_ALL=C grep '[A-Z][^/]*$' | while read -r path; do "
              "to=$(dirname \"$path\")/$(basename \"$path\" | tr A-Z a-z); test \"$path\" = \"$to\" || mv "
              "\"$path\" \"$to\"; done; }\n"
              "for name in" +
              whole +
              "; do lha xqw=Theirs/$name Samples/$name >/dev/null\n"
              "find Theirs/$name ! -user $(id -u) -exec chown $(id -u) {} ';' -exec chmod u+rwX {} ';'\n"
              "lower Theirs/$name; lower Out/$name; diff -r Theirs/$name Out/$name; done");
}

TEST_F(ArchiverInterchange, NamesInOldLettersAreRead) {
    RunOnHost("/usr/bin/python3 -B - <<'END'\n"
              "import sys, zipfile\n"
              "sys.path.insert(0, '" ARCHIVER_TESTS "')\n"
              "from make_hostile_archives import lha_old_member\n" +
              std::string(R"py(
def write_zip(path, letters):
    with zipfile.ZipFile(path, 'w') as archive:
        archive.writestr('X' * len(letters) + '.txt', 'text')
    content = open(path, 'rb').read().replace(b'X' * len(letters), letters)
    open(path, 'wb').write(content)
write_zip('dos.zip', 'Größe'.encode('cp437'))
write_zip('unsaid.zip', 'Größe'.encode())
def write_lha(path, name):
    open(path, 'wb').write(lha_old_member(name, b'text') + b'\0')
write_lha('japan.lzh', '日本.txt'.encode('shift_jis'))
write_lha('unsaid.lzh', 'Größe.txt'.encode())
END)py"));
    const std::vector<std::wstring> german = {L"Gr\u00f6\u00dfe.txt"};
    Extract(Zip, L"\\dos.zip", L"\\Out\\1");
    EXPECT_EQ(device.NamesIn(L"\\Out\\1"), german);
    Extract(Zip, L"\\unsaid.zip", L"\\Out\\2");
    EXPECT_EQ(device.NamesIn(L"\\Out\\2"), german);
    Extract(Lha, L"\\japan.lzh", L"\\Out\\3");
    EXPECT_EQ(device.NamesIn(L"\\Out\\3"), std::vector<std::wstring>{L"\u65e5\u672c.txt"});
    Extract(Lha, L"\\unsaid.lzh", L"\\Out\\4");
    EXPECT_EQ(device.NamesIn(L"\\Out\\4"), german);
}

TEST_F(ArchiverInterchange, AnEncryptedZipIsSaidToBe) {
    device.File(L"\\In\\secret.txt", "secret");
    device.File(L"\\In\\open.txt", "open");
    RunOnHost("zip -qP word a.zip In/secret.txt\nzip -q a.zip In/open.txt");
    const ArchiverAnswer answer = TryToExtract(Zip, L"\\a.zip", L"\\Out");
    EXPECT_NE(answer.result, 0);
    EXPECT_EQ(answer.text, L"1 of 2 files were extracted.\n'In/secret.txt' was left out: encrypted.");
    EXPECT_EQ(device.NamesIn(L"\\Out\\In"), std::vector<std::wstring>{L"open.txt"});
}

TEST_F(ArchiverInterchange, OldJapaneseNamesDoNotFallOntoOneAnother) {
    RunOnHost("/usr/bin/python3 -B - <<'END'\n"
              "import sys\n"
              "sys.path.insert(0, '" ARCHIVER_TESTS "')\n"
              "from make_hostile_archives import lha_old_member\n"
              "names = ['\u8868.txt', '\u7af9.txt', '\u30a2\u30a4\u30a6.TXT', '\u30a2\u30a4\u30a7.TXT']\n"
              "open('japan.lzh', 'wb').write(b''.join(\n"
              "    lha_old_member(name.encode('shift_jis'), name.encode()) for name in names) + b'\\0')\n"
              "END");
    Extract(Zip, L"\\japan.lzh", L"\\Out"); // as "Extract to here" calls for it
    const std::vector<std::wstring> names = {L"\u30a2\u30a4\u30a6.TXT", L"\u30a2\u30a4\u30a7.TXT",
                                             L"\u7af9.txt", L"\u8868.txt"};
    EXPECT_EQ(device.NamesIn(L"\\Out"), names);
    for (const std::wstring& name : names)
        EXPECT_EQ(device.Content(L"\\Out\\" + name), Narrow(name));
}
