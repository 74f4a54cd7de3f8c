#pragma once

#include "platform/rich_text/rich_text_fragment.h"

#include <QRgb>

namespace velmora {

/// The pixel (0xffRRGGBB) of a colour of the rich text control (0x00BBGGRR). Every picture takes
/// its colours through here.
[[nodiscard]] constexpr QRgb toPixel(Rgb24 color) {
    return qRgb(static_cast<int>(color & 0xff), static_cast<int>(color >> 8 & 0xff),
                static_cast<int>(color >> 16 & 0xff));
}

} // namespace velmora
