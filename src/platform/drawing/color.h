#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <QColor>

namespace velmora {

/// The pixel (0xffRRGGBB) of a colour of the rich text control (0x00BBGGRR). Every picture and
/// every format takes its colours through here.
[[nodiscard]] constexpr QRgb toPixel(Rgb24 color) {
    return qRgb(static_cast<int>(color & 0xff), static_cast<int>(color >> 8 & 0xff),
                static_cast<int>(color >> 16 & 0xff));
}

[[nodiscard]] inline QColor toColor(Rgb24 color) {
    return QColor::fromRgb(toPixel(color));
}

} // namespace velmora
