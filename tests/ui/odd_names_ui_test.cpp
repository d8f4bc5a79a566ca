// Screens: 240x320
// Limit: 300 seconds

// Names as the host has them: what the list shows leads to that very entry, whatever is done with it, and
// what no path of the phone's leads to is neither shown nor in anybody's way.

#include <algorithm>

#include "resources/resource.h"
#include "tests/ui/job_ui.h"

namespace {

/// In the order of the list, but for those that differ in case alone. Each file holds its own name.
const Texts shown = {L" lead", L"a:b",     L"aux.c", L"Case",     L"case",    L"com1.log",
                     L"con.h", L"nul.txt", L"~1",    L"\x00C4.x", L"\x00E4.x"};
constexpr int unlisted = 18; // one of them a folder with a file in it

class OddNamesUi : public TransferUi {
  protected:
    void SetUp() override {
        TransferUi::SetUp();
        RunOnHost(R"sh(
            mkdir Odd; cd Odd
            for name in ' lead' a:b aux.c Case case com1.log con.h nul.txt '~1' Ä.x ä.x \
                dot. 'blank ' ... 'a?b' 'a*b' 'a"b' 'a<b' 'a>b' 'a|b' 'a\b' "$(printf 'new\nline')" \
                "$(printf 'tab\there')" "$(printf 'bell\007')" "$(printf 'bad\377')" "$(printf 'bad\376')" \
                "$(printf '\377')" "$(printf 'bad\357\277\275')"; do printf %s "$name" >"$name"; done
            mkdir "$(printf 'folder\300')"; printf 'in it' >"$(printf 'folder\300/plain.txt')"
        )sh");
    }

