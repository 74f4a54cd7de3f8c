#include "platform/timing/pacer.h"
#include "platform/timing/refresh_presenter.h"
#include "platform/timing/time_of_day.h"
#include "support/fake_clock.h"
#include "support/fake_event_pump.h"

#include <gtest/gtest.h>

#include <vector>

using namespace velmora;

namespace {

constexpr std::int64_t TicksPerMs = FakeClock::TicksPerSecond / 1000;

} // namespace

TEST(Pacer, EndsAtTheDueTickAndPumpsWithinAMillisecond) {
    FakeClock clock;
    FakeEventPump pump(clock);
    Pacer pacer(clock, pump);
    std::int64_t lastPump = clock.ticks();
    std::int64_t longestGap = 0;
    pump.setEveryPump([&] {
        longestGap = std::max(longestGap, clock.ticks() - lastPump);
        lastPump = clock.ticks();
    });
    const std::int64_t start = clock.counter();
    const Pacer::Wait wait = pacer.wait(start, [] { return 12.5; });
    EXPECT_EQ(wait.due, start + 12 * TicksPerMs + TicksPerMs / 2);
    EXPECT_GE(wait.end, wait.due);
    EXPECT_LE(wait.end - wait.due, TicksPerMs / 50);
    EXPECT_LE(longestGap, TicksPerMs + TicksPerMs / 20);
}

TEST(Pacer, ChangeOfTheWaitActsInsideTheRunningWait) {
    FakeClock clock;
    FakeEventPump pump(clock);
    Pacer pacer(clock, pump);
    double waitMs = 100;
    pump.in(0.010, [&] { waitMs = 20; });
    const std::int64_t start = clock.counter();
    const Pacer::Wait wait = pacer.wait(start, [&] { return waitMs; });
    EXPECT_NEAR(static_cast<double>(wait.end - start), 20.0 * TicksPerMs, TicksPerMs);
}

TEST(RefreshPresenter, EveryPictureHasMovedByTheSameNumberOfSteps) {
    for (const double periodMs : {1.0, 2.6, 4.4, 7.9, 12.0, 19.0}) {
        FakeClock clock;
        clock.setTicksPerRead(0);
        std::vector<int> stepsAtPaint;
        int steps = 0;
        RefreshPresenter presenter(clock, 60, [&] { stepsAtPaint.push_back(steps); });
        presenter.presentNow();
        const auto period = static_cast<std::int64_t>(periodMs * TicksPerMs);
        for (steps = 1; steps < 400; ++steps) {
            clock.advanceTicks(period);
            presenter.stepDone(period);
        }
        ASSERT_GT(stepsAtPaint.size(), 10u) << periodMs;
        const int expected = std::max(1, static_cast<int>(1000.0 / 60 / periodMs + 0.5));
        for (std::size_t i = 2; i < stepsAtPaint.size(); ++i) {
            EXPECT_EQ(stepsAtPaint[i] - stepsAtPaint[i - 1], expected) << periodMs;
        }
    }
}

TEST(RefreshPresenter, LocksPeriodsThatAreNearAWholeNumberOfRefreshes) {
    const FakeClock clock;
    const RefreshPresenter presenter(clock, 60, [] {});
    const auto lockedMs = [&](double periodMs) {
        const auto ticks = static_cast<std::int64_t>(periodMs * TicksPerMs);
        return static_cast<double>(presenter.lockedPeriod(ticks)) / TicksPerMs;
    };
    for (const auto& [period, locked] :
         {std::pair{16.7, 1000.0 / 60}, std::pair{8.36, 1000.0 / 120},
          std::pair{2.752, 1000.0 / 360}, std::pair{33.5, 1000.0 / 30}, std::pair{4.4, 4.4},
          std::pair{17.0, 17.0}, std::pair{25.0, 25.0}, std::pair{0.0, 0.0}}) {
        EXPECT_NEAR(lockedMs(period), locked, 0.001) << period;
    }
}

TEST(RefreshPresenter, LockedPaintsKeepTheirGridAfterALateStep) {
    FakeClock clock;
    clock.setTicksPerRead(0);
    std::vector<std::int64_t> paints;
    RefreshPresenter presenter(clock, 60, [&] { paints.push_back(clock.ticks()); });
    presenter.presentNow();
    constexpr std::int64_t TableWait = 27520;
    const std::int64_t period = presenter.lockedPeriod(TableWait);
    ASSERT_NE(period, TableWait);
    // Each step falls on its moment but one, which is late and paints.
    for (std::int64_t step = 1; step <= 600; ++step) {
        const std::int64_t late = step == 60 ? 2 * TicksPerMs : 0;
        clock.advanceTicks(step * period + late - clock.ticks());
        presenter.stepDone(TableWait);
    }
    ASSERT_GT(paints.size(), 50u);
    for (std::size_t i = 2; i < paints.size(); ++i) {
        const bool isTheLateOne = paints[i] > 60 * period && paints[i] < 61 * period;
        if (!isTheLateOne) {
            EXPECT_NEAR(static_cast<double>(paints[i] % (6 * period)), 0, 1) << i;
        }
    }
}

TEST(RefreshPresenter, SettlesWhatAStepHasNotPaintedOnce) {
    FakeClock clock;
    int paints = 0;
    RefreshPresenter presenter(clock, 60, [&] { ++paints; });
    presenter.presentNow();
    presenter.settle();
    EXPECT_EQ(paints, 1) << "the picture is on the screen";
    constexpr std::int64_t Period = FakeClock::TicksPerSecond / 400;
    int paintedSteps = 0;
    for (int round = 1; round <= 100; ++round) {
        const int before = paints;
        clock.advanceTicks(Period);
        const bool painted = presenter.stepDone(Period);
        EXPECT_EQ(paints, before + (painted ? 1 : 0));
        paintedSteps += painted ? 1 : 0;
        if (round % 7 == 0) {
            presenter.settle();
            presenter.settle();
            EXPECT_EQ(paints, before + 1) << "once, by the step or by settling";
        }
    }
    EXPECT_GT(paintedSteps, 5);
    EXPECT_LT(paintedSteps, 60);
}

TEST(TimeOfDay, SpansSurviveMidnight) {
    EXPECT_DOUBLE_EQ(secondsSince(100, 104), 4);
    EXPECT_DOUBLE_EQ(secondsSince(86398, 2), 4);
}
