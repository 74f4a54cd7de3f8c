#include "display/timed_pace.h"

#include <algorithm>

namespace velmora {

namespace {

/// No row can take longer than the whole time.
double perRow(std::int64_t ticks, std::int64_t rows) {
    return static_cast<double>(ticks) / static_cast<double>(std::max<std::int64_t>(1, rows));
}

} // namespace

void TimedPace::set(int seconds, std::int64_t rowsToScroll) {
    m_seconds = seconds;
    RowsToScroll = rowsToScroll;
    TotalTicks = seconds * m_ticksPerSecond;
    PacePerRow = perRow(TotalTicks, RowsToScroll);
    m_rowsPerStep = 1;
}

void TimedPace::change(int seconds) {
    set(seconds, RowsToScroll);
    PacePerRow *= MovedBarFactor;
}

void TimedPace::recompute(std::int64_t elapsedTicks, std::int64_t rowsLeft, int rowStep) {
    TotalTicks = m_seconds * m_ticksPerSecond - elapsedTicks;
    PacePerRow = perRow(TotalTicks, rowsLeft + rowStep);
    m_rowsPerStep = rowStep;
}

} // namespace velmora
