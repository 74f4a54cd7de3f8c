#include "core/colour_tables.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

/// Of one component, 0 to 255, in linear light.
double linear(unsigned component) {
    const double share = component / 255.0;
    return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double luminance(Rgb24 color) {
    return 0.2126 * linear(color & 0xFF) + 0.7152 * linear(color >> 8 & 0xFF) +
           0.0722 * linear(color >> 16 & 0xFF);
}

} // namespace

double contrastOf(Rgb24 one, Rgb24 other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace velmora
