#include "controllers/foot_pedal.h"

#include "controllers/show_actions.h"
#include "core/arrangement.h"
#include "core/session.h"
#include "platform/devices/joystick.h"
#include "platform/devices/key_numbers.h"
#include "platform/timing/clock.h"
#include "platform/timing/event_pump.h"
#include "platform/timing/time_of_day.h"

namespace velmora {

namespace {

/// The state of all buttons is compared as a whole, so two held at once are none.
constexpr std::uint32_t FasterButton = 1;
constexpr std::uint32_t SlowerButton = 2;
constexpr std::uint32_t PauseButton = 4;

constexpr double RepeatSeconds = 0.02;
/// How often the release is looked for.
constexpr int ReleasePollMs = 5;

bool inUse(const Session& session) {
    return session.settings.ControllerType == controller::Foot;
}

} // namespace

FootPedal::FootPedal(Session& session, ShowActions& actions, Buttons buttons)
    : m_session(session), m_actions(actions), m_buttons(buttons),
      m_ignoresHeldButton(inUse(session) && session.platform.joystick.buttons() != 0) {}

void FootPedal::poll() {
    if (!inUse(m_session)) {
        return;
    }
    const std::uint32_t held = m_session.platform.joystick.buttons();
    if (m_ignoresHeldButton) {
        m_ignoresHeldButton = held != 0;
        return;
    }
    if (held == PauseButton) {
        sendOnRelease();
    } else if (m_buttons == Buttons::All && held == FasterButton) {
        repeat(key::Right);
    } else if (m_buttons == Buttons::All && held == SlowerButton) {
        repeat(key::Left);
    }
}

void FootPedal::repeat(int keyCode) {
    const double now = m_session.platform.clock.Timer();
    if (secondsSince(ButtonRepeatTime, now) > RepeatSeconds) {
        ButtonRepeatTime = now;
        send(keyCode);
    }
}

void FootPedal::sendOnRelease() {
    do {
        m_session.platform.pump.waitForEvents(ReleasePollMs);
        if (m_session.show.ExitRequested != 0) {
            return;
        }
    } while (m_session.platform.joystick.buttons() == PauseButton);
    send(key::Space);
}

void FootPedal::send(int keyCode) {
    int shift = key::NoShift;
    m_actions.Picture1_KeyDown(keyCode, shift);
}

} // namespace velmora
