// "System Path": where the start menu, the favourites and the network are.

#include "app/app_state.h"
#include "app/option_page.h"
#include "app/option_pages.h"
#include "app/option_rules.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{{244, 245, 118}, IDR_MENUBAR_OPTION_PAGE, true, true};

class SystemPathPage final : public OptionPage {
  public:
    SystemPathPage() : OptionPage(look) {}

  private:
    HWND OnInit() override {
        const Settings& settings = appState.settings;
        ShowPath(IDC_START_MENU_PATH, settings.startMenuPath);
        ShowPath(IDC_FAVORITES_PATH, settings.favoritesPath);
        ShowPath(IDC_NETWORK_PATH, settings.networkPath);
        return nullptr;
    }

    void TakeOver() override {
        TypedFolders typed;
        ReadPath(IDC_START_MENU_PATH, typed.startMenu);
        ReadPath(IDC_FAVORITES_PATH, typed.favorites);
        ReadPath(IDC_NETWORK_PATH, typed.network);
        if (TakeSystemFolders(appState.settings, typed))
            appState.fileList.BuildFavorites();
    }
};

} // namespace

void ShowSystemPathPage(HWND owner) {
    SystemPathPage().Run(owner);
}
