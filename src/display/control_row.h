#pragma once

#include "controllers/speed_scale_mapping.h"
#include "display/display_traits.h"

#include <QSize>
#include <QWidget>

#include <optional>

namespace velmora {

/// Picture6 with Image1: the speed scale. A start button, a pause button, and the scale with its
/// thumb, told for 347 by 34 pixels; a larger one is the same picture enlarged. The left end of the
/// scale is speed 255, the right end 0; in a mirrored window everything runs the other way.
class SpeedScale final : public QWidget {
    Q_OBJECT
public:
    explicit SpeedScale(Orientation orientation, QWidget* parent = nullptr);

    /// SplitRange or FullRange: which picture the scale has.
    void setRange(int scrollSpeedControl);
    /// Moves the thumb.
    void setSpeed(double scrollSpeed);

    /// Where the parts of the scale lie in this window, in the told pixels.
    [[nodiscard]] const SpeedScaleMapping& mapping() const;

Q_SIGNALS:
    /// A button was pressed beside the thumb, so many told pixels from the left edge.
    void pressed(double x);
    /// The thumb or the scale is dragged to a speed.
    void dragged(double scrollSpeed);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    static constexpr QSize ToldSize{347, 34};

    [[nodiscard]] double enlargement() const;
    [[nodiscard]] double placeOf(const QMouseEvent& event) const;
    void paintWhole(QPainter& painter) const;
    void paintScale(QPainter& painter) const;

    Orientation m_orientation;
    int m_range = 0;
    double m_speed = 0;
    /// A button went down on the scale, so that moves drag it.
    bool m_dragging = false;
    /// DragStartX: the place within the thumb at which it is held.
    std::optional<double> m_thumbHeldAt;
};

/// Picture4, Picture5, Picture7: what stands left of the speed scale, told for 39 by 33 pixels.
class ShowMark final : public QWidget {
    Q_OBJECT
public:
    enum class Kind { Forward, Backward, Notice };

    explicit ShowMark(Kind kind, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    static constexpr QSize ToldSize{39, 33};

    Kind m_kind;
};

} // namespace velmora
