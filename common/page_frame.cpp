#include "common/page_frame.h"

namespace {

constexpr int titleControl = 1091;
constexpr int hideCaptionControl = 1092;
constexpr int otherCaptionControl = 1093;

} // namespace

void CenterOnMainWindow(HWND window, HWND mainWindow) {
    RECT outer{};
    RECT inner{};
    GetWindowRect(mainWindow, &outer);
    GetWindowRect(window, &inner);
    const int x = ((outer.right - outer.left) - (inner.right - inner.left)) / 2;
    const int y = ((outer.bottom - outer.top) - (inner.bottom - inner.top)) / 2;
    // 26 and 23 differ on purpose: where the title strip would cover the window, it moves just below it.
    SetWindowPos(window, nullptr, x, y < 26 ? 23 : y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

LRESULT PaintPageHeader(HWND page) {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int y = width == 240 || width == 320 ? 25 : 20;
    const POINT line[] = {{0, y}, {width, y}};
    PAINTSTRUCT paint;
    HDC context = BeginPaint(page, &paint);
    Polyline(context, line, 2);
    EndPaint(page, &paint);
    return 1;
}

LRESULT ColorPageTitle(HDC context, HWND control) {
    const int id = GetDlgCtrlID(control);
    if (id != titleControl && id != hideCaptionControl && id != otherCaptionControl)
        return 0;
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(COLOR_HIGHLIGHT));
    return reinterpret_cast<LRESULT>(GetStockObject(WHITE_BRUSH));
}
