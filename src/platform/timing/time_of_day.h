#pragma once

namespace velmora {

inline constexpr double SecondsPerDay = 86400.0;

/// Seconds from one reading of Clock::Timer to a later one, over midnight too. For spans below a
/// day.
[[nodiscard]] constexpr double secondsSince(double start, double now) {
    return now >= start ? now - start : now - start + SecondsPerDay;
}

} // namespace velmora
