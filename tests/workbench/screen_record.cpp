#include "tests/workbench/screen_record.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <regex>
#include <vector>

#include <commctrl.h>

#include "tests/support/list_view.h"
#include "tests/support/live_window.h"
#include "tests/support/menu.h"
#include "tests/support/registry.h"
#include "tests/support/status_bar.h"
#include "tests/support/text.h"
#include "tests/support/tree_view.h"

namespace {

/// What differs from run to run: moments, today, and the room there is.
std::string Steady(const std::string& text) {
    static const std::regex moment(R"(\d+/\d+/20[2-9]\d( \d+:\d\d(:\d\d)?( [AP]M)?)?)");
    static const std::regex room(R"([\d.,]+ ?[KMG]B)");
    return std::regex_replace(std::regex_replace(text, moment, "(now)"), room, "(room)");
}

std::string Line(int depth, const std::string& text) {
    return std::string(static_cast<std::size_t>(2 * depth), ' ') + text + "\n";
}

std::string Rectangle(const RECT& place) {
    char text[64];
    std::snprintf(text, sizeof(text), " %ld,%ld %ldx%ld", place.left, place.top, place.right - place.left,
                  place.bottom - place.top);
    return text;
}

std::string DescribeList(HWND window, int depth) {
    const ListView list(window);
    const bool hasColumns = list.ViewStyle() == LVS_REPORT;
    std::string text = Line(depth, "style " + std::to_string(list.Style()));
    for (int row = 0; row < list.Count(); ++row) {
        std::string line;
        for (const std::wstring& cell : hasColumns ? list.Row(row) : Texts{list.Text(row)})
            line += Steady(Narrow(cell)) + " | ";
        text +=
            Line(depth, line + std::to_string(list.Image(row)) + " state " + std::to_string(list.State(row)));
    }
    return text;
}

std::string DescribeTree(HWND window, int depth) {
    const TreeView tree(window);
    std::string text;
    for (const TreeNode& node : tree.Nodes())
        text += Line(depth + node.depth, (node.expanded    ? "- "
                                          : node.hasButton ? "+ "
                                                           : "  ") +
                                             Narrow(node.text) + " " + std::to_string(node.image));
    return text + Line(depth, "selected " + Narrow(tree.SelectedPath()));
}

std::string DescribeMenu(const std::vector<MenuItem>& items, int depth) {
    std::string text;
    for (const MenuItem& item : items) {
        text += Line(depth, (item.separator ? "----" : Narrow(item.text)) + (item.enabled ? "" : " (grey)") +
                                (item.checked ? " (checked)" : "") + (item.radioChecked ? " (chosen)" : ""));
        text += DescribeMenu(item.items, depth + 1);
    }
    return text;
}

std::string DescribeCombo(HWND window, int depth) {
    const auto count = Ask(window, CB_GETCOUNT);
    return Line(depth, "entries " + std::to_string(count) + " chosen " +
                           std::to_string(static_cast<long>(Ask(window, CB_GETCURSEL))));
}

std::string DescribeContent(HWND window, int depth) {
    const std::wstring kind = ClassOf(window);
    if (kind == WC_LISTVIEWW)
        return DescribeList(window, depth);
    if (kind == WC_TREEVIEWW)
        return DescribeTree(window, depth);
    if (kind == L"ComboBox")
        return DescribeCombo(window, depth);
    std::string text;
    if (kind == STATUSCLASSNAMEW)
        for (const std::wstring& part : StatusBar(window).Texts())
            text += Line(depth, Steady(Narrow(part)));
    return text;
}

std::string DescribeWindow(HWND window, int depth);

std::string DescribeChildren(HWND parent, int depth) {
    std::string text;
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        text += DescribeWindow(child, depth);
    return text;
}

std::string DescribeWindow(HWND window, int depth) {
    if (!IsWindowVisible(window))
        return {};
    const std::wstring kind = ClassOf(window);
    std::string line = Narrow(kind) + " " + std::to_string(GetDlgCtrlID(window) & 0xffff) +
                       Rectangle(PlaceOf(window)) + (IsWindowEnabled(window) ? "" : " (grey)");
    if (kind == L"#32768") {
        const HMENU menu = MenuOf(window);
        return Line(depth, "menu" + Rectangle(PlaceOf(window))) +
               (menu ? DescribeMenu(ReadMenu(window, menu).Items(), depth + 1) : "");
    }
    if (kind == L"Button")
        line += Ask(window, BM_GETCHECK) ? " (checked)" : "";
    line += " \"" + Steady(Narrow(TextOf(window))) + "\"";
    return Line(depth, line) + DescribeContent(window, depth + 1) + DescribeChildren(window, depth + 1);
}

std::string DescribeFocus(DWORD process) {
    for (HWND window : TopWindowsOf(process)) {
        GUITHREADINFO info{};
        info.cbSize = sizeof(info);
        if (GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) && info.hwndFocus)
            return "focus " + Narrow(ClassOf(info.hwndFocus)) + Rectangle(PlaceOf(info.hwndFocus)) + "\n";
    }
    return "no focus\n";
}

std::uint32_t SumOf(const std::wstring& file) {
    constexpr std::uint32_t start = 2166136261, prime = 16777619;
    std::uint32_t sum = start;
    if (std::FILE* opened = _wfopen(file.c_str(), L"rb")) {
        for (int byte; (byte = std::fgetc(opened)) != EOF;)
            sum = (sum ^ static_cast<std::uint32_t>(byte)) * prime;
        std::fclose(opened);
    }
    return sum;
}

} // namespace

std::string DescribeWindows(DWORD process) {
    std::string text;
    for (HWND window : TopWindowsOf(process))
        text += DescribeWindow(window, 0);
    return text + DescribeFocus(process);
}

std::string DescribeFront(DWORD process) {
    std::string text;
    for (HWND window : TopWindowsOf(process))
        if (IsWindowVisible(window))
            text += Narrow(ClassOf(window) + L" " + TextOf(window)) + Rectangle(PlaceOf(window)) + "\n";
    return text + DescribeFocus(process);
}

std::string DescribeFiles(const std::wstring& folder) {
    std::vector<WIN32_FIND_DATAW> entries;
    WIN32_FIND_DATAW found{};
    const HANDLE find = FindFirstFileW((L"E:" + folder + L"\\*").c_str(), &found);
    for (BOOL more = find != INVALID_HANDLE_VALUE; more; more = FindNextFileW(find, &found))
        if (std::wstring(found.cFileName) != L"." && std::wstring(found.cFileName) != L"..")
            entries.push_back(found);
    FindClose(find);
    std::ranges::sort(entries, [](const auto& left, const auto& right) {
        return std::wstring(left.cFileName) < std::wstring(right.cFileName);
    });
    std::string text;
    for (const WIN32_FIND_DATAW& entry : entries) {
        const std::wstring path = folder + L"\\" + entry.cFileName;
        const bool isFolder = entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
        text += Line(0, Narrow(path) + " " + std::to_string(entry.dwFileAttributes) + " " +
                            (isFolder ? ""
                                      : std::to_string(entry.nFileSizeLow) + " " +
                                            std::to_string(SumOf(L"E:" + path))));
        if (isFolder)
            text += DescribeFiles(path);
    }
    return text;
}

std::string DescribeRegistry(const std::wstring& key) {
    std::string text = Line(0, Narrow(key));
    for (const auto& [name, value] : registry::ValuesOf(key))
        text += Line(1, Narrow(name) + " = " + Narrow(value));
    for (const std::wstring& below : registry::SubkeysOf(key))
        text += DescribeRegistry(key + L"\\" + below);
    return text;
}
