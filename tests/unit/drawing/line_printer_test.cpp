#include "platform/drawing/color.h"
#include "platform/drawing/glyph_mask_cache.h"
#include "platform/drawing/line_printer.h"
#include "platform/drawing/line_shape.h"
#include "platform/drawing/reference_units.h"
#include "support/fonts.h"
#include "unit/drawing/ink.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace velmora;

namespace {

const QString Sans = u"Liberation Sans"_qs;
constexpr QRgb PaperColor = 0xff000000u;
constexpr Rgb24 Blue = 0xC00000;
constexpr Rgb24 Green = 0x006000;

/// A window of 600 pixels in a wider surface.
PrintBox windowBox(Alignment alignment = Alignment::Left) {
    PrintBox box;
    box.left = 40;
    box.width = 600;
    box.rowHeight = 80;
    box.zoom = 2;
    box.alignment = alignment;
    return box;
}

Surface printed(const std::vector<StyledText>& runs, const PrintBox& box,
                std::int64_t cacheBytes = GlyphMaskCache::DefaultLimitBytes) {
    GlyphMaskCache cache(cacheBytes);
    Surface surface(700, 100);
    surface.fill(PaperColor);
    printLine(surface, runs, box, cache);
    return surface;
}

StyledText withBackground(StyledText run, Rgb24 color) {
    run.format.backColor = color;
    return run;
}

/// First and last + 1 column of the row that has the colour.
std::pair<int, int> columnsOf(const Surface& surface, int y, QRgb color) {
    const QRgb* const row = surface.row(y);
    const QRgb* const end = row + surface.width();
    const QRgb* const first = std::find(row, end, color);
    const auto last = std::find(std::reverse_iterator(end), std::reverse_iterator(first), color);
    return {static_cast<int>(first - row), static_cast<int>(last.base() - row)};
}

} // namespace

TEST(LinePrinter, LeavesOutMarkersLineEndsAndTrailingBlanks) {
    const auto plain = [](const QString& text) { return styled(text, Sans, 24); };
    const std::vector<StyledText> expected{plain(u"ab c"_qs), styled(u"de"_qs, Sans, 24, "b")};
    const std::vector<std::vector<StyledText>> samples{
        {plain(u"^ab~ c^"_qs), styled(u"~d^^e~"_qs, Sans, 24, "b")},
        {styled(u"^~"_qs, Sans, 200), plain(u"ab c"_qs), styled(u"de\r\n"_qs, Sans, 24, "b")},
        {plain(u"ab c"_qs), styled(u"de   "_qs, Sans, 24, "b"), plain(u" ~ "_qs)},
    };
    for (const Alignment alignment : {Alignment::Left, Alignment::Centre, Alignment::Right}) {
        const PrintBox box = windowBox(alignment);
        const QImage picture = printed(expected, box).image();
        EXPECT_GT(inkOf(picture).amount, 500);
        for (std::size_t i = 0; i < samples.size(); ++i)
            EXPECT_EQ(printed(samples[i], box).image(), picture) << "sample " << i;
    }
    EXPECT_EQ(inkOf(printed({plain(u"^~"_qs), plain(u"~"_qs)}, windowBox()).image()).amount, 0);
    EXPECT_EQ(inkOf(printed({}, windowBox()).image()).amount, 0);
}

TEST(LinePrinter, PlacesTheTextByItsAlignment) {
    // "H" has the same room on both sides: 4.4 pixels of 64.
    const std::vector<StyledText> runs{styled(u"H H  "_qs, Sans, 48)};
    const Ink left = inkOf(printed(runs, windowBox(Alignment::Left)).image());
    const Ink centre = inkOf(printed(runs, windowBox(Alignment::Centre)).image());
    const Ink right = inkOf(printed(runs, windowBox(Alignment::Right)).image());
    EXPECT_NEAR(left.left, 40 + 5, 1);
    EXPECT_NEAR((centre.left + centre.right) / 2.0, 40 + 300, 1);
    EXPECT_NEAR(right.right, 40 + 600 - 12 - 5, 1);
}

