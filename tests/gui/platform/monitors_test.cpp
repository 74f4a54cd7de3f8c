#include "platform/desktop/screens.h"
#include "support/fake_monitors.h"

#include <gtest/gtest.h>

#include <QScreen>

#include <algorithm>

namespace velmora {
namespace {

TEST(MonitorsContract, TellsAtLeastOneDisplayAndUsableFigures) {
    const Screens screens;
    const FakeMonitors fake;
    for (const Monitors* monitors :
         {static_cast<const Monitors*>(&screens), static_cast<const Monitors*>(&fake)}) {
        const auto displays = monitors->displays();
        ASSERT_FALSE(displays.empty());
        EXPECT_EQ(displays, inReadingOrder(displays));
        EXPECT_TRUE(std::any_of(displays.begin(), displays.end(), [monitors](const QRect& display) {
            return display.size() == monitors->primarySize();
        }));
        EXPECT_GT(monitors->colorDepth(), 0);
        EXPECT_GE(monitors->refreshRate(QRect()), 2);
    }
}

TEST(Screens, OrdersDisplaysAsTheyAreRead) {
    struct Row final {
        const char* what;
        std::vector<QRect> displays;
        std::vector<QRect> ordered;
    };
    const QRect main(0, 0, 1920, 1080);
    const QRect right(1920, 0, 1280, 720);
    const QRect left(-1280, 0, 1280, 720);
    const QRect lower(0, 1080, 1920, 1080);
    const QRect hangsLow(0, 180, 1280, 720);
    const QRect above(1920, -1080, 1920, 1080);
    const Row rows[] = {
        {"left one first", {right, main}, {main, right}},
        {"negative coordinates come first", {main, left}, {left, main}},
        {"upper one first", {lower, main}, {main, lower}},
        {"a little lower is the same row", {right, hangsLow}, {hangsLow, right}},
        {"higher by a row wins over further left", {main, above}, {above, main}},
        {"a mirrored pair is one display", {main, main}, {main}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(inReadingOrder(row.displays), row.ordered) << row.what;
    }
}

TEST(Screens, AScreenIsFoundByItsWholeRectangleOnly) {
    const QRect display = Screens().displays().front();
    QScreen* screen = screenAt(display);
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(screen->geometry().topLeft(), display.topLeft());
    for (const QRect& other : {display.adjusted(0, 0, -1, 0), display.translated(1, 0), QRect()}) {
        EXPECT_EQ(screenAt(other), nullptr);
    }
}

} // namespace
} // namespace velmora
