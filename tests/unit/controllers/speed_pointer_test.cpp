#include "controllers/speed_pointer.h"

#include "controllers/speed_mapping.h"
#include "core/arrangement.h"
#include "support/test_session.h"
#include "unit/controllers/recorded_actions.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

const QRect Picture(100, 50, 801, 601);
const QPointF Middle(400, 300);

class SpeedPointerTest : public ::testing::Test {
protected:
    void use(int controllerType) {
        test.session.settings.ControllerType = controllerType;
        test.session.settings.SpeedControllerInUse = speedControllerInUse(controllerType) ? 1 : 0;
    }
    void move(QPointF position, bool left = false, bool other = false) {
        pointer.moved({position, left, other, Picture});
    }
    /// A move of the device by some pixels, with the echo of the pointer being put back.
    void steer(QPointF by) {
        move(Middle + by);
        move(Middle);
    }

    TestSession test;
    RecordedActions actions{test.session};
    SpeedPointer pointer{test.session, actions};
    double& speed = test.session.settings.ScrollSpeed;
    ShowState& show = test.session.show;
};

TEST_F(SpeedPointerTest, AControllersMovesAreHalvedAndRoundedDown) {
    use(controller::Trigger);
    struct Row final {
        double before;
        QPointF by;
        double after;
    };
    const Row rows[] = {
        {60, {-10, 0}, 65},  {60, {10, 0}, 55},   {60, {0, -10}, 55},     {60, {0, 10}, 65},
        {60, {-3, 0}, 61},   {60, {3, 0}, 58},    {60, {1, -1}, 60},      {60.7, {-1, 0}, 60.7},
        {60, {-10, 10}, 70}, {60, {20, -20}, 40}, {250, {-80, 0}, 255},   {3, {80, 0}, 0},
        {3, {0, -80}, 0},    {250, {0, 80}, 255}, {250, {-80, -20}, 245},
    };
    for (const Row& row : rows) {
        speed = row.before;
        pointer.released();
        steer({});
        steer(row.by);
        EXPECT_EQ(speed, row.after) << row.before << " by " << row.by.x() << ", " << row.by.y();
        EXPECT_EQ(test.pointer.place, QPoint(500, 350));
    }
}

TEST_F(SpeedPointerTest, NoRealMoveIsLostOrCountedTwice) {
    use(controller::Trigger);
    steer({});
    // Two moves before the first echo.
    move(Middle + QPointF(-40, 0));
    move(Middle + QPointF(-44, 0));
    EXPECT_EQ(speed, 82);
    move(Middle);
    move(Middle + QPointF(-10, 0));
    EXPECT_EQ(speed, 87);
    // The echo has become one with a move that followed it.
    move(Middle + QPointF(-4, 0));
    EXPECT_EQ(speed, 89);
}

TEST_F(SpeedPointerTest, SteersAlsoWhereThePointerCannotBeMoved) {
    use(controller::Trigger);
    // Whether the platform says so or keeps it to itself.
    for (const bool saysThatItMoved : {false, true}) {
        test.pointer.canMove = saysThatItMoved;
        pointer.released();
        speed = 60;
        for (const QPointF place : {QPointF(200, 200), {190, 200}, {180, 200}, {180, 204}}) {
            move(place);
        }
        EXPECT_EQ(speed, 72) << saysThatItMoved;
    }
}

TEST_F(SpeedPointerTest, ABlankScreenSteersNothingAndLeavesNoJump) {
    use(controller::Trigger);
    steer({});
    show.BlankState = 1;
    move(Middle + QPointF(-200, 0));
    show.BlankState = 0;
    move(Middle + QPointF(-210, 0));
    EXPECT_EQ(speed, 60);
    move(Middle);
    steer({-10, 0});
    EXPECT_EQ(speed, 65);
}

TEST_F(SpeedPointerTest, APlainMouseSteersByDraggingWithoutBeingMoved) {
    use(controller::None);
    speed = 60.25;
    move({300, 300});
    move({200, 300});
    EXPECT_EQ(speed, 60.25);
    move({300, 300}, true);
    move({299, 301}, true);
    EXPECT_EQ(speed, 60.25);
    move({297, 301}, true);
    EXPECT_EQ(speed, 63.25);
    move({297, 290}, true);
    EXPECT_EQ(speed, 53.25);
    pointer.released();
    move({10, 10}, true);
    EXPECT_EQ(speed, 53.25);
    EXPECT_TRUE(test.pointer.place.isNull());
}

TEST_F(SpeedPointerTest, AnotherButtonsDragTurnsTheScriptInFullRange) {
    use(controller::None);
    for (const int range : {SplitRange, FullRange}) {
        test.session.settings.ScrollSpeedControl = range;
        const int turned = range == FullRange ? 1 : 0;
        show = ShowState();
        pointer.released();
        move({300, 300}, false, true);
        move({300, 305}, false, true);
        EXPECT_EQ(show.ReverseToBackward, 0);
        EXPECT_EQ(show.PauseState, 3);
        move({300, 306}, false, true);
        EXPECT_EQ(show.ReverseToBackward, turned);
        EXPECT_EQ(show.PauseState, turned == 1 ? 0 : 3);
        move({300, 300}, false, true);
        EXPECT_EQ(show.ReverseToForward, turned);
        EXPECT_EQ(speed, 60);
    }
}

} // namespace
} // namespace velmora
