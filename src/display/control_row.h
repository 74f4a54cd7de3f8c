#pragma once

#include <QWidget>

namespace velmora {

/// Picture6 with Image1: the speed scale. A start button, a pause button, and the scale with its
/// thumb, 347 by 34 pixels. The left end of the scale is speed 255, the right end 0.
class SpeedScale final : public QWidget {
    Q_OBJECT
public:
    explicit SpeedScale(QWidget* parent = nullptr);

    /// SplitRange or FullRange: which picture the scale has.
    void setRange(int scrollSpeedControl);
    /// Moves the thumb.
    void setSpeed(double scrollSpeed);

    enum class Part { None, Start, Pause, Scale };
    /// The part of the scale at a place, in pixels from its left edge.
    [[nodiscard]] static Part partAt(int x);
    /// The speed at a place on the scale, 0 to 255.
    [[nodiscard]] static double speedAt(int x);

Q_SIGNALS:
    /// A button was pressed at a place, in pixels from the left edge.
    void pressed(int x);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void paintScale(QPainter& painter) const;

    int m_range = 0;
    double m_speed = 0;
};

/// Picture4, Picture5, Picture7: what stands left of the speed scale, 39 by 33 pixels.
class ShowMark final : public QWidget {
    Q_OBJECT
public:
    enum class Kind { Forward, Backward, Notice };

    explicit ShowMark(Kind kind, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Kind m_kind;
};

} // namespace velmora
