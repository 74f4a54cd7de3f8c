#include "display/scroll_loop.h"

#include "display/show_navigation.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace velmora;

namespace {

constexpr int TextRows = 101;
constexpr int LineHeight = 10;

/// A display window that keeps what the loop tells it.
class FakeScreen final : public ShowScreen {
public:
    void setElapsedText(const QString& text) override { elapsed = text; }
    void setRemainingText(const QString& text) override { remaining = text; }
    void setScrollValue(int line) override { scrollValues.push_back(line); }
    void showDirection(int direction) override { shownDirection = direction; }
    void hideNotice() override { ++noticesHidden; }
    void showPicture() override { ++shown; }
    void focusPicture() override {}

    QString elapsed;
    QString remaining;
    std::vector<int> scrollValues;
    int shownDirection = 1;
    int noticesHidden = 0;
    int shown = 0;
};

class FakePresenter final : public Presenter {
public:
    bool stepDone(std::int64_t) override {
        ++steps;
        if (onStep) {
            onStep();
        }
        return true;
    }
    [[nodiscard]] std::int64_t lockedPeriod(std::int64_t period) const override {
        return lock ? lock(period) : period;
    }
    void presentNow() override {}
    void settle() override {}

    int steps = 0;
    std::function<void()> onStep;
    std::function<std::int64_t(std::int64_t)> lock;
};

class CountingObserver final : public ShowObserver {
public:
    void showPrepared(const ShowTables&, const DisplayGeometry&, QWidget&) override {}
    void loopStarted() override {}
    void stepDone(const StepRecord&) override {}
    void limitReached() override { ++limits; }
    void loopEnded() override {}

    int limits = 0;
};

/// A loop over a script of equal lines, on the fake clock.
class ScrollLoopTest : public ::testing::Test {
protected:
    void prepare(int lines) {
        screen = FakeScreen();
        QStringList text;
        for (int line = 0; line < lines; ++line) {
            text.append(QString::number(line));
        }
        RichTextBox& rtb1 = t.session.script.rtb1;
        rtb1.setText(text.join(QStringLiteral("\r\n")));
        int index = 0;
        for (const QString& line : text) {
            tables.lineTable.push_back({index, static_cast<int>(line.size())});
            index += static_cast<int>(line.size()) + 2;
        }
        tables.scanTable = ScanTable(std::vector<int>(static_cast<std::size_t>(lines), LineHeight));
        tables.ScriptPixelHeight = tables.scanTable.rowCount();
        tables.LastScrollRow = tables.ScriptPixelHeight - 1;
        FrameSource source;
        source.rtb2 = &rtb1;
        source.tables = &tables;
        source.WindowWidth = 8;
        source.textRows = TextRows;
        composer.begin(source);
        composer.addOutput(ring, Orientation::Plain);
        t.clock.setTicksPerRead(0);
        t.pump.setPumpMicroseconds(0);
        t.pump.setEveryPump([this] { watch(); });
        navigation = std::make_unique<ShowNavigation>(t.session, tables, composer, TextRows);
    }

    void run() {
        ScrollLoop loop({t.session, screen, tables, composer, *navigation, presenter, &observer},
                        TextRows);
        loop.run();
    }

    /// The picture must follow ScrollRow at every moment at which a handler could look.
    void watch() {
        if (screen.shown > 0) {
            ASSERT_EQ(ring.top(), navigation->topRow());
        }
    }

    void startAt(double seconds) {
        t.pump.at(seconds, [this] { t.session.show.PauseState = 0; });
    }
    void exitAt(double seconds) {
        t.pump.at(seconds, [this] { t.session.show.ExitRequested = 1; });
    }
    [[nodiscard]] double stepSeconds(int speed) const { return std::pow(1.025, speed) / 1000; }

    TestSession t;
    FakeScreen screen;
    FakePresenter presenter;
    CountingObserver observer;
    ShowTables tables;
    ScrollSurface ring;
    GlyphMaskCache masks;
    FrameComposer composer{masks};
    std::unique_ptr<ShowNavigation> navigation;
};

} // namespace

TEST_F(ScrollLoopTest, MovesARowAStepAtThePaceOfTheTable) {
    for (const int speed : {0, 60, 110}) {
        SCOPED_TRACE(speed);
        t.session.show = ShowState();
        t.session.settings.ScrollSpeed = speed;
        tables = ShowTables();
        prepare(3000);
        presenter.steps = 0;
        const double now = t.clock.secondsSinceStart();
        startAt(now + 1);
        exitAt(now + 11);
        run();
        const double expected = 10 / stepSeconds(speed);
        EXPECT_NEAR(presenter.steps, expected, expected * 0.001 + 3);
        EXPECT_EQ(t.session.show.ScrollRow, TextRows - 1 + presenter.steps);
    }
}

