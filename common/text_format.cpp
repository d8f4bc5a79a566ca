#include "common/text_format.h"

#include <algorithm>
#include <array>
#include <cwchar>

#include "common/path.h"
#include "common/text.h"

namespace {

std::array<wchar_t, 16> decimalSeparator{}; // the user's

/// Room for any number the program formats, written out by any locale.
constexpr std::size_t numberCapacity = 64;
using NumberText = std::array<wchar_t, numberCapacity>;

bool FormatNumber(const wchar_t* plain, NumberText& formatted, LCID locale) {
    return ce::GetNumberFormatW(locale, 0, plain, nullptr, formatted.data(), numberCapacity) > 0;
}

/// Takes a text over whole, or leaves `out` as it is.
void ReplaceIfFitting(std::span<wchar_t> out, std::wstring_view text) {
    if (text.size() < out.size())
        CopyTextTo(out, text);
}

/// Ends a text of which the platform reports to have written so much, the terminator included; it reports
/// nothing when the text did not fit. Returns the text's length.
std::size_t EndText(std::span<wchar_t> out, int written) {
    const std::size_t length = written > 0 ? static_cast<std::size_t>(written) - 1 : 0;
    out[length] = L'\0';
    return length;
}

std::size_t WriteDate(const SYSTEMTIME& time, std::span<wchar_t> out, LCID locale) {
    const int capacity = static_cast<int>(out.size());
    return EndText(out, GetDateFormatW(locale, DATE_SHORTDATE, &time, nullptr, out.data(), capacity));
}

std::size_t WriteTime(const SYSTEMTIME& time, std::span<wchar_t> out, LCID locale) {
    const int capacity = static_cast<int>(out.size());
    return EndText(out, GetTimeFormatW(locale, 0, &time, nullptr, out.data(), capacity));
}

bool IsToday(const SYSTEMTIME& time) {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return time.wYear == now.wYear && time.wMonth == now.wMonth && time.wDay == now.wDay;
}

} // namespace

void LoadDecimalSeparator(LCID locale) {
    if (GetLocaleInfoW(locale, LOCALE_SDECIMAL, decimalSeparator.data(),
                       static_cast<int>(decimalSeparator.size())) <= 0)
        decimalSeparator[0] = L'\0';
}

void FormatInteger(std::span<wchar_t> text, LCID locale) {
    NumberText formatted;
    if (!FormatNumber(text.data(), formatted, locale))
        return;
    const std::wstring_view number(formatted.data());
    ReplaceIfFitting(text, number.substr(0, number.find(decimalSeparator[0])));
}

void FormatDecimal(std::span<wchar_t> text, LCID locale) {
    NumberText formatted;
    if (FormatNumber(text.data(), formatted, locale))
        ReplaceIfFitting(text, formatted.data());
}

void FormatSize(std::uint64_t bytes, std::span<wchar_t> out, const wchar_t* kbFormat, const wchar_t* mbFormat,
                LCID locale) {
    // The unit changes at 1,000 KB although a megabyte has 1,024 of them: no size shows four digits of KB.
    constexpr std::uint32_t firstMegabytes = 1'024'000;
    const bool inMegabytes = bytes >= firstMegabytes;
    NumberText number;
    FormatText(number, L"%f", bytes / (inMegabytes ? 1024.0 * 1024.0 : 1024.0));
    FormatDecimal(number, locale);
    FormatText(out, inMegabytes ? mbFormat : kbFormat, number.data());
}

void FormatDateTime(const SYSTEMTIME& time, std::span<wchar_t> out, std::uint32_t mode, LCID locale) {
    if (mode == 0) {
        const std::size_t length = WriteDate(time, out, locale);
        if (length + 1 >= out.size())
            return;
        out[length] = L' ';
        WriteTime(time, out.subspan(length + 1), locale);
    } else if (IsToday(time)) {
        WriteTime(time, out, locale);
    } else {
        WriteDate(time, out, locale);
    }
}

wchar_t* CutExtension(wchar_t* name) {
    wchar_t* dot = std::wcsrchr(name, L'.');
    if (dot)
        *dot = L'\0';
    return dot;
}

void AppendExtension(std::span<wchar_t> destination, std::wstring_view name) {
    CopyTextTo(destination.subspan(std::wcslen(destination.data())), ExtensionOf(name));
}
