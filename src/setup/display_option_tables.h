#pragma once

#include "setup/cycling_setting.h"

namespace velmora {

/// The cycling settings of Form8.
namespace options {
extern const CyclingSetting AutomaticLooping;
extern const CyclingSetting FullScreenMode;
extern const CyclingSetting FirstDisplayLine;
extern const CyclingSetting ScrollerTurbo;
extern const CyclingSetting ScrollSpeedControl;
extern const CyclingSetting Mirrordisplay;
extern const CyclingSetting TimedDisplay;
} // namespace options

/// What the window says of a ControllerType.
[[nodiscard]] QString controllerText(int controllerType);

/// Brings into range what a settings file may hold wrongly of Form8's settings: a switch becomes 0
/// or 1, a MirrorMode of 2 or 3 becomes 4. Other values of MirrorMode stay.
void limitDisplayOptions(Settings& settings);

/// Delay, moved by a step and kept within its limits, which are reached exactly. The value is what
/// the steps add up to, a rounding error included.
[[nodiscard]] double movedDelay(double delay, double step);
/// Delay as the window shows it, "0.0".
[[nodiscard]] QString delayText(double delay);

} // namespace velmora
