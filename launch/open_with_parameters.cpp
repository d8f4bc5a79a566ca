#include "launch/open_with_parameters.h"

#include "app/app_state.h"
#include "common/device_info.h"
#include "common/dialog_frame.h"
#include "launch/shell_start.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{
    {IDD_PARAMETERS_240, IDD_PARAMETERS_320, IDD_PARAMETERS_SMALL}, IDR_MENUBAR_PARAMETERS, true, true};

constexpr std::size_t parametersLimit = 512;

/// Ends with 1 once the file is opened, 2 when the user cancelled.
class ParametersDialog final : public DialogFrame {
  public:
    explicit ParametersDialog(const Path& file) : DialogFrame(look), file_(file) {}

  private:
    HWND OnInit() override {
        wchar_t question[pathCapacity + 64];
        // The view ends with the path's own terminator.
        FormatText(question, L"Input parameter to open file '%s'.", LeafOf(file_.View()).data());
        SetDlgItemTextW(Window(), IDC_PARAMETERS_QUESTION, question);
        SendMessageW(Control(IDC_PARAMETERS), EM_LIMITTEXT, parametersLimit, 0);
        ce::SipShowIM(SIPF_ON);
        return Control(IDC_PARAMETERS);
    }

    void OnCommand(int id, int) override {
        if (id == IDOK) {
            Open();
            End(1);
        } else if (id == IDCANCEL) {
            End(2);
        }
    }

    void Open() const {
        wchar_t parameters[parametersLimit + 1] = L"";
        GetDlgItemTextW(Window(), IDC_PARAMETERS, parameters, static_cast<int>(std::size(parameters)));
        StartThroughShell(
            {.file = file_.Text(), .parameters = parameters, .directory = L"", .owner = Window()});
    }

    const Path& file_;
};

} // namespace

void openWithParameters() {
    const std::optional<SelectionEntry> file = SelectedFile();
    Path path;
    if (!file || !path.AssignChild(file->folder.data(), file->name.data()))
        return;
    const bool panelShown = (GetSipFlags() & SIPF_ON) != 0;
    ParametersDialog(path).Run(appState.mainWindow);
    if (!panelShown)
        ce::SipShowIM(SIPF_OFF);
}
