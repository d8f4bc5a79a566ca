#include "tests/support/status_bar.h"

#include <commctrl.h>

#include "tests/support/live_window.h"

std::vector<int> StatusBar::Edges() const {
    std::vector<int> edges(Ask(window_, SB_GETPARTS));
    if (edges.empty())
        return edges;
    RemoteMemory memory(window_, edges.size() * sizeof(int));
    Ask(window_, SB_GETPARTS, edges.size(), reinterpret_cast<LPARAM>(memory.Address()));
    memory.Read(edges.data(), edges.size() * sizeof(int));
    return edges;
}

std::vector<std::wstring> StatusBar::Texts() const {
    std::vector<std::wstring> texts;
    for (LRESULT part = 0, count = Ask(window_, SB_GETPARTS); part < count; ++part) {
        const std::size_t length = LOWORD(Ask(window_, SB_GETTEXTLENGTHW, part));
        RemoteMemory memory(window_, (length + 1) * sizeof(wchar_t));
        Ask(window_, SB_GETTEXTW, part, reinterpret_cast<LPARAM>(memory.Address()));
        texts.push_back(memory.ReadText(0));
    }
    return texts;
}
