#include "tests/support/probe/probe.h"

#include <atomic>
#include <iterator>

#include <commctrl.h>

namespace {

void Walk(HMENU menu, UINT level, MenuReport& report) {
    for (int position = 0, count = GetMenuItemCount(menu); position < count; ++position) {
        if (report.count == std::size(report.items))
            return;
        ProbedItem& item = report.items[report.count++];
        MENUITEMINFOW info{};
        info.cbSize = sizeof(info);
        info.fMask = MIIM_ID | MIIM_FTYPE | MIIM_STATE | MIIM_STRING | MIIM_SUBMENU;
        info.dwTypeData = item.text;
        info.cch = std::size(item.text);
        GetMenuItemInfoW(menu, position, TRUE, &info);
        item.level = level;
        item.id = info.wID;
        item.type = info.fType;
        item.state = info.fState;
        item.hasPopup = info.hSubMenu != nullptr;
        if (info.hSubMenu)
            Walk(info.hSubMenu, level + 1, report);
    }
}

std::atomic<UINT> textsAsked;
std::atomic<UINT> iconsAsked;
WNDPROC countedProcedure;

/// Stands before the procedure of the list's parent.
LRESULT CALLBACK CountQuestions(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* question = reinterpret_cast<const NMLVDISPINFOW*>(lParam);
    if (message == WM_NOTIFY && question->hdr.code == LVN_GETDISPINFOW) {
        textsAsked += (question->item.mask & LVIF_TEXT) != 0;
        iconsAsked += (question->item.mask & LVIF_IMAGE) != 0;
    }
    return CallWindowProcW(countedProcedure, window, message, wParam, lParam);
}

} // namespace

DWORD WINAPI ReportMenu(void* report) {
    auto& menuReport = *static_cast<MenuReport*>(report);
    menuReport.count = 0;
    Walk(menuReport.menu, 0, menuReport);
    return 0;
}

DWORD WINAPI ReportMessage(void* report) {
    auto& question = *static_cast<MessageReport*>(report);
    question.answer = SendMessageW(question.window, question.message, question.wParam, question.lParam);
    return 0;
}

DWORD WINAPI ReportFont(void* report) {
    auto& fontReport = *static_cast<FontReport*>(report);
    auto font = reinterpret_cast<HFONT>(SendMessageW(fontReport.window, WM_GETFONT, 0, 0));
    if (!font)
        font = static_cast<HFONT>(GetStockObject(SYSTEM_FONT)); // what a window without a font draws with
    GetObjectW(font, sizeof(fontReport.font), &fontReport.font);
    return 0;
}

DWORD WINAPI ReportDrawing(void* report) {
    auto& drawing = *static_cast<DrawingReport*>(report);
    if (!countedProcedure) {
        const HWND parent = GetParent(drawing.list);
        countedProcedure = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(parent, GWLP_WNDPROC));
        SetWindowLongPtrW(parent, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountQuestions));
    }
    drawing.texts = textsAsked.exchange(0);
    drawing.icons = iconsAsked.exchange(0);
    return 0;
}
