#pragma once
// How the shell's own windows look: one blue band and one font for the title strip and the soft keys.

#include <windows.h>

struct BandColors {
    COLORREF edge;
    COLORREF top;
    COLORREF bottom;
};

constexpr BandColors BAND_COLORS{RGB(142, 183, 240), RGB(82, 134, 214), RGB(24, 68, 154)};
constexpr BandColors PRESSED_BAND_COLORS{RGB(14, 44, 108), RGB(20, 58, 138), RGB(52, 100, 186)};

/// Fills `area` with a band: a line of the edge colour on top, below it top running into bottom.
void DrawBand(HDC context, const RECT& area, const BandColors& colors);

/// Draws one line of text in the shell's font, cut with an ellipsis when it is too long.
void DrawLabel(HDC context, const wchar_t* text, RECT area, UINT alignment, COLORREF color);

/// The width that DrawLabel needs for `text`.
int LabelWidth(HDC context, const wchar_t* text);

/// Answers WM_PAINT: `draw` draws the window's client area off screen, which then shows it at once.
void PaintAtOnce(HWND window, void (*draw)(HWND window, HDC context, const RECT& area));
