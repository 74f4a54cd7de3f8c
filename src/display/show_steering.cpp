#include "display/show_steering.h"

#include "controllers/speed_mapping.h"
#include "core/session.h"
#include "display/show_screen.h"
#include "platform/timing/clock.h"

namespace velmora {

namespace {

/// Written into PauseAtLimit to end a wait at a limit.
constexpr int EndLimitWait = 99;
constexpr double FastestBackward = 255;

} // namespace

ShowSteering::ShowSteering(Session& session, ShowScreen& screen)
    : m_session(session), m_screen(screen) {}

void ShowSteering::togglePause() {
    ShowState& show = m_session.show;
    if (show.PauseState == pause::BeforeStart) {
        show.ElapsedStart = m_session.platform.clock.Timer();
    }
    show.PauseState = show.PauseState == pause::Scrolling ? pause::Paused : pause::Scrolling;
    if (isFullRange(m_session.settings.ScrollSpeedControl)) {
        show.PauseAtLimit = EndLimitWait;
    }
}

void ShowSteering::start() {
    m_session.show.PauseState = pause::Scrolling;
}

void ShowSteering::leave() {
    m_session.show.ExitRequested = 1;
}

void ShowSteering::reverse() {
    if (isFullRange(m_session.settings.ScrollSpeedControl)) {
        m_session.show.requestTurn(-m_session.show.comingDirection());
        m_session.show.PauseAtLimit = EndLimitWait;
        m_screen.showState();
    } else {
        setSpeed(FastestBackward - m_session.settings.ScrollSpeed);
    }
}

void ShowSteering::setSpeed(double scrollSpeed) {
    m_session.settings.ScrollSpeed = clampSpeed(scrollSpeed);
    m_screen.moveSpeedIndicator();
}

} // namespace velmora
