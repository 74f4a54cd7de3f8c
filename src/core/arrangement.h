#pragma once

namespace velmora {

/// MirrorMode: on how many displays a show runs, and whether a speaker reads it in a mirror.
namespace mirror {
inline constexpr int OneDisplay = 0;
inline constexpr int Mirrored = 1;
inline constexpr int TwoDisplays = 4;
} // namespace mirror

/// ControllerType: the hand controllers that act as a mouse.
namespace controller {
inline constexpr int Trigger = 20;
inline constexpr int RfWireless = 21;
} // namespace controller

/// SpeedControllerInUse as it follows from ControllerType.
[[nodiscard]] constexpr bool speedControllerInUse(int controllerType) {
    return controllerType == controller::Trigger || controllerType == controller::RfWireless;
}

} // namespace velmora
