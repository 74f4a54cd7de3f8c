#include "platform/timing/machine_clock.h"
#include "platform/timing/qt_event_pump.h"
#include "platform/timing/refresh_presenter.h"
#include "support/fake_clock.h"
#include "support/fake_event_pump.h"
#include "support/fake_presenter.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>

using namespace velmora;

namespace {

/// What every clock keeps to, the machine's and the fake one alike.
template<typename ClockType> class ClockContract : public ::testing::Test {
protected:
    ClockType clock;
};
using Clocks = ::testing::Types<MachineClock, FakeClock>;
TYPED_TEST_SUITE(ClockContract, Clocks);

/// A pump with its clock, and how work gets into its queue.
struct MachinePump final {
    MachineClock clock;
    QtEventPump pump;
    template<typename Action> void post(Action action) {
        QMetaObject::invokeMethod(QCoreApplication::instance(), action, Qt::QueuedConnection);
    }
    template<typename Action> void postIn(int ms, Action action) {
        QTimer::singleShot(ms, Qt::PreciseTimer, action);
    }
};
struct FakePump final {
    FakeClock clock;
    FakeEventPump pump{clock};
    template<typename Action> void post(Action action) { pump.next(action); }
    template<typename Action> void postIn(int ms, Action action) { pump.in(ms / 1000.0, action); }
};
template<typename Rig> class PumpContract : public ::testing::Test {
protected:
    [[nodiscard]] double msSince(std::int64_t start) const {
        return static_cast<double>(rig.clock.counter() - start) * 1000.0 /
               static_cast<double>(rig.clock.frequency());
    }
    Rig rig;
};
using Pumps = ::testing::Types<MachinePump, FakePump>;
TYPED_TEST_SUITE(PumpContract, Pumps);

/// A presenter whose steps come so fast that only some of them are painted.
struct RefreshRig final {
    FakeClock clock;
    int painted = 0;
    RefreshPresenter presenter{clock, 60, [this] { ++painted; }};
    [[nodiscard]] int paints() const { return painted; }
};
struct FakePresenterRig final {
    FakePresenter presenter;
    FakePresenterRig() { presenter.stepsPerPaint = 5; }
    [[nodiscard]] int paints() const { return presenter.paints; }
};
template<typename Rig> class PresenterContract : public ::testing::Test {
protected:
    static constexpr std::int64_t Period = FakeClock::TicksPerSecond / 400;
    bool step() {
        if constexpr (requires { rig.clock; }) {
            rig.clock.advanceTicks(Period);
        }
        return rig.presenter.stepDone(Period);
    }
    Rig rig;
};
using Presenters = ::testing::Types<RefreshRig, FakePresenterRig>;
TYPED_TEST_SUITE(PresenterContract, Presenters);

} // namespace

TYPED_TEST(ClockContract, CounterNeverGoesBackAndSleepMovesIt) {
    const std::int64_t before = this->clock.counter();
    this->clock.sleepMicroseconds(2000);
    const std::int64_t after = this->clock.counter();
    const double ms =
        static_cast<double>(after - before) * 1000 / static_cast<double>(this->clock.frequency());
    EXPECT_GE(ms, 2.0);
    EXPECT_GE(this->clock.counter(), after);
}

TYPED_TEST(ClockContract, SpinEndsAtItsTickAndAPastOneAtOnce) {
    const std::int64_t due = this->clock.counter() + this->clock.frequency() / 5000;
    this->clock.spinUntil(due);
    EXPECT_GE(this->clock.counter(), due);
    this->clock.spinUntil(due - this->clock.frequency());
}

TYPED_TEST(ClockContract, TimerIsATimeOfDay) {
    EXPECT_GE(this->clock.Timer(), 0);
    EXPECT_LT(this->clock.Timer(), 86400);
}

TYPED_TEST(PumpContract, RunsWhatIsPendingAndComesBack) {
    int runs = 0;
    this->rig.pump.DoEvents();
    this->rig.post([&] { ++runs; });
    EXPECT_EQ(runs, 0);
    this->rig.pump.DoEvents();
    EXPECT_EQ(runs, 1);
    this->rig.pump.DoEvents();
    EXPECT_EQ(runs, 1);
}

TYPED_TEST(PumpContract, HandlersMayPump) {
    int inner = 0;
    this->rig.post([&] {
        this->rig.post([&] { ++inner; });
        this->rig.pump.DoEvents();
        EXPECT_EQ(inner, 1);
    });
    this->rig.pump.DoEvents();
    EXPECT_EQ(inner, 1);
}

TYPED_TEST(PumpContract, WaitEndsByItsTimeOutOrByWhatComesFirst) {
    this->rig.pump.DoEvents();
    std::int64_t start = this->rig.clock.counter();
    this->rig.pump.waitForEvents(30);
    EXPECT_GE(this->msSince(start), 25);

    bool came = false;
    this->rig.postIn(10, [&] { came = true; });
    start = this->rig.clock.counter();
    while (!came && this->msSince(start) < 10'000) {
        this->rig.pump.waitForEvents(10'000);
    }
    EXPECT_TRUE(came);
    EXPECT_LT(this->msSince(start), 9'000);
}

TYPED_TEST(PresenterContract, TellsWhetherAStepWasPaintedAndSettlesTheOthersOnce) {
    this->rig.presenter.presentNow();
    ASSERT_EQ(this->rig.paints(), 1);
    this->rig.presenter.settle();
    EXPECT_EQ(this->rig.paints(), 1) << "the picture is on the screen";
    int paintedSteps = 0;
    for (int round = 1; round <= 100; ++round) {
        const int before = this->rig.paints();
        const bool painted = this->step();
        EXPECT_EQ(this->rig.paints(), before + (painted ? 1 : 0));
        paintedSteps += painted ? 1 : 0;
        if (round % 7 == 0) {
            this->rig.presenter.settle();
            this->rig.presenter.settle();
            EXPECT_EQ(this->rig.paints(), before + 1) << "once, by the step or by settling";
        }
        if (round % 11 == 0) {
            const int current = this->rig.paints();
            this->rig.presenter.presentNow();
            this->rig.presenter.settle();
            EXPECT_EQ(this->rig.paints(), current + 1) << "at once, whatever is on the screen";
        }
    }
    EXPECT_GT(paintedSteps, 5);
    EXPECT_LT(paintedSteps, 60);
}

TYPED_TEST(PresenterContract, LocksAPeriodByAHundredthAtTheMostAndOnce) {
    for (const std::int64_t period : {0, 1, 9'999, 27'520, 83'600, 166'000, 170'000, 335'000}) {
        const std::int64_t locked = this->rig.presenter.lockedPeriod(period);
        EXPECT_LE(std::abs(locked - period) * 100, period) << period;
        EXPECT_EQ(this->rig.presenter.lockedPeriod(locked), locked) << period;
    }
}
