#include "controllers/shuttle_wheel.h"

#include "controllers/show_actions.h"
#include "core/session.h"
#include "platform/timing/clock.h"

#include <algorithm>

namespace velmora {

std::optional<int> shuttleRingLines(int keyCode) {
    const auto found =
        std::find_if(ShuttleRingSteps.begin(), ShuttleRingSteps.end(),
                     [keyCode](const ShuttleRingStep& step) { return step.keyCode == keyCode; });
    return found == ShuttleRingSteps.end() ? std::nullopt : std::optional<int>(found->lines);
}

std::optional<int> shuttleRingTarget(int lines, int line, int lastLine) {
    if (lines > 0 ? line >= lastLine : line < 1) {
        return std::nullopt;
    }
    const int target = line + lines;
    return target < 0 || target > lastLine ? line : target;
}

JogWheel::JogWheel(Session& session, ShowActions& actions)
    : m_session(session), m_actions(actions) {}

void JogWheel::keyDown(int keyCode) {
    const int step = nextStep();
    const double change = keyCode == key::F13 ? step : -step;
    m_actions.setSpeed(m_session.settings.ScrollSpeed + change);
}

/// Step of a key that comes now. The time counts in whole milliseconds.
int JogWheel::nextStep() {
    const Clock& clock = m_session.platform.clock;
    const std::int64_t ticksPerMs = clock.frequency() / 1000;
    const std::int64_t wholeMs = clock.counter() / ticksPerMs;
    const auto nowMs = static_cast<double>(wholeMs);
    const double elapsedMs = nowMs - JogLastKeyTime;
    const bool first = JogLastKeyTime == 0 || elapsedMs < 0;
    JogLastKeyTime = nowMs;
    if (first) {
        return FirstJogStep;
    }
    const auto found =
        std::find_if(JogSteps.begin(), JogSteps.end(),
                     [elapsedMs](const JogStep& step) { return elapsedMs <= step.upToMs; });
    return found == JogSteps.end() ? SlowestJogStep : found->step;
}

} // namespace velmora
