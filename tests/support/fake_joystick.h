#pragma once

#include "platform/devices/joystick.h"

namespace velmora {

/// A joystick whose buttons a test holds down.
class FakeJoystick final : public Joystick {
public:
    [[nodiscard]] std::uint32_t buttons() override {
        ++polls;
        return plugged ? held : 0;
    }

    std::uint32_t held = 0;
    bool plugged = true;
    int polls = 0;
};

} // namespace velmora
