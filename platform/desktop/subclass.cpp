#include "platform/desktop/subclass.h"

#include <algorithm>
#include <vector>

namespace {

struct SubclassEntry {
    HWND window;
    WNDPROC procedure;
    WNDPROC next;
};

thread_local std::vector<SubclassEntry> entries;

auto Find(HWND window, WNDPROC procedure) {
    return std::ranges::find_if(entries, [&](const SubclassEntry& entry) {
        return entry.window == window && entry.procedure == procedure;
    });
}

} // namespace

void Subclass(HWND window, WNDPROC procedure) {
    if (Find(window, procedure) != entries.end())
        return;
    const auto next = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
    if (!next)
        return;
    entries.push_back({window, procedure, next}); // first: the window may be told at once
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

LRESULT CallNextProc(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto found = Find(window, procedure);
    if (found == entries.end())
        return DefWindowProcW(window, message, wParam, lParam);
    const WNDPROC next = found->next;
    if (message == WM_NCDESTROY)
        entries.erase(found);
    return CallWindowProcW(next, window, message, wParam, lParam);
}
