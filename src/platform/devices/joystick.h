#pragma once

#include <cstdint>

namespace velmora {

/// The first joystick of the machine, as a foot pedal presents itself.
class Joystick {
public:
    virtual ~Joystick() = default;
    /// Buttons now held, one bit each, the first button being bit 0; 0 with nothing plugged in. A
    /// device may come and go between two calls. Cheap enough for every step of a show.
    [[nodiscard]] virtual std::uint32_t buttons() = 0;
};

} // namespace velmora
