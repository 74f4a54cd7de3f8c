#include "widgets/up_down.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>

#include <algorithm>

namespace velmora {

namespace {

constexpr int FirstRepeatMs = 300;
constexpr int RepeatMs = 15;
constexpr QRgb ButtonColor = qRgb(64, 64, 64);
constexpr QRgb ArrowColor = qRgb(224, 224, 224);

} // namespace

UpDown::UpDown(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::NoFocus);
}

void UpDown::setRange(int minimum, int maximum) {
    m_minimum = minimum;
    m_maximum = std::max(minimum, maximum);
    setValue(m_value);
}

void UpDown::setValue(int value) {
    const int limited = std::clamp(value, m_minimum, m_maximum);
    if (limited != m_value) {
        m_value = limited;
        Q_EMIT valueChanged(m_value);
    }
}

void UpDown::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(ButtonColor));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(ArrowColor));
    const double middle = width() / 2.0;
    const double half = width() / 4.0;
    const double quarter = height() / 4.0;
    const double rise = half * 0.7;
    const QPointF up[] = {{middle - half, quarter + rise / 2},
                          {middle + half, quarter + rise / 2},
                          {middle, quarter - rise / 2}};
    const QPointF down[] = {{middle - half, 3 * quarter - rise / 2},
                            {middle + half, 3 * quarter - rise / 2},
                            {middle, 3 * quarter + rise / 2}};
    painter.drawConvexPolygon(up, 3);
    painter.drawConvexPolygon(down, 3);
}

void UpDown::mousePressEvent(QMouseEvent* event) {
    stopRepeating();
    m_held = event->position().y() < height() / 2.0 ? -1 : 1;
    m_timer = startTimer(FirstRepeatMs);
    setValue(m_value + m_held);
}

void UpDown::mouseReleaseEvent(QMouseEvent*) {
    stopRepeating();
}

void UpDown::timerEvent(QTimerEvent* event) {
    if (event->timerId() == m_timer) {
        killTimer(m_timer);
        m_timer = startTimer(RepeatMs);
        setValue(m_value + m_held);
    }
}

void UpDown::hideEvent(QHideEvent*) {
    // The button that is let go while the control is hidden is never heard of.
    stopRepeating();
}

void UpDown::stopRepeating() {
    if (m_timer != 0) {
        killTimer(m_timer);
        m_timer = 0;
    }
    m_held = 0;
}

} // namespace velmora
