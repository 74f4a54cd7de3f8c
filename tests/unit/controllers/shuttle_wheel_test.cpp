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
        wheel.keyDown(key::F13);
        EXPECT_EQ(speed, 102);
        test.clock.advanceMicroseconds(1000LL * row.sinceLastMs);
        wheel.keyDown(key::F14);
        EXPECT_EQ(speed, 102 - row.step) << row.sinceLastMs;
    }
}

TEST(ShuttleRing, MovesByItsLinesWithinTheScript) {
    struct Row final {
        int keyCode, line;
        std::optional<int> target;
    };
    const Row rows[] = {
        {126, 10, 11}, {127, 10, 12}, {128, 10, 14}, {129, 10, 18}, {130, 10, 9},
        {131, 10, 8},  {132, 10, 6},  {133, 10, 2},  {126, 20, {}}, {126, 19, 20},
        {130, 0, {}},  {130, 1, 0},   {133, 1, 1},   {129, 19, 19},
    };
    for (const Row& row : rows) {
        const auto lines = shuttleRingLines(row.keyCode);
        ASSERT_TRUE(lines.has_value()) << row.keyCode;
        EXPECT_EQ(shuttleRingTarget(*lines, row.line, 20), row.target)
            << row.keyCode << " at " << row.line;
    }
    EXPECT_FALSE(shuttleRingLines(134).has_value());
}

} // namespace
} // namespace velmora
