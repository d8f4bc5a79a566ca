#include "tests/support/probe/menu_probe.h"

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
