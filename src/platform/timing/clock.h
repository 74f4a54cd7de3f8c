#pragma once

#include <cstdint>

namespace velmora {

/// The machine's time, as the logic asks for it.
class Clock {
public:
    virtual ~Clock() = default;
    /// Ticks of a monotonic counter of high resolution.
    [[nodiscard]] virtual std::int64_t counter() const = 0;
    /// Ticks a second; constant.
    [[nodiscard]] virtual std::int64_t frequency() const = 0;
    /// Seconds since local midnight, 0 to below 86400.
    [[nodiscard]] virtual double Timer() const = 0;
    /// Sleeps without running handlers; may wake late.
    virtual void sleepMicroseconds(std::int64_t microseconds) = 0;
    /// Spins, without running handlers, until the counter has reached a value.
    virtual void spinUntil(std::int64_t ticks) = 0;
};

} // namespace velmora
