#pragma once

class QWheelEvent;

namespace velmora {

/// A turn of the mouse wheel.
struct WheelTurn final {
    /// 120 a notch, positive away from the user; fine wheels and touch pads turn by less.
    double delta = 0;
    /// Shift, Control or Alt is held.
    bool modifierHeld = false;
};

/// What a wheel event says. With Alt the wheel turns sideways in Qt; it is the same turn here.
[[nodiscard]] WheelTurn wheelTurn(const QWheelEvent& event);

} // namespace velmora
