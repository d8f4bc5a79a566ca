// Archives made here open in the tools of others, and theirs here.

#include "tests/archiver/archiver_test.h"

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
