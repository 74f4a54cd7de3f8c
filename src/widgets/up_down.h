#pragma once

#include <QWidget>

namespace velmora {

/// A pair of arrow buttons, one above the other, that moves a value. Fires only on a difference,
/// and synchronously.
class UpDown final : public QWidget {
    Q_OBJECT
public:
    explicit UpDown(QWidget* parent = nullptr);

    [[nodiscard]] int value() const { return m_value; }
    /// Limits the value too.
    void setRange(int minimum, int maximum);
    void setValue(int value);

Q_SIGNALS:
    void valueChanged(int value);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void stopRepeating();

    int m_minimum = 0;
    int m_maximum = 100;
    int m_value = 0;
    /// -1 while the upper button is held, +1 for the lower: the value is a height from the top.
    int m_held = 0;
    int m_timer = 0;
};

} // namespace velmora
