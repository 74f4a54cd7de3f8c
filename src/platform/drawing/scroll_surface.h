#pragma once

#include "platform/drawing/surface.h"

#include <QRgb>

class QPainter;
class QRect;

namespace velmora {

/// The moving picture: a window of consecutive table rows kept in a ring of pixel rows.
///
/// Slot of table row r is r modulo rows(). Moving the window by a step writes the new rows and
/// changes top(): nothing is copied. Screen row y of the text area shows table row top() + y. The
/// owner (the frame composer) keeps the promise that every row from top() to top() + rows() - 1 has
/// been written.
class ScrollSurface final {
public:
    ScrollSurface() = default;

    /// Drops the picture; top becomes 0.
    void resize(int width, int rows, QRgb background);

    [[nodiscard]] int width() const { return m_ring.width(); }
    [[nodiscard]] int rows() const { return m_ring.height(); }
    [[nodiscard]] std::int64_t top() const { return m_top; }
    void setTop(std::int64_t top) { m_top = top; }

    /// Pixels of the slot of a table row, to be written by the caller; width() pixels.
    [[nodiscard]] QRgb* slot(std::int64_t tableRow);
    /// Copies one row of source, from sourceX on, into the slot; what lies outside source becomes
    /// background.
    void writeRow(std::int64_t tableRow, const Surface& source, int sourceX, int sourceRow);
    void clearRow(std::int64_t tableRow);

    /// Paints the text area with its top left corner at (x, y), clipped to the rectangle: two image
    /// draws.
    void paint(QPainter& painter, int x, int y, const QRect& clip) const;
    /// The text area as one picture, for tests and screenshots.
    [[nodiscard]] QImage toImage() const;

private:
    Surface m_ring;
    std::int64_t m_top = 0;
    QRgb m_background = 0xff000000;
};

} // namespace velmora