TEST_F(ScrollLoopTest, ElapsedClockStandsUntilTheFirstStartAndRunsOnInAPause) {
    prepare(2000);
    QString beforeStart;
    QString inPause;
    t.pump.at(7, [&] { beforeStart = screen.elapsed; });
    startAt(8);
    t.pump.at(20, [&] { t.session.show.PauseState = 1; });
    t.pump.at(33.5, [&] { inPause = screen.elapsed; });
    exitAt(34);
    run();
    EXPECT_EQ(beforeStart, QStringLiteral("00:00"));
    EXPECT_EQ(inPause, QStringLiteral("00:25"));
}

TEST_F(ScrollLoopTest, ElapsedClockRestartsAtMidnight) {
    prepare(2000);
    t.clock.setTimer(86395);
    startAt(0);
    QString after;
    t.pump.at(12.5, [&] { t.session.show.PauseState = 1; });
    t.pump.at(13.5, [&] { after = screen.elapsed; });
    exitAt(14);
    run();
    EXPECT_EQ(after, QStringLiteral("00:08"));
}

TEST_F(ScrollLoopTest, DeadBandMovesNothingAndKeepsTheClock) {
    prepare(2000);
    t.session.settings.ScrollSpeed = 128;
    startAt(0);
    QString shown;
    t.pump.at(5.5, [&] { shown = screen.elapsed; });
    exitAt(6);
    run();
    EXPECT_EQ(presenter.steps, 0);
    EXPECT_EQ(shown, QStringLiteral("00:05"));
}

TEST_F(ScrollLoopTest, SpeedBeyondTheMiddleTurnsTheTextWithoutMovingIt) {
    prepare(2000);
    startAt(0);
    std::int64_t topAtTurn = 0;
    t.pump.at(10, [&] {
        topAtTurn = navigation->topRow();
        t.session.settings.ScrollSpeed = 128;
    });
    t.pump.at(11, [&] { EXPECT_EQ(navigation->topRow(), topAtTurn); });
    t.pump.at(12, [&] { t.session.settings.ScrollSpeed = 195; });
    exitAt(13);
    run();
    EXPECT_EQ(t.session.show.ScrollDirection, -1);
    EXPECT_EQ(screen.shownDirection, -1);
    EXPECT_LT(ring.top(), topAtTurn - 100);
}

TEST_F(ScrollLoopTest, EndOfTheScriptStopsWithTheLastRowAtTheBottomAndTurnsInPlace) {
    for (const int rowStep : {1, 2}) {
        SCOPED_TRACE(rowStep);
        t.session.show = ShowState();
        t.session.settings.RowStep = rowStep;
        t.session.settings.ScrollSpeed = 0;
        tables = ShowTables();
        prepare(20);
        const double now = t.clock.secondsSinceStart();
        const std::int64_t lastTop = tables.LastScrollRow - (TextRows - 1);
        std::int64_t topAtLimit = 0;
        startAt(now);
        t.pump.at(now + 5, [&] {
            EXPECT_EQ(t.session.show.PauseState, 1);
            topAtLimit = ring.top();
            t.session.settings.ScrollSpeed = 250;
        });
        t.pump.at(now + 5.003, [&] { EXPECT_GE(ring.top(), topAtLimit - 4 * rowStep); });
        t.pump.at(now + 9, [&] {
            EXPECT_EQ(t.session.show.PauseState, 1);
            EXPECT_LE(ring.top(), rowStep);
            t.session.settings.ScrollSpeed = 0;
        });
        t.pump.at(now + 9.5, [&] { EXPECT_GT(ring.top(), 50); });
        exitAt(now + 10);
        run();
        EXPECT_GT(topAtLimit, lastTop - rowStep);
        EXPECT_LE(topAtLimit, lastTop);
    }
    EXPECT_GE(observer.limits, 4);
}

TEST_F(ScrollLoopTest, JumpEndsTheWaitAtALimitWithoutATurn) {
    prepare(60);
    t.session.settings.ScrollSpeed = 0;
    startAt(0);
    t.pump.at(3, [&] {
        EXPECT_EQ(t.session.show.PauseState, 1);
        navigation->reposition(5);
    });
    t.pump.at(3.2, [&] {
        EXPECT_EQ(t.session.show.ScrollDirection, 1);
        EXPECT_GT(ring.top(), 5 * LineHeight);
    });
    exitAt(3.3);
    run();
}

