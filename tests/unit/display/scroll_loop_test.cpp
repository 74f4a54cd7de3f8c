#include "display/scroll_loop.h"

#include "loop_stage.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace velmora;

namespace {

class ScrollLoopTest : public LoopStage {
protected:
    void startAt(double seconds) {
        at(seconds, [this] { show.PauseState = 0; });
    }
    void runUntil(double seconds) {
        at(seconds, [this] { show.ExitRequested = 1; });
        ScrollLoop loop(parts(LoopHousekeeping::Measured::ForwardSplitRange), TextRows);
        run(loop);
    }
    [[nodiscard]] double stepSeconds(double speed) const { return std::pow(1.025, speed) / 1000; }
    /// What Label4 tells, in seconds.
    [[nodiscard]] int remaining() const {
        const QStringList parts = screen.remaining.split(u':');
        return parts[0].toInt() * 60 + parts.last().toInt();
    }
    /// What is left by the rows and the table of waits.
    [[nodiscard]] double left() const {
        return static_cast<double>(tables.LastScrollRow - show.ScrollRow) *
               stepSeconds(settings.ScrollSpeed);
    }
};

} // namespace

TEST_F(ScrollLoopTest, MovesARowAStepAtThePaceOfTheTable) {
    for (const int speed : {0, 60, 110}) {
        SCOPED_TRACE(speed);
        settings.ScrollSpeed = speed;
        prepare(3000);
        startAt(1);
        runUntil(11);
        const double expected = 10 / stepSeconds(speed);
        EXPECT_NEAR(presenter.steps, expected, expected * 0.001 + 3);
        EXPECT_EQ(show.ScrollRow, TextRows - 1 + presenter.steps);
    }
}

TEST_F(ScrollLoopTest, ElapsedClockStandsUntilTheFirstStartAndRunsOnWhileNothingMoves) {
    prepare(2000);
    int stepsBefore = 0;
    at(7, [&] { EXPECT_EQ(screen.elapsed, u"00:00"_qs); });
    startAt(8);
    at(20, [&] { show.PauseState = 1; });
    at(33.5, [&] {
        EXPECT_EQ(screen.elapsed, u"00:25"_qs) << "in a pause";
        stepsBefore = presenter.steps;
        settings.ScrollSpeed = 128;
        show.PauseState = 0;
    });
    at(40.5, [&] { EXPECT_EQ(screen.elapsed, u"00:32"_qs) << "in the dead band"; });
    runUntil(41);
    EXPECT_GT(stepsBefore, 0);
    EXPECT_EQ(presenter.steps, stepsBefore);
}

TEST_F(ScrollLoopTest, ElapsedClockRestartsAtMidnight) {
    prepare(2000);
    t.clock.setTimer(86395);
    startAt(0);
    at(12.5, [&] { show.PauseState = 1; });
    at(13.5, [&] { EXPECT_EQ(screen.elapsed, u"00:08"_qs); });
    runUntil(14);
}

TEST_F(ScrollLoopTest, SpeedBeyondTheMiddleTurnsTheTextWithoutMovingIt) {
    prepare(2000);
    startAt(0);
    std::int64_t topAtTurn = 0;
    at(10, [&] {
        topAtTurn = navigation->topRow();
        settings.ScrollSpeed = 128;
    });
    at(11, [&] { EXPECT_EQ(navigation->topRow(), topAtTurn); });
    at(11.5, [&] { settings.ScrollSpeed = 127.5; });
    at(12, [&] { settings.ScrollSpeed = 195; });
    runUntil(13);
    EXPECT_EQ(show.ScrollDirection, -1);
    EXPECT_EQ(screen.statesShown, 2) << "a single turn";
    EXPECT_LT(ring.top(), topAtTurn - 100);
}

