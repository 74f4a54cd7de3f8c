#pragma once

#include "display/show_loop.h"
#include "platform/timing/pacer.h"

#include <cstdint>

namespace velmora {

class TimedPace;

/// The loop of a timed show: stands ready, runs the script through in the set time, stands at its
/// end, and is ready again, until the operator leaves.
///
/// The pace is computed anew after every 91 steps from the time and the rows that are left, so that
/// the end falls on the set time whatever drawing has cost. ExitRequested 3 ends a run.
class TimedLoop final {
public:
    /// ExitRequested: end this run and make ready for another.
    static constexpr int ResetRequested = 3;

    TimedLoop(const ShowLoopParts& parts, TimedPace& pace);

    /// Runs until ExitRequested is 1.
    void run();

private:
    void makeReady(double startLine);
    /// False when the operator left.
    bool waitForStart();
    void runThrough();
    bool step();
    void waitForNextStep(std::int64_t composeTicks);
    void endRun();
    bool waitForReset();

    [[nodiscard]] bool placeTaken();
    [[nodiscard]] std::int64_t rowsLeft() const;
    [[nodiscard]] bool exitRequested() const;

    ShowLoopParts m_parts;
    Session& m_session;
    TimedPace& m_pace;
    Pacer m_pacer;
    LoopHousekeeping m_housekeeping;
    std::int64_t ShowStartCounter = 0;
    /// Due moment of the last step.
    double m_lastDue = 0;
    /// The pace has been computed in this run; a step has been late by more than is made up for.
    bool m_computed = false;
    bool m_fellBehind = false;
    /// Repositions that the pace knows of.
    int m_repositions = 0;
};

} // namespace velmora
