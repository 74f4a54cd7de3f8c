#include "widgets/dialog_animation.h"

#include "platform/timing/clock.h"

#include <QPainter>

#include <utility>

namespace velmora {

DialogAnimation::DialogAnimation(const QString& name, DialogStrip strip, const Clock& clock,
                                 QWidget* parent)
    : QWidget(parent), m_strip(std::move(strip)), m_clock(clock) {
    setObjectName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        update();
        awaitNextFrame();
    });
}

QSize DialogAnimation::sizeHint() const {
    return m_strip.frameSize * fontMetrics().height() / LineUnits;
}

void DialogAnimation::paintEvent(QPaintEvent*) {
    const std::int64_t ticks = m_clock.counter() - m_firstFrameTicks;
    const auto frame = ticks * FramesPerSecond / m_clock.frequency() % m_strip.frames;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.scale(static_cast<double>(width()) / m_strip.frameSize.width(),
                  static_cast<double>(height()) / m_strip.frameSize.height());
    m_strip.draw(painter, static_cast<double>(frame) / m_strip.frames, palette());
}

void DialogAnimation::showEvent(QShowEvent*) {
    m_firstFrameTicks = m_clock.counter();
    awaitNextFrame();
}

void DialogAnimation::hideEvent(QHideEvent*) {
    m_timer.stop();
}

void DialogAnimation::awaitNextFrame() {
    const std::int64_t frameTicks = m_clock.frequency() / FramesPerSecond;
    const std::int64_t rest = frameTicks - (m_clock.counter() - m_firstFrameTicks) % frameTicks;
    // The next whole millisecond: before the frame's time there would be nothing new to paint.
    m_timer.start(static_cast<int>(rest * 1000 / m_clock.frequency()) + 1);
}

} // namespace velmora
