#include "display/timed_loop.h"

#include "display/timed_pace.h"
#include "loop_stage.h"

#include <gtest/gtest.h>

using namespace velmora;

namespace {

/// A timed show whose text enters at the window's foot.
class TimedLoopTest : public LoopStage {
protected:
    void SetUp() override { settings.RowStep = 1; }

    void prepareTimed(int lines) {
        prepare(lines, TextRows - 1);
        show.PauseState = 3;
    }
    void start() {
        show.AwaitingStart = 0;
        show.PauseState = 0;
        startedAt = t.clock.secondsSinceStart();
    }
    /// Runs until the operator leaves; remembers when each run ended.
    void runLoop() {
        TimedLoop loop(parts(LoopHousekeeping::Measured::Always), pace);
        run(loop);
    }
    void watchEnds() {
        observer.onLimit = [this] { took = t.clock.secondsSinceStart() - startedAt; };
    }

    TimedPace pace{FakeClock::TicksPerSecond};
    double startedAt = 0;
    double took = 0;
};

} // namespace

TEST_F(TimedLoopTest, EndsOnTheSetTimeWhateverAStepCosts) {
    struct Row {
        int seconds;
        int lines;
        int turbo;
        int pumpMicroseconds;
    };
    for (const Row& row : {Row{10, 40, 0, 0}, Row{10, 40, 0, 900}, Row{30, 400, 1, 0},
                           Row{60, 400, 0, 300}, Row{3599, 300, 0, 100}, Row{3599, 300, 1, 0}}) {
        SCOPED_TRACE(testing::Message() << row.seconds << " s, " << row.lines << " lines, turbo "
                                        << row.turbo << ", pump " << row.pumpMicroseconds);
        settings.TimedDisplaySeconds = row.seconds;
        settings.RowStep = 1 + row.turbo;
        prepareTimed(row.lines);
        t.pump.setPumpMicroseconds(row.pumpMicroseconds);
        watchEnds();
        at(1, [&] { start(); });
        at(row.seconds + 3.0, [&] { show.ExitRequested = 1; });
        const int stepsBefore = presenter.steps;
        runLoop();
        // Turbo skips up to a row at the end.
        const double step = row.seconds / static_cast<double>(row.lines * LineHeight);
        EXPECT_NEAR(took, row.seconds, 0.02 + row.turbo * 2 * step);
        EXPECT_EQ(presenter.steps - stepsBefore, (row.lines * LineHeight - 1) / settings.RowStep);
        show.ExitRequested = 0;
    }
}

TEST_F(TimedLoopTest, AStallShortlyBeforeTheEndIsCaughtUpWithoutARace) {
    settings.TimedDisplaySeconds = 10;
    prepareTimed(40);
    watchEnds();
    at(1, [&] { start(); });
    at(9.9, [&] { t.clock.advanceSeconds(0.3); });
    const auto rowAt = [&](double seconds, std::int64_t& row) {
        at(seconds, [this, &row] { row = show.ScrollRow; });
    };
    std::int64_t before = 0;
    std::int64_t after = 0;
    rowAt(9.85, before);
    rowAt(10.25, after);
    at(13, [&] { show.ExitRequested = 1; });
    runLoop();
    EXPECT_NEAR(took, 10, 0.02);
    EXPECT_LT(after - before, 8) << "40 rows a second";
}

TEST_F(TimedLoopTest, APlaceTakenBeforeTheStartOrOnTheWayKeepsTheSetTime) {
    settings.TimedDisplaySeconds = 10;
    for (const double jump : {0.5, 4.0}) {
        prepareTimed(40);
        watchEnds();
        at(jump, [&] { navigation->reposition(20); });
        at(1, [&] { start(); });
        at(13, [&] { show.ExitRequested = 1; });
        runLoop();
        EXPECT_NEAR(took, 10, 0.02) << jump;
    }
}

