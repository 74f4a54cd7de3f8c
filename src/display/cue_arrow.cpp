#include "display/cue_arrow.h"

#include "display/display_geometry.h"
#include "display/flipped_face.h"

#include <QPainter>

#include <array>
#include <cmath>

namespace velmora {

namespace {

/// Grey, light grey and white of the 16-colour palette.
constexpr QRgb DarkGrey = qRgb(128, 128, 128);
constexpr QRgb LightGrey = qRgb(192, 192, 192);
constexpr QRgb BrightWhite = qRgb(255, 255, 255);
constexpr std::array<QRgb, 5> RingColors = {DarkGrey, LightGrey, BrightWhite, LightGrey, DarkGrey};

constexpr int PointX = 37;
constexpr int PointY = CueArrowPoint;
constexpr int OuterBottom = 73;

void drawCueArrow(QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int i = 0; i < static_cast<int>(RingColors.size()); ++i) {
        painter.setPen(QColor(RingColors[static_cast<std::size_t>(i)]));
        const QPoint upper(i, 2 * i);
        const QPoint point(PointX - i, PointY);
        const QPoint pointFromBelow(PointX - i, PointY - 1);
        // The outermost ring reaches 73, the others end where the one around them leaves room.
        const QPoint left(i, OuterBottom - (i == 0 ? 0 : 2 * i - 1));
        const QPoint lower(i, OuterBottom - 2 * i);
        painter.drawLine(upper, point);
        painter.drawLine(upper, left);
        painter.drawLine(lower, pointFromBelow);
    }
}

} // namespace

ArrowStrip::ArrowStrip(Orientation orientation, QWidget* parent)
    : QWidget(parent), m_orientation(orientation) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ArrowStrip::setBackground(QRgb color) {
    m_background = color;
    update();
}

void ArrowStrip::setPoint(int place) {
    m_point = place;
    update();
}

void ArrowStrip::setShare(double share) {
    m_share = share;
    update();
}

void ArrowStrip::paintEvent(QPaintEvent*) {
    paintFace(*this, m_orientation, [this](QPainter& painter) {
        painter.fillRect(rect(), QColor::fromRgb(m_background));
        const double size = width() / static_cast<double>(ArrowStripWidth);
        painter.translate(0, std::round(m_point * m_share) - std::round(PointY * size));
        painter.scale(size, size);
        drawCueArrow(painter);
    });
}

} // namespace velmora
