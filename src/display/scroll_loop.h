#pragma once

#include "controllers/speed_mapping.h"
#include "display/show_loop.h"
#include "display/show_navigation.h"
#include "platform/timing/pacer.h"

#include <cstdint>

namespace velmora {

/// The heart of the prompter: one long call that moves the script row by row until the operator
/// leaves the show.
///
/// A step is always RowStep rows; speed is only the wait between two steps. Every wait pumps
/// events, so handlers run nested inside it and steer the loop through the show's variables, which
/// are read afresh at every turn. Waiting states sleep on the event queue.
class ScrollLoop final {
public:
    /// textRows: rows of text in the window (WindowHeight - 19).
    ScrollLoop(const ShowLoopParts& parts, int textRows);

    /// Runs passes through the script until ExitRequested.
    void run();

private:
    enum class PassEnd { Leave, Again };
    enum class LimitEnd { Leave, Again, Continue };
    enum class LoopingWait { Over, Left, Jumped };

    PassEnd runPass(double startLine);
    void startTiming();
    void forgetPace();
    /// The wait of the automatic start and of the return to the top.
    LoopingWait waitFourSeconds();

    PassEnd runTurns();
    bool pausedTurn();
    void idleTurn();
    ShowNavigation::Advance step();
    [[nodiscard]] std::int64_t waitTicks() const;
    [[nodiscard]] double plannedSeconds() const;
    void waitForNextStep();
    void applySplitDirection();
    void serveRequests();

    LimitEnd atLimit();
    LimitEnd waitToLoop();
    LimitEnd waitAtLimit();
    [[nodiscard]] bool limitWaitEnds() const;
    /// upchange and downchange: changes the direction without moving the picture.
    void turn(int direction);

    void waitIdly();
    [[nodiscard]] bool exitRequested() const;

    ShowLoopParts m_parts;
    Session& m_session;
    Pacer m_pacer;
    LoopHousekeeping m_housekeeping;
    SpeedDelayTable m_delays{};
    int m_textRows;
    std::int64_t m_blitStamp = 0;
    /// What the steps so far ended behind their due moments and have not made up for.
    std::int64_t m_owedTicks = 0;
    /// Due moment of the last step's wait; 0 where none came before.
    std::int64_t m_lastDue = 0;
};

} // namespace velmora
