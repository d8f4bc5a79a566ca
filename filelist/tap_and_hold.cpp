#include "filelist/tap_and_hold.h"

#include <algorithm>

#include "common/pointer.h"
#include "filelist/context_menu.h"
#include "filelist/file_list.h"

namespace {

constexpr UINT restoreDelay = 500;

int ItemUnder(HWND view, POINT point) {
    LVHITTESTINFO test{};
    test.pt = point;
    SendMessageW(view, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&test));
    return test.flags & LVHT_ONITEM ? test.iItem : -1;
}

bool IsSelected(HWND view, int item) {
    return SendMessageW(view, LVM_GETITEMSTATE, static_cast<WPARAM>(item), LVIS_SELECTED) != 0;
}

void Select(HWND view, int item) {
    LVITEMW state{};
    state.state = state.stateMask = LVIS_SELECTED;
    SendMessageW(view, LVM_SETITEMSTATE, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&state));
}

std::vector<int> SelectedItems(HWND view) {
    std::vector<int> items;
    LRESULT item = -1;
    while ((item = SendMessageW(view, LVM_GETNEXTITEM, static_cast<WPARAM>(item), LVNI_SELECTED)) >= 0)
        items.push_back(static_cast<int>(item));
    return items;
}

} // namespace

void TapAndHold::StylusDown(const FileList& list, POINT point) {
    HWND view = list.Window();
    usedUp_ = opened_ = false;
    SetFocus(view);
    const int item = ItemUnder(view, point);
    selectedAtDown_ = item >= 0 && IsSelected(view, item) ? list.SelectedCount() : 0;
    if (holding_)
        return;
    SetTimer(view, holdTimer, GetDoubleClickTime(), nullptr);
    point_ = point;
    holding_ = true;
}

void TapAndHold::Cancel(HWND view) {
    if (!holding_)
        return;
    holding_ = false;
    KillTimer(view, holdTimer);
}

void TapAndHold::Abandon(HWND view) {
    usedUp_ = usedUp_ || IsPressed();
    Cancel(view);
}

bool TapAndHold::IsPressed() const {
    return holding_ && IsStylusDown();
}

void TapAndHold::HoldElapsed(const FileList& list) {
    if (!holding_)
        return;
    HWND view = list.Window();
    KillTimer(view, holdTimer);
    const POINT now = MessagePointIn(view);
    if (ItemUnder(view, point_) == ItemUnder(view, now) && IsHeldStill(point_, now) &&
        ShowContextMenu(list, {point_.x + holdMenuShift, point_.y}))
        usedUp_ = true;
}

void TapAndHold::AfterMenu(HWND view) {
    if (!holding_)
        return;
    restoring_ = !restoring_;
    holding_ = false;
    selection_.clear();
    if (const int held = ItemUnder(view, point_); held >= 0) {
        std::vector<int> selected = SelectedItems(view);
        if (selected.size() > 1 && std::find(selected.begin(), selected.end(), held) != selected.end())
            selection_ = std::move(selected);
    }
    SetTimer(view, restoreTimer, restoreDelay, nullptr);
}

void TapAndHold::RestoreStep(HWND view) {
    if (!restoring_)
        return;
    restoredOnce_ = !restoredOnce_;
    if (restoredOnce_)
        KillTimer(view, restoreTimer);
    for (int item : selection_)
        Select(view, item);
    if (restoredOnce_)
        return;
    selection_.clear();
    restoring_ = false;
}
