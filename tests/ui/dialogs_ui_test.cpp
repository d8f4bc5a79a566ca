// Screens: 240x320 320x240 176x220
// Limit: 300 seconds

// Every dialog on each screen: nothing is cut off or covered, and the navigation pad leads everywhere.

#include "tests/support/stand_in.h"
#include "tests/ui/job_ui.h"
#include "tests/ui/layout.h"

namespace {

class DialogsUi : public JobUi {
  protected:
    static inline const std::wstring longName = L"a file whose name is rather long and says little.txt";

    void SetUp() override {
        JobUi::SetUp();
        device.File(L"\\From\\" + longName, "new");
        device.File(L"\\From\\Sub\\" + longName, "new");
        device.Folder(L"\\To");
    }
    /// The dialog that a command opens over the selected entry.
    Dialog Open(UINT command, const std::wstring& title, const std::wstring& selected = longName) {
        Select({selected});
        Give(command);
        return program.WaitForDialog(title);
    }
    /// The page that a menu entry of a dialog opens over it.
    Dialog OpenPage(Dialog& dialog, int command) {
        dialog.Command(command);
        return program.WaitForDialogOver(dialog);
    }
    static void Leave(Dialog dialog) {
        dialog.Command(IDCANCEL);
        dialog.WaitUntilClosed();
    }
    void ExpectUsableAndLeave(Dialog dialog) {
        ExpectUsable(program, dialog);
        Leave(dialog);
    }
};

TEST_F(DialogsUi, ReplaceQuestions) {
    device.File(L"\\To\\Sub\\" + longName, "old");
    StartIn(L"\\From");
    Copy({L"Sub"});
    Show(L"\\To");
    Paste();
    ExpectUsable(program, WaitForFolderQuestion());
    AnswerFolder(IDYES);
    ExpectUsable(program, WaitForFileQuestion());
    AnswerFile(noKey);
    FinishJob();
}

TEST_F(DialogsUi, DeleteQuestion) {
    StartIn(L"\\From");
    Select({longName});
    Give(IDM_FILE_DELETE);
    ExpectUsable(program, WaitForDeleteQuestion());
    AnswerDelete(noKey);
    FinishJob();
}

TEST_F(DialogsUi, Progress) {
    device.FileOfSize(L"\\From\\" + longName, 6ull << 30);
    StartIn(L"\\From");
    Copy({longName});
    Show(L"\\To");
    Paste();
    Dialog progress = program.WaitForDialog(L"Copy Files");
    WaitFor("for the name", [&] { return progress.Item(IDC_JOB_STATUS).Text() == longName; });
    ExpectUsable(program, progress);
    progress.Command(IDM_JOB_CANCEL);
    FinishJob();
}

TEST_F(DialogsUi, FolderChooserAndItsRenaming) {
    StartIn(L"\\From");
    Dialog chooser = Open(IDM_SENDTO_COPY_TO, L"Copy file to");
    ExpectUsable(program, chooser);
    chooser.Command(IDM_CHOOSER_RENAME);
    Dialog rename = program.WaitForDialog(L"Rename folder");
    ExpectUsable(program, rename);
    rename.Command(IDM_JOB_CANCEL);
    rename.WaitUntilClosed();
    Leave(chooser);
}

TEST_F(DialogsUi, FileSearch) {
    StartIn(L"\\From");
    Dialog search = Open(IDM_FILE_SEARCH, L"File Search");
    ExpectUsable(program, search);
    for (const int box : {IDC_SEARCH_DATE, IDC_SEARCH_SIZE})
        search.Item(box).Click();
    WaitFor("for the size", [&] { return search.Item(IDC_SEARCH_SIZE_MODE).IsEnabled(); });
    search.Item(IDC_SEARCH_DATE_MODE).PickEntry(1);
    WaitFor("for the second day", [&] { return search.Item(IDC_SEARCH_LAST_DAY).IsShown(); });
    ExpectUsable(program, search);
    Leave(search);
}

TEST_F(DialogsUi, LeftAndRightChangeAChoice) {
    StartIn(L"\\From");
    Dialog search = Open(IDM_FILE_SEARCH, L"File Search");
    search.Item(IDC_SEARCH_DATE).Click();
    Control choice = search.Item(IDC_SEARCH_DATE_MODE);
    WaitFor("for the choice", [&] { return choice.IsEnabled(); });
    choice.PickEntry(1);
    PostKey(choice.Window(), VK_RIGHT);
    EXPECT_TRUE(Eventually([&] { return choice.SelectedEntry() == 2; }));
    PostKey(choice.Window(), VK_LEFT);
    EXPECT_TRUE(Eventually([&] { return choice.SelectedEntry() == 1; }));
    Leave(search);
}

TEST_F(DialogsUi, Properties) {
    StartIn(L"\\From");
    ExpectUsableAndLeave(Open(IDM_MENU_PROPERTIES, L"Properties"));

    Dialog ofFolder = Open(IDM_MENU_PROPERTIES, L"Properties", L"Sub");
    ExpectUsable(program, ofFolder);
    ExpectUsableAndLeave(OpenPage(ofFolder, IDM_PROPERTIES_CONTENTS));
    Leave(ofFolder);

    device.File(L"\\To\\to it.lnk", "31#\"\\Windows\\device.ini\"");
    Show(L"\\To");
    Dialog ofShortcut = Open(IDM_MENU_PROPERTIES, L"Properties", L"to it.lnk");
    ExpectUsable(program, ofShortcut);
    ExpectUsableAndLeave(OpenPage(ofShortcut, IDM_PROPERTIES_SHORTCUT));
    Leave(ofShortcut);
}

TEST_F(DialogsUi, ChoosingAProgram) {
    const StandIn tool(L"\\Program Files\\own tool.exe");
    device.WriteText(L"HKCR\\atoolfile", L"", L"A Tool");
    device.WriteText(L"HKCR\\atoolfile\\Shell\\Open\\Command", L"", L"\"\\Program Files\\own tool.exe\" %1");
    StartIn(L"\\From");
    ExpectUsableAndLeave(Open(IDM_OPEN_CHOOSE_PROGRAM, L"Choose Program (" + longName + L")"));

    Show(L"\\Program Files");
    ExpectUsableAndLeave(Open(IDM_OPEN_PARAMETERS, L"Specify parameter", L"own tool.exe"));
}

TEST_F(DialogsUi, UserPaths) {
    StartIn(L"\\From");
    Dialog paths = Open(IDM_GOTO_USER_PATH, L"User Path");
    ExpectUsableAndLeave(paths);
}

TEST_F(DialogsUi, MemoryStatus) {
    device.StorageCard("Storage Card");
    StartIn(L"\\From");
    ExpectUsableAndLeave(Open(IDM_TOOLS_MEMORY_STATUS, L"Memory Status"));
}

TEST_F(DialogsUi, NamesOfAnyLengthLeaveTheReplaceQuestionsWhole) {
    for (const std::wstring& name :
         {std::wstring(120, L'x') + L".txt",
          L"many words " + std::wstring(60, L'i') + L" and yet more of them.txt"}) {
        device.File(L"\\From\\" + name, "new");
        device.File(L"\\To\\" + name, "old");
        device.Folder(L"\\From\\" + name + L".d");
        device.Folder(L"\\To\\" + name + L".d");
        StartIn(L"\\From");
        for (const std::wstring& entry : {name, name + L".d"}) {
            Copy({entry});
            Show(L"\\To");
            Paste();
            const bool folder = entry != name;
            Dialog question = folder ? WaitForFolderQuestion() : WaitForFileQuestion();
            const std::wstring text = question.Item(folder ? IDC_FOLDER_TEXT : IDC_JOB_STATUS).Text();
            EXPECT_TRUE(text.ends_with(L"' already exists.")) << Narrow(text);
            ExpectUsable(program, question);
            Answer(question, folder ? IDNO : noKey);
            FinishJob();
            Show(L"\\From");
        }
        program.Close();
    }
}

} // namespace
