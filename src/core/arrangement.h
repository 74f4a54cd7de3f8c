#pragma once

namespace velmora {

/// MirrorMode: on how many displays a show runs, and whether a speaker reads it in a mirror.
namespace mirror {
inline constexpr int OneDisplay = 0;
inline constexpr int Mirrored = 1;
inline constexpr int TwoDisplays = 4;
} // namespace mirror

/// ControllerType: what steers a show besides the keyboard. 20 and 21 act as a mouse. Any other
/// number is none.
namespace controller {
inline constexpr int Unchosen = 0;
inline constexpr int Foot = 10;
inline constexpr int None = 11;
inline constexpr int Trigger = 20;
inline constexpr int RfWireless = 21;
} // namespace controller

/// SpeedControllerInUse as it follows from ControllerType.
[[nodiscard]] constexpr bool speedControllerInUse(int controllerType) {
    return controllerType == controller::Trigger || controllerType == controller::RfWireless;
}

} // namespace velmora
