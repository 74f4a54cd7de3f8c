#pragma once

#include <QString>

#include <cstdint>

namespace velmora {

/// Remaining time as the product of rows and seconds a step: "mm:ss" within the hour. In turbo,
/// where a step is two rows, that is the double.
[[nodiscard]] QString remainingText(std::int64_t rows, double secondsPerStep);

} // namespace velmora
