#include "platform/drawing/surface.h"

#include <gtest/gtest.h>

using namespace velmora;

namespace {

/// Every pixel different from its neighbours.
Surface noise(int width, int height) {
    Surface surface(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            surface.row(y)[x] = 0xff000000u | static_cast<QRgb>(y * 4096 + x);
    return surface;
}

} // namespace

TEST(Surface, CopiesOfAPictureOntoItselfAreThoseOfThePictureBefore) {
    for (const QPoint& by : {QPoint(0, 1), QPoint(0, -3), QPoint(2, 0), QPoint(-5, 4)}) {
        Surface surface = noise(24, 20);
        const QImage before = surface.image().copy();
        surface.BitBlt(by.x(), by.y(), 24, 20, surface, 0, 0);
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 24; ++x) {
                const QPoint from = QPoint(x, y) - by;
                ASSERT_EQ(surface.row(y)[x],
                          before.pixel(before.rect().contains(from) ? from : QPoint(x, y)));
            }
        }
    }
}

TEST(Surface, TakeAnySizeAndAnyRectangle) {
    constexpr int Huge = 2'000'000'000;
    for (const QSize size : {QSize(0, 5), QSize(5, -1), QSize(0, 0)}) {
        Surface empty(size.width(), size.height());
        EXPECT_EQ(empty.width(), 0);
        empty.fill(0xffffffffu);
        empty.BitBlt(0, 0, 10, 10, noise(4, 4), 0, 0);
        empty.StretchBlt(0, 0, -10, 10, noise(4, 4), 0, 0, 4, 4);
    }
    Surface surface(4, 4);
    surface.fillRect(-Huge, -Huge, Huge, Huge, 0xffffffffu);
    surface.BitBlt(-Huge, 0, Huge, 4, surface, Huge, 0);
    EXPECT_EQ(surface.row(0)[0], 0xff000000u) << "nothing of these reaches the surface";
    surface.fillRect(-1, -1, Huge, Huge, 0xff0000ffu);
    EXPECT_EQ(surface.row(3)[3], 0xff0000ffu);
}
