#include "controllers/speed_mapping.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace velmora;

TEST(SpeedMapping, SplitRangeIsSymmetricAndFastestAtBothEnds) {
    const SpeedDelayTable table = buildSpeedDelayTable(1.0, SplitRange);
    EXPECT_DOUBLE_EQ(table[0], 1.0);
    EXPECT_NEAR(table[119], 18.9, 0.05);
    for (std::size_t n = 0; n < 120; ++n) {
        EXPECT_DOUBLE_EQ(table[n], table[255 - n]) << n;
        EXPECT_LE(table[n], table[n + 1]) << n;
    }
    EXPECT_DOUBLE_EQ(speedDelayMs(table, 137), table[118]);
}

TEST(SpeedMapping, SpeedThatRoundsIntoTheDeadBandDoesNotRace) {
    const SpeedDelayTable table = buildSpeedDelayTable(0.1, SplitRange);
    for (const double speed : {119.5, 120.0, 128.0, 135.4}) {
        EXPECT_DOUBLE_EQ(speedDelayMs(table, speed), table[119]) << speed;
    }
}

TEST(SpeedMapping, FullRangeSlowsDownOverTheWholeScale) {
    const SpeedDelayTable table = buildSpeedDelayTable(2.0, FullRange);
    EXPECT_DOUBLE_EQ(table[0], 2.0);
    EXPECT_NEAR(table[255] / table[0], 23.3, 0.05);
    EXPECT_NEAR(table[243], 2.0 * std::pow(1.025, 121.5), 1e-9);
}

TEST(SpeedMapping, FractionsRoundHalfToEvenOnlyInTheLookUp) {
    const SpeedDelayTable table = buildSpeedDelayTable(1.0, FullRange);
    EXPECT_DOUBLE_EQ(speedDelayMs(table, 60.5), table[60]);
    EXPECT_DOUBLE_EQ(speedDelayMs(table, 61.5), table[62]);
    EXPECT_DOUBLE_EQ(speedDelayMs(table, -4), table[0]);
    EXPECT_DOUBLE_EQ(speedDelayMs(table, 300), table[255]);
}

TEST(SpeedMapping, ZonesWithoutMotionHaveTheirBounds) {
    EXPECT_FALSE(inDeadBand(119.9));
    EXPECT_TRUE(inDeadBand(120));
    EXPECT_TRUE(inDeadBand(136));
    EXPECT_FALSE(inDeadBand(136.1));
    EXPECT_FALSE(inStopZone(243.9));
    EXPECT_TRUE(inStopZone(244));
}

TEST(SpeedMapping, BackwardSpeedIsFoldedForFullRangeOnly) {
    EXPECT_DOUBLE_EQ(speedAtShowStart(195, FullRange), 60);
    EXPECT_DOUBLE_EQ(speedAtShowStart(127, FullRange), 127);
    EXPECT_DOUBLE_EQ(speedAtShowStart(195, SplitRange), 195);
    EXPECT_DOUBLE_EQ(speedAtShowStart(-3, SplitRange), 0);
    EXPECT_DOUBLE_EQ(speedAtShowStart(900, SplitRange), 255);
}

TEST(SpeedMapping, KeysChangeTheSpeedAndKeepTheirSide) {
    struct Row {
        SpeedKey key;
        double before;
        int range;
        double after;
    };
    const Row rows[] = {
        {SpeedKey::Left, 60, SplitRange, 62},    {SpeedKey::Left, 254.5, SplitRange, 255},
        {SpeedKey::Right, 60, SplitRange, 58},   {SpeedKey::Right, 1, FullRange, 0},
        {SpeedKey::Up, 60, SplitRange, 40},      {SpeedKey::Up, 7, SplitRange, 0},
        {SpeedKey::Down, 60, SplitRange, 80},    {SpeedKey::Down, 250, FullRange, 255},
        {SpeedKey::Home, 60, SplitRange, 0},     {SpeedKey::Home, 195, SplitRange, 255},
        {SpeedKey::Home, 195, FullRange, 0},     {SpeedKey::End, 60, SplitRange, 127},
        {SpeedKey::End, 195, SplitRange, 128},   {SpeedKey::End, 60, FullRange, 255},
        {SpeedKey::Home, 127.5, SplitRange, 255}};
    for (const Row& row : rows) {
        EXPECT_DOUBLE_EQ(speedAfterKey(row.key, row.before, row.range), row.after)
            << static_cast<int>(row.key) << " at " << row.before;
    }
}

TEST(SpeedMapping, LimitIsLeftByASpeedThatPointsAway) {
    EXPECT_TRUE(speedLeavesLimit(137, 1));
    EXPECT_FALSE(speedLeavesLimit(136, 1));
    EXPECT_TRUE(speedLeavesLimit(119, -1));
    EXPECT_FALSE(speedLeavesLimit(120, -1));
}