TEST_F(ScrollLoopTest, LoopingShowStartsByItselfAndBeginsAgainAtTheTop) {
    prepare(30);
    t.session.settings.AutomaticLooping = 1;
    t.session.settings.ScrollSpeed = 0;
    t.session.show.StartFromCursor = 1;
    t.session.show.StartPosition = 10;
    t.pump.at(1, [&] { EXPECT_EQ(ring.top(), 10 * LineHeight); });
    t.pump.at(3.9, [&] { EXPECT_EQ(presenter.steps, 0); });
    t.pump.at(4.05, [&] { EXPECT_GT(presenter.steps, 0); });
    // About 0.1 s to the end, 4 s there, 4 s at the top.
    t.pump.at(9, [&] { EXPECT_EQ(ring.top(), 0); });
    t.pump.at(12.25, [&] { EXPECT_GT(ring.top(), 0); });
    exitAt(13);
    run();
    EXPECT_EQ(screen.shown, 2);
    // Leaving inside the wait works at once.
    EXPECT_LT(t.clock.secondsSinceStart(), 13.1);
}

TEST_F(ScrollLoopTest, WaitOfALoopingShowSurvivesMidnight) {
    prepare(30);
    t.session.settings.AutomaticLooping = 1;
    t.clock.setTimer(86398);
    t.pump.at(3.9, [&] { EXPECT_EQ(presenter.steps, 0); });
    exitAt(4.2);
    run();
    EXPECT_GT(presenter.steps, 0);
}

TEST_F(ScrollLoopTest, ScriptShorterThanTheWindowStandsStill) {
    prepare(5);
    startAt(1);
    t.pump.at(2, [&] { t.session.settings.ScrollSpeed = 250; });
    exitAt(5);
    run();
    EXPECT_EQ(presenter.steps, 0);
    EXPECT_EQ(screen.shown, 1);
    EXPECT_EQ(t.session.show.ReachedEnd, 1);
    EXPECT_EQ(navigation->returnLine(), 0);
}

TEST_F(ScrollLoopTest, FullRangeTurnsByRequestAndStopsInItsZone) {
    prepare(2000);
    t.session.settings.ScrollSpeedControl = FullRange;
    t.session.settings.ScrollSpeed = 100;
    startAt(0);
    std::int64_t turnedAt = 0;
    t.pump.at(10, [&] {
        turnedAt = ring.top();
        t.session.show.ReverseToBackward = 1;
    });
    std::int64_t stoppedAt = 0;
    t.pump.at(12, [&] {
        EXPECT_LT(ring.top(), turnedAt);
        t.session.settings.ScrollSpeed = 244;
    });
    t.pump.at(12.5, [&] { stoppedAt = ring.top(); });
    t.pump.at(14, [&] {
        EXPECT_EQ(ring.top(), stoppedAt);
        t.session.show.ReverseToForward = 1;
        t.session.settings.ScrollSpeed = 100;
    });
    exitAt(16);
    run();
    EXPECT_GT(ring.top(), stoppedAt);
    EXPECT_EQ(screen.remaining, QStringLiteral("00:00"));
}

TEST_F(ScrollLoopTest, HousekeepingFollowsTheStepsInForwardSplitRange) {
    prepare(3000);
    t.session.settings.ScrollSpeed = 60;
    startAt(0);
    exitAt(10);
    run();
    // Set once at the start, then once in 91 steps.
    EXPECT_NEAR(static_cast<double>(screen.scrollValues.size()), presenter.steps / 91.0 + 1, 1.5);
    const auto rowsLeft = static_cast<double>(tables.LastScrollRow - t.session.show.ScrollRow);
    const double secondsLeft = rowsLeft * stepSeconds(60);
    const QStringList shown = screen.remaining.split(u':');
    ASSERT_EQ(shown.size(), 2);
    ASSERT_GT(secondsLeft, 90);
    // The text is a cycle old at most.
    EXPECT_NEAR(shown[0].toInt() * 60 + shown[1].toInt(), secondsLeft, 182 * stepSeconds(60) + 1);
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
        t.session.show = ShowState();
        tables = ShowTables();
        prepare(3000);
        presenter.steps = 0;
        t.session.settings.ScrollSpeed = 60;
        const double now = t.clock.secondsSinceStart();
        t.pump.setPumpMicroseconds(300);
        startAt(now);
        exitAt(now + 10);
        run();
        EXPECT_NEAR(presenter.steps, 10 / stepSeconds(60), 12);
    }
}

