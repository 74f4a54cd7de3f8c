#include "platform/timing/machine_clock.h"
#include "platform/timing/qt_event_pump.h"
#include "support/fake_clock.h"
#include "support/fake_event_pump.h"

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

} // namespace

TYPED_TEST(ClockContract, SleepAndSpinMoveTheCounterAndTheTimerIsATimeOfDay) {
    const std::int64_t before = this->clock.counter();
    this->clock.sleepMicroseconds(2000);
    const std::int64_t after = this->clock.counter();
    const double ms =
        static_cast<double>(after - before) * 1000 / static_cast<double>(this->clock.frequency());
    EXPECT_GE(ms, 2.0);
    const std::int64_t due = this->clock.counter() + this->clock.frequency() / 5000;
    this->clock.spinUntil(due);
    EXPECT_GE(this->clock.counter(), due);
    this->clock.spinUntil(due - this->clock.frequency());
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
