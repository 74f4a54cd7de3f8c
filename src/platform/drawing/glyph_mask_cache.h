#pragma once

#include <QImage>
#include <QPoint>
#include <QRawFont>

#include <cstdint>
#include <memory>

namespace velmora {

/// A glyph's coverage and where it lies relative to the pen.
struct GlyphMask final {
    /// QImage::Format_Alpha8, one byte a pixel; null for a blank glyph.
    QImage coverage;
    /// Top left corner of the coverage, from the pen on the baseline.
    QPoint offset;
    /// False: the glyph has no mask (a colour glyph, or too big), it must be drawn by other means.
    bool drawable = true;
};

/// Greyscale glyph masks at fractional pixel sizes, kept least recently used first out.
///
/// The pen stands on whole pixels: there is one mask a glyph, none for fractions of a pixel.
/// Text of 12 points is 64 pixels high on a screen 1280 wide, where rounding the
/// pen moves a letter by at most 0.8% of its size; masks for four fractions would fill the
/// cache four times as fast.
class GlyphMaskCache final {
public:
    static constexpr std::int64_t DefaultLimitBytes = 64ll * 1024 * 1024;

    explicit GlyphMaskCache(std::int64_t limitBytes = DefaultLimitBytes);
    ~GlyphMaskCache();
    Q_DISABLE_COPY_MOVE(GlyphMaskCache)

    /// The mask of a glyph of the font's face, at pixelSize instead of the font's own size. Valid
    /// until the next call.
    [[nodiscard]] const GlyphMask& mask(const QRawFont& font, double pixelSize,
                                        std::uint32_t glyph);
    /// What the masks take; never above the limit.
    [[nodiscard]] std::int64_t bytes() const;
    /// Masks made so far, a repeated one counted again: tells a warm cache from a cold one.
    [[nodiscard]] std::int64_t masksMade() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace velmora
