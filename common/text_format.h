#pragma once
// Numbers, sizes and times as the user's locale writes them. Everything the program shows goes through here.

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/ce_api.h"

/// Reads the locale's decimal separator, which FormatInteger cuts at. Called once at start.
void LoadDecimalSeparator(LCID locale = LOCALE_USER_DEFAULT);

/// Groups the plain decimal number in `text` by the locale, without decimals, in place.
void FormatInteger(std::span<wchar_t> text, LCID locale = LOCALE_USER_DEFAULT);

/// Formats the decimal number with a fraction in `text` by the locale, in place.
void FormatDecimal(std::span<wchar_t> text, LCID locale = LOCALE_USER_DEFAULT);

/// Writes `bytes` in kilobytes, or from 1,024,000 on in megabytes, through the format of that unit, whose one
/// "%s" takes the number.
void FormatSize(std::uint64_t bytes, std::span<wchar_t> out, const wchar_t* kbFormat, const wchar_t* mbFormat,
                LCID locale = LOCALE_USER_DEFAULT);

/// Mode 0: short date, a blank, the time. Any other mode: only the time for today, only the date otherwise.
void FormatDateTime(const SYSTEMTIME& time, std::span<wchar_t> out, std::uint32_t mode,
                    LCID locale = LOCALE_USER_DEFAULT);

/// Cuts the name at its last "." in place; returns where, or null when there is none.
wchar_t* CutExtension(wchar_t* name);

/// Appends the extension of `name`, with its dot, to `destination`; what does not fit is cut.
void AppendExtension(std::span<wchar_t> destination, std::wstring_view name);
