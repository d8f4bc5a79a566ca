#include "filelist/status_texts.h"

#include <array>
#include <cwchar>
#include <span>

#include "app/app_state.h"
#include "common/device_info.h"
#include "common/text_format.h"

namespace {

using NumberText = std::array<wchar_t, 64>;

/// The number with its groups. Signed by design: a total from two gigabytes on reads as a negative number.
NumberText GroupedNumber(std::int32_t number) {
    NumberText text{};
    FormatText(text, L"%d", static_cast<int>(number));
    FormatInteger(text);
    return text;
}

/// Divides the status bar at these right edges, in eighths of its width.
void DivideStatusBar(std::span<const int> eighths) {
    std::array<int, 3> edges{};
    for (std::size_t part = 0; part < eighths.size(); ++part)
        edges[part] = GetSystemMetrics(SM_CXSCREEN) * eighths[part] / 8;
    edges[eighths.size() - 1] = -1;
    SendMessageW(appState.statusBar, SB_SETPARTS, eighths.size(), reinterpret_cast<LPARAM>(edges.data()));
}

void SetStatusText(WPARAM part, const wchar_t* text) {
    SendMessageW(appState.statusBar, SB_SETTEXTW, part, reinterpret_cast<LPARAM>(text));
}

} // namespace

void ShowLoadingStatus() {
    constexpr int whole[] = {8};
    DivideStatusBar(whole);
    SetStatusText(0, L"Loading...");
    UpdateWindow(appState.statusBar);
}

void ShowFolderStatus(int fileCount, std::uint32_t totalBytes, std::wstring_view folder) {
    const NumberText count = GroupedNumber(fileCount);
    NumberText text{};
    if (appState.commandBands.addressBarShown) {
        constexpr int halves[] = {4, 8};
        DivideStatusBar(halves);
        FormatText(text, L"%s files", count.data());
        SetStatusText(0, text.data());
        FormatText(text, L"%s bytes", GroupedNumber(static_cast<std::int32_t>(totalBytes)).data());
        SetStatusText(1, text.data());
        return;
    }
    constexpr int thirds[] = {2, 5, 8};
    DivideStatusBar(thirds);
    SetStatusText(0, count.data());
    FormatSize(totalBytes, text, L"%sKB", L"%sMB");
    SetStatusText(1, text.data());
    const Path name = [&] {
        Path leaf;
        if (!leaf.Assign(folder.empty() ? DeviceDisplayName() : LeafOf(folder)))
            leaf.Clear();
        return leaf;
    }();
    SetStatusText(2, name.Text());
}
