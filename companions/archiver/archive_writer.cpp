#include "companions/archiver/archive_writer.h"

namespace archiver {

std::int64_t UnixTimeOf(const FILETIME& time) {
    constexpr std::int64_t ticksOfSecond = 10'000'000, secondsTo1970 = 11'644'473'600;
    const std::int64_t ticks = static_cast<std::int64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    return ticks / ticksOfSecond - secondsTo1970;
}

} // namespace archiver
