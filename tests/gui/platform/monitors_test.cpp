#include "platform/desktop/cls_monitors.h"
#include "platform/desktop/screens.h"
#include "support/fake_monitors.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

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

TEST(ClsMonitors, HoldsEachDisplayWithItsWorkArea) {
    FakeMonitors desktop;
    desktop.rectangles = {QRect(-1280, 0, 1280, 1024), QRect(0, 0, 1920, 1080)};
    desktop.panelHeight = 40;
    clsMonitors monitors(desktop);
    ASSERT_EQ(monitors.Monitors().size(), 2U);
    const clsMonitor& left = monitors.Monitors()[0];
    EXPECT_EQ(QRect(left.Left, left.Top, left.Width, left.Height), desktop.rectangles[0]);
    EXPECT_EQ(left.WorkTop, 40);
    EXPECT_EQ(monitors.DesktopWidth(), 3200);
    const int handle = monitors.Monitors()[1].Handle;
    EXPECT_NE(handle, left.Handle);
    desktop.rectangles.erase(desktop.rectangles.begin());
    monitors.Refresh();
    EXPECT_EQ(monitors.Monitors().front().Handle, handle);
    desktop.rectangles.clear();
    monitors.Refresh();
    ASSERT_EQ(monitors.Monitors().size(), 1U);
    EXPECT_EQ(monitors.Monitors().front().WorkRight, 640);
}

TEST(ClsMonitors, FindsTheDisplayOfAPlaceAndItsMiddle) {
    FakeMonitors desktop;
    desktop.rectangles = {QRect(0, 0, 1920, 1080), QRect(1920, 0, 1280, 720)};
    desktop.panelHeight = 40;
    const clsMonitors monitors(desktop);
    const int main = monitors.Monitors()[0].Handle;
    const int right = monitors.Monitors()[1].Handle;
    using Default = clsMonitors::Default;
    EXPECT_EQ(monitors.GetMonitorFromXYPoint(1919, 1079, Default::None), main);
    EXPECT_EQ(monitors.GetMonitorFromXYPoint(1920, 720, Default::None), 0);
    EXPECT_EQ(monitors.GetMonitorFromXYPoint(3500, 700, Default::Nearest), right);
    EXPECT_EQ(monitors.GetMonitorFromXYPoint(3500, 700, Default::Primary), main);
    EXPECT_EQ(monitors.GetMonitorFromWindow(QRect(1800, 0, 400, 300), Default::None), right);
    EXPECT_EQ(monitors.CenterFormOnMonitor(QSize(280, 180), QRect(2000, 10, 50, 50)),
              QPoint(1920 + 500, 250));
}

} // namespace
} // namespace velmora
