#pragma once
// What the phone's program has made and must give back before it ends: GDI objects, image lists, windows,
// menus. The calls are the phone's, and note what they make and by whom. Any thread.

#include <windows.h>

#include <commctrl.h>

namespace replaced {

HFONT CreateFontIndirectW(const LOGFONTW* description);
HBRUSH CreateSolidBrush(COLORREF colour);
HMENU CreatePopupMenu();
HMENU LoadMenuW(HINSTANCE instance, const wchar_t* name);
HWND CreateWindowExW(DWORD extendedStyle, const wchar_t* className, const wchar_t* text, DWORD style, int x,
                     int y, int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                     void* parameter);
HWND CreateStatusWindowW(LONG style, const wchar_t* text, HWND parent, UINT number);
HWND CommandBar_Create(HINSTANCE instance, HWND parent, int number);

HDC GetDC(HWND window);
int ReleaseDC(HWND window, HDC context);
HIMAGELIST ImageList_Create(int width, int height, UINT flags, int count, int more);
BOOL ImageList_Destroy(HIMAGELIST list);

} // namespace replaced

/// The system owns this from now on: it need not be given back.
void NoteGivenAway(HANDLE thing);

/// Ends the program with a report when something is left that it has made.
void CheckNothingIsLeft();
