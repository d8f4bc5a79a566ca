#include "companions/archiver/window/texts.h"

#include <array>

#include "platform/ce_api.h"

namespace archiver {

namespace {

constexpr std::uint64_t firstInMegabytes = 1'024'000; // as the program does

/// Two decimals, or as many as the locale has.
std::wstring DecimalText(double number) {
    std::array<wchar_t, 64> text{};
    const std::wstring plain = std::to_wstring(number);
    ce::GetNumberFormatW(LOCALE_USER_DEFAULT, 0, plain.c_str(), nullptr, text.data(),
                         static_cast<int>(text.size()));
    return text.data();
}

} // namespace

std::wstring NumberText(std::uint64_t number) {
    std::array<wchar_t, 64> text{};
    std::array<wchar_t, 16> separator{};
    ce::GetNumberFormatW(LOCALE_USER_DEFAULT, 0, std::to_wstring(number).c_str(), nullptr, text.data(),
                         static_cast<int>(text.size()));
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator.data(),
                   static_cast<int>(separator.size()));
    const std::wstring_view whole = text.data();
    return std::wstring(whole.substr(0, whole.rfind(separator[0])));
}

std::wstring MomentText(const FILETIME& time) {
    FILETIME local{};
    SYSTEMTIME parts{};
    FileTimeToLocalFileTime(&time, &local);
    FileTimeToSystemTime(&local, &parts);
    std::array<wchar_t, 64> date{}, clock{};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &parts, nullptr, date.data(),
                   static_cast<int>(date.size()));
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &parts, nullptr, clock.data(), static_cast<int>(clock.size()));
    return std::wstring(date.data()) + L" " + clock.data();
}

std::wstring ShareText(std::uint64_t done, std::uint64_t whole) {
    const bool inMegabytes = whole >= firstInMegabytes;
    const double unit = inMegabytes ? 1048576.0 : 1024.0;
    return DecimalText(static_cast<double>(done) / unit) + L" of " +
           DecimalText(static_cast<double>(whole) / unit) + (inMegabytes ? L" MB" : L" KB");
}

} // namespace archiver
