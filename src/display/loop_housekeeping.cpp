#include "display/loop_housekeeping.h"

#include "controllers/speed_mapping.h"
#include "core/number_format.h"
#include "core/session.h"
#include "display/script_preparation.h"
#include "display/show_clocks.h"
#include "display/show_screen.h"
#include "platform/timing/clock.h"

namespace velmora {

namespace {

constexpr double NoticeSeconds = 2;
/// Last housekeeping phase: one more where the cycle is measured.
constexpr int LastPhaseMeasured = 90;
constexpr int LastPhase = 89;

} // namespace

LoopHousekeeping::LoopHousekeeping(Session& session, ShowScreen& screen, const ShowTables& tables,
                                   Measured measured)
    : m_session(session), m_screen(screen), m_tables(tables), m_measured(measured) {}

void LoopHousekeeping::restart() {
    m_framePhase = -1;
    restartCycle();
}

void LoopHousekeeping::restartCycle() {
    m_cycleStart = m_session.platform.clock.counter();
}

bool LoopHousekeeping::advanceFramePhase() {
    const bool measured =
        m_measured == Measured::Always ||
        (!isFullRange(m_session.settings.ScrollSpeedControl) && m_session.show.ScrollDirection > 0);
    if (++m_framePhase <= (measured ? LastPhaseMeasured : LastPhase)) {
        return false;
    }
    m_framePhase = 0;
    return true;
}

/// Control updates are spread over the steps, so that none pays for more than one.
void LoopHousekeeping::updateControls() {
    switch (m_framePhase) {
    case 15:
        m_screen.setScrollValue(m_tables.scanTable.at(m_session.show.ScrollRow).line - 1);
        break;
    case 60:
        checkNotice();
        break;
    case LastPhaseMeasured:
        measureCycle();
        break;
    default:
        if (!m_shownSecond) {
            updateClockOfPhase();
        }
    }
}

void LoopHousekeeping::updateClockOfPhase() {
    ShowState& show = m_session.show;
    switch (m_framePhase) {
    case 0:
        m_screen.setRemainingText(show.CaptionBuffer);
        break;
    case 30:
        guardMidnight();
        show.CaptionBuffer = elapsedNow();
        break;
    case 45:
        m_screen.setElapsedText(show.CaptionBuffer);
        break;
    case 75:
        show.CaptionBuffer = remainingNow();
        break;
    default:
        break;
    }
}

void LoopHousekeeping::updateClocks(double secondsPerStep) {
    const int second = static_cast<int>(m_session.platform.clock.Timer());
    if (second == m_shownSecond) {
        return;
    }
    m_shownSecond = second;
    m_secondsPerStep = secondsPerStep;
    showElapsed();
    m_screen.setRemainingText(remainingNow());
}

void LoopHousekeeping::measureCycle() {
    const Clock& clock = m_session.platform.clock;
    const std::int64_t now = clock.counter();
    const auto cycleTicks = static_cast<double>(now - m_cycleStart);
    m_cycleStart = now;
    m_secondsPerStep = cycleTicks / StepsPerCycle / static_cast<double>(clock.frequency());
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

QString LoopHousekeeping::remainingNow() const {
    return remainingText(m_tables.LastScrollRow - m_session.show.ScrollRow, m_secondsPerStep);
}

QString LoopHousekeeping::elapsedNow() const {
    return clockText(m_session.platform.clock.Timer() - m_session.show.ElapsedStart);
}

} // namespace velmora
