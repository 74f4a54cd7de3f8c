#include "controllers/shuttle_wheel.h"

#include "support/test_session.h"
#include "unit/controllers/recorded_actions.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(JogWheel, TheQuickerItTurnsTheGreaterTheStep) {
    struct Row final {
        int sinceLastMs;
        double step;
    };
    const Row rows[] = {{0, 10}, {10, 10}, {11, 9}, {20, 9}, {21, 8}, {40, 7}, {50, 6},
                        {60, 5}, {70, 4},  {80, 3}, {81, 2}, {90, 2}, {91, 1}, {5000, 1}};
    for (const Row& row : rows) {
        TestSession test;
        RecordedActions actions(test.session);
        JogWheel wheel(test.session, actions);
        test.clock.advanceSeconds(1);
        double& speed = test.session.settings.ScrollSpeed;
        speed = 100;
        EXPECT_TRUE(wheel.keyDown(key::F13, key::NoShift));
        EXPECT_EQ(speed, 102);
        test.clock.advanceMicroseconds(1000LL * row.sinceLastMs);
        EXPECT_TRUE(wheel.keyDown(key::F14, key::NoShift));
        EXPECT_EQ(speed, 102 - row.step) << row.sinceLastMs;
    }
}

TEST(JogWheel, StaysInTheRangeAndTakesNoOtherKey) {
    TestSession test;
    RecordedActions actions(test.session);
    JogWheel wheel(test.session, actions);
    double& speed = test.session.settings.ScrollSpeed;
    speed = 254.5;
    wheel.keyDown(key::F13, key::NoShift);
    EXPECT_EQ(speed, 255);
    speed = 1;
    wheel.keyDown(key::F14, key::NoShift);
    EXPECT_EQ(speed, 0);
    EXPECT_FALSE(wheel.keyDown(key::F13, key::Shift));
    EXPECT_FALSE(wheel.keyDown(key::F15, key::NoShift));
}

TEST(ShuttleRing, MovesByItsLinesWithinTheScript) {
    struct Row final {
        int keyCode, shift, line;
        std::optional<int> target;
    };
    const Row rows[] = {
        {126, 0, 10, 11}, {127, 0, 10, 12}, {128, 0, 10, 14}, {129, 0, 10, 18}, {130, 0, 10, 9},
        {131, 0, 10, 8},  {132, 0, 10, 6},  {133, 0, 10, 2},  {126, 1, 10, 11}, {126, 0, 20, {}},
        {126, 0, 19, 20}, {130, 0, 0, {}},  {130, 0, 1, 0},   {133, 0, 1, 1},   {129, 0, 19, 19},
    };
    for (const Row& row : rows) {
        const auto lines = shuttleRingLines(row.keyCode, row.shift);
        ASSERT_TRUE(lines.has_value()) << row.keyCode;
        EXPECT_EQ(shuttleRingTarget(*lines, row.line, 20), row.target)
            << row.keyCode << " at " << row.line;
    }
    EXPECT_FALSE(shuttleRingLines(133, 1).has_value());
    EXPECT_FALSE(shuttleRingLines(134, 0).has_value());
}

} // namespace
} // namespace velmora
