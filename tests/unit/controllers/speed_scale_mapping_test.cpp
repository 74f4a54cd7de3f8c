#include "controllers/speed_scale_mapping.h"

#include "controllers/speed_mapping.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(SpeedScaleMapping, PressesDragsAndTheThumbGiveTheirSpeeds) {
    struct Row final {
        const char* what;
        double result;
        double expected;
    };
    const Row rows[] = {
        {"drag past the left end", PlainSpeedScale.draggedSpeed(-500), 255},
        {"drag past the right end", PlainSpeedScale.draggedSpeed(346), 0},
        {"mirrored press left of the scale", MirroredSpeedScale.pressedSpeed(5), 0},
        {"mirrored drag, left", MirroredSpeedScale.draggedSpeed(23.9), 0},
        {"mirrored drag, right", MirroredSpeedScale.draggedSpeed(900), 255},
        {"thumb at speed 0", PlainSpeedScale.thumbLeft(0), 315},
        {"mirrored thumb", MirroredSpeedScale.thumbLeft(100), 109.67},
        {"dragged past the left end", PlainSpeedScale.draggedThumbLeft(-50, 9), 94},
        {"dragged past the right end", PlainSpeedScale.draggedThumbLeft(400, 9), 315},
        {"mirrored, past the right end", MirroredSpeedScale.draggedThumbLeft(400, 9), 244},
        {"mirrored, past the left end", MirroredSpeedScale.draggedThumbLeft(0, 9), 23},
        {"speed of the thumb, left", PlainSpeedScale.thumbSpeed(94), 255},
        {"speed of the thumb, right", PlainSpeedScale.thumbSpeed(315), 0},
        {"mirrored, right", MirroredSpeedScale.thumbSpeed(244), 254},
    };
    for (const Row& row : rows) {
        EXPECT_NEAR(row.result, row.expected, 1e-9) << row.what;
    }
}

TEST(Wheel, TurnsTheSpeedByFractionsWithinTheRange) {
    EXPECT_DOUBLE_EQ(wheelSpeed(60, 120, false), 58);
    EXPECT_DOUBLE_EQ(wheelSpeed(60, -15, false), 60.25);
    EXPECT_DOUBLE_EQ(wheelSpeed(60, -120, true), 84);
    EXPECT_DOUBLE_EQ(wheelSpeed(1, 120, false), 0);
    EXPECT_DOUBLE_EQ(wheelSpeed(250, -120, true), 255);
}

} // namespace
} // namespace velmora
