#include "platform/desktop/look.h"

#include <algorithm>

namespace {

constexpr int FONT_SIZE = 11; // the largest whose letters and shadow the lowest bar holds
constexpr COLORREF SHADOW = RGB(10, 34, 88);

HFONT ShellFont() {
    static const HFONT font = [] {
        LOGFONTW description{};
        description.lfHeight = -FONT_SIZE;
        description.lfWeight = FW_BOLD;
        description.lfQuality = ANTIALIASED_QUALITY;
        lstrcpynW(description.lfFaceName, L"Tahoma", LF_FACESIZE);
        return CreateFontIndirectW(&description);
    }();
    return font;
}

int Between(int from, int to, int step, int steps) {
    return from + (to - from) * step / steps;
}

void FillRow(HDC context, const RECT& area, int y, COLORREF color) {
    RECT row{area.left, y, area.right, y + 1};
    SetBkColor(context, color);
    ExtTextOutW(context, 0, 0, ETO_OPAQUE, &row, nullptr, 0, nullptr);
}

} // namespace

void DrawBand(HDC context, const RECT& area, const BandColors& colors) {
    int steps = std::max<int>(area.bottom - area.top - 1, 1);
    FillRow(context, area, area.top, colors.edge);
    for (int step = 1; step <= steps; ++step) {
        COLORREF color = RGB(Between(GetRValue(colors.top), GetRValue(colors.bottom), step, steps),
                             Between(GetGValue(colors.top), GetGValue(colors.bottom), step, steps),
                             Between(GetBValue(colors.top), GetBValue(colors.bottom), step, steps));
        FillRow(context, area, area.top + step, color);
    }
}

void DrawLabel(HDC context, const wchar_t* text, RECT area, UINT alignment, COLORREF color) {
    const UINT format = alignment | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
    HGDIOBJ oldFont = SelectObject(context, ShellFont());
    SetBkMode(context, TRANSPARENT);
    RECT shadow = area;
    OffsetRect(&shadow, 0, 1);
    SetTextColor(context, SHADOW);
    DrawTextW(context, text, -1, &shadow, format);
    SetTextColor(context, color);
    DrawTextW(context, text, -1, &area, format);
    SelectObject(context, oldFont);
}

int LabelWidth(HDC context, const wchar_t* text) {
    HGDIOBJ oldFont = SelectObject(context, ShellFont());
    SIZE size{};
    GetTextExtentPoint32W(context, text, lstrlenW(text), &size);
    SelectObject(context, oldFont);
    return size.cx;
}

void PaintAtOnce(HWND window, void (*draw)(HWND window, HDC context, const RECT& area)) {
    PAINTSTRUCT paint;
    HDC screen = BeginPaint(window, &paint);
    RECT area;
    GetClientRect(window, &area);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP picture = CreateCompatibleBitmap(screen, area.right, area.bottom);
    HGDIOBJ oldPicture = SelectObject(memory, picture);
    draw(window, memory, area);
    BitBlt(screen, 0, 0, area.right, area.bottom, memory, 0, 0, SRCCOPY);
    SelectObject(memory, oldPicture);
    DeleteObject(picture);
    DeleteDC(memory);
    EndPaint(window, &paint);
}
