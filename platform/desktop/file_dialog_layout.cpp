// The host's file dialogs on a phone's screen: they are made for larger ones. From the top: the folder with
// the way up beside it, what is in it, the name, the type. The buttons become soft keys.

#include <algorithm>

#include "platform/ce_api.h"
#include "platform/desktop/device_shell.h"
#include "platform/desktop/menu_bar_layout.h"

#include <dlgs.h>

namespace {

constexpr int MARGIN = 3;

SIZE SizeOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return {place.right - place.left, place.bottom - place.top};
}

void Place(HWND window, int x, int y, int width, int height) {
    SetWindowPos(window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

/// The width of a tool bar's first button, which leads to the folder above; 0 without a tool bar.
int FirstButtonWidth(HWND toolBar) {
    RECT place{};
    TBBUTTON button{};
    for (int i = 0; SendMessageW(toolBar, TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&button)); ++i) {
        if (button.fsStyle & TBSTYLE_SEP)
            continue;
        SendMessageW(toolBar, TB_GETITEMRECT, i, reinterpret_cast<LPARAM>(&place));
        return place.right;
    }
    return 0;
}

int LabelWidth(HWND dialog) {
    int width = 0;
    HDC context = GetDC(dialog);
    HGDIOBJ oldFont = SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)));
    for (int id : {stc2, stc3}) {
        wchar_t text[64]{};
        RECT room{};
        GetDlgItemTextW(dialog, id, text, 64);
        DrawTextW(context, text, -1, &room, DT_CALCRECT | DT_SINGLELINE);
        width = std::max<int>(width, room.right);
    }
    SelectObject(context, oldFont);
    ReleaseDC(dialog, context);
    return width;
}

/// Puts a label and the field it names into one row.
void PlaceRow(HWND label, HWND field, int labelWidth, int y, int width) {
    int height = SizeOf(field).cy;
    int textHeight = std::min<int>(SizeOf(label).cy, height);
    int fieldLeft = MARGIN + labelWidth + MARGIN;
    Place(label, MARGIN, y + (height - textHeight) / 2, labelWidth, textHeight);
    Place(field, fieldLeft, y, width - MARGIN - fieldLeft, height);
}

void LayOut(HWND dialog, int width, int height) {
    HWND folder = GetDlgItem(dialog, FILE_DIALOG_PLACES);
    HWND name = NameField(dialog);
    HWND type = GetDlgItem(dialog, cmb1);
    HWND toolBar = FindWindowExW(dialog, nullptr, TOOLBARCLASSNAMEW, nullptr);

    int toolWidth = FirstButtonWidth(toolBar);
    Place(folder, MARGIN, MARGIN, width - 3 * MARGIN - toolWidth, height / 2); // with its list
    Place(toolBar, width - MARGIN - toolWidth, MARGIN, toolWidth, SizeOf(toolBar).cy);

    int labelWidth = LabelWidth(dialog);
    int typeTop = height - MARGIN - SizeOf(type).cy;
    int nameTop = typeTop - MARGIN - SizeOf(name).cy;
    PlaceRow(GetDlgItem(dialog, stc2), type, labelWidth, typeTop, width);
    PlaceRow(GetDlgItem(dialog, stc3), name, labelWidth, nameTop, width);

    // The files stand where their place is marked, now and whenever another folder is shown.
    int filesTop = std::max(MARGIN + SizeOf(folder).cy, MARGIN + SizeOf(toolBar).cy) + MARGIN;
    for (HWND files :
         {GetDlgItem(dialog, lst1), FindWindowExW(dialog, nullptr, L"SHELLDLL_DefView", nullptr)})
        Place(files, MARGIN, filesTop, width - 2 * MARGIN, nameTop - MARGIN - filesTop);
}

} // namespace

HWND NameField(HWND dialog) {
    HWND list = GetDlgItem(dialog, cmb13);
    return list ? list : GetDlgItem(dialog, edt1);
}

void FitFileDialog(HWND dialog) {
    RECT area = WorkArea();
    int width = area.right - area.left;
    int height = area.bottom - area.top;
    RemoveFrame(dialog);
    SetWindowPos(dialog, nullptr, area.left, area.top, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    for (int id : {stc4, chx1, pshHelp, IDOK, IDCANCEL})
        ShowWindow(GetDlgItem(dialog, id), SW_HIDE);
    MakePlaces(dialog);
    LayOut(dialog, width, height);

    MenuBarLayout keys;
    keys.keyCount = 2;
    keys.keys = {KeyForButton(GetDlgItem(dialog, IDOK)), KeyForButton(GetDlgItem(dialog, IDCANCEL))};
    MakeMenuBar(dialog, std::move(keys), false);
}
