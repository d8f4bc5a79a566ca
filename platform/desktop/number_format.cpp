#include "platform/ce_api.h"

namespace {

constexpr int infoCapacity = 16;

UINT NumberInfo(LCID locale, LCTYPE kind) {
    DWORD number = 0;
    GetLocaleInfoW(locale, kind | LOCALE_RETURN_NUMBER, reinterpret_cast<wchar_t*>(&number),
                   sizeof(number) / sizeof(wchar_t));
    return number;
}

/// The sizes of the locale's groups as a format has them: the locale writes "3;0" when the last size goes on
/// for ever and "3" when the rest is one group, a format 3 and 30.
UINT Grouping(LCID locale) {
    wchar_t sizes[infoCapacity] = L"";
    GetLocaleInfoW(locale, LOCALE_SGROUPING, sizes, infoCapacity);
    UINT grouping = 0;
    bool goesOn = false;
    for (const wchar_t* size = sizes; *size != L'\0'; ++size) {
        if (*size < L'0' || *size > L'9')
            continue;
        goesOn = *size == L'0';
        if (!goesOn)
            grouping = grouping * 10 + static_cast<UINT>(*size - L'0');
    }
    return goesOn ? grouping : grouping * 10;
}

} // namespace

namespace ce {

int GetNumberFormatW(LCID locale, DWORD flags, const wchar_t* number, const NUMBERFMTW* format, wchar_t* text,
                     int capacity) {
    if (format != nullptr)
        return ::GetNumberFormatW(locale, flags, number, format, text, capacity);
    wchar_t decimal[infoCapacity] = L"";
    wchar_t thousand[infoCapacity] = L"";
    GetLocaleInfoW(locale, LOCALE_SDECIMAL, decimal, infoCapacity);
    GetLocaleInfoW(locale, LOCALE_STHOUSAND, thousand, infoCapacity);
    NUMBERFMTW own{};
    own.NumDigits = NumberInfo(locale, LOCALE_IDIGITS);
    own.LeadingZero = NumberInfo(locale, LOCALE_ILZERO);
    own.Grouping = Grouping(locale);
    own.lpDecimalSep = decimal;
    own.lpThousandSep = thousand;
    own.NegativeOrder = NumberInfo(locale, LOCALE_INEGNUMBER);

    // Rounded first: grouped in the same step, 999.999 would become 1000.00.
    wchar_t point[] = L".";
    wchar_t nothing[] = L"";
    constexpr int roundedCapacity = 80;
    wchar_t rounded[roundedCapacity];
    NUMBERFMTW plain{own.NumDigits, 1, 0, point, nothing, 1};
    if (::GetNumberFormatW(locale, flags, number, &plain, rounded, roundedCapacity) <= 0)
        return 0;
    return ::GetNumberFormatW(locale, flags, rounded, &own, text, capacity);
}

} // namespace ce
