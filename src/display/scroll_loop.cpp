#include "display/scroll_loop.h"

#include "core/session.h"
#include "core/speed_range.h"
#include "display/frame_composer.h"
#include "display/show_navigation.h"
#include "display/show_observer.h"
#include "display/show_screen.h"
#include "platform/timing/clock.h"
#include "platform/timing/event_pump.h"
#include "platform/timing/presenter.h"
#include "platform/timing/time_of_day.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr double LoopingWaitSeconds = 4;
/// Floor of a step in counter ticks, for very small delays.
constexpr std::int64_t LeastStepTicks = 100;

} // namespace

ScrollLoop::ScrollLoop(const ShowLoopParts& parts, int textRows)
    : m_parts(parts), m_session(parts.session),
      m_pacer(parts.session.platform.clock, parts.session.platform.pump),
      m_housekeeping(parts.session, parts.screen, parts.tables, parts.navigation, parts.measured),
      m_textRows(textRows) {}

void ScrollLoop::run() {
    double startLine = m_parts.navigation.startLine();
    if (m_parts.observer != nullptr) {
        m_parts.observer->loopStarted();
    }
    while (runPass(startLine) == PassEnd::Again) {
        startLine = 0;
    }
    if (m_parts.observer != nullptr) {
        m_parts.observer->loopEnded();
    }
}

ScrollLoop::PassEnd ScrollLoop::runPass(double startLine) {
    ShowState& show = m_session.show;
    m_session.platform.pump.DoEvents();
    m_parts.screen.setElapsedText(QStringLiteral("00:00"));
    m_parts.screen.setRemainingText(QStringLiteral("00:00"));
    show.ScrollDirection = 1;
    show.SignedRowStep = m_session.settings.RowStep;
    show.ReachedEnd = 0;
    show.ReverseToBackward = 0;
    show.ReverseToForward = 0;
    m_parts.screen.showState();
    m_parts.navigation.showStart(startLine);
    m_parts.screen.showPicture();
    m_parts.presenter.presentNow();
    m_session.platform.pump.DoEvents();
    m_delays =
        buildSpeedDelayTable(m_session.settings.Delay, m_session.settings.ScrollSpeedControl);
    if (show.ReachedEnd == 1) {
        return atLimit() == LimitEnd::Again ? PassEnd::Again : PassEnd::Leave;
    }
    if (m_session.settings.AutomaticLooping == 1) {
        if (waitFourSeconds() == LoopingWait::Left) {
            return PassEnd::Leave;
        }
        show.PauseState = pause::Scrolling;
    }
    show.ElapsedStart = m_session.platform.clock.Timer();
    startTiming();
    return runTurns();
}

void ScrollLoop::startTiming() {
    forgetPace();
    m_housekeeping.restart();
}

/// The next step has no step before it that it could be late behind.
void ScrollLoop::forgetPace() {
    m_owedTicks = 0;
    m_lastDue = 0;
}

ScrollLoop::LoopingWait ScrollLoop::waitFourSeconds() {
    const Clock& clock = m_session.platform.clock;
    const double start = clock.Timer();
    const int repositions = m_parts.navigation.repositions();
    // A blank screen holds the show: nothing may scroll where nobody sees it.
    while (secondsSince(start, clock.Timer()) < LoopingWaitSeconds ||
           m_session.show.BlankState == 1) {
        waitIdly();
        if (exitRequested()) {
            return LoopingWait::Left;
        }
    }
    return m_parts.navigation.repositions() == repositions ? LoopingWait::Over
                                                           : LoopingWait::Jumped;
}

ScrollLoop::PassEnd ScrollLoop::runTurns() {
    const Settings& settings = m_session.settings;
    for (;;) {
        if (m_session.show.PauseState != pause::Scrolling) {
            if (!pausedTurn()) {
                return PassEnd::Leave;
            }
            continue;
        }
        const bool split = !isFullRange(settings.ScrollSpeedControl);
        if (split) {
            applySplitDirection();
        }
        if (split ? inDeadBand(settings.ScrollSpeed) : inStopZone(settings.ScrollSpeed)) {
            idleTurn();
        } else {
            const ShowNavigation::Advance end = step();
            if (end == ShowNavigation::Advance::Limit) {
                const LimitEnd limit = atLimit();
                if (limit != LimitEnd::Continue) {
                    return limit == LimitEnd::Again ? PassEnd::Again : PassEnd::Leave;
                }
            } else if (end == ShowNavigation::Advance::Skipped) {
                m_housekeeping.restartCycle();
                continue;
            }
        }
        if (exitRequested()) {
            m_session.platform.pump.DoEvents();
            return PassEnd::Leave;
        }
        serveRequests();
    }
}

