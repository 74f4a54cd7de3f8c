#include "core/colour_tables.h"
#include "core/display_rects.h"
#include "core/line_spacing.h"
#include "core/screen_scale.h"
#include "core/two_display_check.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(ScreenScale, FollowsDisplay1AndANarrowerWindow) {
    struct Case final {
        QSize screen;
        double scaleX, scaleY, zoom;
    };
    for (const Case& c : {Case{{640, 480}, 1, 1, 2}, Case{{1280, 720}, 2, 1.55, 4},
                          Case{{1366, 768}, 2.134375, 1.66, 4.3}, Case{{1920, 1080}, 3, 2.375, 6},
                          Case{{3840, 2160}, 6, 4.85, 12}}) {
        TestSession test;
        // The primary screen stands beside it: the editor is on display 1.
        test.monitors.rectangles = {QRect(QPoint(), c.screen), QRect(3840, 0, 1024, 768)};
        test.monitors.primaryIndex = 1;
        measureScreen(test.session);
        const ScreenState& screen = test.session.screen;
        EXPECT_DOUBLE_EQ(screen.ScaleX, c.scaleX);
        EXPECT_DOUBLE_EQ(screen.ScaleY, c.scaleY);
        EXPECT_DOUBLE_EQ(editorZoom(screen.ScaleX), c.zoom);
        EXPECT_DOUBLE_EQ(columnScale(screen, c.screen.width() / 2), c.scaleX / 2);
        EXPECT_EQ(screen.HighColorDisplay, 1);
    }
    EXPECT_DOUBLE_EQ(wrapWidthForMargin(12), 298);
    EXPECT_DOUBLE_EQ(wrapWidthForMargin(320), 144);
}

TEST(LineSpacing, TextsAndTheirCompressedFactors) {
    struct Case final {
        int index;
        const char16_t* text;
        double factor;
    };
    for (const Case& c : {Case{1, u".75", 0.75}, Case{7, u".81", 0.81}, Case{25, u".99", 0.99},
                          Case{26, u"1.0", 1.0}, Case{27, u"1.1", 1.06}, Case{31, u"1.5", 1.3},
                          Case{35, u"1.9", 1.54}, Case{36, u"2.0", 1.6}, Case{0, u".75", 0.75},
                          Case{99, u"2.0", 1.6}}) {
        EXPECT_EQ(lineSpacingText(c.index), QString::fromUtf16(c.text));
        EXPECT_NEAR(lineSpacingFactor(lineSpacingText(c.index)), c.factor, 1e-12) << c.index;
    }
}

TEST(ColourTables, KeepRedInTheLowByte) {
    EXPECT_EQ(brightColour(6), 0x0000FFU);
    EXPECT_EQ(darkColour(2), 0x800000U);
    EXPECT_EQ(darkColour(8), White);
    EXPECT_EQ(brightColour(0), Black);
    EXPECT_EQ(brightColour(9), Black);
    EXPECT_EQ(SplitRgb(0x112233).red, 0x33);
    EXPECT_EQ(SplitRgb(0x112233).blue, 0x11);
    EXPECT_EQ(colourOfSetting(16777215), White);
    EXPECT_EQ(colourOfSetting(255.9), 0x0000FFU);
    EXPECT_EQ(colourOfSetting(-1), Black);
    EXPECT_EQ(colourOfSetting(1e30), White);
}

QRect rectOf(const Session& session) {
    const DisplayState& d = session.displays;
    return {d.DisplayLeft, d.DisplayTop, d.DisplayWidth, d.DisplayHeight};
}

TEST(DisplayRect, ComesFromTheMonitorsUnlessTheCommandLineGaveIt) {
    TestSession test;
    Session& session = test.session;
    test.monitors.rectangles = {QRect(-1280, 0, 1280, 1024), QRect(0, 0, 1920, 1080)};
    GetDisplayRect(session, 1);
    EXPECT_EQ(rectOf(session), QRect(-1280, 0, 1280, 1024));
    GetDisplayRect(session, 2);
    EXPECT_EQ(rectOf(session), QRect(0, 0, 1920, 1080));
    EXPECT_TRUE(displayFound(session));
    // A second display that is unplugged must not look like the one asked for before.
    test.monitors.rectangles.pop_back();
    GetDisplayRect(session, 2);
    EXPECT_FALSE(displayFound(session));
    EXPECT_EQ(rectOf(session), QRect(0, 0, 0, 0));
    session.displays.CmdDisplaysGiven = 1;
    session.displays.CmdDisplay2Left = 800;
    session.displays.CmdDisplay2Width = 1024;
    session.displays.CmdDisplay2Height = 768;
    GetDisplayRect(session, 2);
    EXPECT_EQ(rectOf(session), QRect(800, 0, 1024, 768));
}