TEST_F(ScrollLoopTest, EndOfTheScriptStopsWithTheLastRowAtTheBottomAndTurnsInPlace) {
    for (const int rowStep : {1, 2}) {
        SCOPED_TRACE(rowStep);
        settings.RowStep = rowStep;
        settings.ScrollSpeed = 0;
        prepare(20);
        const std::int64_t lastTop = tables.LastScrollRow - (TextRows - 1);
        std::int64_t topAtLimit = 0;
        startAt(0);
        at(5, [&] {
            EXPECT_EQ(show.PauseState, 1);
            topAtLimit = ring.top();
            settings.ScrollSpeed = 250;
        });
        at(5.003, [&] { EXPECT_GE(ring.top(), topAtLimit - 4 * rowStep); });
        at(9, [&] {
            EXPECT_EQ(show.PauseState, 1);
            EXPECT_LE(ring.top(), rowStep);
            settings.ScrollSpeed = 0;
        });
        at(9.5, [&] { EXPECT_GT(ring.top(), 50); });
        runUntil(10);
        EXPECT_GT(topAtLimit, lastTop - rowStep);
        EXPECT_LE(topAtLimit, lastTop);
    }
    EXPECT_GE(observer.limits, 4);
}

TEST_F(ScrollLoopTest, JumpAtALimitStandsAtTheNewPlaceUntilTheOperatorGoesOn) {
    prepare(60);
    settings.ScrollSpeed = 0;
    startAt(0);
    std::int64_t top = 0;
    at(3, [&] {
        EXPECT_EQ(show.PauseState, 1);
        navigation->reposition(5);
        top = ring.top();
    });
    at(3.5, [&] {
        EXPECT_EQ(show.PauseState, 1);
        EXPECT_EQ(ring.top(), top);
        show.PauseState = 0;
    });
    at(3.8, [&] {
        EXPECT_EQ(show.ScrollDirection, 1);
        EXPECT_GT(ring.top(), top + 200);
    });
    runUntil(4);
}

TEST_F(ScrollLoopTest, LoopingShowStartsByItselfAndBeginsAgainAtTheTop) {
    prepare(30);
    // The first wait goes over midnight.
    t.clock.setTimer(86398);
    settings.AutomaticLooping = 1;
    settings.ScrollSpeed = 0;
    show.StartFromCursor = 1;
    show.StartPosition = 10;
    at(1, [&] { EXPECT_EQ(ring.top(), 10 * LineHeight); });
    at(3.9, [&] { EXPECT_EQ(presenter.steps, 0); });
    at(4.05, [&] { EXPECT_GT(presenter.steps, 0); });
    // About 0.1 s to the end, 4 s there, 4 s at the top.
    at(9, [&] { EXPECT_EQ(ring.top(), 0); });
    at(12.25, [&] { EXPECT_GT(ring.top(), 0); });
    runUntil(13);
    EXPECT_EQ(screen.shown, 2);
    // Leaving inside the wait works at once.
    EXPECT_LT(lasted, 13.1);
}

TEST_F(ScrollLoopTest, FullRangeStopsInItsZoneAndTellsNoRemainingTime) {
    prepare(2000);
    settings.ScrollSpeedControl = FullRange;
    settings.ScrollSpeed = 100;
    startAt(0);
    at(2, [&] { settings.ScrollSpeed = 244; });
    std::int64_t stoppedAt = 0;
    at(2.5, [&] { stoppedAt = ring.top(); });
    runUntil(4);
    EXPECT_GT(stoppedAt, 100);
    EXPECT_EQ(ring.top(), stoppedAt);
    EXPECT_EQ(screen.remaining, u"00:00"_qs);
}

TEST_F(ScrollLoopTest, HousekeepingFollowsTheStepsInForwardSplitRange) {
    prepare(3000);
    settings.ScrollSpeed = 60;
    startAt(0);
    runUntil(10);
    // Set once at the start, then once in 91 steps.
    EXPECT_NEAR(static_cast<double>(screen.scrollValues.size()), presenter.steps / 91.0 + 1, 1.5);
    EXPECT_EQ(screen.elapsed, u"00:09"_qs);
}

