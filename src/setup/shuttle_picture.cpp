#include "setup/shuttle_picture.h"

#include "controllers/controller_buttons.h"

#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

/// Radii, as parts of the picture's half side.
constexpr double CaseRadius = 0.98;
constexpr double ButtonsRadius = 0.80;
constexpr double ButtonRadius = 0.14;
constexpr double RingOuter = 0.60;
constexpr double RingInner = 0.47;
constexpr double DialRadius = 0.40;
constexpr double DimpleAt = 0.24;
constexpr double DimpleRadius = 0.08;

/// Degrees from one button to the next; the third is at the top.
constexpr double ButtonsApart = 40;

const QColor caseColor(0x17, 0x18, 0x1a);
const QColor edgeColor(0x70, 0x76, 0x80);
const QColor ringColor(0x3b, 0x3e, 0x44);
const QColor dialColor(0x2b, 0x2d, 0x31);
const QColor buttonColor(0x8b, 0x92, 0x9c);
const QColor markColor(0x3d, 0x7d, 0xca);

void disc(QPainter& painter, QPointF centre, double radius, const QColor& fill) {
    painter.setBrush(fill);
    painter.drawEllipse(centre, radius, radius);
}

} // namespace

ShuttlePicture::ShuttlePicture(QWidget* parent) : QWidget(parent) {
    setAccessibleName(QStringLiteral("Picture of the shuttle and its five buttons"));
}

void ShuttlePicture::markButton(int number) {
    m_marked = number;
    update();
}

QSize ShuttlePicture::sizeHint() const {
    const int side = 13 * fontMetrics().height();
    return {side, side};
}

void ShuttlePicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double half = std::min(width(), height()) / 2.0;
    const QPointF centre(width() / 2.0, height() / 2.0);
    painter.setPen(QPen(edgeColor, half / 60));
    disc(painter, centre, half * CaseRadius, caseColor);
    disc(painter, centre, half * RingOuter, ringColor);
    disc(painter, centre, half * RingInner, caseColor);
    disc(painter, centre, half * DialRadius, dialColor);
    disc(painter, centre + QPointF(0, -half * DimpleAt), half * DimpleRadius, caseColor);

    QFont font = this->font();
    font.setPixelSize(std::max(1, static_cast<int>(half * ButtonRadius * 1.2)));
    font.setBold(true);
    painter.setFont(font);
    for (int number = 1; number <= static_cast<int>(ShuttleButtons.size()); ++number) {
        const double angle = qDegreesToRadians(ButtonsApart * (number - 3));
        const QPointF at =
            centre + half * ButtonsRadius * QPointF(std::sin(angle), -std::cos(angle));
        const double radius = half * ButtonRadius;
        const bool marked = number == m_marked;
        painter.setPen(QPen(edgeColor, half / 60));
        disc(painter, at, radius, marked ? markColor : buttonColor);
        painter.setPen(marked ? Qt::white : Qt::black);
        painter.drawText(QRectF(at - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)),
                         Qt::AlignCenter, QString::number(number));
    }
}

} // namespace velmora
