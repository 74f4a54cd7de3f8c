#pragma once

#include <QString>

#include <cstdint>

namespace velmora {

/// Remaining time of so many rows at a pace in seconds a row: "mm:ss" within the hour.
[[nodiscard]] QString remainingText(std::int64_t rows, double secondsPerStep);

} // namespace velmora