    /// Writes down what is in a folder into the file `list` of the tests' own.
    static void WriteDown(const std::string& folder, const std::string& list) {
        RunOnHost("cd '" + folder + "'\nfind . -type f -exec md5sum {} + | LC_ALL=C sort >\"$TARVIK_WORK/" +
                  list + "\"");
    }
    /// The lists differ in the one line that ends in the name.
    static void ExpectGone(const std::wstring& name) {
        RunOnHost("cd \"$TARVIK_WORK\"\ngrep -avxF \"$(grep -a '  [.]/" + Narrow(name) +
                  "$' before)\" before | diff - after");
    }
    Texts Rows() const {
        Texts names = program.List().Names();
        names.erase(names.begin());
        std::sort(names.begin(), names.end());
        return names;
    }
};

TEST_F(OddNamesUi, TheListShowsWhatItCanLeadTo) {
    StartIn(L"\\Odd");
    Texts expected = shown;
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(Rows(), expected);
}

TEST_F(OddNamesUi, WhatIsShownIsDeletedAndNothingElse) {
    StartIn(L"\\Odd");
    for (const std::wstring& name : shown) {
        SCOPED_TRACE(Narrow(name));
        WriteDown("Odd", "before");
        Select({name});
        Give(IDM_FILE_DELETE);
        AnswerDelete(yesKey);
        FinishJob();
        WriteDown("Odd", "after");
        ExpectGone(name);
    }
    EXPECT_EQ(Rows(), Texts{});
}

TEST_F(OddNamesUi, WhatIsShownIsCopiedAndMovedByItself) {
    StartIn(L"\\Odd");
    for (const UINT command : {IDM_TOOLBAR_COPY, IDM_TOOLBAR_CUT}) {
        RunOnHost("rm -rf To; mkdir To");
        Show(L"\\Odd");
        Select(shown);
        program.Command(command);
        Show(L"\\To");
        PasteAll();
        RunOnHost("cd To\ntest \"$(ls -A | wc -l)\" = " + std::to_string(shown.size()) +
                  "\nfor name in * ' lead'; do test \"$(cat \"$name\")\" = \"$name\"; done");
    }
    RunOnHost("test $(find Odd -mindepth 1 -maxdepth 1 -printf x | wc -c) = " + std::to_string(unlisted));
}

TEST_F(OddNamesUi, WhatIsShownIsRenamedAndMarkedByItself) {
    StartIn(L"\\Odd");
    for (const std::wstring name : {L"aux.c", L"case", L"nul.txt", L"a:b"}) {
        SCOPED_TRACE(Narrow(name));
        program.List().SelectNothing();
        program.List().AddToSelection(name);
        program.PostCommand(IDM_MENU_PROPERTIES);
        Dialog page = program.WaitForDialog(L"Properties");
        page.Item(IDC_HIDDEN).Click();
        page.Item(IDC_ENTRY_NAME).SetText(L"new of it");
        page.Command(IDM_PROPERTIES_OK);
        page.WaitUntilClosed();
        program.WaitUntilIdle();
        EXPECT_FALSE(program.HasMessageBox());
        EXPECT_EQ(device.Content(L"\\Odd\\new of it"), Narrow(name));
        EXPECT_EQ(device.Attributes(L"\\Odd\\new of it") & FILE_ATTRIBUTE_HIDDEN, 2u);
        RunOnHost("rm 'Odd/new of it'");
    }
}

TEST_F(OddNamesUi, WhatIsNotShownIsCounted) {
    StartIn(L"");
    Select({L"Odd"});
    program.PostCommand(IDM_MENU_PROPERTIES);
    Dialog page = program.WaitForDialog(L"Properties");
    page.Command(IDM_PROPERTIES_CONTENTS);
    Dialog contents = program.WaitForDialogOver(page);
    EXPECT_EQ(contents.Item(IDC_FILE_COUNT).Text(), L"Files :     " + std::to_wstring(shown.size()) +
                                                        L", not shown : " + std::to_wstring(unlisted));
    EXPECT_EQ(contents.Item(IDC_FOLDER_COUNT).Text(), L"Folders : 0");
}

TEST_F(OddNamesUi, WhatIsNotShownGoesWithItsFolder) {
    WriteDown("Odd", "before");
    StartIn(L"");
    Copy({L"Odd"});
    Show(L"\\To");
    PasteAll();
    WriteDown("To/Odd", "after");
    RunOnHost("cd \"$TARVIK_WORK\"; diff before after");
    Select({L"Odd"});
    Give(IDM_FILE_DELETE);
    AnswerDelete(yesKey);
    FinishJob();
    RunOnHost("test -z \"$(ls -A To)\"");
}

/// A folder that seems to be empty, replaced: what cannot be asked about stays, and that is said.
TEST_F(OddNamesUi, WhatCannotBeAskedAboutStaysAndIsCounted) {
    RunOnHost("mkdir -p From/Box To/Box; printf 'new' >\"$(printf 'From/Box/bad\\377')\"\n"
              "printf 'old' >\"$(printf 'To/Box/bad\\377')\"");
    StartIn(L"\\From");
    Cut({L"Box"});
    Show(L"\\To");
    Paste();
    AnswerFolder(IDYES);
    EXPECT_EQ(ReadMessage(), L"One entry could not be taken along and was left out.");
    FinishJob();
    RunOnHost("test \"$(cat \"$(printf 'From/Box/bad\\377')\")\" = new\n"
              "test \"$(cat \"$(printf 'To/Box/bad\\377')\")\" = old");
}

/// Somebody keeps the other end of a pipe open and writes nothing.
TEST_F(OddNamesUi, APipeHoldsNobodyUp) {
    RunOnHost("mkfifo From/pipe\nsh -c 'exec 3<>From/pipe; exec sleep 60' >/dev/null 2>&1 </dev/null &\n"
              "echo $! >\"$TARVIK_WORK/holder\"");
    device.File(L"\\From\\plain.txt", "needle");
    StartIn(L"\\From");
    program.PostCommand(IDM_FILE_SEARCH);
    Dialog search = program.WaitForDialog(L"File Search");
    search.Item(IDC_SEARCH_TEXT).SetText(L"needle");
    search.Command(IDM_SEARCH_OK);
    program.WaitForFolder(L"File Search");
    EXPECT_EQ(program.List().Names(), Texts{L"plain.txt"});
    Show(L"\\From");
    Copy({L"pipe"});
    Show(L"\\To");
    Paste();
    EXPECT_EQ(ReadMessage(), L"One entry could not be taken along and was left out.");
    FinishJob();
    RunOnHost("kill $(cat \"$TARVIK_WORK/holder\")\ntest ! -e To/pipe");
}

} // namespace
