#pragma once

#include <QImage>

#include <cstdint>

namespace velmora {

/// A bitmap of 32-bit RGB pixels (QImage::Format_RGB32) with the raster operations of a picture
/// box. Copies behave as if the whole source were read first, and clip to source and target.
class Surface final {
public:
    Surface() = default;
    /// A black picture. Sizes below 1 make an empty surface.
    Surface(int width, int height);

    [[nodiscard]] int width() const { return m_image.width(); }
    [[nodiscard]] int height() const { return m_image.height(); }
    /// Keeps nothing of the picture: its pixels are undefined until they are filled. Does nothing
    /// when the size is the same.
    void resize(int width, int height);

    /// color as 0xffRRGGBB.
    void fill(QRgb color);
    void fillRect(int x, int y, int width, int height, QRgb color);

    /// Copies width x height pixels of source from (sourceX, sourceY) to (x, y). source may be
    /// this.
    void BitBlt(int x, int y, int width, int height, const Surface& source, int sourceX,
                int sourceY);
    /// Scales by nearest pixel; a negative width mirrors left to right, x is then the right edge
    /// + 1.
    void StretchBlt(int x, int y, int width, int height, const Surface& source, int sourceX,
                    int sourceY, int sourceWidth, int sourceHeight);

    /// Pixels of one row, 0 to height() - 1.
    [[nodiscard]] QRgb* row(int y);
    [[nodiscard]] const QRgb* row(int y) const;

    [[nodiscard]] QImage& image() { return m_image; }
    [[nodiscard]] const QImage& image() const { return m_image; }

private:
    QImage m_image;
};

} // namespace velmora
