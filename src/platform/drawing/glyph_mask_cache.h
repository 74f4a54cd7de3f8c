#pragma once

#include <QImage>
#include <QPoint>
#include <QRawFont>

#include <cstdint>
#include <memory>

namespace velmora {

/// A glyph's coverage and where it lies relative to the pen.
struct GlyphMask final {
    /// QImage::Format_Alpha8 or Format_Grayscale8, one byte a pixel; null for a blank glyph.
    QImage coverage;
    QPoint offset;
    /// The glyph has no mask (a colour glyph): draw it by other means.
    bool drawable = true;
};

/// Greyscale glyph masks at fractional pixel sizes, kept least recently used first out.
class GlyphMaskCache final {
public:
    static constexpr std::int64_t DefaultLimitBytes = 64ll * 1024 * 1024;

    explicit GlyphMaskCache(std::int64_t limitBytes = DefaultLimitBytes);
    ~GlyphMaskCache();

    /// The mask stays valid until the next call.
    [[nodiscard]] const GlyphMask& mask(const QRawFont& font, std::uint32_t glyph,
                                        int subPixelQuarter = 0);
    [[nodiscard]] std::int64_t bytes() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace velmora
