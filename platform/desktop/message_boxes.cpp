// Message boxes as on the phone: as wide as its screen allows, in the middle of the work area, their caption
// in the title strip, and answered by soft keys besides their own buttons.

#include <algorithm>
#include <span>
#include <vector>

#include "platform/ce_api.h"
#include "platform/desktop/device_shell.h"
#include "platform/desktop/menu_bar_layout.h"
#include "platform/desktop/scrolled_text.h"
#include "platform/desktop/subclass.h"

namespace {

constexpr int TEXT_CONTROL = 0xFFFF;
constexpr int MARGIN = 8;
constexpr int EDGE = 4; // what the widest box leaves free beside it

HWND TextControl(HWND dialog) {
    return GetDlgItem(dialog, TEXT_CONTROL);
}

RECT PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

bool IsShown(HWND control, const wchar_t* className) {
    wchar_t name[8]{};
    GetClassNameW(control, name, 8);
    return _wcsicmp(name, className) == 0 && (GetWindowLongW(control, GWL_STYLE) & WS_VISIBLE);
}

/// Null when the box has no icon.
HWND IconControl(HWND box) {
    HWND control = GetWindow(box, GW_CHILD);
    while (control && (control == TextControl(box) || !IsShown(control, L"Static")))
        control = GetWindow(control, GW_HWNDNEXT);
    return control;
}

/// The box's buttons from the left.
std::vector<HWND> ButtonsOf(HWND box) {
    std::vector<HWND> buttons;
    for (HWND control = GetWindow(box, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT))
        if (IsShown(control, L"Button"))
            buttons.push_back(control);
    std::ranges::sort(buttons, {}, [](HWND button) { return PlaceOf(button).left; });
    return buttons;
}

/// What does not find a key of its own stands in the menu of the right one.
MenuBarKey MenuKeyForButton(std::span<const HWND> buttons, MenuHandle* menu) {
    menu->Reset(CreatePopupMenu());
    for (HWND button : buttons) {
        MenuBarKey entry = KeyForButton(button);
        AppendMenuW(menu->Get(), MF_STRING, entry.command, entry.text.data());
    }
    MenuBarKey key;
    key.state = TBSTATE_ENABLED;
    key.opensPopup = true;
    key.popup = menu->Get();
    lstrcpynW(key.text.data(), L"Menu", static_cast<int>(key.text.size()));
    return key;
}

void AddSoftKeys(HWND box) {
    std::vector<HWND> buttons = ButtonsOf(box);
    MenuBarLayout layout;
    layout.keyCount = static_cast<int>(std::min(buttons.size(), layout.keys.size()));
    for (int i = 0; i < layout.keyCount; ++i)
        layout.keys[i] = KeyForButton(buttons[i]);
    if (buttons.size() > layout.keys.size())
        layout.keys[1] = MenuKeyForButton(std::span(buttons).subspan(1), &layout.menu);
    MakeMenuBar(box, std::move(layout), false);
}

// --- Layout ---

SIZE SizeOf(HWND window) {
    RECT place = PlaceOf(window);
    return {place.right - place.left, place.bottom - place.top};
}

/// The room that the box's text takes when it is broken into lines of at most `width`.
SIZE TextSize(HWND control, int width) {
    std::vector<wchar_t> text(GetWindowTextLengthW(control) + 1);
    GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    RECT room{0, 0, width, 0};
    HDC context = GetDC(control);
    HGDIOBJ oldFont = SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    DrawTextW(context, text.data(), -1, &room, DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX);
    SelectObject(context, oldFont);
    ReleaseDC(control, context);
    return {room.right, room.bottom};
}

void Place(HWND window, int x, int y, SIZE size) {
    SetWindowPos(window, nullptr, x, y, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

/// The width of a row of buttons, with gaps between.
int RowWidth(std::span<const HWND> buttons) {
    int width = -MARGIN;
    for (HWND button : buttons)
        width += SizeOf(button).cx + MARGIN;
    return width;
}

void PlaceRow(std::span<const HWND> buttons, int x, int y) {
    for (HWND button : buttons) {
        SIZE size = SizeOf(button);
        Place(button, x, y, size);
        x += size.cx + MARGIN;
    }
}

/// Gives the box of this size within a line around and the middle of the work area.
void FrameAndCenter(HWND box, int width, int height) {
    RemoveFrame(box);
    SetWindowLongW(box, GWL_STYLE, GetWindowLongW(box, GWL_STYLE) | WS_BORDER);
    RECT outer{0, 0, width, height};
    AdjustWindowRectEx(&outer, WS_BORDER, FALSE, 0);
    SIZE size{outer.right - outer.left, outer.bottom - outer.top};
    RECT area = WorkArea();
    Place(box, std::max<int>((area.left + area.right - size.cx) / 2, area.left),
          std::max<int>((area.top + area.bottom - size.cy) / 2, area.top), size);
    SetWindowPos(box, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

/// Lays the box out anew: the platform's own layout counts on wider screens than a phone's. The icon stands
/// left of the text, both above the buttons.
void LayOut(HWND box) {
    HWND text = TextControl(box);
    HWND icon = IconControl(box);
    std::vector<HWND> buttons = ButtonsOf(box);
    RECT area = WorkArea();
    SIZE iconSize = icon ? SizeOf(icon) : SIZE{-MARGIN, 0};
    int textLeft = MARGIN + iconSize.cx + MARGIN;

    // A path without blanks is broken as well.
    SetWindowLongW(text, GWL_STYLE, GetWindowLongW(text, GWL_STYLE) | SS_EDITCONTROL);
    SIZE textSize = TextSize(text, area.right - area.left - 2 * EDGE - MARGIN - textLeft);
    int buttonHeight = buttons.empty() ? 0 : SizeOf(buttons[0]).cy;
    // A very long text gives way to the buttons, and is scrolled in what is left.
    const int room = area.bottom - area.top - EDGE - 3 * MARGIN - buttonHeight;
    const bool isTooLong = textSize.cy > room;
    if (isTooLong)
        textSize = {area.right - area.left - EDGE - MARGIN - textLeft, room};
    int rowWidth = RowWidth(buttons);
    int width = std::max<int>(textLeft + textSize.cx + MARGIN, rowWidth + 2 * MARGIN);
    int rowTop = MARGIN + std::max(iconSize.cy, textSize.cy) + MARGIN;

    if (icon)
        Place(icon, MARGIN, MARGIN, iconSize);
    Place(text, textLeft, MARGIN + std::max<int>((iconSize.cy - textSize.cy) / 2, 0), textSize);
    if (isTooLong)
        ScrollText(text, {textLeft, MARGIN, textLeft + textSize.cx, MARGIN + textSize.cy});
    PlaceRow(buttons, (width - rowWidth) / 2, rowTop);
    FrameAndCenter(box, width, rowTop + buttonHeight + MARGIN);
}

LRESULT CALLBACK MessageBoxProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    bool appears = message == WM_SHOWWINDOW && wParam && !ce::SHFindMenuBar(dialog);
    if (appears && TextControl(dialog) && !IsPhoneDialog(dialog)) {
        LayOut(dialog);
        AddSoftKeys(dialog);
    }
    return CallNextProc(MessageBoxProc, dialog, message, wParam, lParam);
}

} // namespace

void FitMessageBox(HWND window, const CREATESTRUCTW& made) {
    bool dialog = GetClassLongW(window, GCW_ATOM) == reinterpret_cast<UINT_PTR>(WC_DIALOG);
    // The program's own dialogs come from its module, message boxes do not, nor do the dialogs of a library.
    if (dialog && made.hInstance != ShellInstance())
        Subclass(window, MessageBoxProc);
}
