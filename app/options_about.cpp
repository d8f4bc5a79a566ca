// "About": which program this is.

#include "app/option_page.h"
#include "app/option_pages.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{{204, 205, 103}, IDR_MENUBAR_OK, true, true};

class AboutPage final : public OptionPage {
  public:
    AboutPage() : OptionPage(look) {}

  private:
    HWND OnInit() override { return nullptr; }
    void TakeOver() override {}
};

} // namespace

void ShowAboutPage(HWND owner) {
    AboutPage().Run(owner);
}
