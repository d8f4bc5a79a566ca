// Screens: 240x320
// Limit: 400 seconds

// Jobs on trees as people have them on the host, and beside others who change them meanwhile.

#include "tests/ui/job_ui.h"

namespace {

class HostTreesUi : public TransferUi {
  protected:
    void SetUp() override {
        ONLY_ON_THE_DESKTOP(hostsHand);
        TransferUi::SetUp();
    }

    /// A tree with an entry of every kind in \Box, links out of it, and what they lead to.
    static void MakeBox() {
        RunOnHost(R"sh(
            mkdir -p Outside/Kept; echo kept >Outside/Kept/a; echo kept >Outside/b; chmod 640 Outside/b
            mkdir -p Box/venv/bin Box/node_modules/.bin Box/node_modules/tool Box/repo/.git/objects/ab; cd Box
            echo '#!' >venv/bin/python3.11; chmod 755 venv/bin/python3.11
            ln -s python3.11 venv/bin/python3; ln -s python3 venv/bin/python; ln -s /usr/lib venv/lib64
            echo tool >node_modules/tool/cli.js; ln -s ../tool/cli.js node_modules/.bin/tool
            echo object >repo/.git/objects/ab/cdef; chmod 444 repo/.git/objects/ab/cdef
            echo secret >secret; chmod 600 secret; ln secret same
            ln -s aaa zzz; echo goes first >aaa; ln -s missing nowhere; ln -s .. loop
            ln -s ../Outside out; ln -s ../Outside/b out.txt
            for name in aux.c con.h nul.txt com1.log 'dot.' 'blank ' 'a?b' 'a*b' 'a"b' 'a<b' 'a>b' 'a|b' 'a:b' \
                'a\b' Case case; do echo "$name" >"$name"; done
            touch "$(printf 'new\nline')" "$(printf 'bell\007')" "$(printf 'bad\377\376')"
            mkdir "$(printf 'no text\300')"; echo in it >"$(printf 'no text\300')/file"
            touch -d '2001-02-03 04:05:06.789' secret venv
        )sh");
    }
    static void AddSpecials() {
        RunOnHost("mkfifo Box/pipe\npython3 -c \"import socket; "
                  "socket.socket(socket.AF_UNIX).bind('Box/venv/socket')\"");
    }

