#include "companions/archiver/window/replace_question.h"

#include <string>

#include "companions/archiver/window/dialog_parts.h"
#include "companions/archiver/window/resource.h"
#include "companions/archiver/window/texts.h"
#include "platform/handles.h"
#include "resources/resource.h"

namespace archiver {

namespace {

constexpr DialogTemplates templates = {226, 227, 203};

/// The controls that show one of the two files.
struct FileControls {
    int icon;
    int size;
    int time;
};

constexpr FileControls thereControls{IDC_OLD_ICON, IDC_OLD_SIZE, IDC_OLD_TIME};
constexpr FileControls comingControls{IDC_NEW_ICON, IDC_NEW_SIZE, IDC_NEW_TIME};

std::wstring QuestionText(const ReplaceQuestion& question) {
    const std::wstring name(question.path.substr(question.path.rfind(L'\\') + 1));
    if (question.attributes & FILE_ATTRIBUTE_SYSTEM)
        return L"SYSTEM file '" + name + L"' already exists.";
    if (question.attributes & FILE_ATTRIBUTE_READONLY)
        return L"this READ-ONLY file '" + name + L"' already exists.";
    return L"this file '" + name + L"' already exists.";
}

ReplaceAnswer AnswerOf(int command) {
    switch (command) {
    case IDM_ANSWER_YES:
        return ReplaceAnswer::Yes;
    case IDM_ANSWER_ALL:
        return ReplaceAnswer::All;
    case IDM_ANSWER_NONE:
        return ReplaceAnswer::NoneOfAll;
    case IDM_ANSWER_CANCEL:
        return ReplaceAnswer::Cancel;
    default:
        return ReplaceAnswer::No;
    }
}

class Question {
  public:
    explicit Question(const ReplaceQuestion& question) : question_(question) {}

    ReplaceAnswer Ask(HWND owner) {
        if (const DLGTEMPLATE* shape = FindTemplate(templates))
            DialogBoxIndirectParamW(Library(), shape, owner, Procedure, reinterpret_cast<LPARAM>(this));
        return answer_;
    }

  private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* question = reinterpret_cast<Question*>(GetWindowLongPtrW(dialog, DWLP_USER));
        if (message == WM_INITDIALOG && !question) {
            SetWindowLongPtrW(dialog, DWLP_USER, lParam);
            reinterpret_cast<Question*>(lParam)->Begin(dialog);
            return TRUE;
        }
        if (message != WM_COMMAND || !question)
            return FALSE;
        question->answer_ = AnswerOf(LOWORD(wParam));
        EndDialog(dialog, 0);
        return TRUE;
    }

    /// Under "From:" stands the file that is there, under "To:" the one that comes, as in the copy job.
    void Begin(HWND dialog) {
        FitDialog(dialog, IDR_MENUBAR_ARCHIVER_QUESTION);
        SetDlgItemTextW(dialog, IDC_JOB_STATUS, QuestionText(question_).c_str());
        Show(dialog, thereControls, question_.there);
        Show(dialog, comingControls, question_.coming);
        // Both have the name that tells the icon.
        SHFILEINFOW info{};
        ce::SHGetFileInfo(std::wstring(question_.path).c_str(), 0, &info, sizeof(info), SHGFI_ICON);
        icon_ = IconHandle(info.hIcon);
        for (const int control : {thereControls.icon, comingControls.icon})
            SendDlgItemMessageW(dialog, control, STM_SETICON, reinterpret_cast<WPARAM>(icon_.Get()), 0);
        ShowWindow(dialog, SW_SHOW);
        SetForegroundWindow(dialog);
    }

    static void Show(HWND dialog, const FileControls& controls, const FileFacts& file) {
        SetDlgItemTextW(dialog, controls.size, (L"Size : " + NumberText(file.size) + L" bytes").c_str());
        if (file.time)
            SetDlgItemTextW(dialog, controls.time, (L"Modified : " + MomentText(*file.time)).c_str());
    }

    const ReplaceQuestion& question_;
    IconHandle icon_;
    ReplaceAnswer answer_ = ReplaceAnswer::No;
};

} // namespace

ReplaceAnswer AskReplaceQuestion(HWND owner, const ReplaceQuestion& question) {
    return Question(question).Ask(owner);
}

} // namespace archiver
