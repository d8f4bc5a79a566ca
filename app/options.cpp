#include "app/options.h"

#include "app/app_state.h"
#include "app/menu_state.h"
#include "app/option_page.h"
#include "app/option_pages.h"
#include "filelist/view_styles.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{{IDD_OPTIONS, IDD_OPTIONS, IDD_OPTIONS}, IDR_MENUBAR_OPTIONS, true, true};

constexpr OptionBox<ListOptions> boxes[] = {
    {IDC_HIDE_HIDDEN, &ListOptions::hideHiddenFiles},
    {IDC_HIDE_ROM, &ListOptions::hideRomFiles},
    {IDC_HIDE_SYSTEM, &ListOptions::hideSystemFiles},
    {IDC_NO_EXTENSION, &ListOptions::noExtension},
    {IDC_REMEMBER_FOLDER, &ListOptions::rememberLastFolder},
    {IDC_NO_SHORTCUT_MENTION, &ListOptions::noShortcutMention},
};

class MainPage final : public OptionPage {
  public:
    MainPage() : OptionPage(look) {}
    bool IconsChanged() const { return iconsChanged_; }

  private:
    HWND OnInit() override;
    void OnCommand(int id, int notification) override;
    void TakeOver() override;

    bool iconsChanged_ = false;
};

HWND MainPage::OnInit() {
    ShowBoxes<ListOptions>(boxes, appState.fileList.options);
    return nullptr;
}

void MainPage::OnCommand(int id, int notification) {
    switch (id) {
    case IDM_OPTIONS_ICONS:
        iconsChanged_ |= ShowIconsPage(Window());
        return;
    case IDM_OPTIONS_FONT:
        return ShowFontPage(Window());
    case IDM_OPTIONS_CONTROLS:
        return ShowControlsPage(Window());
    case IDM_OPTIONS_COMPRESSION:
        return ShowCompressionPage(Window());
    case IDM_OPTIONS_SYSTEM_PATH:
        return ShowSystemPathPage(Window());
    case IDM_OPTIONS_ABOUT:
        return ShowAboutPage(Window());
    default:
        return OptionPage::OnCommand(id, notification);
    }
}

void MainPage::TakeOver() {
    FileList& list = appState.fileList;
    TakeBoxes<ListOptions>(boxes, list.options);
    // The page has no controls for these two, which only the registry can set: confirming it ends them.
    list.hideFolders = 0;
    list.dateMode = 0;
}

void ShowListAnew() {
    FileList& list = appState.fileList;
    list.RebuildMenus();
    if (ShownStyle(list.options) == viewReport)
        list.ApplyViewStyle(list.options.extendedStyle ? IDM_VIEW_DETAILED_LINE : IDM_VIEW_DETAILED);
    list.GoToFolder(list.CurrentFolder().View(), treeSelectOnly);
    UpdateMenuState();
}

} // namespace

bool ShowOptions() {
    MainPage page;
    const bool confirmed = page.Run(appState.mainWindow) == IDOK;
    if (page.IconsChanged())
        appState.fileList.BuildIconSets();
    if (!confirmed && !page.IconsChanged())
        return false;
    ShowListAnew();
    return true;
}
