#include "platform/drawing/surface.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

using namespace velmora;

namespace {

/// A picture as an array of pixels with one rule: read everything first, then write pixel by pixel.
struct NaivePicture final {
    int width;
    int height;
    std::vector<QRgb> pixels;

    explicit NaivePicture(const Surface& surface)
        : width(surface.width()), height(surface.height()) {
        for (int y = 0; y < height; ++y)
            pixels.insert(pixels.end(), surface.row(y), surface.row(y) + width);
    }
    [[nodiscard]] bool has(int x, int y) const {
        return x >= 0 && x < width && y >= 0 && y < height;
    }
    QRgb& at(int x, int y) { return pixels[static_cast<std::size_t>(y * width + x)]; }

    void copy(int x, int y, int w, int h, NaivePicture source, int sx, int sy) {
        for (int row = 0; row < h; ++row)
            for (int column = 0; column < w; ++column)
                if (has(x + column, y + row) && source.has(sx + column, sy + row))
                    at(x + column, y + row) = source.at(sx + column, sy + row);
    }
};

class SurfaceOperations : public ::testing::Test {
protected:
    int number(int low, int high) { return std::uniform_int_distribution(low, high)(m_random); }

    Surface noise(int width, int height) {
        Surface surface(width, height);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                surface.row(y)[x] = 0xff000000u | static_cast<QRgb>(m_random() & 0xffffffu);
        return surface;
    }

    std::mt19937 m_random{20240607};
};

} // namespace

TEST_F(SurfaceOperations, CopiesLikeANaivePictureIncludingOverlapsAndClipping) {
    const Surface other = noise(31, 17);
    Surface surface = noise(24, 20);
    for (int round = 0; round < 3000; ++round) {
        const bool self = number(0, 1) == 1;
        const Surface& source = self ? surface : other;
        const int x = number(-12, 30), y = number(-12, 26), w = number(-2, 34), h = number(-2, 30);
        const int sx = number(-10, 30), sy = number(-10, 24);
        NaivePicture expected(surface);
        expected.copy(x, y, w, h, NaivePicture(source), sx, sy);
        surface.BitBlt(x, y, w, h, source, sx, sy);
        ASSERT_EQ(NaivePicture(surface).pixels, expected.pixels)
            << "round " << round << (self ? " self " : " other ") << x << ',' << y << ' ' << w
            << 'x' << h << " from " << sx << ',' << sy;
        if (round % 50 == 0)
            surface = noise(24, 20);
    }
}

TEST_F(SurfaceOperations, CopiesOfASurfaceAreIndependent) {
    Surface surface = noise(8, 8);
    const Surface before = surface;
    const QImage kept = before.image().copy();
    surface.BitBlt(0, 0, 8, 8, before, 3, 3);
    surface.fillRect(-5, 2, 100, 3, 0xff123456u);
    EXPECT_EQ(before.image(), kept);
    EXPECT_EQ(surface.row(4)[7], 0xff123456u);
    EXPECT_EQ(surface.row(5)[7], kept.pixel(7, 5)) << "below the filled rows, right of the copy";
}

TEST_F(SurfaceOperations, TakeAnySizeAndAnyRectangle) {
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
