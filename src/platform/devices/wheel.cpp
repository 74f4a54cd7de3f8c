#include "platform/devices/wheel.h"

#include <QWheelEvent>

namespace velmora {

WheelTurn wheelTurn(const QWheelEvent& event) {
    constexpr auto Modifiers = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;
    const QPoint turned = event.angleDelta();
    const bool sideways = turned.y() == 0 && event.modifiers().testFlag(Qt::AltModifier);
    return {static_cast<double>(sideways ? turned.x() : turned.y()),
            (event.modifiers() & Modifiers) != 0};
}

} // namespace velmora
