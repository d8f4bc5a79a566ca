// Screens: 240x320 320x240 176x220
// Limit: 300 seconds

// The archiver's own window over the program: how far the work is, its questions, its end before the end.

#include "companions/archiver/window/resource.h"
#include "tests/support/library_stand_in.h"
#include "tests/ui/answers_ui.h"
#include "tests/ui/save_dialog.h"

namespace {

constexpr int many = 3000;
constexpr int fileSize = 3000;

class ArchiverWindowUi : public AnswersUi {
  protected:
    void SetUp() override {
        JobUi::SetUp();
        PutBuiltArchiver();
        device.SetOption(ListOption::ExtractInPlace, 1);
        device.SetOption(ListOption::AutomaticFolderCreation, 1);
        device.Folder(L"\\Docs");
    }

    /// Fills \Docs\Many with files that take long.
    static void MakeMany() {
        RunOnHost("mkdir -p Docs/Many\ncd Docs/Many\nhead -c " + std::to_string(many * fileSize) +
                  " /dev/urandom | split -b " + std::to_string(fileSize) + " -a 4 -d - f");
    }
    static void PackMany() {
        MakeMany();
        RunOnHost("cd Docs; zip -qr1 many.zip Many; rm -r Many");
    }

    void BeginExtracting(const std::wstring& archive) {
        StartIn(L"\\Docs");
        Extract(archive);
    }
    void Extract(const std::wstring& archive) {
        Select({archive});
        program.WaitForListFocus();
        program.PostCommand(IDM_FILE_EXTRACT_TO);
    }
    void BeginCompressing(const std::wstring& archive) {
        StartIn(L"\\Docs");
        Compress(archive);
    }
    void Compress(const std::wstring& archive) {
        Select({L"Many"});
        program.WaitForListFocus();
        Dialog dialog = AskForArchive(program);
        NameFieldOf(dialog).SetText(archive);
        PressLeftSoftKey();
        dialog.WaitUntilClosed();
    }
    static int FilesDone(const Dialog& progress) { return std::stoi(progress.Item(IDC_JOB_COUNTER).Text()); }

    /// The next start removes what a kill has left, and nothing that is called alike.
    void ExpectNothingHalfMadeAfterStart() {
        RunOnHost("printf own >'Docs/~arc0.tmp'");
        StartIn(L"\\Docs");
        program.Kill();
        RunOnHost("find Docs -name '~*' >left");
        EXPECT_EQ(device.Content(L"\\left"), "Docs/~arc0.tmp\n");
        device.Remove(L"\\Docs\\~arc0.tmp");
    }

    /// Presses "Cancel" when more than `files` files are done, and returns the milliseconds until the work
    /// has ended and says so.
    double CancelInTheMiddle(const std::wstring& title, int files = 100) {
        const Dialog progress = program.WaitForDialog(title);
        WaitFor("for its middle",
                [&] { return GetForegroundWindow() == progress.Window() && FilesDone(progress) >= files; });
        const double begun = Now();
        Dialog(progress).Command(IDM_JOB_CANCEL); // as the soft key does, but not by way of a busy screen
        while (!program.HasMessageBox() && Now() - begun < givesUp)
            Sleep(1);
        return Now() - begun;
    }

