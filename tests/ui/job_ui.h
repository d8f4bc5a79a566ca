#pragma once
// What the suites of the jobs on files begin with: names shown whole, and hands for a job's questions.

#include <string>
#include <vector>

#include "tests/support/ui_test.h"

/// While it is there, what works on the host for the program meets a disk that never reads or removes what is
/// named "hangs...", cannot even find "lost...", takes a second for "slow..." and for "waits..." as long as
/// there is no file "\go".
class SlowDisk {
  public:
    SlowDisk() {
        SetEnvironmentVariableW(L"LD_PRELOAD",
                                Widen(HostVariable("TARVIK_FAILURES") + "/../libslow_disk.so").c_str());
    }
    SlowDisk(const SlowDisk&) = delete;
    SlowDisk& operator=(const SlowDisk&) = delete;
    ~SlowDisk() { SetEnvironmentVariableW(L"LD_PRELOAD", nullptr); }
};

class JobUi : public UiTest {
  protected:
    static constexpr int yesKey = IDM_ANSWER_YES;
    static constexpr int noKey = IDM_ANSWER_NO;
    static constexpr int allKey = IDM_ANSWER_ALL;
    static constexpr int cancelKey = IDM_ANSWER_CANCEL;

    // What the phone's own executable has none of.
    static constexpr const char* hostsHand = "a process of the host's that takes whole trees";
    static constexpr const char* hostsEntries = "links, pipes and other entries of the host's";

    void SetUp() override { ShowExtensions(); }

    void StartIn(const std::wstring& folder) { program.Start(folder); }

    void Show(const std::wstring& folder) {
        program.HandOverFolder(folder);
        program.WaitForFolder(folder);
    }
    void ShowRoot() { program.Command(IDM_GOTO_DEVICE); }

    void Select(const std::vector<std::wstring>& names) {
        program.List().SelectNothing();
        for (const std::wstring& name : names)
            program.List().AddToSelection(name);
    }

    void Copy(const std::vector<std::wstring>& names) {
        Select(names);
        program.Command(IDM_TOOLBAR_COPY);
    }
    void Cut(const std::vector<std::wstring>& names) {
        Select(names);
        program.Command(IDM_TOOLBAR_CUT);
    }

    /// Gives a command that may open dialogs, and goes on when it has begun.
    void Give(UINT command) {
        program.PostCommand(command);
        program.WaitUntilIdle();
    }
    void Paste() { Give(IDM_TOOLBAR_PASTE); }

    /// Waits until nothing of a job is on the screen any more, nor comes: between a question and the job that
    /// follows it there is no dialog for a moment.
    void FinishJob() {
        const auto clear = [&] { return !program.HasDialog() && !program.HasMessageBox(); };
        do {
            WaitFor("for the job to end", clear, 30000);
            program.WaitUntilIdle();
        } while (!clear());
        program.WaitUntilIdle(); // what follows the job is done, too
    }
    void PasteAll() {
        Paste();
        FinishJob();
    }

    Dialog WaitForFileQuestion() const { return program.WaitForDialog(L"Replace existing File?"); }
    Dialog WaitForFolderQuestion() const { return program.WaitForDialog(L"Replace existing Folder?"); }
    Dialog WaitForDeleteQuestion() const { return program.WaitForDialog(L"Confirm File Delete"); }
    static void Answer(Dialog question, int key) {
        question.Command(key);
        question.WaitUntilClosed();
    }
    void AnswerFile(int key) { Answer(WaitForFileQuestion(), key); }
    void AnswerFolder(int key) { Answer(WaitForFolderQuestion(), key); }
    void AnswerDelete(int key) { Answer(WaitForDeleteQuestion(), key); }

    /// The text of the message box that is up; it is answered.
    std::wstring ReadMessage() {
        MessageBoxShown box = program.WaitForMessageBox();
        const std::wstring text = box.Text();
        EXPECT_EQ(box.Caption(), L"");
        box.Answer(IDOK);
        return text;
    }

    /// So many files that a job on them takes a while: the host takes whole trees at once, the phone file by
    /// file.
    static int Many() { return RunsPhoneProgram() ? 500 : 3000; }

    /// How many processes of the host's work for the program.
    int Hands() {
        RunOnHost("count=0\nfor exe in /proc/[0-9]*/exe; do\n"
                  "case $(readlink \"$exe\") in \"$WINEPREFIX/drive_c/windows/hosthand\"*) "
                  "count=$((count + 1)) ;; esac\ndone\necho $count >hands");
        const int count = std::stoi(device.Content(L"\\hands"));
        device.Remove(L"\\hands");
        return count;
    }
    void WaitForHands(int count) {
        WaitFor("for the host's processes", [&] { return Hands() == count; });
    }

    /// The folders that a folder chooser offers.
    static TreeView TreeOf(const Dialog& chooser) {
        return TreeView(chooser.Item(IDC_CHOOSER_TREE).Window());
    }

    bool CanPaste() { return program.SoftKeyMenu().IsEnabled(IDM_TOOLBAR_PASTE); }
};

/// Files and folders in \From that are copied or moved, most of them to \To.
class TransferUi : public JobUi {
  protected:
    void SetUp() override {
        JobUi::SetUp();
        device.File(L"\\From\\a.txt", "new a");
        device.File(L"\\From\\b.txt", "new b");
        device.File(L"\\From\\Sub\\c.txt", "new c");
        device.File(L"\\From\\Sub\\Deep\\d.txt", "new d");
        device.Folder(L"\\To");
    }

    /// Begins a job and goes on when it, or its first question, is there.
    void CopyToTarget(const std::vector<std::wstring>& names, const std::wstring& target = L"\\To") {
        StartIn(L"\\From");
        Copy(names);
        Show(target);
        Paste();
    }
    void MoveToTarget(const std::vector<std::wstring>& names, const std::wstring& target = L"\\To") {
        StartIn(L"\\From");
        Cut(names);
        Show(target);
        Paste();
    }
    /// Pastes a file over one that another program holds: the job is allowed to, and says that it cannot.
    void PasteOverHeldFile() {
        const HeldFile held = device.Hold(L"\\To\\a.txt");
        Paste();
        AnswerFile(yesKey);
        EXPECT_EQ(ReadMessage(), L"'a.txt' cannot be copied.");
        FinishJob();
    }
};
