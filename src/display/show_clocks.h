#pragma once

#include <QString>

namespace velmora {

/// Remaining time, "mm:ss" within the hour; 00:00 behind the end.
[[nodiscard]] QString remainingText(double seconds);

} // namespace velmora