    /// Nothing has the name of a file but is none, and nothing is left beside.
    static void ExpectWhole(const std::string& folder) {
        RunOnHost("find " + folder + " -type f -name 'f*' ! -size " + std::to_string(fileSize) +
                  "c >parts; test ! -s parts || { cat parts; exit 1; }");
    }
};

TEST_F(ArchiverWindowUi, ShowsHowFarItIs) {
    PackMany();
    BeginExtracting(L"many.zip");
    const Dialog progress = program.WaitForDialog(L"Extract Files");
    EXPECT_EQ(GetWindow(progress.Window(), GW_OWNER), program.Window());
    EXPECT_FALSE(IsWindowEnabled(program.Window()));
    EXPECT_EQ(progress.SoftKeys(), Texts{L"Cancel"});
    EXPECT_EQ(progress.Item(IDC_JOB_SOURCE).Text(), L"'many.zip' to 'many'");
    WaitFor("for the counter", [&] { return FilesDone(progress) > 0; });
    const std::wstring counter = progress.Item(IDC_JOB_COUNTER).Text();
    EXPECT_NE(counter.find(L"/3000\n"), std::wstring::npos) << Narrow(counter);
    EXPECT_TRUE(counter.ends_with(L" of 8.58 MB")) << Narrow(counter);
    WaitFor("for a name", [&] { return progress.Item(IDC_JOB_STATUS).Text().starts_with(L"f"); });
    FinishJob();
    EXPECT_TRUE(IsWindowEnabled(program.Window()));
    EXPECT_TRUE(Eventually([&] { return program.List().Has(L"many") && program.ListHasFocus(); }));
    RunOnHost("test $(ls Docs/many/Many | wc -l) = 3000");
}

TEST_F(ArchiverWindowUi, AnswersAllThroughExtracting) {
    PackMany();
    StartIn(L"\\Docs");
    ExpectInTime([&] {
        RunOnHost("rm -rf Docs/many");
        Extract(L"many.zip");
        const double longest = LongestAnswer([&] { return SentAnswerTime(); });
        FinishJob();
        return longest;
    });
}

TEST_F(ArchiverWindowUi, AnswersAllThroughPacking) {
    MakeMany();
    device.File(L"\\Docs\\Many\\large", std::string(60'000'000, 'l'));
    StartIn(L"\\Docs");
    ExpectInTime([&] {
        RunOnHost("rm -f Docs/new.zip");
        Compress(L"\\Docs\\new.zip");
        const double longest = LongestAnswer([&] { return SentAnswerTime(); });
        FinishJob();
        return longest;
    });
}

TEST_F(ArchiverWindowUi, QuickWorkShowsNoWindow) {
    device.File(L"\\Docs\\f.txt", "f");
    RunOnHost("cd Docs; zip -q a.zip f.txt");
    BeginExtracting(L"a.zip");
    WaitFor("for the file", [&] {
        EXPECT_FALSE(program.HasDialog());
        return program.List().Has(L"a");
    });
    EXPECT_TRUE(program.ListHasFocus());
}

TEST_F(ArchiverWindowUi, CancelEndsExtractingAtOnce) {
    PackMany();
    StartIn(L"\\Docs");
    ExpectInTime([&] {
        RunOnHost("rm -rf Docs/many");
        Extract(L"many.zip");
        const double taken = CancelInTheMiddle(L"Extract Files");
        const std::wstring text = ReadMessage();
        const std::wstring begin = L"Canceled: ";
        EXPECT_TRUE(text.starts_with(begin)) << Narrow(text);
        EXPECT_TRUE(text.ends_with(L" of 3000 files were extracted.")) << Narrow(text);
        RunOnHost("test $(ls -A Docs/many/Many | wc -l) = " +
                  Narrow(text.substr(begin.size(), text.find(L" of") - begin.size())));
        ExpectWhole("Docs/many");
        EXPECT_TRUE(Eventually([&] { return program.List().Has(L"many"); }));
        return taken;
    });
}

TEST_F(ArchiverWindowUi, CancelEndsTheExtractionOfALargeFileAtOnce) {
    RunOnHost("cd Docs; yes 'a line that packs well' | head -c 2000000000 | zip -q1 large.zip -");
    StartIn(L"\\Docs");
    ExpectInTime([&] {
        RunOnHost("rm -rf Docs/large");
        Extract(L"large.zip");
        const double taken = CancelInTheMiddle(L"Extract Files", 0);
        EXPECT_EQ(ReadMessage(), L"Canceled: 0 of 1 file was extracted.");
        EXPECT_EQ(device.NamesIn(L"\\Docs\\large"), Texts{});
        return taken;
    });
}

TEST_F(ArchiverWindowUi, CancelEndsPackingAtOnce) {
    MakeMany();
    device.FileOfSize(L"\\Docs\\Many\\large", 400u << 20);
    StartIn(L"\\Docs");
    ExpectInTime([&] {
        Compress(L"\\Docs\\new.zip");
        const double taken = CancelInTheMiddle(L"Compress Files");
        EXPECT_EQ(ReadMessage(), L"Canceled: the archive was not made.");
        EXPECT_EQ(device.NamesIn(L"\\Docs"), Texts{L"Many"});
        return taken;
    });
}

TEST_F(ArchiverWindowUi, CancelLeavesNoHalfMadeArchive) {
    MakeMany();
    device.File(L"\\Docs\\made.zip", "earlier");
    device.File(L"\\Docs\\Many\\large", std::string(60'000'000, 'l'));
    BeginCompressing(L"\\Docs\\new.zip");
    const Dialog progress = program.WaitForDialog(L"Compress Files");
    EXPECT_EQ(progress.Item(IDC_JOB_SOURCE).Text(), L"'Docs' to 'new.zip'");
    WaitFor("for its middle", [&] { return FilesDone(progress) > 100; });
    Dialog(progress).Command(IDM_JOB_CANCEL);
    EXPECT_EQ(ReadMessage(), L"Canceled: the archive was not made.");
    EXPECT_EQ(device.NamesIn(L"\\Docs"), (Texts{L"Many", L"made.zip"}));
}

TEST_F(ArchiverWindowUi, AsksInTheProgramsWay) {
    device.File(L"\\Docs\\a.txt", "new a");
    device.File(L"\\Docs\\b.txt", "new b");
    RunOnHost("cd Docs; zip -q x.zip a.txt b.txt");
    device.File(L"\\Docs\\x\\a.txt", "old");
    device.File(L"\\Docs\\x\\b.txt", "old");
    BeginExtracting(L"x.zip");
    Dialog question = WaitForFileQuestion();
    EXPECT_EQ(question.SoftKeys(), (Texts{L"Yes", L"Menu"}));
    EXPECT_EQ(question.SoftKeyMenu().Texts(), (Texts{L"No", L"All", L"Cancel", L"No to All"}));
    EXPECT_EQ(question.TextsShown().front(), L"this file 'a.txt' already exists.");
    // Over the progress window, which fills the same place of the screen.
    const HWND progress = GetWindow(question.Window(), GW_OWNER);
    EXPECT_EQ(Dialog(progress).Title(), L"Extract Files");
    EXPECT_EQ(GetWindow(progress, GW_OWNER), program.Window());
    const RECT place = question.Place(), below = Dialog(progress).Place();
    EXPECT_TRUE(EqualRect(&place, &below));
    PressLeftSoftKey();
    question.WaitUntilClosed();
    question = WaitForFileQuestion();
    EXPECT_EQ(question.TextsShown().front(), L"this file 'b.txt' already exists.");
    PressRightSoftKey();
    program.WaitForMenu();
    PressKey('1'); // No
    question.WaitUntilClosed();
    FinishJob();
    EXPECT_EQ(device.Content(L"\\Docs\\x\\a.txt"), "new a");
    EXPECT_EQ(device.Content(L"\\Docs\\x\\b.txt"), "old");
    EXPECT_TRUE(Eventually([&] { return program.ListHasFocus(); }));
}

TEST_F(ArchiverWindowUi, LongWordsCanBeReadToTheirEnd) {
    RunOnHost("/usr/bin/python3 - <<'END'\n"
              "import zipfile\n"
              "with zipfile.ZipFile('Docs/x.zip', 'w') as archive:\n"
              "    for name in '../climbs', '/absolute', 'C:drive', 'nul', 'dot.', 'colon:', 'd' * 300:\n"
              "        archive.writestr(name, 'text')\n"
              "END");
    BeginExtracting(L"x.zip");
    MessageBoxShown box = program.WaitForMessageBox();
    EXPECT_TRUE(box.Text().starts_with(L"0 of 7 files were extracted.\n"));
    const HWND scrolled = box.ScrolledText();
    EXPECT_TRUE(scrolled || GetSystemMetrics(SM_CXSCREEN) != 176);
    if (scrolled) {
        const auto firstLine = [&] { return SendMessageW(scrolled, EM_GETFIRSTVISIBLELINE, 0, 0); };
        for (LRESULT before = -1; before != firstLine();) {
            before = firstLine();
            PressKey(VK_DOWN);
            HoldsWithin(300, [&] { return firstLine() != before; });
        }
        EXPECT_GT(firstLine(), 0);
        const LRESULT length = SendMessageW(scrolled, WM_GETTEXTLENGTH, 0, 0);
        const LRESULT last = SendMessageW(scrolled, EM_POSFROMCHAR, length - 1, 0);
        RECT room{};
        GetClientRect(scrolled, &room);
        EXPECT_LT(static_cast<short>(HIWORD(last)), room.bottom);
    }
    PressKey(VK_RETURN);
    EXPECT_TRUE(Eventually([&] { return !program.HasMessageBox(); }));
}

TEST_F(ArchiverWindowUi, TheProgramCanBeEndedMeanwhile) {
    PackMany();
    BeginExtracting(L"many.zip");
    program.WaitForDialog(L"Extract Files");
    PostMessageW(program.Window(), WM_CLOSE, 0, 0);
    program.WaitForEnd();
    ExpectWhole("Docs/many");
    RunOnHost("test -z \"$(find Docs -name '~*')\"");
}

TEST_F(ArchiverWindowUi, KilledItLeavesWholeFilesAndNoArchive) {
    PackMany();
    BeginExtracting(L"many.zip");
    const Dialog extracting = program.WaitForDialog(L"Extract Files");
    WaitFor("for its middle", [&] { return FilesDone(extracting) > 300; });
    program.Kill();
    ExpectWhole("Docs/many");
    ExpectNothingHalfMadeAfterStart();
    RunOnHost("rm -r Docs/many Docs/many.zip");
    MakeMany();
    device.File(L"\\Docs\\Many\\large", std::string(60'000'000, 'l'));
    BeginCompressing(L"\\Docs\\new.zip");
    const Dialog compressing = program.WaitForDialog(L"Compress Files");
    WaitFor("for its middle", [&] { return FilesDone(compressing) > 300; });
    program.Kill();
    ExpectNothingHalfMadeAfterStart();
    EXPECT_EQ(device.NamesIn(L"\\Docs"), Texts{L"Many"});
    RunOnHost("test $(ls Docs/Many | wc -l) = 3001");
}

} // namespace
