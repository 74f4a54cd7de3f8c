#pragma once

#include "platform/devices/joystick.h"

#include <memory>

namespace velmora {

/// Joystick 0 through SDL2. The library is loaded, and its joystick subsystem opened, when the
/// buttons are asked for the first time: it draws in some fifty others, and most users have no
/// pedal. Without the library there is no joystick.
class SdlJoystick final : public Joystick {
public:
    SdlJoystick();
    ~SdlJoystick() override;

    [[nodiscard]] std::uint32_t buttons() override;

private:
    class Subsystem;

    std::unique_ptr<Subsystem> m_subsystem;
};

} // namespace velmora
