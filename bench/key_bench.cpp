#include "app/unattended_machine.h"
#include "controllers/speed_mapping.h"
#include "core/screen_scale.h"
#include "core/session.h"
#include "display/show_hand_over.h"
#include "display/show_observer.h"
#include "display/text_window.h"
#include "editor/script_conventions.h"
#include "editor/unattended_host.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <random>
#include <string>
#include <thread>
#include <vector>

using namespace velmora;

namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr double RefreshMs = 1000.0 / 60;
constexpr int KeysOfAState = 100;
/// Behind which a show has come to where a key led it.
constexpr std::chrono::milliseconds Settling(300);

/// A state of a show in which keys arrive.
struct KeyState final {
    const char* name;
    double ScrollSpeed = 60;
    int ScrollSpeedControl = 0;
    int AutomaticLooping = 0;
    int TimedDisplay = 0;
    /// Lead to the state.
    std::vector<int> prelude = {};
    /// Change a variable of the show to and fro.
    int forth = Qt::Key_Left;
    int back = Qt::Key_Right;
};

const KeyState States[] = {
    {"ready"},
    {.name = "fastest", .ScrollSpeed = 0, .prelude = {Qt::Key_Space}},
    {.name = "brisk", .prelude = {Qt::Key_Space}},
    {.name = "slow", .ScrollSpeed = 110, .prelude = {Qt::Key_Space}},
    {.name = "slowest", .ScrollSpeed = 117, .prelude = {Qt::Key_Space}},
    {.name = "backward", .ScrollSpeed = 200, .prelude = {Qt::Key_0, Qt::Key_Space}},
    {.name = "full_range", .ScrollSpeedControl = 1, .prelude = {Qt::Key_Space}},
    {.name = "dead_band", .ScrollSpeed = 127, .prelude = {Qt::Key_Space}},
    {.name = "stop_zone",
     .ScrollSpeedControl = 1,
     .prelude = {Qt::Key_Space, Qt::Key_End, Qt::Key_Right}},
    {.name = "paused", .prelude = {Qt::Key_Space, Qt::Key_Space}},
    {.name = "blank", .forth = Qt::Key_F12, .back = Qt::Key_F12},
    {.name = "limit", .prelude = {Qt::Key_0, Qt::Key_Space}},
    {.name = "looping", .AutomaticLooping = 1, .forth = Qt::Key_F9, .back = Qt::Key_F9},
    {.name = "timed_ready", .TimedDisplay = 1, .forth = Qt::Key_F9, .back = Qt::Key_F9},
    {.name = "timed_running",
     .TimedDisplay = 1,
     .prelude = {Qt::Key_Space},
     .forth = Qt::Key_F9,
     .back = Qt::Key_F9},
};

double msSince(SteadyClock::time_point moment) {
    return std::chrono::duration<double, std::milli>(SteadyClock::now() - moment).count();
}

double quantile(std::vector<double> values, double share) {
    if (values.empty()) {
        return 0;
    }
    std::ranges::sort(values);
    return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1))];
}

/// Keys from another thread, as the desktop's connection brings them, at random moments of the
/// loop; measures how long each takes to its variable and to the next picture.
class KeyTyping final : public ShowObserver {
public:
    KeyTyping(Session& session, const KeyState& state) : m_session(session), m_state(state) {}
    ~KeyTyping() override {
        if (m_typist.joinable()) {
            m_typist.join();
        }
    }

    void showPrepared(const ShowTables&, const DisplayGeometry&, QWidget& window) override {
        m_picture = window.findChild<TextWindow*>();
    }
    void loopStarted() override {
        m_delays = buildSpeedDelayTable(m_session.settings.Delay, m_state.ScrollSpeedControl);
        m_typist = std::thread([this] { type(); });
    }
    void stepDone(const StepRecord& step) override {
        if (step.painted && m_awaitsPicture) {
            m_awaitsPicture = false;
            const double wait = speedDelayMs(m_delays, m_session.settings.ScrollSpeed);
            m_beyond.push_back(msSince(m_arrived) - wait - RefreshMs);
        }
    }
    void limitReached() override {}
    void loopEnded() override {}

