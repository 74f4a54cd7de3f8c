#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace velmora {

class Session;
class ShowNavigation;
class ShowScreen;
struct ShowTables;

/// The clocks, the notice and the scroll bar of a running show. Control updates are spread over the
/// steps, so that none pays for more than one. Owned by the loop.
class LoopHousekeeping final {
public:
    /// Which steps are measured, so that there is a remaining time.
    enum class Measured { ForwardSplitRange, Always };

    LoopHousekeeping(Session& session, ShowScreen& screen, const ShowTables& tables,
                     const ShowNavigation& navigation, Measured measured);

    /// Begins anew with the first phase: at a pass start and after a turn at a limit.
    void restart();
    /// Begins measuring the cycle anew: time that was not scrolled must not count.
    void restartCycle();

    /// Counts a step, which is to take so many seconds. True where a cycle of steps is over and the
    /// next begins with this one.
    bool advanceFramePhase(double plannedSeconds);
    /// Does the work of the current phase, at most one control; where a cycle takes long the clocks
    /// follow the time instead.
    void updateControls();
    /// Inside the waits of steps that take so long that the clocks cannot wait for the next one.
    void updateSlowClocks();

    /// Label1 shows the time since the start.
    void showElapsed();
    /// Takes a notice away after its two seconds.
    void checkNotice();

private:
    /// What a measured cycle holds for: with any of it changed, the next steps are others.
    struct Conditions final {
        double scrollSpeed = 0;
        int fullScreen = 0;
        int direction = 0;
        int repositions = 0;
        bool operator==(const Conditions&) const = default;
    };
    /// What CaptionBuffer holds.
    enum class Caption { None, Elapsed, Remaining };

    [[nodiscard]] bool measures() const;
    void measureStep();
    void updateClockOfPhase();
    [[nodiscard]] double secondsPerStep() const;
    [[nodiscard]] bool slow() const;
    /// The elapsed clock restarts when midnight has passed.
    void guardMidnight();
    [[nodiscard]] QString elapsedNow() const;
    void computeRemaining();

    Session& m_session;
    ShowScreen& m_screen;
    const ShowTables& m_tables;
    const ShowNavigation& m_navigation;
    Measured m_measured;
    /// Counts 0 to 90 where steps are measured, else to 89; -1 before the first step.
    int m_framePhase = -1;
    Caption m_caption = Caption::None;
    Conditions m_conditions;
    /// Steps of the cycle that is being measured, and when its first one began.
    int m_cycleSteps = 0;
    std::int64_t m_cycleStart = 0;
    /// Measured seconds a step; none until a whole cycle has ended.
    std::optional<double> m_secondsPerStep;
    /// What a step would take by its wait alone.
    double m_plannedSeconds = 0;
    /// Seconds that the remaining time told last in these conditions, and its text.
    std::optional<double> m_remainingSeconds;
    QString m_remainingText = QStringLiteral("00:00");
    /// Quarter of a second of the day that the clocks of slow steps show.
    int m_shownQuarter = -1;
};

} // namespace velmora
