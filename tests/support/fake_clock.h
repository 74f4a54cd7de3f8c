#pragma once

#include "platform/timing/clock.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace velmora {

/// A clock that stands still but for what a test, the fake pump or a sleep advances it by. Reading
/// the counter costs one tick, so that a spin on it ends as it does on a machine.
class FakeClock final : public Clock {
public:
    static constexpr std::int64_t TicksPerSecond = 10'000'000;

    [[nodiscard]] std::int64_t counter() const override { return m_ticks += m_ticksPerRead; }
    [[nodiscard]] std::int64_t frequency() const override { return TicksPerSecond; }
    [[nodiscard]] double Timer() const override {
        return std::fmod(m_timerAtZero + secondsSinceStart(), 86400.0);
    }
    void sleepMicroseconds(std::int64_t microseconds) override {
        if (microseconds > 0) {
            advanceMicroseconds(microseconds);
        }
    }
    void spinUntil(std::int64_t ticks) override { m_ticks = std::max(m_ticks, ticks); }

    /// Time without the cost of a read.
    [[nodiscard]] std::int64_t ticks() const { return m_ticks; }
    [[nodiscard]] double secondsSinceStart() const {
        return static_cast<double>(m_ticks) / static_cast<double>(TicksPerSecond);
    }
    void advanceTicks(std::int64_t ticks) { m_ticks += ticks; }
    void advanceMicroseconds(std::int64_t microseconds) {
        m_ticks += microseconds * (TicksPerSecond / 1'000'000);
    }
    void advanceSeconds(double seconds) { m_ticks += std::llround(seconds * TicksPerSecond); }
    void setTicksPerRead(std::int64_t ticks) { m_ticksPerRead = ticks; }
    /// Makes Timer() tell this now, in seconds since midnight.
    void setTimer(double seconds) {
        m_timerAtZero = std::fmod(seconds - std::fmod(secondsSinceStart(), 86400.0) + 86400, 86400);
    }

private:
    mutable std::int64_t m_ticks = 0;
    std::int64_t m_ticksPerRead = 1;
    double m_timerAtZero = 36000;
};

} // namespace velmora
