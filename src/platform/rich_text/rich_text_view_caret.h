#pragma once

#include <QBasicTimer>
#include <QObject>

namespace velmora {

/// The caret's blinking, by the system's flash time. Owned by the view, which paints the caret.
class CaretBlink final : public QObject {
    Q_OBJECT
public:
    /// Whether the caret is to be painted now.
    [[nodiscard]] bool isShown() const { return m_shown; }
    /// Shows the caret and begins a new period: after every move and every keystroke.
    void restart();
    /// Hides it: the view has no focus.
    void stop();

Q_SIGNALS:
    void toggled();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void show(bool on);

    QBasicTimer m_timer;
    bool m_shown = false;
};

} // namespace velmora
