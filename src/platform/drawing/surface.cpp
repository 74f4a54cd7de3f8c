#include "platform/drawing/surface.h"

#include <QtGlobal>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace velmora {

namespace {

/// One axis of a copy, limited so that both sides lie inside their pictures.
struct Span final {
    int target = 0;
    int source = 0;
    int length = 0;
};

Span clipSpan(int target, int source, int length, int targetSize, int sourceSize) {
    const std::int64_t skip =
        std::max({std::int64_t{0}, -std::int64_t{target}, -std::int64_t{source}});
    const std::int64_t end = std::min({std::int64_t{length}, std::int64_t{targetSize} - target,
                                       std::int64_t{sourceSize} - source});
    if (skip >= end)
        return {};
    return {static_cast<int>(target + skip), static_cast<int>(source + skip),
            static_cast<int>(end - skip)};
}

/// For the target pixels first, first + 1, ... the source pixel that each shows.
struct PixelMap final {
    int first = 0;
    std::vector<int> source;
};

/// Pixel i of size shows the source pixel under its middle; mirrored, the last one is i = 0.
/// Pixels outside the target and those without a source pixel are left out.
PixelMap mapPixels(std::int64_t begin, std::int64_t size, bool mirrored, int targetSize, int from,
                   int sourceLength, int sourceSize) {
    PixelMap map;
    const std::int64_t first = std::clamp<std::int64_t>(begin, 0, targetSize);
    const std::int64_t end = std::clamp<std::int64_t>(begin + size, first, targetSize);
    map.source.reserve(static_cast<std::size_t>(end - first));
    for (std::int64_t pixel = first; pixel < end; ++pixel) {
        const std::int64_t index = mirrored ? begin + size - 1 - pixel : pixel - begin;
        const std::int64_t source = from + (2 * index + 1) * sourceLength / (2 * size);
        if (source < 0 || source >= sourceSize)
            continue;
        if (map.source.empty())
            map.first = static_cast<int>(pixel);
        map.source.push_back(static_cast<int>(source));
    }
    return map;
}

} // namespace

Surface::Surface(int width, int height) {
    resize(width, height);
    fill(0xff000000u);
}

void Surface::resize(int width, int height) {
    if (width < 1 || height < 1)
        m_image = QImage();
    else if (width != m_image.width() || height != m_image.height())
        m_image = QImage(width, height, QImage::Format_RGB32);
}

void Surface::fill(QRgb color) {
    fillRect(0, 0, width(), height(), color);
}

void Surface::fillRect(int x, int y, int width, int height, QRgb color) {
    const Span columns = clipSpan(x, 0, width, this->width(), width);
    const Span rows = clipSpan(y, 0, height, this->height(), height);
    if (columns.length == 0 || rows.length == 0)
        return;
    // The first row is filled, the others are copies of it: up to twice as fast.
    QRgb* const first = row(rows.target) + columns.target;
    std::fill_n(first, columns.length, color);
    for (int line = rows.target + 1; line < rows.target + rows.length; ++line)
        std::memcpy(row(line) + columns.target, first,
                    static_cast<std::size_t>(columns.length) * sizeof(QRgb));
}

void Surface::BitBlt(int x, int y, int width, int height, const Surface& source, int sourceX,
                     int sourceY) {
    const Span columns = clipSpan(x, sourceX, width, this->width(), source.width());
    const Span rows = clipSpan(y, sourceY, height, this->height(), source.height());
    if (columns.length == 0 || rows.length == 0)
        return;
    // The target first: a picture that is shared with a copy gets pixels of its own here.
    uchar* const targetBits = m_image.bits();
    const uchar* const sourceBits = source.m_image.constBits();
    const std::size_t bytes = static_cast<std::size_t>(columns.length) * sizeof(QRgb);
    const bool bottomUp = this == &source && rows.target > rows.source;
    for (int step = 0; step < rows.length; ++step) {
        const int line = bottomUp ? rows.length - 1 - step : step;
        std::memmove(targetBits + (rows.target + line) * m_image.bytesPerLine() +
                         columns.target * std::ptrdiff_t{sizeof(QRgb)},
                     sourceBits + (rows.source + line) * source.m_image.bytesPerLine() +
                         columns.source * std::ptrdiff_t{sizeof(QRgb)},
                     bytes);
    }
}

void Surface::StretchBlt(int x, int y, int width, int height, const Surface& source, int sourceX,
                         int sourceY, int sourceWidth, int sourceHeight) {
    if (width == 0 || height <= 0 || sourceWidth <= 0 || sourceHeight <= 0)
        return;
    if (&source == this) {
        const Surface before = *this;
        StretchBlt(x, y, width, height, before, sourceX, sourceY, sourceWidth, sourceHeight);
        return;
    }
    const bool mirrored = width < 0;
    const std::int64_t size = std::abs(std::int64_t{width});
    const PixelMap columns = mapPixels(mirrored ? x - size : x, size, mirrored, this->width(),
                                       sourceX, sourceWidth, source.width());
    const PixelMap rows =
        mapPixels(y, height, false, this->height(), sourceY, sourceHeight, source.height());
    if (columns.source.empty())
        return;
    for (std::size_t line = 0; line < rows.source.size(); ++line) {
        const QRgb* const from = source.row(rows.source[line]);
        QRgb* const to = row(rows.first + static_cast<int>(line)) + columns.first;
        if (mirrored && sourceWidth == size) {
            std::reverse_copy(from + columns.source.back(), from + columns.source.front() + 1, to);
            continue;
        }
        for (std::size_t column = 0; column < columns.source.size(); ++column)
            to[column] = from[columns.source[column]];
    }
}

QRgb* Surface::row(int y) {
    Q_ASSERT(y >= 0 && y < height());
    return reinterpret_cast<QRgb*>(m_image.scanLine(y));
}

const QRgb* Surface::row(int y) const {
    Q_ASSERT(y >= 0 && y < height());
    return reinterpret_cast<const QRgb*>(m_image.constScanLine(y));
}

} // namespace velmora
