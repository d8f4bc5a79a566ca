#pragma once
// The five view styles: which command shows which, and what the view's window looks like in each.

#include "app/settings.h"
#include "platform/ce_api.h"

/// The list view's own style codes, as they are stored.
constexpr std::uint32_t viewIcon = LVS_ICON;
constexpr std::uint32_t viewReport = LVS_REPORT;
constexpr std::uint32_t viewSmallIcon = LVS_SMALLICON;
constexpr std::uint32_t viewList = LVS_LIST;

/// What the view's window has in every style.
constexpr DWORD viewBaseStyle =
    WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | LVS_EDITLABELS | LVS_SHAREIMAGELISTS | LVS_SHOWSELALWAYS;
static_assert(viewBaseStyle == 0x50810248);

/// Carries a View Style command out on the options. Any other number keeps the style, but line selection ends
/// with every call that does not ask for it.
void ApplyViewCommand(ListOptions& options, int command);

/// The command that "List Style" stands for now: the styles in a ring.
int NextViewCommand(const ListOptions& options);

/// The style that is shown. A stored number may be anything: no more of it than a style counts.
std::uint32_t ShownStyle(const ListOptions& options);

/// The command whose menu entry is checked.
int CheckedViewCommand(const ListOptions& options);

/// The window style for the options.
DWORD ViewWindowStyle(const ListOptions& options);

/// Gives the view's window this style. Whether its scroll bars are there is the control's own affair: one
/// that is taken away stays dead until the rows need another.
void SetViewStyle(HWND view, DWORD style);

/// The extended list-view style for the options, given the one the view has.
DWORD ViewExtendedStyle(const ListOptions& options, DWORD current);
