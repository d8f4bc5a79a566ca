// Fonts as the phone tells of them.

#include <cwchar>

#include "platform/ce_api.h"

namespace {

struct Listing {
    FONTENUMPROCW report;
    LPARAM parameter;
    wchar_t
        last[LF_FACESIZE]; // the typeface that was reported last: the host tells of one's weights in a row
};

int CALLBACK ReportOnce(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD type, LPARAM parameter) {
    auto& listing = *reinterpret_cast<Listing*>(parameter);
    if (_wcsicmp(listing.last, font->lfFaceName) == 0)
        return TRUE;
    lstrcpynW(listing.last, font->lfFaceName, LF_FACESIZE);
    return listing.report(font, metrics, type, listing.parameter);
}

} // namespace

int ce::EnumFontsW(HDC context, const wchar_t* name, FONTENUMPROCW report, LPARAM parameter) {
    if (name)
        return ::EnumFontsW(context, name, report, parameter);
    Listing listing{report, parameter, {}};
    return ::EnumFontsW(context, nullptr, ReportOnce, reinterpret_cast<LPARAM>(&listing));
}
