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

} // namespace
} // namespace velmora
