#pragma once

#include "platform/devices/pointer.h"

#include <QObject>
#include <QPointer>

namespace velmora {

/// The pointer as Qt handles it: confined by a grab, which is given up while another window is
/// active, so that a dialog over the show can be answered.
class WidgetPointer final : public QObject, public Pointer {
    Q_OBJECT
public:
    WidgetPointer() = default;
    ~WidgetPointer() override;

    void confine(QWidget& area) override;
    void hide(QWidget& area) override;
    void release() override;
    [[nodiscard]] bool moveTo(QPoint place) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void dropConfinement();

    QPointer<QWidget> m_area;
    QPointer<QWidget> m_window;
    QPointer<QWidget> m_hiddenOver;
};

} // namespace velmora
