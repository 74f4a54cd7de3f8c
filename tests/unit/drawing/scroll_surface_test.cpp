#include "platform/drawing/scroll_surface.h"

#include <QPainter>

#include <gtest/gtest.h>

using namespace velmora;

namespace {

constexpr QRgb Background = 0xff102030u;
constexpr int Width = 23;
constexpr int TableRows = 400;

/// The table as one tall picture, every pixel different from its neighbours.
Surface tallPicture() {
    Surface tall(Width, TableRows);
    for (int y = 0; y < TableRows; ++y)
        for (int x = 0; x < Width; ++x)
            tall.row(y)[x] = 0xff000000u | static_cast<QRgb>(y * 64 + x);
    return tall;
}

QImage part(const QImage& tall, std::int64_t top, int rows) {
    return tall.copy(0, static_cast<int>(top), tall.width(), rows);
}

/// Moves the window as the show does: writes only the rows that come in.
void moveTo(ScrollSurface& surface, const Surface& tall, std::int64_t top) {
    const std::int64_t before = surface.top();
    surface.setTop(top);
    for (std::int64_t row = top; row < top + surface.rows(); ++row) {
        if (row < before || row >= before + surface.rows())
            surface.writeRow(row, tall, 0, static_cast<int>(row));
    }
}

} // namespace

TEST(ScrollSurface, PaintsAtAPlaceAndInsideAClipOnly) {
    constexpr int Rows = 19;
    const Surface tall = tallPicture();
    ScrollSurface surface;
    surface.resize(Width, Rows, Background);
    surface.setTop(-Rows);
    for (const std::int64_t top : {0, 5, 18, 19, 40}) {
        moveTo(surface, tall, top);
        for (const QRect& clip : {QRect(0, 0, 60, 60), QRect(12, 14, 9, 3), QRect(0, 20, 60, 30),
                                  QRect(8, 10, 1, 1), QRect(50, 50, 4, 4), QRect()}) {
            QImage screen(60, 60, QImage::Format_RGB32);
            screen.fill(0xffabcdefu);
            QImage expected = screen;
            {
                QPainter painter(&screen);
                surface.paint(painter, 8, 10, clip);
            }
            const QImage shown = part(tall.image(), top, Rows);
            for (int y = 0; y < Rows; ++y)
                for (int x = 0; x < Width; ++x)
                    if (clip.contains(8 + x, 10 + y))
                        expected.setPixel(8 + x, 10 + y, shown.pixel(x, y));
            ASSERT_EQ(screen, expected) << "top " << top << " clip " << clip.x() << ',' << clip.y();
        }
    }
}

TEST(ScrollSurface, FillsWhatTheSourceDoesNotHaveWithBackground) {
    struct Case final {
        int sourceX;
        int sourceRow;
    };
    const Surface source = tallPicture();
    for (const Case& it :
         {Case{0, 3}, Case{9, 3}, Case{-5, 3}, Case{-40, 3}, Case{40, 3}, Case{0, -1},
          Case{0, TableRows}, Case{-2'000'000'000, 0}, Case{2'000'000'000, 0}}) {
        ScrollSurface surface;
        surface.resize(Width, 3, Background);
        for (int row = 0; row < 3; ++row)
            std::fill_n(surface.slot(row), Width, 0xffff0000u);
        surface.writeRow(1, source, it.sourceX, it.sourceRow);
        for (int x = 0; x < Width; ++x) {
            const std::int64_t from = std::int64_t{x} + it.sourceX;
            const bool exists =
                from >= 0 && from < Width && it.sourceRow >= 0 && it.sourceRow < TableRows;
            ASSERT_EQ(surface.slot(1)[x], exists ? source.row(it.sourceRow)[from] : Background)
                << "x " << x << " sourceX " << it.sourceX << " row " << it.sourceRow;
            ASSERT_EQ(surface.slot(0)[x], 0xffff0000u);
            ASSERT_EQ(surface.slot(2)[x], 0xffff0000u);
        }
        surface.clearRow(4);
        EXPECT_EQ(surface.slot(-2)[0], Background) << "rows 4, 1 and -2 share a slot of three";
    }
}

TEST(ScrollSurface, WithoutRowsTakesEveryCall) {
    ScrollSurface surface;
    surface.resize(0, 0, Background);
    surface.writeRow(3, tallPicture(), 0, 0);
    surface.clearRow(3);
    QImage screen(4, 4, QImage::Format_RGB32);
    QPainter painter(&screen);
    surface.paint(painter, 0, 0, screen.rect());
    EXPECT_EQ(surface.slot(0), nullptr);
    EXPECT_TRUE(surface.toImage().isNull());
}
