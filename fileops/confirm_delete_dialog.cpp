#include "fileops/confirm_delete_dialog.h"

#include "fileops/file_job.h"
#include "fileops/job_dialog.h"
#include "resources/resource.h"

namespace {

constexpr int templates[3] = {258, 209, 104};
constexpr int openingReduction = 22; // pixels

struct Confirmation {
    const wchar_t* question;
    DeleteQuestion kind;
    int answer = modeAsk;
};

void HideControl(HWND dialog, int id) {
    if (HWND control = GetDlgItem(dialog, id))
        ShowWindow(control, SW_HIDE);
}

/// A template may have buttons for the answers that only a running job knows, in a row of their own.
void LeaveOutJobAnswers(HWND dialog) {
    RECT place{};
    HideControl(dialog, IDM_ANSWER_ALL);
    HideControl(dialog, IDM_ANSWER_CANCEL);
    GetWindowRect(dialog, &place);
    SetWindowPos(dialog, nullptr, 0, 0, place.right - place.left, place.bottom - place.top - openingReduction,
                 SWP_NOMOVE | SWP_NOZORDER);
    CenterOnMainWindow(dialog);
}

void OnInit(HWND dialog, const Confirmation& confirmation) {
    CenterOnMainWindow(dialog);
    SetDlgItemTextW(dialog, IDC_QUESTION_TEXT, confirmation.question);
    if (confirmation.kind == DeleteQuestion::Opening)
        LeaveOutJobAnswers(dialog);
    AddSoftKeys(dialog, IDR_MENUBAR_QUESTION);
    FillScreen(dialog);
}

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        OnInit(dialog, *reinterpret_cast<Confirmation*>(lParam));
        return TRUE;
    case WM_COMMAND: {
        const int answer = JobAnswerOf(LOWORD(wParam));
        reinterpret_cast<Confirmation*>(GetWindowLongPtrW(dialog, DWLP_USER))->answer = answer;
        EndDialog(dialog, answer == modeAsk || answer == modeAll ? 1 : 2);
        return TRUE;
    }
    default:
        return FALSE;
    }
}

} // namespace

int ConfirmDelete(HWND owner, const wchar_t* question, DeleteQuestion kind) {
    Confirmation confirmation{question, kind, modeSkipped};
    RunDialog(templates, owner, Procedure, &confirmation);
    return confirmation.answer;
}
