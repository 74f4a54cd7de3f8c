#include "display/timed_loop.h"

#include "core/session.h"
#include "display/frame_composer.h"
#include "display/show_navigation.h"
#include "display/show_observer.h"
#include "display/show_screen.h"
#include "display/timed_pace.h"
#include "platform/timing/clock.h"
#include "platform/timing/event_pump.h"
#include "platform/timing/presenter.h"

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

/// Far before any due moment, in milliseconds: ends the wait.
constexpr double EndOfWaitMs = -1e9;

} // namespace

TimedLoop::TimedLoop(const ShowLoopParts& parts, TimedPace& pace)
    : m_parts(parts), m_session(parts.session), m_pace(pace),
      m_pacer(parts.session.platform.clock, parts.session.platform.pump),
      m_housekeeping(parts.session, parts.screen, parts.tables, parts.navigation, parts.measured) {}

void TimedLoop::run() {
    const double startLine = m_parts.navigation.startLine();
    makeReady(startLine);
    if (m_parts.observer != nullptr) {
        m_parts.observer->loopStarted();
    }
    while (waitForStart()) {
        runThrough();
        endRun();
        if (!waitForReset()) {
            break;
        }
        makeReady(startLine);
    }
    if (m_parts.observer != nullptr) {
        m_parts.observer->loopEnded();
    }
}

void TimedLoop::makeReady(double startLine) {
    ShowState& show = m_session.show;
    show.PauseState = pause::BeforeStart;
    show.AwaitingStart = 1;
    show.ScrollDirection = 1;
    show.SignedRowStep = m_session.settings.RowStep;
    show.ReachedEnd = 0;
    m_parts.screen.setElapsedText(QStringLiteral("00:00"));
    m_parts.screen.setRemainingText(QStringLiteral("00:00"));
    m_parts.navigation.showStart(startLine);
    m_repositions = m_parts.navigation.repositions();
    m_pace.set(m_session.settings.TimedDisplaySeconds, rowsLeft());
    m_parts.screen.showState();
    m_parts.screen.showPicture();
    m_parts.presenter.presentNow();
}

bool TimedLoop::waitForStart() {
    ShowState& show = m_session.show;
    while (show.PauseState != pause::Scrolling && !exitRequested()) {
        m_session.platform.pump.waitForEvents(IdleWaitMs);
        m_parts.pollDevices();
    }
    if (placeTaken()) {
        m_pace.set(m_session.settings.TimedDisplaySeconds, rowsLeft());
    }
    show.ElapsedStart = m_session.platform.clock.Timer();
    ShowStartCounter = m_session.platform.clock.counter();
    m_lastDue = static_cast<double>(ShowStartCounter);
    m_computed = false;
    m_fellBehind = false;
    m_housekeeping.restart();
    m_parts.screen.showState();
    return !exitRequested();
}

void TimedLoop::runThrough() {
    while (m_session.show.ExitRequested == 0 && step()) {
    }
}

/// False at the script's end.
bool TimedLoop::step() {
    const Clock& clock = m_session.platform.clock;
    const ShowNavigation::Advance advance = m_parts.navigation.advance();
    if (advance != ShowNavigation::Advance::Taken) {
        return advance == ShowNavigation::Advance::Skipped;
    }
    const bool cycleOver = m_housekeeping.advanceFramePhase(m_pace.stepTicks() /
                                                            static_cast<double>(clock.frequency()));
    // A stall behind which the steps do not run after at once may come shortly before the end.
    m_computed = m_computed || cycleOver;
    if (placeTaken() || cycleOver || (m_computed && std::exchange(m_fellBehind, false))) {
        m_pace.recompute(clock.counter() - ShowStartCounter, rowsLeft(),
                         m_session.settings.RowStep);
    }
    const std::int64_t start = clock.counter();
    m_parts.composer.showTop(m_parts.navigation.topRow());
    if (m_session.settings.FullScreenMode == 0) {
        m_housekeeping.updateControls();
    }
    waitForNextStep(clock.counter() - start);
    return true;
}

/// Steps are due on a grid of their own: a late one is made up for by up to MostOwedSeconds, and
/// what it is late beyond that is spread over the rows that are left. Behind the set time no step
/// waits, but every one pumps.
void TimedLoop::waitForNextStep(std::int64_t composeTicks) {
    const Clock& clock = m_session.platform.clock;
    const double ticks = std::max(0.0, m_pace.stepTicks());
    const double mostOwed = MostOwedSeconds * static_cast<double>(clock.frequency());
    const double earliest = static_cast<double>(clock.counter()) - mostOwed;
    m_fellBehind = m_fellBehind || m_lastDue + ticks < earliest;
    m_lastDue = std::max(m_lastDue + ticks, earliest);
    StepRecord record;
    record.composeTicks = composeTicks;
    record.painted = m_parts.presenter.stepDone(static_cast<std::int64_t>(ticks));
    const auto due = static_cast<std::int64_t>(m_lastDue);
    // A short script over a long time has steps of minutes: neither whoever leaves nor the pedal
    // nor the clocks must wait for one.
    const Pacer::Wait wait = m_pacer.wait(due, [&] {
        m_parts.pollDevices();
        if (m_session.settings.FullScreenMode == 0) {
            m_housekeeping.updateSlowClocks();
        }
        return m_session.show.ExitRequested == 0 ? 0.0 : EndOfWaitMs;
    });
    record.lateTicks = wait.end - due;
    if (m_parts.observer != nullptr) {
        m_parts.observer->stepDone(record);
    }
}

void TimedLoop::endRun() {
    ShowState& show = m_session.show;
    m_parts.presenter.settle();
    m_housekeeping.showElapsed();
    m_parts.screen.setRemainingText(QStringLiteral("00:00"));
    show.CaptionBuffer = QStringLiteral("00:00");
    show.PauseState = pause::BeforeStart;
    m_parts.screen.showState();
    if (m_parts.observer != nullptr) {
        m_parts.observer->limitReached();
    }
}

/// False when the operator left.
bool TimedLoop::waitForReset() {
    ShowState& show = m_session.show;
    while (show.ExitRequested == 0) {
        m_session.platform.pump.waitForEvents(IdleWaitMs);
        m_parts.pollDevices();
    }
    if (exitRequested()) {
        return false;
    }
    show.ExitRequested = 0;
    return true;
}

/// The text stands elsewhere than where the pace was computed for: since the last look, the start
/// of the run included.
bool TimedLoop::placeTaken() {
    const int repositions = m_parts.navigation.repositions();
    return std::exchange(m_repositions, repositions) != repositions;
}

std::int64_t TimedLoop::rowsLeft() const {
    return m_parts.tables.LastScrollRow - m_session.show.ScrollRow;
}

bool TimedLoop::exitRequested() const {
    return m_session.show.ExitRequested == 1;
}

} // namespace velmora
