#include "companions/archiver/archive_writer.h"

namespace archiver {

namespace {

constexpr std::uint32_t dosFirst = 1u << 21 | 1u << 16; // 1980-01-01
constexpr std::uint32_t dosLast = 127u << 25 | 12u << 21 | 31u << 16 | 23u << 11 | 59u << 5 | 29u; // 2107

std::uint32_t DosTime(const FILETIME& time) {
    SYSTEMTIME world, local;
    if (!FileTimeToSystemTime(&time, &world) || !SystemTimeToTzSpecificLocalTime(nullptr, &world, &local) ||
        local.wYear < 1980)
        return dosFirst;
    if (local.wYear > 2107)
        return dosLast;
    return (local.wYear - 1980u) << 25 | static_cast<std::uint32_t>(local.wMonth) << 21 |
           static_cast<std::uint32_t>(local.wDay) << 16 | static_cast<std::uint32_t>(local.wHour) << 11 |
           static_cast<std::uint32_t>(local.wMinute) << 5 | local.wSecond / 2u;
}

std::int64_t UnixTime(const FILETIME& time) {
    constexpr std::int64_t ticksOfSecond = 10'000'000, secondsTo1970 = 11'644'473'600;
    const std::int64_t ticks = static_cast<std::int64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    return ticks / ticksOfSecond - secondsTo1970;
}

} // namespace

MemberTime::MemberTime(const FILETIME& time) : dos(DosTime(time)), unix(UnixTime(time)) {}

} // namespace archiver
