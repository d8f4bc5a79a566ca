#include "fileops/fitting_text.h"

#include "common/path.h"
#include "common/text.h"

void CutName(std::span<wchar_t> out, std::wstring_view name, std::size_t limit) {
    constexpr std::wstring_view dots = L"...";
    if (name.size() <= limit || limit < dots.size())
        return CopyTextTo(out, name);
    const std::size_t kept = limit - dots.size();
    const std::size_t tail = kept / 2;
    Path cut;
    if (cut.Assign(name.substr(0, kept - tail)) && cut.Append(dots) &&
        cut.Append(name.substr(name.size() - tail)))
        CopyTextTo(out, cut.View());
}

bool FitsControl(HWND control, const wchar_t* text) {
    RECT place{};
    GetClientRect(control, &place);
    RECT needed{0, 0, place.right, 0};
    HDC context = GetDC(control);
    HGDIOBJ before =
        SelectObject(context, reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0)));
    DrawTextW(context, text, -1, &needed, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(context, before);
    ReleaseDC(control, context);
    return needed.right <= place.right && needed.bottom <= place.bottom;
}