    /// Writes down all of a folder into the file `list` of the tests' own.
    static void WriteDown(const std::string& folder, const std::string& list,
                          const std::string& options = "") {
        RunOnHost(
            "cd '" + folder + "'\n{ find . " + options +
            " -printf '%P %y %m %l\\n' | LC_ALL=C sort; find . -type f " + options +
            " -exec md5sum {} + | LC_ALL=C sort; stat -c %y secret 2>/dev/null || true; } >\"$TARVIK_WORK/" +
            list + "\"");
    }
    static void ExpectSame(const std::string& a, const std::string& b) {
        RunOnHost("cd \"$TARVIK_WORK\"\ndiff '" + a + "' '" + b + "'\ntest -s '" + a + "'");
    }
    static constexpr char others[] = "! -path './To*' ! -path './Box*' ! -path ./hands ! -path .";
};

TEST_F(HostTreesUi, GoThroughCopyMoveAndDeleteWhole) {
    MakeBox();
    WriteDown(".", "before", others);
    WriteDown("Box", "box");
    StartIn(L"");
    Copy({L"Box"});
    Show(L"\\To");
    PasteAll();
    WriteDown("To/Box", "copy");
    ExpectSame("box", "copy");

    RunOnHost("rm -r To/Box");
    AddSpecials();
    WriteDown("Box", "specials");
    ShowRoot();
    Cut({L"Box"});
    Show(L"\\To");
    PasteAll();
    EXPECT_FALSE(device.Exists(L"\\Box"));
    WriteDown("To/Box", "moved");
    ExpectSame("specials", "moved");

    Show(L"\\To");
    Select({L"Box"});
    Give(IDM_FILE_DELETE);
    AnswerDelete(yesKey);
    FinishJob();
    RunOnHost("test -z \"$(ls -A To)\"");
    WriteDown(".", "after", others);
    ExpectSame("before", "after");
    WaitForHands(0);
}

TEST_F(HostTreesUi, GoToAnotherDiskAndBackWhole) {
    const std::string disk = "/dev/shm/$(basename \"$(dirname \"$TARVIK_WORK\")\")-card";
    MakeBox();
    AddSpecials();
    WriteDown("Box", "box");
    RunOnHost("mkdir -p \"" + disk + "\"\nln -s \"" + disk + "\" Disk");
    StartIn(L"");
    Cut({L"Box"});
    Show(L"\\Disk");
    PasteAll();
    EXPECT_FALSE(device.Exists(L"\\Box"));
    WriteDown("Disk/Box", "across");
    ExpectSame("box", "across");
    Cut({L"Box"});
    ShowRoot();
    PasteAll();
    WriteDown("Box", "back");
    ExpectSame("box", "back");
    RunOnHost("test -z \"$(ls -A Disk/)\"\nrm -r Disk \"" + disk + "\"");
}

TEST_F(HostTreesUi, WhatMayNotBeChangedIsSaidAndStays) {
    RunOnHost("chmod 555 From/Sub");
    StartIn(L"\\From\\Sub");
    Select({L"c.txt"});
    Give(IDM_FILE_DELETE);
    AnswerDelete(yesKey);
    EXPECT_EQ(ReadMessage(), L"'c.txt' cannot be deleted.");
    FinishJob();
    EXPECT_TRUE(program.List().Has(L"c.txt"));
    RunOnHost("chmod 755 From/Sub");
    EXPECT_EQ(device.Content(L"\\From\\Sub\\c.txt"), "new c");
}

TEST_F(HostTreesUi, WhatCannotBeRemovedAfterACopyToAnotherDiskIsSaid) {
    const std::string disk = "/dev/shm/$(basename \"$(dirname \"$TARVIK_WORK\")\")-card";
    RunOnHost("mkdir -p \"" + disk + "\"\nln -s \"" + disk + "\" Disk\nchmod 555 From/Sub");
    StartIn(L"\\From\\Sub");
    Cut({L"c.txt"});
    Show(L"\\Disk");
    Paste();
    EXPECT_EQ(ReadMessage(),
              L"'c.txt' cannot be removed from 'Sub'. What could not be removed is still there.");
    FinishJob();
    EXPECT_EQ(device.Content(L"\\From\\Sub\\c.txt"), "new c");
    EXPECT_FALSE(device.Exists(L"\\Disk\\c.txt"));
    RunOnHost("chmod 755 From/Sub\nrm -r Disk \"" + disk + "\"");
}

TEST_F(HostTreesUi, WhatAKilledJobLeavesGoesAtTheNextStartAndNothingElse) {
    device.FileOfSize(L"\\From\\huge", 6ull << 30);
    device.File(L"\\To\\~job000.tmp", "mine");
    CopyToTarget({L"huge"});
    WaitFor("for the copy to begin", [&] { return device.Exists(L"\\To\\~job001.tmp"); });
    RunOnHost(
        "for exe in /proc/[0-9]*/exe; do case $(readlink \"$exe\") in "
        "\"$WINEPREFIX/drive_c/windows/hosthand\"*) id=${exe#/proc/}; kill -9 ${id%/exe} ;; esac; done");
    program.Kill();
    ASSERT_TRUE(device.Exists(L"\\To\\~job001.tmp"));
    StartIn(L"\\To");
    WaitFor("for what was left to go", [&] { return !device.Exists(L"\\To\\~job001.tmp"); });
    EXPECT_EQ(device.Content(L"\\To\\~job000.tmp"), "mine");
    RunOnHost("test -z \"$(ls \"$WINEPREFIX/drive_c/windows\" | grep '^hand[.]')\"");
}

// --- Beside somebody who swaps ---

class SwappedUi : public JobUi {
  protected:
    static constexpr int many = 3000;

    void SetUp() override {
        ONLY_ON_THE_DESKTOP(hostsHand);
        JobUi::SetUp();
        RunOnHost("mkdir -p T/Many/Sub T/Outside/Sub; for folder in T/Many T/Outside; do\n(cd $folder; seq "
                  "-f 'f%g' " +
                  std::to_string(many) +
                  " | xargs touch; seq -f 'Sub/s%g' 300 | xargs touch; echo kept >f1); done\n"
                  "mkdir To; mv T/Outside .; cp -a Outside Elsewhere");
        RunOnHost("find Outside | sort >\"$TARVIK_WORK/before\"");
    }
    void TearDown() override {
        StopSwapping();
        JobUi::TearDown();
    }

