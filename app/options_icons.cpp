// "Icons": whose icons the files have.

#include "app/app_state.h"
#include "app/option_page.h"
#include "app/option_pages.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{{242, 243, 117}, IDR_MENUBAR_OPTION_PAGE, true, true};

constexpr OptionBox<IconOptions> boxes[] = {
    {IDC_GENERIC_ICONS, &IconOptions::genericIcons},
    {IDC_ROM_ICONS, &IconOptions::ownRomIcons},
    {IDC_ARCHIVE_ICONS, &IconOptions::ownArchiveIcons},
};

class IconsPage final : public OptionPage {
  public:
    IconsPage() : OptionPage(look) {}
    bool IconsChanged() const { return iconsChanged_; }

  private:
    HWND OnInit() override {
        ShowBoxes<IconOptions>(boxes, appState.fileList.iconOptions);
        return nullptr;
    }

    void TakeOver() override {
        IconOptions& options = appState.fileList.iconOptions;
        const IconOptions before = options;
        TakeBoxes<IconOptions>(boxes, options);
        iconsChanged_ = options != before;
    }

    bool iconsChanged_ = false;
};

} // namespace

bool ShowIconsPage(HWND owner) {
    IconsPage page;
    page.Run(owner);
    return page.IconsChanged();
}
