#include "controllers/foot_pedal.h"

#include "core/arrangement.h"
#include "support/test_session.h"
#include "unit/controllers/recorded_actions.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Keys = std::vector<int>;

class FootPedalTest : public ::testing::Test {
protected:
    FootPedalTest() { test.session.settings.ControllerType = controller::Foot; }

    /// Polls once a millisecond, as a fast show does.
    void pollFor(FootPedal& pedal, int milliseconds) {
        for (int i = 0; i < milliseconds; ++i) {
            pedal.poll();
            test.clock.advanceMicroseconds(1000);
        }
    }

    TestSession test;
    RecordedActions actions{test.session};
};

TEST_F(FootPedalTest, AHeldButtonRepeatsItsKeyAndTwoAreNone) {
    for (const auto& [held, key] : {std::pair(1U, 39), {2U, 37}, {3U, 0}, {8U, 0}, {0U, 0}}) {
        test.joystick.held = 0;
        actions.keys.clear();
        FootPedal pedal(test.session, actions, FootPedal::Buttons::All);
        test.joystick.held = held;
        pollFor(pedal, 100);
        // More than 20 ms lie between two keys: 0, 21, 42, 63 and 84.
        EXPECT_EQ(actions.keys, key == 0 ? Keys() : Keys(5, key)) << held;
    }
}

TEST_F(FootPedalTest, RepeatsOverMidnightAndWhenTheClockIsSetBack) {
    test.clock.setTimer(86399.95);
    FootPedal pedal(test.session, actions, FootPedal::Buttons::All);
    test.joystick.held = 1;
    pollFor(pedal, 100);
    EXPECT_EQ(actions.keys, Keys(5, 39));
    test.clock.setTimer(3600);
    pollFor(pedal, 100);
    test.clock.setTimer(0.5);
    pollFor(pedal, 100);
    EXPECT_EQ(actions.keys, Keys(15, 39));
}

TEST_F(FootPedalTest, ThePauseButtonActsOnceWhenItIsLetGo) {
    FootPedal pedal(test.session, actions, FootPedal::Buttons::PauseOnly);
    test.joystick.held = 4;
    test.pump.in(0.3, [this] {
        EXPECT_TRUE(actions.keys.empty());
        test.joystick.held = 0;
    });
    pedal.poll();
    EXPECT_GE(test.clock.secondsSinceStart(), 0.3);
    pollFor(pedal, 100);
    EXPECT_EQ(actions.keys, Keys{32});

    // A timed show has no speed to change.
    test.joystick.held = 1;
    pollFor(pedal, 100);
    EXPECT_EQ(actions.keys, Keys{32});
}

TEST_F(FootPedalTest, LeavingTheShowEndsTheWaitForTheRelease) {
    FootPedal pedal(test.session, actions, FootPedal::Buttons::All);
    test.joystick.held = 4;
    test.pump.in(0.1, [this] { test.session.show.ExitRequested = 1; });
    pedal.poll();
    EXPECT_LT(test.clock.secondsSinceStart(), 0.2);
    EXPECT_TRUE(actions.keys.empty());
}

TEST_F(FootPedalTest, AButtonHeldWhenTheShowOpensCountsOnlyAfterItWasLetGo) {
    test.joystick.held = 4;
    FootPedal pedal(test.session, actions, FootPedal::Buttons::All);
    pollFor(pedal, 50);
    // Another button before all are up is no fresh start either.
    test.joystick.held = 1;
    pollFor(pedal, 50);
    EXPECT_TRUE(actions.keys.empty());
    test.joystick.held = 0;
    pedal.poll();
    test.joystick.held = 1;
    pedal.poll();
    EXPECT_EQ(actions.keys, Keys{39});
}

TEST_F(FootPedalTest, ComesAndGoesWithItsPlugAndIsLeftAloneOtherwise) {
    test.joystick.plugged = false;
    test.joystick.held = 2;
    FootPedal pedal(test.session, actions, FootPedal::Buttons::All);
    pollFor(pedal, 50);
    EXPECT_TRUE(actions.keys.empty());
    test.joystick.plugged = true;
    pedal.poll();
    EXPECT_EQ(actions.keys, Keys{37});

    for (const int other : {0, 11, 20, 21}) {
        TestSession unused;
        unused.session.settings.ControllerType = other;
        FootPedal none(unused.session, actions, FootPedal::Buttons::All);
        none.poll();
        EXPECT_EQ(unused.joystick.polls, 0) << other;
    }
}

} // namespace
} // namespace velmora