TEST_F(ScrollLoopTest, RemainingTimeIsThatOfUninterruptedStepsAlone) {
    struct Row {
        const char* name;
        std::function<void()> interrupt;
        std::function<void()> goOn;
    };
    const auto speed = [&](double to) { return [this, to] { settings.ScrollSpeed = to; }; };
    for (const Row& row :
         {Row{"pause", [&] { show.PauseState = 1; }, [&] { show.PauseState = 0; }},
          Row{"dead band", speed(128), speed(60)}, Row{"turn", speed(195), speed(60)},
          Row{"full screen", [&] { settings.FullScreenMode = 1; },
              [&] { settings.FullScreenMode = 0; }},
          Row{"jump", [&] { navigation->reposition(1500); }, [] {}},
          Row{"another speed", speed(0), speed(50)},
          Row{"limit", [&] { navigation->reposition(2989); },
              [&] {
                  EXPECT_EQ(show.PauseState, 1);
                  navigation->reposition(1000);
                  t.pump.in(0.1, [this] { show.PauseState = 0; });
              }}}) {
        settings.ScrollSpeed = 60;
        prepare(3000);
        startAt(0);
        at(0.9, [&] { EXPECT_NEAR(remaining(), left(), 1.5) << "from the table at first"; });
        // In the middle of a cycle, with the elapsed time ready to be shown.
        at(3 + 35 * stepSeconds(60), row.interrupt);
        at(6.1, row.goOn);
        for (double second = 6.8; second < 9; second += 0.1) {
            at(second, [&] { EXPECT_NEAR(remaining(), left(), 1.5) << row.name; });
        }
        runUntil(9);
    }
}

TEST_F(ScrollLoopTest, ClocksGoOnByASecondWhateverTheMachineDoes) {
    for (const int scrollSpeed : {60, 110}) {
        for (const int rowStep : {1, 2}) {
            settings.RowStep = rowStep;
            settings.ScrollSpeed = scrollSpeed;
            prepare(3000);
            startAt(0);
            int shown = 0;
            int elapsed = 0;
            for (double second = 1.5; second < 20; second += 0.03) {
                at(second, [&] {
                    if (shown > 0) {
                        EXPECT_LE(std::abs(remaining() - shown), 1) << scrollSpeed;
                        EXPECT_LE(screen.elapsed.last(2).toInt() - elapsed, 1) << scrollSpeed;
                    }
                    shown = remaining();
                    elapsed = screen.elapsed.last(2).toInt();
                });
            }
            at(5, [&] { t.clock.advanceSeconds(0.5); });
            runUntil(20);
            EXPECT_NEAR(shown, left(), 5);
        }
    }
}

TEST_F(ScrollLoopTest, BusyMachineDoesNotSlowTheTextDown) {
    // Every pump takes its time; or every fourth step paints for longer than a step's wait.
    for (const int paintMicroseconds : {0, 9000}) {
        SCOPED_TRACE(paintMicroseconds);
        presenter.onStep = [this, paintMicroseconds] {
            if (presenter.steps % 4 == 0) {
                t.clock.advanceMicroseconds(paintMicroseconds);
            }
        };
        prepare(3000);
        settings.ScrollSpeed = 60;
        t.pump.setPumpMicroseconds(300);
        startAt(0);
        runUntil(10);
        EXPECT_NEAR(presenter.steps, 10 / stepSeconds(60), 12);
    }
}

TEST_F(ScrollLoopTest, LockedStepsKeepTheirPeriodHoweverLongTheyTake) {
    prepare(3000);
    constexpr std::int64_t Period = FakeClock::TicksPerSecond / 360;
    presenter.lock = [](std::int64_t) { return Period; };
    t.pump.setPumpMicroseconds(70);
    settings.ScrollSpeed = 41;
    startAt(0);
    runUntil(10);
    EXPECT_NEAR(presenter.steps, 3600, 3);
}

