#include "display/rehearsal_figures.h"

#include <gtest/gtest.h>

using namespace velmora;

TEST(RehearsalFigures, LongRunsKeepTheirSpreadInTheSameMemory) {
    EXPECT_EQ(Samples().spread().max, 0);
    // A tenth of the most, the most, and five times as many samples of 0 to 996.
    for (const std::size_t count : {Samples::Most / 10, Samples::Most, 5 * Samples::Most}) {
        Samples samples;
        samples.add(5'000);
        for (std::size_t i = 1; i < count; ++i) {
            samples.add(static_cast<double>(i * 7919 % 997));
        }
        EXPECT_NEAR(samples.spread().p50, 498, 3);
        EXPECT_NEAR(samples.spread().p99, 987, 3);
        EXPECT_EQ(samples.spread().max, 5'000);
    }
    // What comes late counts no more than what came early.
    Samples samples;
    for (std::size_t i = 0; i < 4 * Samples::Most; ++i) {
        samples.add(10 * i < 24 * Samples::Most ? 1 : 2);
    }
    EXPECT_EQ(samples.spread().p50, 1);
}
