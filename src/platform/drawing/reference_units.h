#pragma once

namespace velmora {

/// Text is laid out and shaped in units of 576 to the inch, which no screen changes; whoever draws
/// multiplies.
inline constexpr int UnitsPerPoint = 8;
/// A pixel of 96 dpi.
inline constexpr int UnitsPerPixel = 6;
/// Reference units of a font whose size is one half point; its whole multiples are font sizes.
inline constexpr int UnitsPerHalfPoint = 4;
/// Tab stops stand every half inch.
inline constexpr int TabDistanceUnits = 288;

} // namespace velmora
