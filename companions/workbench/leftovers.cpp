#include "companions/workbench/leftovers.h"

#include <map>
#include <mutex>

#include "companions/workbench/ending.h"
#include "companions/workbench/processor.h"
#include "platform/ce_api.h"

namespace {

/// Whether the thing is still there; null for what says so itself when it goes.
using IsThere = bool (*)(HANDLE thing);

struct Made {
    const char* what;
    IsThere isThere;
    Callers by;
};

std::mutex oneAtATime;
std::map<HANDLE, Made> made;

template <class Thing>
Thing Noted(Thing thing, const char* what, IsThere isThere) {
    if (thing) {
        const std::lock_guard lock(oneAtATime);
        made[thing] = {what, isThere, CallersOf(RegistersOfCall())};
    }
    return thing;
}

bool IsObject(HANDLE thing) {
    return GetObjectType(static_cast<HGDIOBJ>(thing)) != 0;
}

bool IsMenuThere(HANDLE thing) {
    return IsMenu(static_cast<HMENU>(thing));
}

bool IsWindowThere(HANDLE thing) {
    return IsWindow(static_cast<HWND>(thing));
}

HWND NotedWindow(HWND window) {
    return Noted(window, "a window", IsWindowThere);
}

} // namespace

namespace replaced {

HFONT CreateFontIndirectW(const LOGFONTW* description) {
    return Noted(::CreateFontIndirectW(description), "a font", IsObject);
}

HBRUSH CreateSolidBrush(COLORREF colour) {
    return Noted(::CreateSolidBrush(colour), "a brush", IsObject);
}

HMENU CreatePopupMenu() {
    return Noted(::CreatePopupMenu(), "a menu", IsMenuThere);
}

HMENU LoadMenuW(HINSTANCE instance, const wchar_t* name) {
    return Noted(::LoadMenuW(instance, name), "a menu", IsMenuThere);
}

HWND CreateWindowExW(DWORD extendedStyle, const wchar_t* className, const wchar_t* text, DWORD style, int x,
                     int y, int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                     void* parameter) {
    return NotedWindow(ce::CreateWindowExW(extendedStyle, className, text, style, x, y, width, height, parent,
                                           menu, instance, parameter));
}

HWND CreateStatusWindowW(LONG style, const wchar_t* text, HWND parent, UINT number) {
    return NotedWindow(::CreateStatusWindowW(style, text, parent, number));
}

HWND CommandBar_Create(HINSTANCE instance, HWND parent, int number) {
    return NotedWindow(ce::CommandBar_Create(instance, parent, number));
}

HDC GetDC(HWND window) {
    return Noted(::GetDC(window), "a device context", nullptr);
}

int ReleaseDC(HWND window, HDC context) {
    NoteGivenAway(context);
    return ::ReleaseDC(window, context);
}

HIMAGELIST ImageList_Create(int width, int height, UINT flags, int count, int more) {
    return Noted(::ImageList_Create(width, height, flags, count, more), "a list of images", nullptr);
}

BOOL ImageList_Destroy(HIMAGELIST list) {
    NoteGivenAway(list);
    return ::ImageList_Destroy(list);
}

} // namespace replaced

void NoteGivenAway(HANDLE thing) {
    const std::lock_guard lock(oneAtATime);
    made.erase(thing);
}

void CheckNothingIsLeft() {
    const std::lock_guard lock(oneAtATime);
    for (const auto& [thing, about] : made)
        if (!about.isThere || about.isThere(thing))
            EndAfterLeftover(about.what, about.by);
}
