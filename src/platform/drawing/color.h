#pragma once

#include <QColor>

#include <cstdint>

namespace velmora {

/// A 24-bit colour as the rich text control keeps it: red in the low byte (0x00BBGGRR).
using Rgb24 = std::uint32_t;

inline constexpr Rgb24 Black = 0x000000;
inline constexpr Rgb24 White = 0xFFFFFF;

/// The pixel (0xffRRGGBB) of a colour of the rich text control. Every picture and every format
/// takes its colours through here.
[[nodiscard]] constexpr QRgb toPixel(Rgb24 color) {
    return qRgb(static_cast<int>(color & 0xff), static_cast<int>(color >> 8 & 0xff),
                static_cast<int>(color >> 16 & 0xff));
}

[[nodiscard]] inline QColor toColor(Rgb24 color) {
    return QColor::fromRgb(toPixel(color));
}

} // namespace velmora
