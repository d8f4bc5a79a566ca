#include "tests/support/dialog_layout.h"

#include <algorithm>
#include <cwctype>
#include <set>

#include <commctrl.h>

#include "tests/support/input.h"
#include "tests/support/inside.h"
#include "tests/support/live_window.h"
#include "tests/support/soft_keys.h"

namespace {

std::vector<HWND> ShownControls(HWND dialog) {
    std::vector<HWND> controls = ChildrenOf(dialog);
    std::erase_if(controls,
                  [&](HWND child) { return GetParent(child) != dialog || !IsWindowVisible(child); });
    return controls;
}

std::wstring NameOf(HWND control) {
    return ClassOf(control) + L" " + std::to_wstring(GetDlgCtrlID(control)) + L" '" + TextOf(control) + L"'";
}

bool Overlap(const RECT& one, const RECT& other) {
    RECT common;
    return IntersectRect(&common, &one, &other);
}

/// The size of a text in the control's font when it may be `width` pixels wide.
SIZE Measure(HWND control, const std::wstring& text, LONG width, UINT format) {
    const LOGFONTW description = FontOf(control);
    const HDC screen = GetDC(nullptr);
    const HFONT font = CreateFontIndirectW(&description);
    const HGDIOBJ previous = SelectObject(screen, font);
    RECT area{0, 0, width, 0};
    DrawTextW(screen, text.c_str(), -1, &area, DT_CALCRECT | format);
    SelectObject(screen, previous);
    DeleteObject(font);
    ReleaseDC(nullptr, screen);
    return {area.right, area.bottom};
}

bool ShowsText(HWND label) {
    const DWORD type = StyleOf(label) & SS_TYPEMASK;
    return type == SS_LEFT || type == SS_CENTER || type == SS_RIGHT || type == SS_SIMPLE ||
           type == SS_LEFTNOWORDWRAP;
}

bool IsCutOff(HWND control) {
    const std::wstring text = TextOf(control);
    const std::wstring className = ClassOf(control);
    const DWORD style = StyleOf(control);
    RECT client;
    GetClientRect(control, &client);
    if (className == L"Static") {
        if (!ShowsText(control) || text.empty())
            return false;
        const bool wraps = (style & SS_TYPEMASK) <= SS_RIGHT && !(style & SS_ELLIPSISMASK);
        const SIZE needed =
            Measure(control, text, client.right,
                    (wraps ? DT_WORDBREAK : DT_SINGLELINE) | (style & SS_NOPREFIX ? DT_NOPREFIX : 0));
        const bool shortened = (style & SS_ELLIPSISMASK) != 0;
        return needed.cy > client.bottom || (needed.cx > client.right && !shortened);
    }
    if (className == L"Button") {
        const bool isPushed = (style & BS_TYPEMASK) <= BS_DEFPUSHBUTTON;
        const LONG mark = isPushed ? 4 : 17; // the frame, or the box with its gap
        const UINT format = style & BS_MULTILINE ? DT_WORDBREAK : DT_SINGLELINE;
        const SIZE needed = Measure(control, text, client.right - mark, format);
        return needed.cx > client.right - mark || needed.cy > client.bottom;
    }
    if (className == L"Edit" && !(style & ES_MULTILINE))
        return Measure(control, L"Ag", client.right, DT_SINGLELINE).cy > client.bottom;
    if (className == L"ComboBox") {
        const LONG room = client.right - GetSystemMetrics(SM_CXVSCROLL) - 6;
        const Texts entries = Control(control).Entries();
        return std::any_of(entries.begin(), entries.end(), [&](const std::wstring& entry) {
            return Measure(control, entry, room, DT_SINGLELINE | DT_NOPREFIX).cx > room;
        });
    }
    return false;
}

/// The letter behind a single "&"; 0 when there is none.
wchar_t MnemonicOf(HWND control) {
    const std::wstring className = ClassOf(control);
    if (className != L"Button" && !(className == L"Static" && !(StyleOf(control) & SS_NOPREFIX)))
        return 0;
    const std::wstring text = TextOf(control);
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] == L'&' && text[++i] != L'&')
            return static_cast<wchar_t>(std::towupper(text[i]));
    }
    return 0;
}

bool TakesInput(HWND control) {
    const std::wstring className = ClassOf(control);
    const DWORD type = StyleOf(control) & BS_TYPEMASK;
    if (!IsWindowEnabled(control))
        return false;
    if (className == L"Button")
        return type != BS_GROUPBOX;
    if (className == L"Edit")
        return !(StyleOf(control) & ES_READONLY);
    return className == L"ComboBox" || className == L"ListBox" || className == WC_LISTVIEWW ||
           className == WC_TREEVIEWW || className == DATETIMEPICK_CLASSW;
}

/// The control of the dialog that has the keyboard, or one of whose children has.
HWND FocusedControl(const Program& program, HWND dialog) {
    HWND control = program.Focus();
    while (control && GetParent(control) != dialog)
        control = GetParent(control);
    return control;
}

/// The controls that the key leads to, pressed often enough for long lists on the way.
std::set<HWND> ControlsOnTheWay(const Program& program, HWND dialog, WORD key, std::size_t wanted) {
    constexpr int presses = 120;
    std::set<HWND> met{FocusedControl(program, dialog)};
    for (int press = 0; press < presses && met.size() < wanted; ++press) {
        PostKey(program.Focus(), key);
        program.WaitUntilIdle();
        met.insert(FocusedControl(program, dialog));
    }
    return met;
}

} // namespace

Texts LayoutFlaws(const Dialog& dialog) {
    Texts flaws;
    RECT keys{};
    if (const HWND bar = SoftKeyBarOf(dialog.Window()))
        keys = PlaceOf(bar);
    const std::vector<HWND> controls = ShownControls(dialog.Window());
    std::set<wchar_t> mnemonics;
    for (auto control = controls.begin(); control != controls.end(); ++control) {
        const RECT place = PlaceOf(*control);
        const std::wstring name = NameOf(*control);
        if (!LiesWithin(place, dialog.Place()))
            flaws.push_back(name + L" is not all on the dialog");
        if (Overlap(place, keys))
            flaws.push_back(name + L" is under the soft keys");
        for (auto other = controls.begin(); other != control; ++other) {
            if (Overlap(place, PlaceOf(*other)))
                flaws.push_back(name + L" overlaps " + NameOf(*other));
        }
        if (IsCutOff(*control))
            flaws.push_back(name + L" is cut off");
        const wchar_t mnemonic = MnemonicOf(*control);
        if (mnemonic && !mnemonics.insert(mnemonic).second)
            flaws.push_back(name + L" has a mnemonic that another has");
    }
    return flaws;
}

Texts UnreachableControls(const Program& program, const Dialog& dialog) {
    std::vector<HWND> wanted = ShownControls(dialog.Window());
    std::erase_if(wanted, [](HWND control) { return !TakesInput(control); });
    Texts unreachable;
    for (const WORD key : {VK_DOWN, VK_UP}) {
        const std::set<HWND> met = ControlsOnTheWay(program, dialog.Window(), key, wanted.size());
        for (HWND control : wanted) {
            if (!met.contains(control))
                unreachable.push_back(NameOf(control) + (key == VK_DOWN ? L" downwards" : L" upwards"));
        }
    }
    return unreachable;
}