TEST_F(ScrollLoopTest, LongStallIsNotMadeUpFor) {
    prepare(3000);
    settings.ScrollSpeed = 60;
    startAt(0);
    int before = 0;
    at(5, [&] {
        before = presenter.steps;
        t.clock.advanceSeconds(0.5);
    });
    int after = 0;
    at(5.6, [&] { after = presenter.steps; });
    runUntil(6);
    // A tenth of a second's steps and those of one refresh, not the half second's.
    EXPECT_LE(after - before, (0.1 + 0.016) / stepSeconds(60) + 2);
    EXPECT_GE(after - before, 0.1 / stepSeconds(60) - 1);
}

TEST_F(ScrollLoopTest, BlankScreenHoldsTheAutomaticStart) {
    prepare(100);
    settings.AutomaticLooping = 1;
    at(2, [&] { show.BlankState = 1; });
    at(8, [&] {
        EXPECT_EQ(presenter.steps, 0);
        show.BlankState = 0;
    });
    at(8.2, [&] { EXPECT_GT(presenter.steps, 0); });
    runUntil(9);
}

TEST_F(ScrollLoopTest, JumpInTheWaitToLoopWinsOverTheReturnToTheTop) {
    prepare(30);
    settings.AutomaticLooping = 1;
    settings.ScrollSpeed = 0;
    at(6, [&] {
        EXPECT_EQ(show.PauseState, 0) << "at the end, waiting";
        navigation->reposition(7);
    });
    at(8.3, [&] { EXPECT_GT(ring.top(), 7 * LineHeight); });
    runUntil(8.4);
    EXPECT_EQ(screen.shown, 1);
}

TEST_F(ScrollLoopTest, OddRangeFromADamagedFileIsSplitRangeEverywhere) {
    prepare(500);
    settings.ScrollSpeedControl = 2;
    settings.ScrollSpeed = speedAfterKey(SpeedKey::End, 60, 2);
    startAt(0);
    runUntil(3);
    EXPECT_EQ(presenter.steps, 0) << "End stops the text";
}

TEST_F(ScrollLoopTest, NoticeGoesAfterTwoSeconds) {
    prepare(2000);
    startAt(0);
    at(5, [&] { show.MessageShownAt = t.clock.Timer(); });
    at(6.8, [&] { EXPECT_EQ(screen.statesShown, 1); });
    at(8, [&] {
        EXPECT_EQ(screen.statesShown, 2);
        EXPECT_EQ(show.MessageShownAt, 0);
        t.clock.setTimer(86'399);
        show.MessageShownAt = t.clock.Timer();
    });
    at(10.5, [&] { EXPECT_EQ(screen.statesShown, 3) << "over midnight"; });
    runUntil(11);
}

TEST_F(ScrollLoopTest, EveryWaitingStateCanBeLeftAndAsksThePedal) {
    struct State {
        const char* name;
        std::function<void()> enter;
        bool polled = true;
    };
    const State states[] = {
        {"before the start", [] {}},
        {"paused", [&] { show.PauseState = 1; }},
        {"blanked", [&] { show.PauseState = 1, show.BlankState = 1; }, false},
        {"dead band", [&] { show.PauseState = 0, settings.ScrollSpeed = 128; }},
        {"limit",
         [&] { show.PauseState = 0, settings.ScrollSpeed = 0, navigation->reposition(100); }},
    };
    for (const State& state : states) {
        SCOPED_TRACE(state.name);
        prepare(100);
        at(1, state.enter);
        at(1.5, [&] { polls = 0; });
        runUntil(2);
        EXPECT_LT(lasted, 2.1);
        EXPECT_EQ(polls > 0, state.polled);
    }
    EXPECT_EQ(observer.limits, 1);
}
