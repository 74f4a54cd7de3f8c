#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace velmora {

class Session;
class ShowScreen;
struct ShowTables;

/// The clocks, the notice and the scroll bar of a running show. Control updates are spread over the
/// steps, so that none pays for more than one. Owned by the loop.
class LoopHousekeeping final {
public:
    /// Which steps' length is measured, from which the remaining time follows.
    enum class Measured { ForwardSplitRange, Always };

    LoopHousekeeping(Session& session, ShowScreen& screen, const ShowTables& tables,
                     Measured measured);

    /// Begins anew with the first phase: at a pass start and after a turn at a limit.
    void restart();
    /// Begins measuring the cycle anew: time that was not scrolled must not count.
    void restartCycle();

    /// Counts a step. True where a cycle of steps is over and the next begins with this one.
    bool advanceFramePhase();
    /// Does the work of the current phase, at most one control.
    void updateControls();
    /// For steps so long that a cycle of them takes more than a second: from now on the clocks
    /// follow the time, as often as this is called, and the phases leave them alone.
    void updateClocks(double secondsPerStep);
    /// The clocks follow the phases again.
    void leaveClocksToPhases() { m_shownSecond.reset(); }
    /// Steps of a cycle.
    static constexpr int StepsPerCycle = 91;

    /// Label1 shows the time since the start.
    void showElapsed();
    /// Takes a notice away after its two seconds.
    void checkNotice();

private:
    void measureCycle();
    void updateClockOfPhase();
    /// The elapsed clock restarts when midnight has passed.
    void guardMidnight();
    [[nodiscard]] QString elapsedNow() const;
    [[nodiscard]] QString remainingNow() const;

    Session& m_session;
    ShowScreen& m_screen;
    const ShowTables& m_tables;
    Measured m_measured;
    /// Counts 0 to 90 where steps are measured, else to 89; -1 before the first step.
    int m_framePhase = -1;
    std::int64_t m_cycleStart = 0;
    /// Measured seconds a step; 0 until the first measured cycle has ended.
    double m_secondsPerStep = 0;
    /// Second of the day that the clocks show; none where they follow the phases.
    std::optional<int> m_shownSecond;
};

} // namespace velmora
