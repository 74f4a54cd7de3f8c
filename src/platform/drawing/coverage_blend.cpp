#include "platform/drawing/coverage_blend.h"

#include "platform/drawing/surface.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace velmora {

namespace {

constexpr std::uint32_t RedBlue = 0x00ff00ff;

/// Red and blue are computed in one number. (x + 128 + ((x + 128) >> 8)) >> 8 is x / 255, rounded,
/// for every x up to 255 * 255.
inline QRgb mix(QRgb below, QRgb color, std::uint32_t coverage) {
    const std::uint32_t rest = 255 - coverage;
    std::uint32_t redBlue = (below & RedBlue) * rest + (color & RedBlue) * coverage + 0x00800080;
    redBlue = (redBlue + (redBlue >> 8 & RedBlue)) >> 8 & RedBlue;
    std::uint32_t green = (below >> 8 & 0xff) * rest + (color >> 8 & 0xff) * coverage + 0x80;
    green = (green + (green >> 8)) & 0xff00;
    return 0xff000000 | redBlue | green;
}

/// Eight pixels at once; at the sizes of a show most blocks lie all outside or all inside of the
/// letter.
void blendRow(QRgb* target, const uchar* coverage, int length, QRgb color) {
    constexpr int BlockPixels = 8;
    int x = 0;
    for (; x + BlockPixels <= length; x += BlockPixels) {
        std::uint64_t block = 0;
        static_assert(sizeof(block) == BlockPixels);
        std::memcpy(&block, coverage + x, sizeof(block));
        if (block == 0)
            continue;
        if (block == ~std::uint64_t{0}) {
            std::fill_n(target + x, BlockPixels, color);
            continue;
        }
        for (int i = x; i < x + BlockPixels; ++i)
            target[i] = mix(target[i], color, coverage[i]);
    }
    for (; x < length; ++x)
        target[x] = mix(target[x], color, coverage[x]);
}

} // namespace

void blendCoverage(Surface& target, const QRect& clip, const QImage& coverage, QPoint place,
                   QRgb color) {
    const QRect visible = QRect(place, coverage.size())
                              .intersected(clip)
                              .intersected(QRect(0, 0, target.width(), target.height()));
    if (visible.isEmpty())
        return;
    const uchar* from =
        coverage.constScanLine(visible.top() - place.y()) + visible.left() - place.x();
    auto* to = reinterpret_cast<uchar*>(target.row(visible.top()) + visible.left());
    for (int y = visible.top(); y <= visible.bottom(); ++y) {
        blendRow(reinterpret_cast<QRgb*>(to), from, visible.width(), color);
        from += coverage.bytesPerLine();
        to += target.image().bytesPerLine();
    }
}

} // namespace velmora
