#include "display/display_geometry.h"

#include "core/screen_scale.h"
#include "display/font_scale.h"

#include <gtest/gtest.h>

using namespace velmora;

namespace {

constexpr QSize Screens[] = {{640, 480},   {1280, 720},  {1366, 768},
                             {1920, 1080}, {2560, 1440}, {3840, 2160}};
constexpr int Margins[] = {12, 160, 320};

constexpr DisplayTraits Windows[] = {{Orientation::Plain, false},
                                     {Orientation::Mirrored, false},
                                     {Orientation::Plain, true},
                                     {Orientation::Mirrored, true}};

/// The strip and the bar beside the text, the controls beneath it.
void expectOnScreen(const DisplayGeometry& geometry, const QSize& screen, bool controls,
                    const DisplayTraits& traits) {
    const QRect whole(QPoint(0, 0), screen);
    EXPECT_TRUE(whole.contains(geometry.Picture1));
    EXPECT_TRUE(whole.contains(geometry.Picture3));
    const bool mirrored = traits.face == Orientation::Mirrored;
    EXPECT_EQ(mirrored, geometry.Picture3.left() > geometry.Picture1.right());
    EXPECT_FALSE(geometry.Picture3.intersects(geometry.Picture1));
    if (!controls) {
        return;
    }
    EXPECT_EQ(mirrored, geometry.Vscroll1.right() < geometry.Picture1.left());
    for (const QRect& control : {geometry.Vscroll1, geometry.Vscroll2, geometry.Command3,
                                 geometry.Picture6, geometry.Label1, geometry.Label4,
                                 geometry.Label5, geometry.Label6, geometry.directionMark}) {
        // A steered show's scale has no place in a timed one.
        if (!traits.timed || control != geometry.Picture6) {
            EXPECT_TRUE(whole.contains(control));
            EXPECT_FALSE(control.intersects(geometry.Picture1));
        }
    }
}

QByteArray rtfWithFont(const char* name) {
    return QByteArray("{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil ") + name + ";}}\\f0\\fs52 x}";
}

} // namespace

TEST(DisplayGeometry, EverythingIsOnTheScreenAndNoTextIsWiderThanItsWindow) {
    for (const QSize& screen : Screens) {
        const double scale = fitScriptScale(rtfWithFont("Arial"), screen.width()).FontScale;
        for (const int margin : Margins) {
            for (const int fullScreen : {0, 1}) {
                SCOPED_TRACE(testing::Message()
                             << screen.width() << " margin " << margin << " full " << fullScreen);
                const double wrap = wrapWidthForMargin(margin);
                for (const DisplayTraits& traits : Windows) {
                    const DisplayGeometry geometry = layOutDisplay(
                        {screen.width(), screen.height(), wrap, scale, fullScreen, traits});
                    expectOnScreen(geometry, screen, fullScreen == 0, traits);
                    EXPECT_LE(wrap * scale, geometry.WindowWidth());
                    EXPECT_GE(geometry.SideMargin, 0);
                }
            }
        }
    }
}

TEST(DisplayGeometry, ControlsGrowWithTheScreenAndADurationFillsItsRow) {
    for (const auto& [width, unit] : {std::pair(640, 1.0), {1920, 1.0}, {2880, 1.5}, {3840, 2.0}}) {
        SCOPED_TRACE(width);
        const int height = width * 9 / 16;
        const auto rowOf = [&](bool timed) {
            return layOutDisplay({width, height, 100, 1, 0, {Orientation::Plain, timed}});
        };
        const DisplayGeometry steered = rowOf(false);
        EXPECT_EQ(steered.controlUnit, unit);
        EXPECT_EQ(height - steered.Picture1.height(), qRound(36 * unit));
        const DisplayGeometry timed = rowOf(true);
        EXPECT_EQ(timed.Hscroll1.width(), width - qRound(450 * unit));
        const QRect row[] = {timed.Vscroll2, timed.Command1, timed.Hscroll1,
                             timed.Label3,   timed.Label5,   timed.Label4};
        for (std::size_t i = 1; i < std::size(row); ++i) {
            EXPECT_GT(row[i].left(), row[i - 1].right()) << i;
        }
        EXPECT_LE(timed.Label4.right(), timed.Command3.left());
    }
}

TEST(DisplayGeometry, FittedScaleFollowsTheFreeWidth) {
    for (const QSize& screen : Screens) {
        const ScriptScale scale = fitScriptScale(rtfWithFont("Arial"), screen.width());
        const double ratio = freeWidth(screen.width()) / (300 + 20.0 / 15);
        EXPECT_LE(scale.FontScale, ratio);
        EXPECT_GT(scale.FontScale, ratio - 0.08);
        EXPECT_EQ(scale.MaxFontHalf, static_cast<int>(static_cast<int>(52 * scale.FontScale) / 2));
    }
}

TEST(FontTable, NamesAndSizesAreReadAsTheWriterWritesThem) {
    const QByteArray rtf = "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil Arial;}{\\f1\\fnil Liberation "
                           "Serif;}}\\f0\\fs52 a \\\\fs900 \\f1\\fs96 b\\fs c}";
    EXPECT_EQ(fontTableNames(rtf), (QStringList{u"Arial"_qs, u"Liberation Serif"_qs}));
    EXPECT_EQ(largestScaledPoints(rtf, 1.5), 72);
    EXPECT_TRUE(fontTableNames("{\\rtf1 \\fonttbl").isEmpty());
}
