#include "display/loop_housekeeping.h"

#include "controllers/speed_mapping.h"
#include "core/number_format.h"
#include "core/session.h"
#include "display/script_preparation.h"
#include "display/show_clocks.h"
#include "display/show_navigation.h"
#include "display/show_screen.h"
#include "platform/timing/clock.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr double NoticeSeconds = 2;
/// Last housekeeping phase: one more where the cycle is measured.
constexpr int LastPhaseMeasured = 90;
constexpr int LastPhase = 89;
/// Steps of a cycle.
constexpr int StepsPerCycle = 91;
/// The remaining time goes on by at most half of what it may jump from one display to the next: the
/// other half is for what measuring finds.
constexpr double MostJumpSeconds = 1;
constexpr double MostSecondsPerCycle = MostJumpSeconds / 2;
constexpr int SlowDisplaysPerSecond = 4;

} // namespace

LoopHousekeeping::LoopHousekeeping(Session& session, ShowScreen& screen, const ShowTables& tables,
                                   const ShowNavigation& navigation, Measured measured)
    : m_session(session), m_screen(screen), m_tables(tables), m_navigation(navigation),
      m_measured(measured) {}

void LoopHousekeeping::restart() {
    m_framePhase = -1;
    m_caption = Caption::None;
    restartCycle();
}

void LoopHousekeeping::restartCycle() {
    m_cycleSteps = 0;
    m_secondsPerStep.reset();
    m_remainingSeconds.reset();
}

bool LoopHousekeeping::measures() const {
    return m_measured == Measured::Always || (!isFullRange(m_session.settings.ScrollSpeedControl) &&
                                              m_session.show.ScrollDirection > 0);
}

bool LoopHousekeeping::advanceFramePhase(double plannedSeconds) {
    const Conditions conditions{m_session.settings.ScrollSpeed, m_session.settings.FullScreenMode,
                                m_session.show.ScrollDirection, m_navigation.repositions()};
    if (conditions != m_conditions) {
        m_conditions = conditions;
        restartCycle();
    }
    m_plannedSeconds = plannedSeconds;
    if (measures()) {
        measureStep();
    }
    if (++m_framePhase <= (measures() ? LastPhaseMeasured : LastPhase)) {
        return false;
    }
    m_framePhase = 0;
    return true;
}

/// Whole cycles only: what was interrupted says nothing about the steps to come.
void LoopHousekeeping::measureStep() {
    const Clock& clock = m_session.platform.clock;
    if (m_cycleSteps == StepsPerCycle) {
        const auto cycleTicks = static_cast<double>(clock.counter() - m_cycleStart);
        m_secondsPerStep = cycleTicks / StepsPerCycle / static_cast<double>(clock.frequency());
        m_cycleSteps = 0;
    }
    if (m_cycleSteps++ == 0) {
        m_cycleStart = clock.counter();
    }
}

/// Control updates are spread over the steps, so that none pays for more than one.
void LoopHousekeeping::updateControls() {
    if (slow()) {
        updateSlowClocks();
    }
    switch (m_framePhase) {
    case 15:
        m_screen.setScrollValue(m_tables.scanTable.at(m_session.show.ScrollRow).line - 1);
        break;
    case 60:
        checkNotice();
        break;
    default:
        if (!slow()) {
            updateClockOfPhase();
        }
    }
}

void LoopHousekeeping::updateClockOfPhase() {
    ShowState& show = m_session.show;
    switch (m_framePhase) {
    case 0:
        if (m_caption != Caption::Remaining) {
            computeRemaining();
        }
        m_screen.setRemainingText(show.CaptionBuffer);
        break;
    case 30:
        guardMidnight();
        show.CaptionBuffer = elapsedNow();
        m_caption = Caption::Elapsed;
        break;
    case 45:
        if (m_caption == Caption::Elapsed) {
            m_screen.setElapsedText(show.CaptionBuffer);
        }
        break;
    case 75:
        computeRemaining();
        break;
    default:
        break;
    }
}

double LoopHousekeeping::secondsPerStep() const {
    return m_secondsPerStep.value_or(m_plannedSeconds);
}

/// A cycle takes so long that clocks which follow its phases would skip seconds.
bool LoopHousekeeping::slow() const {
    return secondsPerStep() * StepsPerCycle * m_session.settings.RowStep > MostSecondsPerCycle;
}

void LoopHousekeeping::updateSlowClocks() {
    const int quarter = static_cast<int>(m_session.platform.clock.Timer() * SlowDisplaysPerSecond);
    if (!slow() || quarter == m_shownQuarter) {
        return;
    }
    m_shownQuarter = quarter;
    showElapsed();
    computeRemaining();
    m_screen.setRemainingText(m_session.show.CaptionBuffer);
}

void LoopHousekeeping::showElapsed() {
    guardMidnight();
    m_screen.setElapsedText(elapsedNow());
}

void LoopHousekeeping::guardMidnight() {
    const double now = m_session.platform.clock.Timer();
    if (m_session.show.ElapsedStart > now) {
        m_session.show.ElapsedStart = now;
    }
}

void LoopHousekeeping::checkNotice() {
    ShowState& show = m_session.show;
    const double now = m_session.platform.clock.Timer();
    const bool over = now - show.MessageShownAt > NoticeSeconds || show.MessageShownAt > now;
    if (show.MessageShownAt != 0 && over) {
        show.MessageShownAt = 0;
        m_screen.showState();
    }
}

/// Into CaptionBuffer. Where steps are not measured the text stands.
void LoopHousekeeping::computeRemaining() {
    if (measures()) {
        const std::int64_t rows = m_tables.LastScrollRow - m_session.show.ScrollRow;
        double seconds = static_cast<double>(rows) * secondsPerStep();
        if (m_remainingSeconds) {
            seconds = std::clamp(seconds, *m_remainingSeconds - MostJumpSeconds,
                                 *m_remainingSeconds + MostJumpSeconds);
        }
        m_remainingSeconds = seconds;
        m_remainingText = remainingText(seconds);
    }
    m_session.show.CaptionBuffer = m_remainingText;
    m_caption = Caption::Remaining;
}

QString LoopHousekeeping::elapsedNow() const {
    return clockText(m_session.platform.clock.Timer() - m_session.show.ElapsedStart);
}

} // namespace velmora
