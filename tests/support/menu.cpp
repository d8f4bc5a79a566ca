#include "tests/support/menu.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>

#include "tests/support/inside.h"
#include "tests/support/live_window.h"
#include "tests/support/probe/probe.h"
#include "tests/support/text.h"

namespace {

constexpr UINT answerPatience = 10000; // milliseconds

/// Takes the items of one level, and of the popups under them, from the flat report.
std::vector<MenuItem> TakeLevel(const MenuReport& report, UINT level, UINT& next) {
    std::vector<MenuItem> items;
    while (next < report.count && report.items[next].level == level) {
        const ProbedItem& probed = report.items[next++];
        MenuItem item;
        item.text = probed.text;
        item.id = probed.id;
        item.separator = (probed.type & MFT_SEPARATOR) != 0;
        item.enabled = (probed.state & (MFS_DISABLED | MFS_GRAYED)) == 0;
        item.checked = (probed.state & MFS_CHECKED) != 0;
        item.radioChecked = item.checked && (probed.type & MFT_RADIOCHECK) != 0;
        item.popup = probed.hasPopup;
        if (item.popup)
            item.items = TakeLevel(report, level + 1, next);
        items.push_back(std::move(item));
    }
    return items;
}

/// The first item at any depth that `wanted` accepts, or null.
const MenuItem* FindItem(const std::vector<MenuItem>& items,
                         const std::function<bool(const MenuItem&)>& wanted) {
    for (const MenuItem& item : items) {
        if (wanted(item))
            return &item;
        if (const MenuItem* inside = FindItem(item.items, wanted))
            return inside;
    }
    return nullptr;
}

void CollectCommands(const std::vector<MenuItem>& items, const std::function<bool(const MenuItem&)>& wanted,
                     std::vector<UINT>& commands) {
    for (const MenuItem& item : items) {
        if (!item.popup && !item.separator && wanted(item))
            commands.push_back(item.id);
        CollectCommands(item.items, wanted, commands);
    }
}

const MenuItem* FindCommand(const std::vector<MenuItem>& items, UINT command) {
    return FindItem(items, [command](const MenuItem& item) {
        return !item.popup && !item.separator && item.id == command;
    });
}

} // namespace

Menu ReadMenu(HWND window, HMENU menu) {
    const auto report = std::make_unique<MenuReport>();
    report->menu = menu;
    RunInside(window, "ReportMenu", report.get(), sizeof(*report));
    UINT next = 0;
    return Menu(TakeLevel(*report, 0, next));
}

std::vector<HWND> OpenPopups(DWORD process) {
    std::vector<HWND> popups;
    for (HWND window : TopWindowsOf(process))
        if (ClassOf(window) == L"#32768" && IsWindowVisible(window))
            popups.insert(popups.begin(), window);
    return popups;
}

HMENU MenuOf(HWND popup) {
    DWORD_PTR menu = 0;
    SendMessageTimeoutW(popup, MN_GETHMENU, 0, 0, SMTO_NORMAL, answerPatience, &menu);
    return reinterpret_cast<HMENU>(menu);
}

std::vector<std::wstring> Menu::Texts() const {
    std::vector<std::wstring> texts;
    for (const MenuItem& item : items_)
        texts.push_back(item.separator ? L"-" : item.text);
    return texts;
}

bool Menu::HasPopup(const std::wstring& text) const {
    return std::any_of(items_.begin(), items_.end(),
                       [&](const MenuItem& item) { return item.popup && item.text == text; });
}

Menu Menu::Popup(const std::wstring& text) const {
    const MenuItem& item = Item(text);
    if (!item.popup)
        throw std::runtime_error("the menu entry \"" + Narrow(text) + "\" is no popup");
    return Menu(item.items);
}

const MenuItem& Menu::Item(const std::wstring& text) const {
    const auto found =
        std::find_if(items_.begin(), items_.end(), [&](const MenuItem& item) { return item.text == text; });
    if (found == items_.end())
        throw std::runtime_error("the menu has no entry \"" + Narrow(text) + "\"");
    return *found;
}

bool Menu::Has(UINT command) const {
    return FindCommand(items_, command) != nullptr;
}

const MenuItem& Menu::Item(UINT command) const {
    const MenuItem* item = FindCommand(items_, command);
    if (!item)
        throw std::runtime_error("the menu has no command " + std::to_string(command));
    return *item;
}

std::vector<UINT> Menu::EnabledCommands() const {
    std::vector<UINT> commands;
    CollectCommands(
        items_, [](const MenuItem& item) { return item.enabled; }, commands);
    return commands;
}

std::vector<UINT> Menu::CheckedCommands() const {
    std::vector<UINT> commands;
    CollectCommands(
        items_, [](const MenuItem& item) { return item.checked; }, commands);
    return commands;
}

std::vector<std::wstring> Menu::CheckedTexts() const {
    std::vector<std::wstring> texts;
    for (const MenuItem& item : items_)
        if (item.checked)
            texts.push_back(item.text);
    return texts;
}
