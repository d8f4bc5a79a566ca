#include "tests/support/probe/probe.h"

#include <iterator>

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