TEST(LinePrinter, FillsTextBackgroundsAsHighAsTheRow) {
    const std::vector<StyledText> runs{withBackground(styled(u"ab  "_qs, Sans, 24), Blue),
                                       styled(u"  "_qs, Sans, 24),
                                       withBackground(styled(u"  cd  ~"_qs, Sans, 30), Green)};
    for (const Alignment alignment : {Alignment::Left, Alignment::Centre, Alignment::Right}) {
        PrintBox box = windowBox(alignment);
        const Surface plain = printed(runs, box);
        box.extendBackground = true;
        const Surface extended = printed(runs, box);
        const auto [blueLeft, blueRight] = columnsOf(plain, 0, toPixel(Blue));
        const auto [greenLeft, greenRight] = columnsOf(plain, 0, toPixel(Green));
        // Two blanks of 12 points lie between them.
        const double blank = metricsOf(Sans).horizontalAdvance(u' ') / 1000 * 32;
        EXPECT_NEAR(greenLeft - blueRight, 2 * blank, 1);
        EXPECT_EQ(columnsOf(plain, 79, toPixel(Blue)), std::pair(blueLeft, blueRight));
        EXPECT_EQ(plain.row(80)[blueLeft], PaperColor) << "below the row";
        EXPECT_EQ(plain.row(40)[blueRight], PaperColor) << "a run without a background";
        EXPECT_LT(greenRight, 700);
        EXPECT_EQ(columnsOf(extended, 0, toPixel(Green)), std::pair(greenLeft, 700));
        EXPECT_EQ(columnsOf(extended, 79, toPixel(Blue)), std::pair(blueLeft, blueRight));
        EXPECT_EQ(extended.row(80)[650], PaperColor);
    }
    PrintBox box = windowBox();
    box.extendBackground = true;
    const std::vector<StyledText> plainEnd{runs[0], runs[1]};
    EXPECT_EQ(columnsOf(printed(plainEnd, box), 0, toPixel(Blue)).second,
              columnsOf(printed({runs[0]}, windowBox()), 0, toPixel(Blue)).second)
        << "a line that ends without a background is not extended";
}

TEST(LinePrinter, StrikesThroughAndUnderlinesInTheTextColourByTheFontsMeasures) {
    NEEDS_FONT("Liberation Sans");
    constexpr QRgb Orange = 0xffffa500u;
    struct Case final {
        const char* style;
        QString text;
        /// Upper edge, below the baseline, and thickness.
        double top;
        double thickness;
    };
    // Liberation Sans, of 2048 units: underline 67 to 217 below, strike-out 530 to 428 above.
    constexpr double Unit = 64.0 / 2048;
    for (const Case& it : {Case{"u", u"   "_qs, 67 * Unit, 150 * Unit},
                           Case{"s", u" \t "_qs, -530 * Unit, 102 * Unit},
                           Case{"u", u" \u4e2d "_qs, 67 * Unit, 150 * Unit}}) {
        StyledText run = styled(it.text, Sans, 48, it.style);
        run.format.color = 0x00A5FF;
        const Surface surface = printed({run, styled(u" "_qs, Sans, 48)}, windowBox());
        int top = 0;
        while (top < 80 && surface.row(top)[42] != Orange)
            ++top;
        // A substitute for a missing letter may reach lower and lift the baseline, which stands
        // 13.6 pixels above the row's end.
        if (!it.text.contains(u'\u4e2d')) {
            EXPECT_EQ(top, 80 - 14 + std::lround(it.top));
        }
        const int bottom = top + static_cast<int>(std::lround(it.thickness));
        const auto [left, right] = columnsOf(surface, top, Orange);
        EXPECT_EQ(left, 40);
        EXPECT_GT(right - left, 50);
        for (int y = top; y < bottom; ++y) {
            EXPECT_EQ(columnsOf(surface, y, Orange), std::pair(left, right)) << "no step";
            EXPECT_EQ(std::count(surface.row(y) + left, surface.row(y) + right, Orange),
                      right - left)
                << "no gap";
        }
        EXPECT_NE(surface.row(bottom)[42], Orange);
    }
}

