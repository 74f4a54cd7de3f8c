#include "platform/drawing/scroll_surface.h"

#include <QPainter>
#include <QRect>

#include <algorithm>
#include <cstring>

namespace velmora {

namespace {

/// Slot of a table row; table rows before the first are as good as any.
int slotOf(std::int64_t tableRow, int rows) {
    const std::int64_t rest = tableRow % rows;
    return static_cast<int>(rest < 0 ? rest + rows : rest);
}

void paintPart(QPainter& painter, const QImage& image, QRect target, int firstRow,
               const QRect& clip) {
    const QRect visible = target.intersected(clip);
    if (visible.isEmpty())
        return;
    const QRect source(visible.x() - target.x(), firstRow + visible.y() - target.y(),
                       visible.width(), visible.height());
    painter.drawImage(visible, image, source);
}

} // namespace

void ScrollSurface::resize(int width, int rows, QRgb background) {
    m_ring.resize(width, rows);
    m_ring.fill(background);
    m_background = background;
    m_top = 0;
}

QRgb* ScrollSurface::slot(std::int64_t tableRow) {
    return rows() == 0 ? nullptr : m_ring.row(slotOf(tableRow, rows()));
}

void ScrollSurface::writeRow(std::int64_t tableRow, const Surface& source, int sourceX,
                             int sourceRow) {
    QRgb* const target = slot(tableRow);
    if (target == nullptr)
        return;
    const bool exists = sourceRow >= 0 && sourceRow < source.height();
    const std::int64_t before = std::clamp<std::int64_t>(-std::int64_t{sourceX}, 0, width());
    const std::int64_t end =
        exists ? std::clamp<std::int64_t>(std::int64_t{source.width()} - sourceX, before, width())
               : before;
    std::fill_n(target, before, m_background);
    if (end > before) {
        std::memcpy(target + before, source.row(sourceRow) + (sourceX + before),
                    static_cast<std::size_t>(end - before) * sizeof(QRgb));
    }
    std::fill(target + end, target + width(), m_background);
}

void ScrollSurface::clearRow(std::int64_t tableRow) {
    if (QRgb* const target = slot(tableRow))
        std::fill_n(target, width(), m_background);
}

void ScrollSurface::paint(QPainter& painter, int x, int y, const QRect& clip) const {
    if (rows() == 0)
        return;
    const int first = slotOf(m_top, rows());
    const int upper = rows() - first;
    paintPart(painter, m_ring.image(), QRect(x, y, width(), upper), first, clip);
    paintPart(painter, m_ring.image(), QRect(x, y + upper, width(), first), 0, clip);
}

QImage ScrollSurface::toImage() const {
    if (rows() == 0)
        return {};
    QImage picture(width(), rows(), QImage::Format_RGB32);
    QPainter painter(&picture);
    paint(painter, 0, 0, picture.rect());
    return picture;
}

} // namespace velmora