    /// Begins to exchange an entry and a link to `target` as fast as the host can.
    void Swap(const std::string& name, const std::string& target) {
        RunOnHost("ln -sfn \"$TARVIK_DEVICE/" + target +
                  "\" link\ncat >\"$TARVIK_WORK/swap.py\" <<'END'\n"
                  "import ctypes, sys\nlibc = ctypes.CDLL(None)\nnames = sys.argv[1].encode(), "
                  "sys.argv[2].encode()\n"
                  "while True:\n    libc.renameat2(-100, names[0], -100, names[1], 2)\nEND\n"
                  "timeout 120 python3 \"$TARVIK_WORK/swap.py\" '" +
                  name +
                  "' link >/dev/null 2>&1 </dev/null &\n"
                  "echo $! >\"$TARVIK_WORK/swapper\"");
        isSwapping_ = true;
    }
    void StopSwapping() {
        if (isSwapping_)
            RunOnHost("kill $(cat \"$TARVIK_WORK/swapper\") || true");
        isSwapping_ = false;
    }

    /// Runs a job to its end, whatever it says.
    void FinishSwapped() {
        WaitFor(
            "for the job to end",
            [&] {
                if (program.HasMessageBox())
                    program.WaitForMessageBox().Answer(IDOK);
                return !program.HasDialog() && !program.HasMessageBox();
            },
            60000);
        StopSwapping();
        RunOnHost("find Outside | sort | diff \"$TARVIK_WORK/before\" -\ntest \"$(cat Outside/f1)\" = kept");
    }

    void DeleteAgainst(const std::string& name, const std::string& target) {
        StartIn(L"\\T");
        Select({L"Many"});
        Give(IDM_FILE_DELETE);
        Swap(name, target);
        AnswerDelete(yesKey);
        FinishSwapped();
    }
    void PasteAgainst(UINT command, const std::string& name, const std::string& target) {
        StartIn(L"\\T");
        Select({L"Many"});
        program.Command(command);
        Show(L"\\To");
        Swap(name, target);
        Paste();
        FinishSwapped();
    }

  private:
    bool isSwapping_ = false;
};

TEST_F(SwappedUi, ADeletedFolder) {
    DeleteAgainst("T/Many", "Outside");
}

TEST_F(SwappedUi, AFolderInADeletedOne) {
    DeleteAgainst("T/Many/Sub", "Outside");
}

TEST_F(SwappedUi, AFileInADeletedFolder) {
    DeleteAgainst("T/Many/f1", "Outside/f1");
}

TEST_F(SwappedUi, TheFolderThatADeletedOneIsIn) {
    RunOnHost("mkdir -p Other; mv Outside Other/Many; ln -s Other/Many Outside");
    RunOnHost("find Outside/ | sort >\"$TARVIK_WORK/before\"");
    StartIn(L"\\T");
    Select({L"Many"});
    Give(IDM_FILE_DELETE);
    WaitForHands(1);
    Swap("T", "Other");
    AnswerDelete(yesKey);
    WaitFor(
        "for the job to end", [&] { return !program.HasDialog() && !program.HasMessageBox(); }, 60000);
    StopSwapping();
    RunOnHost("find Outside/ | sort | diff \"$TARVIK_WORK/before\" -");
}

TEST_F(SwappedUi, AFolderInAMovedOne) {
    PasteAgainst(IDM_TOOLBAR_CUT, "T/Many/Sub", "Outside");
}

TEST_F(SwappedUi, AFileInAMovedFolder) {
    PasteAgainst(IDM_TOOLBAR_CUT, "T/Many/f1", "Outside/f1");
}

TEST_F(SwappedUi, AFolderInACopiedOne) {
    PasteAgainst(IDM_TOOLBAR_COPY, "T/Many/Sub", "Outside");
}

TEST_F(SwappedUi, TheFolderThatACopyGoesTo) {
    RunOnHost("mkdir -p To/Many/Sub");
    StartIn(L"\\T");
    Select({L"Many"});
    program.Command(IDM_TOOLBAR_COPY);
    Show(L"\\To");
    Paste();
    AnswerFolder(IDYES);
    const Dialog question = WaitForFolderQuestion();
    Swap("To/Many/Sub", "Outside");
    Answer(question, IDYES);
    FinishSwapped();
}

} // namespace
