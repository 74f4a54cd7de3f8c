#include "display/operator_keys.h"

#include "controllers/speed_mapping.h"
#include "core/session.h"
#include "platform/devices/key_numbers.h"
#include "platform/timing/clock.h"

#include <array>
#include <utility>

namespace velmora {

namespace {

constexpr std::array<std::pair<int, SpeedKey>, 6> SpeedKeys = {{{key::Left, SpeedKey::Left},
                                                                {key::Right, SpeedKey::Right},
                                                                {key::Up, SpeedKey::Up},
                                                                {key::Down, SpeedKey::Down},
                                                                {key::Home, SpeedKey::Home},
                                                                {key::End, SpeedKey::End}}};

/// Written into PauseAtLimit to end a wait at a limit.
constexpr int EndLimitWait = 99;

} // namespace

OperatorKeys::OperatorKeys(Session& session, OperatorActions& actions)
    : m_session(session), m_actions(actions) {}

void OperatorKeys::keyDown(int& keyCode) {
    ShowState& show = m_session.show;
    // A screen that is blank must come back, whatever has happened to the pause meanwhile.
    if (keyCode == key::F12 && (show.PauseState > 0 || show.BlankState == 1)) {
        m_actions.toggleBlank();
        keyCode = 0;
    }
    if (show.BlankState == 1) {
        keyCode = 0;
    }
    if (keyCode == key::Escape) {
        show.ExitRequested = 1;
    }
    positionKeys(keyCode);
    displayKeys(keyCode);
    // A looping show is unattended: the keys that steer it are dead.
    if (m_session.settings.AutomaticLooping != 1) {
        plainKeys(keyCode);
    }
}

void OperatorKeys::positionKeys(int& keyCode) {
    if (keyCode == key::Digit1) {
        m_actions.jumpToLine(0);
        keyCode = 0;
    } else if (keyCode == key::Digit0) {
        m_actions.jumpToLine(m_actions.lastScrollValue());
        keyCode = 0;
    }
}

void OperatorKeys::displayKeys(int& keyCode) {
    if (keyCode == key::F9) {
        m_actions.toggleArrow();
        keyCode = 0;
    } else if (keyCode == key::F10) {
        m_actions.toggleFullScreen();
        keyCode = 0;
    }
}

void OperatorKeys::plainKeys(int& keyCode) {
    if (keyCode == key::Enter) {
        m_session.show.PauseState = 0;
    } else if (keyCode == key::Space) {
        togglePause();
    }
    for (const auto& [code, speedKey] : SpeedKeys) {
        if (keyCode == code) {
            setSpeed(speedAfterKey(speedKey, m_session.settings.ScrollSpeed,
                                   m_session.settings.ScrollSpeedControl));
        }
    }
    keyCode = 0;
}

void OperatorKeys::togglePause() {
    ShowState& show = m_session.show;
    if (show.PauseState == 3) {
        show.ElapsedStart = m_session.platform.clock.Timer();
    }
    show.PauseState = show.PauseState == 0 ? 1 : 0;
    if (isFullRange(m_session.settings.ScrollSpeedControl)) {
        show.PauseAtLimit = EndLimitWait;
    }
}

void OperatorKeys::setSpeed(double scrollSpeed) {
    m_session.settings.ScrollSpeed = scrollSpeed;
    m_actions.moveSpeedIndicator();
}

} // namespace velmora
