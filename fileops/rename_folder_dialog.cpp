#include "fileops/rename_folder_dialog.h"

#include "common/dialog_frame.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{{121, 121, 121}, IDR_MENUBAR_RENAME, true};

class RenameFolderDialog final : public DialogFrame {
  public:
    explicit RenameFolderDialog(PathText& name) : DialogFrame(look), renameBuffer_(name) {}

  private:
    HWND OnInit() override {
        Prepare(IDC_RENAME_OTHER);
        Prepare(IDC_RENAME_COUNTED);
        return Control(IDC_RENAME_COUNTED);
    }

    void OnCommand(int id, int) override {
        if (id == IDM_RENAME_OK) {
            // The field under "Old Name : " is the one that counts; it has always been so.
            GetDlgItemTextW(Window(), IDC_RENAME_COUNTED, renameBuffer_.data(),
                            static_cast<int>(renameBuffer_.size()));
            End(IDOK);
        } else if (id == IDM_JOB_CANCEL || id == IDCANCEL) {
            End(IDCANCEL);
        }
    }

    void Prepare(int id) {
        SendDlgItemMessageW(Window(), id, EM_LIMITTEXT, pathCapacity - 1, 0);
        SetDlgItemTextW(Window(), id, renameBuffer_.data());
    }

    PathText& renameBuffer_;
};

} // namespace

bool AskFolderName(HWND owner, PathText& name) {
    return RenameFolderDialog(name).Run(owner) == IDOK;
}
