// Popup menus as on the phone: between the bars, and picked by number.

#include <algorithm>

#include "platform/ce_api.h"
#include "platform/desktop/device_shell.h"
#include "platform/desktop/subclass.h"

namespace {

constexpr DWORD MENU_WINDOW_ATOM = 32768;

bool IsSeparator(HMENU menu, int position) {
    MENUITEMINFOW item{};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_FTYPE;
    return GetMenuItemInfoW(menu, position, TRUE, &item) && (item.fType & MFT_SEPARATOR);
}

bool IsEnabled(HMENU menu, int position) {
    return (GetMenuState(menu, position, MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED)) == 0;
}

/// The position of the entry with `number`, counting from 1; -1 when there are not so many.
int PositionOfNumber(HMENU menu, int number) {
    int count = GetMenuItemCount(menu);
    for (int position = 0; position < count; ++position)
        if (!IsSeparator(menu, position) && --number == 0)
            return position;
    return -1;
}

LRESULT CALLBACK MenuWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_WINDOWPOSCHANGING && lParam) {
        auto place = reinterpret_cast<WINDOWPOS*>(lParam);
        RECT area = WorkArea();
        if ((place->flags & (SWP_NOMOVE | SWP_NOSIZE)) == 0) {
            place->x = std::max<int>(std::min<int>(place->x, area.right - place->cx), area.left);
            place->y = std::max<int>(std::min<int>(place->y, area.bottom - place->cy), area.top);
        }
    }
    return CallNextProc(MenuWindowProc, window, message, wParam, lParam);
}

} // namespace

void LimitMenuHeight(HMENU menu) {
    RECT area = WorkArea();
    MENUINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = MIM_MAXHEIGHT;
    info.cyMax = static_cast<UINT>(area.bottom - area.top);
    SetMenuInfo(menu, &info);
}

bool PickByNumber(HMENU menu, wchar_t character, LRESULT* answer) {
    if (character < L'0' || character > L'9')
        return false;
    int position = PositionOfNumber(menu, character == L'0' ? 10 : character - L'0');
    if (position < 0 || !IsEnabled(menu, position))
        return false;
    *answer = MAKELRESULT(position, MNC_EXECUTE);
    return true;
}

void KeepMenuInWorkArea(HWND menuWindow) {
    if (GetClassLongW(menuWindow, GCW_ATOM) == MENU_WINDOW_ATOM)
        Subclass(menuWindow, MenuWindowProc);
}
