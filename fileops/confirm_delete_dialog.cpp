#include "fileops/confirm_delete_dialog.h"

#include "common/dialog_frame.h"
#include "fileops/file_job.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{{258, 209, 104}, IDR_MENUBAR_QUESTION};

class ConfirmDeleteDialog final : public DialogFrame {
  public:
    explicit ConfirmDeleteDialog(const wchar_t* question) : DialogFrame(look), question_(question) {}
    int Answer() const { return answer_; }

  private:
    HWND OnInit() override {
        SetDlgItemTextW(Window(), IDC_QUESTION_TEXT, question_);
        return nullptr;
    }

    void OnCommand(int id, int) override {
        answer_ = JobAnswerOf(id);
        End(AgreesTo(answer_) ? 1 : 2);
    }

    const wchar_t* question_;
    int answer_ = modeSkipped;
};

} // namespace

int ConfirmDelete(HWND owner, const wchar_t* question) {
    ConfirmDeleteDialog dialog(question);
    dialog.Run(owner);
    return dialog.Answer();
}
