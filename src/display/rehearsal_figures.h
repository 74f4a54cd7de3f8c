#pragma once

#include <QJsonObject>
#include <QString>

#include <cstdint>
#include <vector>

namespace velmora {

/// Median, 99th percentile and greatest of a set of samples; 0 for an empty one.
struct Spread final {
    double p50 = 0;
    double p99 = 0;
    double max = 0;
};

/// Samples of a run of any length in a memory that does not grow: when it is full every second one
/// goes, and from then on only every second one of those that come is kept. The greatest stays.
class Samples final {
public:
    /// Ten minutes at the fastest pace.
    static constexpr std::size_t Most = 600'000;

    Samples() { m_kept.reserve(Most); }
    void add(double sample);
    [[nodiscard]] Spread spread() const;

private:
    std::vector<double> m_kept;
    /// One of so many samples is kept.
    std::size_t m_stride = 1;
    std::size_t m_untilNext = 1;
    double m_greatest = 0;
};

/// What a rehearsal found: the keys of its report. Times in seconds unless the name says otherwise.
struct RehearsalFigures final {
    QString script;
    int screenWidth = 0;
    int screenHeight = 0;
    QString range;
    double speed = 0;
    bool turbo = false;
    int mirror = 0;
    int lines = 0;
    std::int64_t rows = 0;
    std::int64_t lastScrollRow = 0;
    /// Of a timed show; 0 for one steered by speed.
    double secondsSet = 0;
    /// Told before the start: of a timed show the duration that was set, else what the rows and the
    /// table of waits come to.
    double secondsPredicted = 0;
    /// Of a timed show from its start to the end of its run, else from the first step to the last,
    /// less what taking the picture took.
    double secondsActual = 0;
    std::int64_t steps = 0;
    std::int64_t paints = 0;
    Spread lateMicroseconds;
    Spread composeMicroseconds;
    /// Of the process, from the loop's start to its end.
    double cpuSeconds = 0;
    std::int64_t peakRssKb = 0;
    QStringList firstLines;

    [[nodiscard]] QJsonObject toJson() const;
    /// The same numbers as a short table.
    [[nodiscard]] QString toTable() const;
};

} // namespace velmora
