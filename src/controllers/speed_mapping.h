#pragma once

#include <array>

namespace velmora {

/// ScrollSpeedControl: how the speed range maps onto directions.
inline constexpr int SplitRange = 0;
inline constexpr int FullRange = 1;

/// A value that is neither, from a damaged file, is Split Range.
[[nodiscard]] constexpr bool isFullRange(int scrollSpeedControl) {
    return scrollSpeedControl == FullRange;
}

/// Waits of a step in milliseconds, by the rounded ScrollSpeed.
using SpeedDelayTable = std::array<double, 256>;

/// Builds the table. delayMs is the wait of the fastest entry. In Split Range the entries of the
/// dead band, 120 to 135, hold the slowest wait: a speed of 119.5 rounds into them and must not
/// race.
[[nodiscard]] SpeedDelayTable buildSpeedDelayTable(double delayMs, int scrollSpeedControl);

/// Entry for a speed that may hold a fraction: halves round to even.
[[nodiscard]] double speedDelayMs(const SpeedDelayTable& table, double scrollSpeed);

/// The speed with which a show starts: a backward speed of Split Range is folded in Full Range.
[[nodiscard]] double speedAtShowStart(double scrollSpeed, int scrollSpeedControl);

[[nodiscard]] double clampSpeed(double scrollSpeed);

/// Split Range: 120 to 136, no motion.
[[nodiscard]] bool inDeadBand(double scrollSpeed);
/// Full Range: 244 and above, no motion.
[[nodiscard]] bool inStopZone(double scrollSpeed);

/// The speed after a turn of the wheel by delta, 120 a notch, positive away from the user: faster
/// forward. A notch is 2, and 24 with a modifier key held; fractions of both are kept.
[[nodiscard]] double wheelSpeed(double scrollSpeed, double delta, bool modifierHeld);

/// The keys that change the speed, and what each makes of it. Home and End keep the side of the
/// range.
enum class SpeedKey { Left, Right, Up, Down, Home, End };
[[nodiscard]] double speedAfterKey(SpeedKey key, double scrollSpeed, int scrollSpeedControl);

/// Whether a speed ends the wait at a limit of the script in Split Range: it points away from it.
[[nodiscard]] bool speedLeavesLimit(double scrollSpeed, int scrollDirection);

} // namespace velmora
