#pragma once

namespace velmora {

/// ScrollSpeed, 0 to 255. Split Range: 0 is the fastest forward, the dead band stands still, and
/// what lies behind it goes backward, 255 the fastest. Full Range: 0 is the fastest.
namespace speed {
inline constexpr int SlowestForward = 119;
inline constexpr int DeadBandBegin = 120;
inline constexpr int DeadBandEnd = 136;
/// The last of the lower half. A show of Full Range starts there at the latest.
inline constexpr int Middle = 127;
inline constexpr int Last = 255;
} // namespace speed

} // namespace velmora
