#include "app/main_window_layout.h"
#include "core/screen_scale.h"
#include "core/session.h"

#include <gtest/gtest.h>

#include <vector>

namespace velmora {
namespace {

ScreenState screenOf(int wide, int high) {
    ScreenState screen;
    screen.ScreenPixelsWide = wide;
    screen.ScreenPixelsHigh = high;
    screen.ScaleX = scaleXFor(wide);
    screen.ScaleY = scaleYFor(high);
    return screen;
}

const QSize screens[] = {{640, 480},   {1280, 720},  {1366, 768}, {1920, 1080},
                         {2560, 1440}, {3840, 2160}, {1080, 1920}};

std::vector<QRect> controls(const MainWindowLayout& layout) {
    return {layout.LoadText,    layout.SaveText,   layout.Combo1,      layout.Combo2,
            layout.SetupButton, layout.ExitButton, layout.Label2,      layout.Label4,
            layout.Hscroll1,    layout.Label5,     layout.StartButton, layout.noticeLine};
}

TEST(MainWindowLayout, EveryControlIsInsideTheWindowAndTouchesNoOther) {
    for (const QSize& size : screens) {
        // The whole screen, and what a title bar and a panel leave of it.
        for (const QSize client :
             {QSize(size.width(), size.height()), QSize(size.width(), size.height() - 60)}) {
            SCOPED_TRACE(testing::Message() << size.width() << "x" << client.height());
            const ScreenState screen = screenOf(size.width(), size.height());
            const MainWindowLayout layout = layoutMainWindow(screen, client);
            const auto all = controls(layout);
            for (std::size_t i = 0; i < all.size(); ++i) {
                EXPECT_TRUE(QRect(QPoint(), client).contains(all[i])) << i;
                EXPECT_GT(all[i].width(), 20) << i;
                for (std::size_t j = i + 1; j < all.size(); ++j) {
                    EXPECT_FALSE(all[i].intersects(all[j])) << i << " and " << j;
                }
            }
            const QRect column = textColumn(layout, screen, 12, client);
            EXPECT_FALSE(column.intersects(layout.Backpicture));
            EXPECT_FALSE(column.intersects(layout.bottomStrip));
            EXPECT_GT(column.height(), client.height() / 2);
        }
    }
}

TEST(MainWindowLayout, TheColumnFollowsTheMarginAndTheScreensWidth) {
    struct Row final {
        int wide;
        int margin;
        int left;
        int width;
    };
    const Row rows[] = {
        {640, 12, 6, 628},      {640, 320, 160, 320}, {1366, 12, 12, 1340},
        {1366, 160, 170, 1024}, {1920, 12, 18, 1884}, {1920, 320, 480, 960},
    };
    for (const Row& row : rows) {
        const ScreenState screen = screenOf(row.wide, 768);
        const QSize client(row.wide, 700);
        const QRect column =
            textColumn(layoutMainWindow(screen, client), screen, row.margin, client);
        EXPECT_EQ(column.left(), row.left) << row.wide << " " << row.margin;
        EXPECT_EQ(column.width(), row.width) << row.wide << " " << row.margin;
    }
}

TEST(MainWindowLayout, AWindowNarrowerThanItsDisplayShowsTheWholeColumn) {
    const ScreenState screen = screenOf(1920, 1080);
    for (const int wide : {1850, 1200}) {
        const QSize client(wide, 1000);
        const QRect column = textColumn(layoutMainWindow(screen, client), screen, 12, client);
        EXPECT_NEAR(column.width(), wide * 1884.0 / 1920, 1);
        EXPECT_NEAR(column.left(), wide - column.right(), 3);
    }
}

} // namespace
} // namespace velmora
