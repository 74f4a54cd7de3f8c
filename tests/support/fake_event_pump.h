#pragma once

#include "platform/timing/event_pump.h"
#include "support/fake_clock.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace velmora {

/// A pump on the fake clock's time. What a user would do is scripted: actions run inside the pump,
/// as handlers do, when their moment or their turn has come, earliest first. An action may pump.
class FakeEventPump final : public EventPump {
public:
    using Action = std::function<void()>;

    explicit FakeEventPump(FakeClock& clock) : m_clock(clock) {}

    /// Runs the action at the first pump at or after this moment, in seconds since the clock began.
    void at(double seconds, Action action) {
        const auto due = static_cast<std::int64_t>(seconds * FakeClock::TicksPerSecond);
        const auto behind = std::upper_bound(
            m_timed.begin(), m_timed.end(), due,
            [](std::int64_t moment, const TimedAction& other) { return moment < other.due; });
        m_timed.insert(behind, TimedAction{due, std::move(action)});
    }
    /// Runs the action seconds from now.
    void in(double seconds, Action action) {
        at(m_clock.secondsSinceStart() + seconds, std::move(action));
    }
    /// Runs the action inside the next pump; several keep their order, one a pump.
    void next(Action action) { m_turns.push_back(std::move(action)); }
    /// Runs at every pump, after the scripted actions.
    void setEveryPump(Action action) { m_everyPump = std::move(action); }

    void DoEvents() override {
        ++m_pumps;
        m_clock.advanceMicroseconds(m_pumpMicroseconds);
        if (m_clock.secondsSinceStart() > m_limitSeconds) {
            throw std::runtime_error("the code under test has been waiting past the limit");
        }
        if (!m_turns.empty()) {
            const Action action = std::move(m_turns.front());
            m_turns.erase(m_turns.begin());
            action();
        }
        while (!m_timed.empty() && m_timed.front().due <= m_clock.ticks()) {
            const Action action = std::move(m_timed.front().action);
            m_timed.erase(m_timed.begin());
            action();
        }
        if (m_everyPump) {
            m_everyPump();
        }
    }
    void waitForEvents(int timeoutMs) override {
        std::int64_t wait = std::int64_t{timeoutMs} * (FakeClock::TicksPerSecond / 1000);
        if (!m_turns.empty()) {
            wait = 0;
        } else if (!m_timed.empty()) {
            wait = std::min(wait, m_timed.front().due - m_clock.ticks());
        }
        m_clock.advanceTicks(std::max<std::int64_t>(wait, 0));
        DoEvents();
    }

    [[nodiscard]] std::int64_t pumps() const { return m_pumps; }
    /// What one pump costs on the fake clock; 0 is possible.
    void setPumpMicroseconds(std::int64_t microseconds) { m_pumpMicroseconds = microseconds; }
    /// The pump throws when the clock passes this, so that an endless wait fails its test.
    void setLimitSeconds(double seconds) { m_limitSeconds = seconds; }

private:
    struct TimedAction final {
        std::int64_t due = 0;
        Action action;
    };

    FakeClock& m_clock;
    std::vector<TimedAction> m_timed;
    std::vector<Action> m_turns;
    Action m_everyPump;
    std::int64_t m_pumps = 0;
    std::int64_t m_pumpMicroseconds = 10;
    double m_limitSeconds = 4 * 3600.0;
};

} // namespace velmora
