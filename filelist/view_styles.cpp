#include "filelist/view_styles.h"

#include <iterator>

#include "resources/resource.h"

namespace {

struct ViewChoice {
    int command;
    std::uint32_t style;
    std::uint32_t extended;
};

// In the order of "List Style". "List" is the small-icon style and "Small" the list style, as their users
// know them.
constexpr ViewChoice viewChoices[] = {
    {IDM_VIEW_LARGE, viewIcon, 0},
    {IDM_VIEW_LIST, viewSmallIcon, 0},
    {IDM_VIEW_SMALL, viewList, 0},
    {IDM_VIEW_DETAILED, viewReport, 0},
    {IDM_VIEW_DETAILED_LINE, viewReport, LVS_EX_FULLROWSELECT},
};

const ViewChoice* CurrentChoice(const ListOptions& options) {
    for (const ViewChoice& choice : viewChoices) {
        if (choice.style == ShownStyle(options) &&
            (choice.style != viewReport || (choice.extended != 0) == (options.extendedStyle != 0)))
            return &choice;
    }
    return nullptr;
}

} // namespace

void ApplyViewCommand(ListOptions& options, int command) {
    options.extendedStyle = 0;
    for (const ViewChoice& choice : viewChoices) {
        if (choice.command == command) {
            options.viewStyle = choice.style;
            options.extendedStyle = choice.extended;
        }
    }
}

int NextViewCommand(const ListOptions& options) {
    const ViewChoice* current = CurrentChoice(options);
    if (!current || current + 1 == std::end(viewChoices))
        return viewChoices[0].command;
    return current[1].command;
}

int CheckedViewCommand(const ListOptions& options) {
    const ViewChoice* current = CurrentChoice(options);
    return current ? current->command : 0;
}

std::uint32_t ShownStyle(const ListOptions& options) {
    return options.viewStyle & LVS_TYPEMASK;
}

DWORD ViewWindowStyle(const ListOptions& options) {
    DWORD style = viewBaseStyle | ShownStyle(options);
    if (ShownStyle(options) == viewReport && options.noColumnNames)
        style |= LVS_NOCOLUMNHEADER;
    return style;
}

DWORD ViewExtendedStyle(const ListOptions& options, DWORD current) {
    if (ShownStyle(options) != viewReport || options.extendedStyle == 0)
        return 0;
    return current | LVS_EX_FULLROWSELECT | LVS_EX_ONECLICKACTIVATE;
}

void SetViewStyle(HWND view, DWORD style) {
    constexpr DWORD liveBits = WS_VSCROLL | WS_HSCROLL;
    const auto now = static_cast<DWORD>(GetWindowLongW(view, GWL_STYLE));
    SetWindowLongW(view, GWL_STYLE, static_cast<LONG>((style & ~liveBits) | (now & liveBits)));
}