TEST(LinePrinter, DrawsTheSameWhateverFontsAndSizesWereDrawnBefore) {
    const std::vector<StyledText> runs{styled(u"Qty "_qs, Sans, 24),
                                       styled(u"fox"_qs, Sans, 30, "b")};
    const QImage expected = printed(runs, windowBox()).image();
    GlyphMaskCache cache;
    for (int halfPoints = 8; halfPoints < 8 + 300; ++halfPoints) {
        Surface other(700, 100);
        printLine(other, {styled(u"Qtyfox"_qs, Sans, halfPoints)}, windowBox(), cache);
        Surface surface(700, 100);
        surface.fill(PaperColor);
        printLine(surface, runs, windowBox(), cache);
        ASSERT_EQ(surface.image(), expected) << halfPoints;
    }
}

TEST(LinePrinter, PutsTheFeetIntoTheRowWhateverAFontTellsOfItsCapitals) {
    const std::vector<StyledText> runs{styled(u"gyp"_qs, Sans, 24)};
    LineShape shape = shapeLine(runs, false, 0);
    PrintBox box = windowBox();
    box.rowHeight = static_cast<int>(std::ceil(shape.height * box.zoom / UnitsPerPixel));
    std::vector<Ink> inks;
    for (const double capHeight : {shape.capHeight, shape.ascent * 1.3}) {
        shape.capHeight = capHeight; // so those of colour emoji below 14 points
        GlyphMaskCache cache;
        Surface surface(700, 100);
        printLine(surface, shape, runs, box, cache);
        inks.push_back(inkOf(surface.image()));
    }
    EXPECT_EQ(inks[0].bottom, inks[1].bottom);
    EXPECT_EQ(inks[0].amount, inks[1].amount);
}

TEST(LinePrinter, BlendsWithWhatIsBeneath) {
    StyledText run = styled(u"OQ"_qs, Sans, 48);
    const Surface coverage = printed({run}, windowBox());
    run.format.color = 0x3250C8;
    run.format.backColor = 0x906020;
    const Surface surface = printed({run}, windowBox());
    const auto [left, right] = columnsOf(surface, 0, toPixel(run.format.backColor));
    ASSERT_GT(right - left, 50);
    int shades = 0;
    for (int y = 0; y < 80; ++y) {
        for (int x = left; x < right; ++x) {
            const double share = qGreen(coverage.row(y)[x]) / 255.0;
            const auto mixed = [share](int below, int color) {
                return static_cast<int>(std::lround(below * (1 - share) + color * share));
            };
            const QRgb below = toPixel(run.format.backColor);
            const QRgb color = toPixel(run.format.color);
            ASSERT_EQ(surface.row(y)[x],
                      qRgb(mixed(qRed(below), qRed(color)), mixed(qGreen(below), qGreen(color)),
                           mixed(qBlue(below), qBlue(color))));
            shades += share > 0 && share < 1 ? 1 : 0;
        }
    }
    EXPECT_GT(shades, 200);
}

TEST(LinePrinter, DrawsWhatHasNoMaskByOtherMeansAtTheSamePlace) {
    // A cache of 8 KB makes masks of 1 KB at most: full stops, but no letters.
    const std::vector<StyledText> runs{styled(u"Wa. go"_qs, Sans, 40, "i"),
                                       styled(u"R"_qs, Sans, 60, "b")};
    for (const Alignment alignment : {Alignment::Left, Alignment::Right}) {
        PrintBox box = windowBox(alignment);
        for (const int rowHeight : {80, 60}) {
            box.rowHeight = rowHeight;
            const Ink masked = inkOf(printed(runs, box).image());
            const Ink drawn = inkOf(printed(runs, box, 8192).image());
            EXPECT_NEAR(drawn.amount, masked.amount, masked.amount * 0.01);
            EXPECT_NEAR(drawn.x, masked.x, 1);
            EXPECT_NEAR(drawn.y, masked.y, 1);
            EXPECT_LE(drawn.bottom, rowHeight);
        }
    }
}