TEST_F(ScrollLoopTest, LockedStepsKeepTheirPeriodHoweverLongTheyTake) {
    prepare(3000);
    constexpr std::int64_t Period = FakeClock::TicksPerSecond / 360;
    presenter.lock = [](std::int64_t) { return Period; };
    t.pump.setPumpMicroseconds(70);
    t.session.settings.ScrollSpeed = 41;
    startAt(0);
    exitAt(10);
    run();
    EXPECT_NEAR(presenter.steps, 3600, 3);
}

TEST_F(ScrollLoopTest, LongStallIsNotMadeUpFor) {
    prepare(3000);
    t.session.settings.ScrollSpeed = 60;
    startAt(0);
    int before = 0;
    t.pump.at(5, [&] {
        before = presenter.steps;
        t.clock.advanceSeconds(0.5);
    });
    int after = 0;
    t.pump.at(5.6, [&] { after = presenter.steps; });
    exitAt(6);
    run();
    // A tenth of a second's steps and those of one refresh, not the half second's.
    EXPECT_LE(after - before, (0.1 + 0.016) / stepSeconds(60) + 2);
    EXPECT_GE(after - before, 0.1 / stepSeconds(60) - 1);
}

TEST_F(ScrollLoopTest, BlankScreenHoldsTheAutomaticStart) {
    prepare(100);
    t.session.settings.AutomaticLooping = 1;
    t.pump.at(2, [&] { t.session.show.BlankState = 1; });
    t.pump.at(8, [&] {
        EXPECT_EQ(presenter.steps, 0);
        t.session.show.BlankState = 0;
    });
    t.pump.at(8.2, [&] { EXPECT_GT(presenter.steps, 0); });
    exitAt(9);
    run();
}

TEST_F(ScrollLoopTest, JumpInTheWaitToLoopWinsOverTheReturnToTheTop) {
    prepare(30);
    t.session.settings.AutomaticLooping = 1;
    t.session.settings.ScrollSpeed = 0;
    t.pump.at(6, [&] {
        EXPECT_EQ(t.session.show.PauseState, 0) << "at the end, waiting";
        navigation->reposition(7);
    });
    t.pump.at(8.3, [&] { EXPECT_GT(ring.top(), 7 * LineHeight); });
    exitAt(8.4);
    run();
    EXPECT_EQ(screen.shown, 1);
}

TEST_F(ScrollLoopTest, OddRangeFromADamagedFileIsSplitRangeEverywhere) {
    prepare(500);
    t.session.settings.ScrollSpeedControl = 2;
    t.session.settings.ScrollSpeed = speedAfterKey(SpeedKey::End, 60, 2);
    startAt(0);
    exitAt(3);
    run();
    EXPECT_EQ(presenter.steps, 0) << "End stops the text";
}

TEST_F(ScrollLoopTest, FullScreenSparesEveryControl) {
    prepare(2000);
    t.session.settings.FullScreenMode = 1;
    t.session.settings.ScrollSpeed = 0;
    startAt(0);
    exitAt(2.0);
    run();
    EXPECT_EQ(screen.scrollValues.size(), 1u);
    EXPECT_EQ(screen.remaining, QStringLiteral("00:00"));
}

TEST_F(ScrollLoopTest, NoticeGoesAfterTwoSeconds) {
    prepare(2000);
    startAt(0);
    t.pump.at(5, [&] { t.session.show.MessageShownAt = t.clock.Timer(); });
    t.pump.at(6.8, [&] { EXPECT_EQ(screen.noticesHidden, 0); });
    t.pump.at(8, [&] { EXPECT_EQ(screen.noticesHidden, 1); });
    exitAt(9);
    run();
}

TEST_F(ScrollLoopTest, EveryWaitingStateCanBeLeft) {
    struct State {
        const char* name;
        std::function<void()> enter;
    };
    const State states[] = {
        {"before the start", [] {}},
        {"paused", [&] { t.session.show.PauseState = 1; }},
        {"blanked", [&] { t.session.show.PauseState = 1, t.session.show.BlankState = 1; }},
        {"dead band", [&] { t.session.show.PauseState = 0, t.session.settings.ScrollSpeed = 128; }},
    };
    for (const State& state : states) {
        SCOPED_TRACE(state.name);
        t.session.show = ShowState();
        tables = ShowTables();
        prepare(100);
        const double now = t.clock.secondsSinceStart();
        t.pump.at(now + 1, state.enter);
        exitAt(now + 2);
        run();
        EXPECT_LT(t.clock.secondsSinceStart(), now + 2.1);
    }
}