    void report(benchmark::State& state) const {
        state.counters["keys"] = static_cast<double>(m_toVariable.size());
        state.counters["p50_ms"] = quantile(m_toVariable, 0.5);
        state.counters["p95_ms"] = quantile(m_toVariable, 0.95);
        state.counters["max_ms"] = quantile(m_toVariable, 1);
        if (!m_beyond.empty()) {
            state.counters["picture_beyond_p95_ms"] = quantile(m_beyond, 0.95);
            state.counters["picture_beyond_max_ms"] = quantile(m_beyond, 1);
        }
    }

private:
    /// Deleted by the queue as soon as its handlers have run.
    class Key final : public QKeyEvent {
    public:
        Key(KeyTyping& typing, int key)
            : QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier), m_typing(typing),
              m_before(typing.variables()), m_posted(SteadyClock::now()) {}
        ~Key() override { m_typing.handled(m_posted, m_before); }

    private:
        KeyTyping& m_typing;
        std::array<double, 3> m_before;
        SteadyClock::time_point m_posted;
    };

    [[nodiscard]] std::array<double, 3> variables() const {
        return {m_session.settings.ScrollSpeed,
                static_cast<double>(m_session.settings.ArrowVisible),
                static_cast<double>(m_session.show.BlankState)};
    }

    void handled(SteadyClock::time_point posted, const std::array<double, 3>& before) {
        if (m_measuring && variables() != before) {
            m_toVariable.push_back(msSince(posted));
            m_arrived = posted;
            m_awaitsPicture = variables()[0] != before[0];
        }
        m_handled = true;
    }

    void press(int key) {
        m_handled = false;
        QCoreApplication::postEvent(m_picture, new Key(*this, key));
        while (!m_handled) {
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        }
    }

    void type() {
        std::this_thread::sleep_for(Settling);
        for (const int key : m_state.prelude) {
            press(key);
            std::this_thread::sleep_for(Settling);
        }
        m_measuring = true;
        std::mt19937 random(1);
        for (int key = 0; key < KeysOfAState; ++key) {
            press(key % 2 == 0 ? m_state.forth : m_state.back);
            std::this_thread::sleep_for(std::chrono::microseconds(30'000 + random() % 20'000));
        }
        m_measuring = false;
        if (m_session.show.BlankState == 1) {
            press(Qt::Key_F12);
        }
        press(Qt::Key_Escape);
    }

    Session& m_session;
    const KeyState& m_state;
    TextWindow* m_picture = nullptr;
    SpeedDelayTable m_delays{};
    std::thread m_typist;
    std::atomic<bool> m_handled = false;
    std::atomic<bool> m_measuring = false;
    bool m_awaitsPicture = false;
    SteadyClock::time_point m_arrived;
    std::vector<double> m_toVariable;
    std::vector<double> m_beyond;
};

/// From a key to the show's variable, and from a change of speed how far the next picture lies
/// beyond one new wait and one refresh (less than nothing: within).
void BM_Key(benchmark::State& state, const KeyState& keys) {
    UnattendedMachine machine;
    Session session(machine.platform);
    measureScreen(session);
    session.displays.CmdDisplaysGiven = 1;
    session.displays.CmdDisplay1Width = 1920;
    session.displays.CmdDisplay1Height = 1080;
    applyEditorDefaults(session);
    session.script.rtb1.setWrapWidth(wrapWidthForMargin(12));
    session.script.rtb1.setText(QStringLiteral("Line of a script\r\n").repeated(2000));
    Settings& settings = session.settings;
    settings.ScrollSpeed = keys.ScrollSpeed;
    settings.ScrollSpeedControl = keys.ScrollSpeedControl;
    settings.AutomaticLooping = keys.AutomaticLooping;
    settings.TimedDisplay = keys.TimedDisplay;
    UnattendedHost host(session);
    for (auto _ : state) {
        ShowHandOver handOver(session, host);
        KeyTyping typing(session, keys);
        handOver.setObserver(&typing);
        handOver.RunPrompter();
        typing.report(state);
    }
}

const bool registered = [] {
    for (const KeyState& keys : States) {
        benchmark::RegisterBenchmark(("BM_Key/" + std::string(keys.name)).c_str(),
                                     [&keys](benchmark::State& state) { BM_Key(state, keys); })
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    }
    return true;
}();

} // namespace
