// "Font": the font of the panes.

#include <cwchar>

#include "app/app_state.h"
#include "app/option_page.h"
#include "app/option_pages.h"
#include "app/option_rules.h"
#include "app/pane_layout.h"
#include "platform/handles.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{{240, 241, 116}, IDR_MENUBAR_OPTION_FONT, true, true};

constexpr wchar_t systemFont[] = L"System";

void AddEntry(HWND list, const wchar_t* text) {
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

int CALLBACK AddFont(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM list) {
    AddEntry(reinterpret_cast<HWND>(list), font->lfFaceName);
    return TRUE;
}

/// The selected entry's text. False, with `text` as it was, when there is none or it is too long.
bool ReadSelection(HWND list, std::span<wchar_t> text) {
    const auto selected = static_cast<WPARAM>(SendMessageW(list, LB_GETCURSEL, 0, 0));
    const LRESULT length = SendMessageW(list, LB_GETTEXTLEN, selected, 0);
    if (length < 0 || static_cast<std::size_t>(length) >= text.size())
        return false;
    return SendMessageW(list, LB_GETTEXT, selected, reinterpret_cast<LPARAM>(text.data())) >= 0;
}

class FontPage final : public OptionPage {
  public:
    FontPage() : OptionPage(look) {}

  private:
    HWND OnInit() override;
    void OnCommand(int id, int notification) override;
    void TakeOver() override;

    void FillNames() const;
    void FillSizes() const;
    void FollowBox() const;
};

HWND FontPage::OnInit() {
    Check(IDC_CHANGE_FONT, appState.settings.fontChange != 0);
    FillNames();
    FillSizes();
    FollowBox();
    return nullptr;
}

void FontPage::OnCommand(int id, int notification) {
    switch (id) {
    case IDC_CHANGE_FONT:
        appState.settings.fontChange = IsChecked(id);
        return FollowBox();
    case IDM_FONT_FOCUS_CHANGE:
        SetFocus(Control(IDC_CHANGE_FONT));
        return;
    case IDM_FONT_FOCUS_NAMES:
        SetFocus(Control(IDC_FONT_NAMES));
        return;
    case IDM_FONT_FOCUS_SIZES:
        SetFocus(Control(IDC_FONT_SIZES));
        return;
    default:
        return OptionPage::OnCommand(id, notification);
    }
}

void FontPage::TakeOver() {
    Settings& settings = appState.settings;
    settings.fontChange = IsChecked(IDC_CHANGE_FONT);
    ReadSelection(Control(IDC_FONT_NAMES), settings.fontName);
    wchar_t size[16];
    if (ReadSelection(Control(IDC_FONT_SIZES), size))
        settings.fontSize = _wtol(size);
    ApplyPaneFont();
}

void FontPage::FillNames() const {
    HWND list = Control(IDC_FONT_NAMES);
    AddEntry(list, systemFont);
    HDC context = GetDC(Window());
    ce::EnumFontsW(context, nullptr, AddFont, reinterpret_cast<LPARAM>(list));
    ReleaseDC(Window(), context);
    const LRESULT found = SendMessageW(list, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                       reinterpret_cast<LPARAM>(appState.settings.fontName.data()));
    SendMessageW(list, LB_SETCURSEL, found < 0 ? 0 : static_cast<WPARAM>(found), 0);
}

void FontPage::FillSizes() const {
    HWND list = Control(IDC_FONT_SIZES);
    for (const int size : fontSizes) {
        wchar_t text[16];
        FormatText(text, L"%d", size);
        AddEntry(list, text);
    }
    SendMessageW(list, LB_SETCURSEL, FontSizeIndex(appState.settings.fontSize), 0);
}

void FontPage::FollowBox() const {
    for (const int list : {IDC_FONT_NAMES, IDC_FONT_SIZES})
        Enable(list, IsChecked(IDC_CHANGE_FONT));
}

} // namespace

void ShowFontPage(HWND owner) {
    FontPage().Run(owner);
}
