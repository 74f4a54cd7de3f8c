#include "display/control_row.h"

#include "controllers/speed_mapping.h"
#include "core/speed_range.h"
#include "display/flipped_face.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace velmora {

namespace {

constexpr QRgb Panel = qRgb(40, 42, 46);
constexpr QRgb Edge = qRgb(90, 94, 100);
constexpr QRgb Go = qRgb(70, 200, 110);
constexpr QRgb Halt = qRgb(235, 180, 60);
constexpr QRgb Back = qRgb(240, 140, 60);
constexpr QRgb Still = qRgb(70, 72, 78);
constexpr QRgb Thumb = qRgb(245, 245, 245);

constexpr int ButtonWidth = 36;
constexpr double ThumbWidth = 9;

void paintPanel(QPainter& painter, const QRect& area) {
    painter.setPen(QColor(Edge));
    painter.setBrush(QColor(Panel));
    painter.drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    painter.setPen(Qt::NoPen);
}

/// Middle of the thumb at a speed.
double scaleX(double speed) {
    return PlainSpeedScale.thumbLeft(speed) + ThumbWidth / 2;
}

} // namespace

SpeedScale::SpeedScale(Orientation orientation, QWidget* parent)
    : QWidget(parent), m_orientation(orientation) {
    setFocusPolicy(Qt::NoFocus);
}

void SpeedScale::setRange(int scrollSpeedControl) {
    m_range = scrollSpeedControl;
    update();
}

void SpeedScale::setSpeed(double scrollSpeed) {
    m_speed = scrollSpeed;
    update();
}

const SpeedScaleMapping& SpeedScale::mapping() const {
    return m_orientation == Orientation::Plain ? PlainSpeedScale : MirroredSpeedScale;
}

double SpeedScale::enlargement() const {
    return width() / static_cast<double>(ToldSize.width());
}

double SpeedScale::placeOf(const QMouseEvent& event) const {
    return event.position().x() / enlargement();
}

void SpeedScale::mousePressEvent(QMouseEvent* event) {
    const double x = placeOf(*event);
    const double left = mapping().thumbLeft(m_speed);
    m_dragging = mapping().partAt(x) == SpeedScaleMapping::Part::Scale;
    if (m_dragging && x >= left && x < left + ThumbWidth) {
        m_thumbHeldAt = x - left;
    } else {
        Q_EMIT pressed(x);
    }
}

/// On a button it is one press; on the scale the hand is only quick.
void SpeedScale::mouseDoubleClickEvent(QMouseEvent* event) {
    if (mapping().partAt(placeOf(*event)) == SpeedScaleMapping::Part::Scale) {
        mousePressEvent(event);
    }
}

void SpeedScale::mouseMoveEvent(QMouseEvent* event) {
    const double x = placeOf(*event);
    if (m_thumbHeldAt) {
        Q_EMIT dragged(mapping().thumbSpeed(mapping().draggedThumbLeft(x, *m_thumbHeldAt)));
    } else if (m_dragging) {
        Q_EMIT dragged(mapping().draggedSpeed(x));
    }
}

void SpeedScale::mouseReleaseEvent(QMouseEvent*) {
    m_thumbHeldAt.reset();
    m_dragging = false;
}

void SpeedScale::paintEvent(QPaintEvent*) {
    paintFace(*this, m_orientation, [this](QPainter& painter) {
        painter.scale(enlargement(), enlargement());
        paintWhole(painter);
    });
}

/// As the plain window has it: its buttons, and the scale with the thumb.
void SpeedScale::paintWhole(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect start(0, 0, ButtonWidth - 2, ToldSize.height());
    const QRect pause(ButtonWidth, 0, ButtonWidth - 2, ToldSize.height());
    paintPanel(painter, start);
    paintPanel(painter, pause);
    paintPanel(painter, QRect(2 * ButtonWidth + 1, 0, ToldSize.width() - 2 * ButtonWidth - 1,
                              ToldSize.height()));

    const double middle = ToldSize.height() / 2.0;
    painter.setBrush(QColor(Go));
    const QPointF play[] = {{12, middle - 8}, {12, middle + 8}, {25, middle}};
    painter.drawConvexPolygon(play, 3);
    painter.setBrush(QColor(Halt));
    painter.drawRect(QRectF(ButtonWidth + 11, middle - 8, 4, 16));
    painter.drawRect(QRectF(ButtonWidth + 19, middle - 8, 4, 16));
    paintScale(painter);
}

void SpeedScale::paintScale(QPainter& painter) const {
    const double middle = ToldSize.height() / 2.0;
    const double left = scaleX(255);
    const double right = scaleX(0);
    QLinearGradient shade(left, 0, right, 0);
    const auto place = [&](double speed) { return (scaleX(speed) - left) / (right - left); };
    if (isFullRange(m_range)) {
        shade.setColorAt(0, QColor(Still));
        shade.setColorAt(place(243), QColor(Still));
        shade.setColorAt(place(242), QColor(Go).darker(300));
        shade.setColorAt(1, QColor(Go));
    } else {
        shade.setColorAt(0, QColor(Back));
        shade.setColorAt(place(138), QColor(Back).darker(300));
        shade.setColorAt(place(speed::DeadBandEnd), QColor(Still));
        shade.setColorAt(place(speed::DeadBandBegin), QColor(Still));
        shade.setColorAt(place(118), QColor(Go).darker(300));
        shade.setColorAt(1, QColor(Go));
    }
    painter.setBrush(shade);
    painter.drawRoundedRect(QRectF(left, middle - 4, right - left, 8), 4, 4);
    painter.setPen(QColor(Panel));
    painter.setBrush(QColor(Thumb));
    painter.drawRoundedRect(QRectF(scaleX(m_speed) - ThumbWidth / 2, middle - 12, ThumbWidth, 24),
                            3, 3);
}

ShowMark::ShowMark(Kind kind, QWidget* parent) : QWidget(parent), m_kind(kind) {
    setFocusPolicy(Qt::NoFocus);
}

void ShowMark::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double enlargement = width() / static_cast<double>(ToldSize.width());
    painter.scale(enlargement, enlargement);
    paintPanel(painter, QRect(QPoint(0, 0), ToldSize));
    const QPointF middle = QRectF(QPointF(0, 0), ToldSize).center();
    if (m_kind == Kind::Notice) {
        painter.setBrush(QColor(Halt));
        const QPointF ribbon[] = {{middle.x() - 6, 7},
                                  {middle.x() + 6, 7},
                                  {middle.x() + 6, 26},
                                  {middle.x(), 20},
                                  {middle.x() - 6, 26}};
        painter.drawPolygon(ribbon, 5);
        return;
    }
    // The text moves up going forward.
    const double up = m_kind == Kind::Forward ? -1 : 1;
    painter.setBrush(QColor(m_kind == Kind::Forward ? Go : Back));
    const QPointF arrow[] = {{middle.x() - 10, middle.y() - up * 6},
                             {middle.x() + 10, middle.y() - up * 6},
                             {middle.x(), middle.y() + up * 8}};
    painter.drawConvexPolygon(arrow, 3);
}

} // namespace velmora
