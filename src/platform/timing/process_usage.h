#pragma once

#include <cstdint>

namespace velmora {

/// What the process has used so far.
struct ProcessUsage final {
    /// User and system time of all threads, in seconds.
    double cpuSeconds = 0;
    /// Greatest resident size, in kilobytes.
    std::int64_t peakRssKb = 0;
};
[[nodiscard]] ProcessUsage processUsage();

} // namespace velmora
