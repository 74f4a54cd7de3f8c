#pragma once

#include "platform/timing/clock.h"

namespace velmora {

/// The machine's monotonic clock in nanoseconds, and its time of day.
class MachineClock final : public Clock {
public:
    [[nodiscard]] std::int64_t counter() const override;
    [[nodiscard]] std::int64_t frequency() const override { return 1'000'000'000; }
    [[nodiscard]] double Timer() const override;
    void sleepMicroseconds(std::int64_t microseconds) override;
    void spinUntil(std::int64_t ticks) override;
};

} // namespace velmora
