#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <array>

namespace velmora {

/// Both tables have the entries 1 to ColourCount, in the order black, blue, cyan, green, purple,
/// red, yellow, white.
inline constexpr int ColourCount = 8;

/// A colour of red, green and blue, 0 to 255 each.
[[nodiscard]] constexpr Rgb24 rgb(unsigned red, unsigned green, unsigned blue) {
    return red | green << 8U | blue << 16U;
}

/// For the screen and the background of text: dark but for white.
inline constexpr std::array<Rgb24, ColourCount> DarkColours = {
    rgb(0, 0, 0),     rgb(0, 0, 128), rgb(0, 128, 128), rgb(0, 128, 0),
    rgb(128, 0, 128), rgb(128, 0, 0), rgb(128, 128, 0), rgb(255, 255, 255)};

/// For text.
inline constexpr std::array<Rgb24, ColourCount> BrightColours = {
    rgb(0, 0, 0),     rgb(0, 0, 255), rgb(0, 255, 255), rgb(0, 255, 0),
    rgb(255, 0, 255), rgb(255, 0, 0), rgb(255, 255, 0), rgb(255, 255, 255)};

/// Entry 1 to ColourCount; black for any other number.
[[nodiscard]] constexpr Rgb24 darkColour(int index) {
    return index >= 1 && index <= ColourCount ? DarkColours[static_cast<std::size_t>(index - 1)]
                                              : Black;
}
[[nodiscard]] constexpr Rgb24 brightColour(int index) {
    return index >= 1 && index <= ColourCount ? BrightColours[static_cast<std::size_t>(index - 1)]
                                              : Black;
}

/// The low, middle and high byte of a colour.
struct RgbParts final {
    int red = 0;
    int green = 0;
    int blue = 0;
};
[[nodiscard]] constexpr RgbParts SplitRgb(Rgb24 color) {
    return {static_cast<int>(color & 0xFFU), static_cast<int>(color >> 8U & 0xFFU),
            static_cast<int>(color >> 16U & 0xFFU)};
}

/// A colour setting, which the file holds as a number, limited to 24 bits.
[[nodiscard]] constexpr Rgb24 colourOfSetting(double value) {
    if (!(value > 0)) {
        return Black;
    }
    return value >= White ? White : static_cast<Rgb24>(value);
}

/// Contrast of two colours, 1 for the same to 21 for black and white, as WCAG 2 defines it.
[[nodiscard]] double contrastOf(Rgb24 one, Rgb24 other);
/// Just above that of a colour with itself.
inline constexpr double SameColour = 1.001;
/// The least at which WCAG 2 calls large text readable.
inline constexpr double ReadableContrast = 3;

} // namespace velmora
