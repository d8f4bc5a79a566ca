#include "companions/archiver/archive_reader.h"

namespace archiver {

FILETIME FileTimeOf(std::int64_t unixTime) {
    constexpr std::int64_t ticksOfSecond = 10'000'000, secondsTo1970 = 11'644'473'600;
    const auto ticks = static_cast<std::uint64_t>((unixTime + secondsTo1970) * ticksOfSecond);
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

} // namespace archiver