TEST(TwoDisplayCheck, FitsTheColumnToANarrowerSecondDisplay) {
    const QRect full(0, 0, 1920, 1080);
    struct Case final {
        const char* name;
        std::vector<QRect> displays;
        ColumnSlider before;
        ColumnSlider atStart;
        ColumnSlider afterSetup;
        bool message;
    };
    const Case cases[] = {
        {"one display", {full}, {40, 320, 60}, {40, 320, 60}, {40, 320, 60}, true},
        {"alike", {full, full}, {40, 320, 60}, {40, 320, 60}, {12, 320, 60}, false},
        {"wider",
         {full, QRect(1920, 0, 2560, 1440)},
         {40, 320, 60},
         {40, 320, 60},
         {12, 320, 60},
         false},
        // 1920 - 3 i <= 1280 - 53: i is 231.
        {"narrower",
         {full, QRect(1920, 0, 1280, 720)},
         {12, 320, 60},
         {231, 320, 231},
         {231, 320, 231},
         false},
        {"narrower, value kept",
         {full, QRect(1920, 0, 1280, 720)},
         {12, 320, 300},
         {231, 320, 300},
         {231, 320, 300},
         false},
        {"nothing fits",
         {full, QRect(1920, 0, 800, 600)},
         {12, 320, 60},
         {320, 320, 320},
         {320, 320, 320},
         false},
    };
    for (const Case& c : cases) {
        TestSession test;
        test.monitors.rectangles = c.displays;
        test.session.settings.MirrorMode = 4;
        const TwoDisplayCheck start = checkTwoDisplaysAtStart(test.session, c.before);
        EXPECT_EQ(start.slider, c.atStart) << c.name;
        EXPECT_EQ(start.messageDue, c.message) << c.name;
        const TwoDisplayCheck after = checkTwoDisplaysAfterSetup(test.session, c.before, 0);
        EXPECT_EQ(after.slider, c.afterSetup) << c.name;
        EXPECT_EQ(after.messageDue, c.message) << c.name;
        EXPECT_EQ(checkTwoDisplaysAfterSetup(test.session, c.before, 4).slider, c.before) << c.name;
        test.session.settings.MirrorMode = 1;
        EXPECT_EQ(checkTwoDisplaysAfterSetup(test.session, c.before, 4).slider.minimum, 12)
            << c.name;
    }
}

TEST(TwoDisplayCheck, NarrowsTheColumnNoFurtherThanAWordIsWide) {
    TestSession test;
    test.monitors.rectangles = {QRect(0, 0, 1920, 1080), QRect(1920, 0, 800, 600)};
    test.session.settings.MirrorMode = 4;
    RichTextBox& rtb1 = test.session.script.rtb1;
    const auto isWhole = [&](int margin) {
        rtb1.setWrapWidth(wrapWidthForMargin(margin));
        const int word = static_cast<int>(rtb1.Text().indexOf(u"EVENING"_qs));
        return rtb1.GetLineFromChar(word) == rtb1.GetLineFromChar(word + 6);
    };
    rtb1.setDefaultFormat({u"Liberation Sans"_qs, 60, White});
    ColumnSlider slider{12, 320, 60};
    // The first word breaks in any column; a line may end behind the hyphen; from right to left.
    for (const QString& words :
         {u"WWWWWWWWWWWWWWWWWWWW\r\nEVENING NEWS"_qs, u"THE-EVENING NEWS"_qs, u"שלום EVENING"_qs}) {
        SCOPED_TRACE(words.toStdString());
        rtb1.setText(words);
        const ColumnSlider narrowed = checkTwoDisplaysAtStart(test.session, slider).slider;
        EXPECT_LT(narrowed.minimum, 320);
        EXPECT_EQ(narrowed.value, std::max(slider.value, narrowed.minimum));
        EXPECT_TRUE(isWhole(narrowed.minimum));
        EXPECT_FALSE(isWhole(narrowed.minimum + 2)) << "no wider than it must be";
    }
    // The next script may be narrowed as far as told, the one after it not.
    rtb1.setText(u"A"_qs);
    slider = checkTwoDisplaysAgain(test.session, slider);
    EXPECT_EQ(slider, (ColumnSlider{320, 320, 320}));
    rtb1.setText(u"EVENING"_qs);
    slider = checkTwoDisplaysAgain(test.session, slider);
    EXPECT_LT(slider.value, 320);
    EXPECT_EQ(slider.value, slider.minimum);
}

} // namespace
} // namespace velmora
