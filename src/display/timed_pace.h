#pragma once

#include "core/settings.h"

#include <cstdint>

namespace velmora {

/// How long a step of a timed show takes, in ticks of the clock's counter.
class TimedPace final {
public:
    /// Shortest and longest duration, in seconds.
    static constexpr int LeastSeconds = MinTimedSeconds;
    static constexpr int MostSeconds = MaxTimedSeconds;
    /// A duration that was moved makes the first run so much faster until its pace is computed
    /// anew.
    static constexpr double MovedBarFactor = 0.98;

    explicit TimedPace(std::int64_t ticksPerSecond) : m_ticksPerSecond(ticksPerSecond) {}

    /// Before a start: the duration spread over the rows that are to pass.
    void set(int seconds, std::int64_t rowsToScroll);
    /// The duration was moved before the start.
    void change(int seconds);
    /// In the running show: what is left of the time, over the rows from the step that is being
    /// taken to the last. Behind its time the pace is 0 or below: no step waits.
    void recompute(std::int64_t elapsedTicks, std::int64_t rowsLeft, int rowStep);

    /// Ticks of a step.
    [[nodiscard]] double stepTicks() const { return PacePerRow * m_rowsPerStep; }

private:
    std::int64_t m_ticksPerSecond;
    int m_seconds = LeastSeconds;
    std::int64_t RowsToScroll = 0;
    std::int64_t TotalTicks = 0;
    double PacePerRow = 0;
    /// Until the first re-computation a turbo step waits as long as a single row.
    int m_rowsPerStep = 1;
};

} // namespace velmora
