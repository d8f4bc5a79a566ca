#pragma once
// What the suites of the jobs on files begin with: names shown whole, and hands for a job's questions.

#include <string>
#include <vector>

#include "tests/support/ui_test.h"

class JobUi : public UiTest {
  protected:
    static constexpr int yesKey = IDM_ANSWER_YES;
    static constexpr int noKey = IDM_ANSWER_NO;
    static constexpr int allKey = IDM_ANSWER_ALL;
    static constexpr int cancelKey = IDM_ANSWER_CANCEL;

    void SetUp() override { device.SetOption(ListOption::NoExtension, 0); }

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

    void Answer(const std::wstring& title, int key) {
        Dialog question = program.WaitForDialog(title);
        question.Command(key);
        question.WaitUntilClosed();
    }
    void AnswerFile(int key) { Answer(L"Replace existing File?", key); }
    void AnswerFolder(int key) { Answer(L"Replace existing Folder?", key); }
    void AnswerDelete(int key) { Answer(L"Confirm File Delete", key); }

    /// The text of the message box that is up; it is answered.
    std::wstring ReadMessage() {
        MessageBoxShown box = program.WaitForMessageBox();
        const std::wstring text = box.Text();
        EXPECT_EQ(box.Caption(), L"");
        box.Answer(IDOK);
        return text;
    }

    bool CanPaste() { return program.SoftKeyMenu().IsEnabled(IDM_TOOLBAR_PASTE); }
};
