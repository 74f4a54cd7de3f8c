#include "core/display_rects.h"
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

TEST(DisplayRect, OfTheCommandLineGoesBeforeThatOfTheMonitors) {
    TestSession test;
    test.session.displays.CmdDisplaysGiven = 1;
    test.session.displays.CmdDisplay2Left = 800;
    test.session.displays.CmdDisplay2Width = 1024;
    test.session.displays.CmdDisplay2Height = 768;
    GetDisplayRect(test.session, 2);
    EXPECT_EQ(displayRect(test.session.displays), QRect(800, 0, 1024, 768));
}

TEST(TwoDisplayCheck, FitsTheColumnToANarrowerSecondDisplay) {
    struct Case final {
        const char* name;
        QSize display2;
        ColumnSlider before, atStart, afterSetup;
    };
    const Case cases[] = {
        {"no second display", {}, {40, 320, 60}, {40, 320, 60}, {40, 320, 60}},
        {"alike", {1920, 1080}, {40, 320, 60}, {40, 320, 60}, {12, 320, 60}},
        {"wider", {2560, 1440}, {40, 320, 60}, {40, 320, 60}, {12, 320, 60}},
        // 1920 - 3 i <= 1280 - 53: i is 231.
        {"narrower", {1280, 720}, {12, 320, 60}, {231, 320, 231}, {231, 320, 231}},
        {"value kept", {1280, 720}, {12, 320, 300}, {231, 320, 300}, {231, 320, 300}},
        {"nothing fits", {800, 600}, {12, 320, 60}, {320, 320, 320}, {320, 320, 320}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TestSession test;
        test.monitors.rectangles = {QRect(0, 0, 1920, 1080)};
        if (!c.display2.isEmpty()) {
            test.monitors.rectangles.push_back(QRect(QPoint(1920, 0), c.display2));
        }
        test.session.settings.MirrorMode = 4;
        const TwoDisplayCheck start = checkTwoDisplaysAtStart(test.session, c.before);
        EXPECT_EQ(start.slider, c.atStart);
        EXPECT_EQ(start.messageDue, c.display2.isEmpty());
        const TwoDisplayCheck after = checkTwoDisplaysAfterSetup(test.session, c.before, 0);
        EXPECT_EQ(after.slider, c.afterSetup);
        EXPECT_EQ(after.messageDue, c.display2.isEmpty());
        EXPECT_EQ(checkTwoDisplaysAfterSetup(test.session, c.before, 4).slider, c.before);
        test.session.settings.MirrorMode = 1;
        EXPECT_EQ(checkTwoDisplaysAfterSetup(test.session, c.before, 4).slider.minimum, 12);
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