/// False when the operator left.
bool ScrollLoop::pausedTurn() {
    ShowState& show = m_session.show;
    m_parts.presenter.settle();
    if (show.BlankState != 0) {
        waitIdly();
        return !exitRequested();
    }
    m_housekeeping.checkNotice();
    if (show.PauseState == pause::BeforeStart) {
        show.ElapsedStart = m_session.platform.clock.Timer();
    }
    waitIdly();
    if (show.PauseState != pause::BeforeStart) {
        m_housekeeping.showElapsed();
    }
    m_parts.navigation.serveBookmarkJump();
    m_parts.pollDevices();
    m_housekeeping.restartCycle();
    forgetPace();
    return !exitRequested();
}

/// The dead band of Split Range and the stop zone of Full Range: nothing moves, the clock goes on.
void ScrollLoop::idleTurn() {
    m_parts.presenter.settle();
    m_housekeeping.showElapsed();
    m_housekeeping.checkNotice();
    waitIdly();
    m_parts.pollDevices();
    m_housekeeping.restartCycle();
    forgetPace();
}

ShowNavigation::Advance ScrollLoop::step() {
    const ShowNavigation::Advance advance = m_parts.navigation.advance();
    if (advance != ShowNavigation::Advance::Taken) {
        return advance;
    }
    m_housekeeping.advanceFramePhase(plannedSeconds());
    m_blitStamp = m_session.platform.clock.counter();
    m_parts.composer.showTop(m_parts.navigation.topRow());
    if (m_session.settings.FullScreenMode == 0) {
        m_housekeeping.updateControls();
    }
    waitForNextStep();
    if (isFullRange(m_session.settings.ScrollSpeedControl)) {
        m_housekeeping.checkNotice();
        m_session.platform.pump.DoEvents();
    }
    return advance;
}

std::int64_t ScrollLoop::waitTicks() const {
    const double ms = speedDelayMs(m_delays, m_session.settings.ScrollSpeed);
    return static_cast<std::int64_t>(ms / 1000.0 *
                                     static_cast<double>(m_session.platform.clock.frequency()));
}

/// A step's wait by the table, locked to the screen where it will be.
double ScrollLoop::plannedSeconds() const {
    return static_cast<double>(m_parts.presenter.lockedPeriod(waitTicks())) /
           static_cast<double>(m_session.platform.clock.frequency());
}

void ScrollLoop::waitForNextStep() {
    Clock& clock = m_session.platform.clock;
    const std::int64_t stepStart = clock.counter();
    const std::int64_t composeTicks = stepStart - m_blitStamp;
    const std::int64_t waitTicks = this->waitTicks();
    // Painting lies inside the wait, so it does not slow the script down. What the machine was late
    // by is taken off the next waits, or the pace would depend on how busy it is and how long a
    // paint takes; a long stall is not made up for, because the text would visibly race.
    StepRecord record;
    record.painted = m_parts.presenter.stepDone(waitTicks + composeTicks);
    const auto mostOwed =
        static_cast<std::int64_t>(MostOwedSeconds * static_cast<double>(clock.frequency()));
    const std::int64_t locked = m_parts.presenter.lockedPeriod(waitTicks);
    const bool isLocked = locked != waitTicks && m_lastDue != 0;
    // Counted from the last due moment, not from now: a lock must not drift.
    const std::int64_t start = isLocked
                                   ? std::clamp(m_lastDue + locked - waitTicks,
                                                stepStart - mostOwed, stepStart + waitTicks / 20)
                                   : stepStart - std::min(m_owedTicks, waitTicks);
    const Pacer::Wait wait = m_pacer.wait(start, [&] {
        // In every slice: a pedal is tapped faster than a slow script takes its steps.
        m_parts.pollDevices();
        return speedDelayMs(m_delays, m_session.settings.ScrollSpeed);
    });
    const std::int64_t late = wait.end - wait.due;
    m_owedTicks = isLocked ? 0 : std::min(m_owedTicks - (stepStart - start) + late, mostOwed);
    m_lastDue = wait.due;
    clock.spinUntil(m_blitStamp + LeastStepTicks);
    if (m_parts.observer != nullptr) {
        record.composeTicks = composeTicks;
        record.lateTicks = late;
        m_parts.observer->stepDone(record);
    }
}

