#include "display/display_geometry.h"

#include "core/screen_scale.h"
#include "display/font_scale.h"

#include <gtest/gtest.h>

using namespace velmora;

namespace {

constexpr QSize Screens[] = {{640, 480},   {1280, 720},  {1366, 768},
                             {1920, 1080}, {2560, 1440}, {3840, 2160}};
constexpr int Margins[] = {12, 160, 320};

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
                const DisplayGeometry geometry =
                    layOutDisplay({screen.width(), screen.height(), wrap, scale, fullScreen});
                const QRect whole(QPoint(0, 0), screen);
                EXPECT_TRUE(whole.contains(geometry.Picture1));
                EXPECT_TRUE(whole.contains(geometry.Picture3));
                if (fullScreen == 0) {
                    for (const QRect& control :
                         {geometry.Vscroll1, geometry.Vscroll2, geometry.Command3,
                          geometry.Picture6, geometry.Label1, geometry.Label4, geometry.Label5,
                          geometry.Label6, geometry.directionMark}) {
                        EXPECT_TRUE(whole.contains(control));
                        EXPECT_FALSE(control.intersects(geometry.Picture1));
                    }
                }
                EXPECT_LE(wrap * scale, geometry.WindowWidth());
                EXPECT_GE(geometry.SideMargin, 0);
            }
        }
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

TEST(DisplayGeometry, ScriptWithoutFontsTakesThePlainRatio) {
    EXPECT_DOUBLE_EQ(fitScriptScale("{\\rtf1 x}", 1920).FontScale, 1861 / (300 + 20.0 / 15));
}

TEST(FontTable, NamesAndSizesAreReadAsTheWriterWritesThem) {
    const QByteArray rtf = "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil Arial;}{\\f1\\fnil Liberation "
                           "Serif;}}\\f0\\fs52 a \\\\fs900 \\f1\\fs96 b\\fs c}";
    EXPECT_EQ(fontTableNames(rtf), (QStringList{u"Arial"_qs, u"Liberation Serif"_qs}));
    EXPECT_EQ(largestScaledPoints(rtf, 1.5), 72);
    EXPECT_TRUE(fontTableNames("{\\rtf1 \\fonttbl").isEmpty());
}
