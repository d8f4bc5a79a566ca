// "Controls": how the list shows folders and answers the stylus.

#include "app/app_state.h"
#include "app/option_page.h"
#include "app/option_pages.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{{236, 237, 136}, IDR_MENUBAR_OPTION_PAGE, true, true};

constexpr OptionBox<ListOptions> boxes[] = {
    {IDC_UP_LEVEL, &ListOptions::showUpLevel},
    {IDC_NO_COLUMN_NAMES, &ListOptions::noColumnNames},
};

class ControlsPage final : public OptionPage {
  public:
    ControlsPage() : OptionPage(look) {}

  private:
    HWND OnInit() override {
        const ListOptions& options = appState.fileList.options;
        ShowBoxes<ListOptions>(boxes, options);
        Check(IDC_DOUBLE_TAP, !options.singleTapOpens);
        Check(IDC_DROP_MENU, appState.settings.dragContextMenu != 0);
        return nullptr;
    }

    void TakeOver() override {
        ListOptions& options = appState.fileList.options;
        TakeBoxes<ListOptions>(boxes, options);
        options.singleTapOpens = !IsChecked(IDC_DOUBLE_TAP);
        appState.settings.dragContextMenu = IsChecked(IDC_DROP_MENU);
    }
};

} // namespace

void ShowControlsPage(HWND owner) {
    ControlsPage().Run(owner);
}