void ScrollLoop::applySplitDirection() {
    const double scrollSpeed = m_session.settings.ScrollSpeed;
    const int direction = m_session.show.ScrollDirection;
    if (direction < 0 && scrollSpeed <= speed::Middle) {
        turn(1);
    } else if (direction > 0 && scrollSpeed > speed::Middle) {
        turn(-1);
    }
}

/// The requests to turn and to jump; handlers only set the flags, because a turn must not fall into
/// a composition.
void ScrollLoop::serveRequests() {
    ShowState& show = m_session.show;
    if (show.ReverseToBackward != 0) {
        show.ReverseToBackward = 0;
        if (show.ScrollDirection > 0) {
            turn(-1);
        }
    }
    if (show.ReverseToForward != 0) {
        show.ReverseToForward = 0;
        if (show.ScrollDirection < 0) {
            turn(1);
        }
    }
    m_parts.navigation.serveBookmarkJump();
}

ScrollLoop::LimitEnd ScrollLoop::atLimit() {
    ShowState& show = m_session.show;
    show.PauseState = pause::Paused;
    m_parts.presenter.settle();
    m_parts.screen.focusPicture();
    if (m_parts.observer != nullptr) {
        m_parts.observer->limitReached();
    }
    if (show.ReachedEnd == 1) {
        while (!exitRequested()) {
            waitIdly();
            m_housekeeping.checkNotice();
        }
        return LimitEnd::Leave;
    }
    if (m_session.settings.AutomaticLooping == 1) {
        show.PauseState = pause::Scrolling;
        show.ScrollDirection = 1;
        show.SignedRowStep = m_session.settings.RowStep;
        show.MessageShownAt = 0;
        m_parts.screen.showState();
        return waitToLoop();
    }
    return waitAtLimit();
}

/// A jump meanwhile wins over the return to the top.
ScrollLoop::LimitEnd ScrollLoop::waitToLoop() {
    switch (waitFourSeconds()) {
    case LoopingWait::Left:
        return LimitEnd::Leave;
    case LoopingWait::Jumped:
        m_session.show.PauseState = pause::Scrolling;
        startTiming();
        return LimitEnd::Continue;
    case LoopingWait::Over:
        break;
    }
    return LimitEnd::Again;
}

ScrollLoop::LimitEnd ScrollLoop::waitAtLimit() {
    ShowState& show = m_session.show;
    show.PauseAtLimit = show.PauseState;
    const int repositions = m_parts.navigation.repositions();
    bool turning = false;
    bool jumped = false;
    while (!turning && !jumped) {
        if (show.BlankState == 0) {
            m_housekeeping.checkNotice();
        }
        waitIdly();
        if (exitRequested()) {
            return LimitEnd::Leave;
        }
        if (show.BlankState == 0) {
            m_housekeeping.showElapsed();
            m_parts.navigation.serveBookmarkJump();
            m_parts.pollDevices();
            jumped = m_parts.navigation.repositions() != repositions;
            turning = limitWaitEnds();
        }
    }
    show.ReverseToBackward = 0;
    show.ReverseToForward = 0;
    if (jumped) {
        // A pause like any other: the operator starts the next take.
        m_parts.screen.showState();
    } else {
        turn(-show.ScrollDirection);
        show.PauseState = pause::Scrolling;
    }
    startTiming();
    return LimitEnd::Continue;
}

bool ScrollLoop::limitWaitEnds() const {
    const ShowState& show = m_session.show;
    const Settings& settings = m_session.settings;
    if (!isFullRange(settings.ScrollSpeedControl) &&
        speedLeavesLimit(settings.ScrollSpeed, show.ScrollDirection)) {
        return true;
    }
    return show.PauseState != show.PauseAtLimit;
}

/// The leading edge changes sides: ScrollRow moves by a window, the picture stays.
void ScrollLoop::turn(int direction) {
    ShowState& show = m_session.show;
    show.ScrollRow += static_cast<std::int64_t>(direction) * (m_textRows - 1);
    show.ScrollDirection = direction;
    show.SignedRowStep = direction * m_session.settings.RowStep;
    m_parts.screen.showState();
}

void ScrollLoop::waitIdly() {
    m_session.platform.pump.waitForEvents(IdleWaitMs);
}

bool ScrollLoop::exitRequested() const {
    return m_session.show.ExitRequested == 1;
}

} // namespace velmora