TEST_F(TimedLoopTest, AStepOfAMinuteHoldsUpNeitherTheClocksNorThePedalNorWhoeverLeaves) {
    settings.TimedDisplaySeconds = 3599;
    prepareTimed(1);
    at(1, [&] { start(); });
    at(10.5, [&] {
        EXPECT_EQ(screen.elapsed, u"00:09"_qs);
        EXPECT_GT(polls, 5000);
        EXPECT_NE(screen.remaining, u"00:00"_qs);
    });
    at(20, [&] { show.ExitRequested = TimedLoop::ResetRequested; });
    at(20.1, [&] { EXPECT_EQ(show.AwaitingStart, 1); });
    at(21, [&] { start(); });
    at(40, [&] { show.ExitRequested = 1; });
    runLoop();
    EXPECT_NEAR(lasted, 40, 0.1);
}

TEST_F(TimedLoopTest, AScriptThatCannotBeInTimeRunsWithoutAWaitAndPumpsAtEveryStep) {
    settings.TimedDisplaySeconds = 10;
    prepareTimed(2000);
    t.pump.setPumpMicroseconds(1000);
    watchEnds();
    at(1, [&] { start(); });
    at(30, [&] { show.ExitRequested = 1; });
    const std::int64_t pumps = t.pump.pumps();
    runLoop();
    EXPECT_EQ(observer.limits, 1);
    EXPECT_GT(took, 19.9);
    EXPECT_GE(t.pump.pumps() - pumps, presenter.steps);
    EXPECT_EQ(screen.remaining, u"00:00"_qs);
}

TEST_F(TimedLoopTest, ResetMakesReadyAtOnceAndTheEndWaitsForAPress) {
    settings.TimedDisplaySeconds = 10;
    prepareTimed(60);
    watchEnds();
    at(1, [&] {
        EXPECT_EQ(show.AwaitingStart, 1);
        EXPECT_EQ(screen.elapsed, u"00:00"_qs);
        start();
    });
    at(5, [&] { show.ExitRequested = TimedLoop::ResetRequested; });
    at(5.5, [&] {
        EXPECT_EQ(show.AwaitingStart, 1);
        EXPECT_EQ(show.PauseState, 3);
        EXPECT_EQ(show.ScrollRow, TextRows - 1);
        start();
    });
    at(17, [&] {
        EXPECT_NEAR(took, 10, 0.05);
        EXPECT_EQ(show.AwaitingStart, 0) << "stands at the end";
        EXPECT_EQ(show.PauseState, 3);
        EXPECT_EQ(screen.elapsed, u"00:10"_qs);
        show.PauseState = 0;
        show.ExitRequested = TimedLoop::ResetRequested;
    });
    at(18, [&] {
        EXPECT_EQ(show.AwaitingStart, 1);
        show.ExitRequested = 1;
    });
    runLoop();
    EXPECT_EQ(observer.limits, 2);
    EXPECT_GT(polls, 500) << "the pedal is asked in every state";
}

TEST(TimedPace, AMovedDurationIsTwoPercentFastUntilTheFirstComputation) {
    TimedPace pace(1000);
    pace.set(100, 1000);
    EXPECT_NEAR(pace.stepTicks(), 100, 1e-6);
    pace.change(200);
    EXPECT_NEAR(pace.stepTicks(), 196, 1e-6);
    pace.recompute(100'000, 498, 2);
    EXPECT_NEAR(pace.stepTicks(), 400, 1e-4) << "two rows a step, 500 rows in 100 seconds";
    pace.recompute(300'000, 100, 2);
    EXPECT_LT(pace.stepTicks(), 0) << "late";
    pace.set(10, 0);
    pace.change(20);
    EXPECT_GT(pace.stepTicks(), 0) << "no rows: a guarded division";
    EXPECT_LE(pace.stepTicks(), 20 * 1000);
    pace.recompute(0, -1, 1);
    EXPECT_LE(pace.stepTicks(), 20 * 1000) << "a step behind the last row";
}
