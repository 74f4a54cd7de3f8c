#pragma once

#include <QSize>
#include <QTimer>
#include <QWidget>

#include <cstdint>
#include <functional>

class QPainter;
class QPalette;

namespace velmora {

class Clock;

/// A moving picture, drawn frame by frame.
struct DialogStrip final {
    /// Of a frame, in units: a line of the window's font is DialogAnimation::LineUnits high.
    QSize frameSize;
    int frames = 1;
    /// Draws a frame in these units. phase: the part of the strip that lies before it, 0 to
    /// below 1.
    std::function<void(QPainter& painter, double phase, const QPalette& colours)> draw;
};

/// The moving picture in a corner of a small window. It plays from its first frame on whenever the
/// window is shown, over and over, and costs nothing while the window is hidden. The clock alone
/// says which frame it is: a late timer leaves frames out and slows nothing. The clock has to
/// outlive the widget.
class DialogAnimation final : public QWidget {
    Q_OBJECT
public:
    static constexpr int FramesPerSecond = 25;
    static constexpr int LineUnits = 16;

    DialogAnimation(const QString& name, DialogStrip strip, const Clock& clock, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void awaitNextFrame();

    DialogStrip m_strip;
    const Clock& m_clock;
    QTimer m_timer{this};
    /// The clock's counter when the window was shown.
    std::int64_t m_firstFrameTicks = 0;
};

} // namespace velmora
