#include "setup/display_options.h"

#include "gui/setup/window_controls.h"
#include "support/modal_action.h"

#include <QPushButton>

namespace velmora {
namespace {

class Form8Test : public SetupWindowTest<Form8> {
protected:
    [[nodiscard]] QString shown(const QString& label) const { return labelText(*form, label); }
};

TEST_F(Form8Test, EachButtonLeadsItsSettingRound) {
    const Cycle cycles[] = {
        {u"AutomaticLooping", u"Set Automatic Looping", u"Label7", &Settings::AutomaticLooping,
         u"0 Auto Looping Off|1 Auto Looping On"},
        {u"FullScreenMode", u"Scroller Full Screen Mode", u"Label11", &Settings::FullScreenMode,
         u"0 Display With Controls|1 Display Full Screen"},
        {u"FirstDisplayLine", u"First Scroller Display Line", u"Label15",
         &Settings::FirstDisplayLine, u"0 Start At First Line|1 Start At Current Line"},
        {u"ScrollerTurbo", u"Scroller Turbo Mode", u"Label19", &Settings::ScrollerTurbo,
         u"0 Turbo Off, Smooth Scroll|1 Turbo On, Rougher Scroll"},
        {u"ScrollSpeedControl", u"Speed Control Mode", u"Label23", &Settings::ScrollSpeedControl,
         u"0 Split Range (Recommended)|1 Full Range"},
        {u"Mirrordisplay", u"Configure Displays", u"Label31", &Settings::MirrorMode,
         u"0 One Display|1 One Display, Mirrored L-R|4 Two Displays, Mirrored L-R"},
        {u"TimedDisplay", u"Timed Display", u"Label33", &Settings::TimedDisplay,
         u"0 Timed Display Off|1 Timed Display On"},
    };
    open();
    for (const Cycle& cycle : cycles) {
        leadRound(*form, settings, cycle);
    }
}

TEST_F(Form8Test, ButtonsArePlainWhereThereAreFewColours) {
    for (const int depth : {32, 8}) {
        test.session.screen.ColorDepth = depth;
        open();
        EXPECT_EQ(control<QPushButton>(*form, u"CCSetup"_qs).isFlat(), depth == 8);
    }
}

TEST_F(Form8Test, TurboAndSpeedRangeAskFirstAndTakeEffectThen) {
    struct Row final {
        const char16_t* button;
        int before;
        int Settings::*setting;
        const char16_t* title;
        const char16_t* text;
    };
    const Row rows[] = {
        {u"ScrollerTurbo", 0, &Settings::ScrollerTurbo, u"Select Turbo Mode",
         u"Turbo mode doubles the scroller's display speed.\r\n"},
        {u"ScrollSpeedControl", 0, &Settings::ScrollSpeedControl, u"Switching to Full Range Mode",
         u"In Full Range mode, the full speed range of the control is dedicated to one scrolling "},
        {u"ScrollSpeedControl", 1, &Settings::ScrollSpeedControl, u"Switching to Split Range Mode",
         u"In Split Range mode, half of the speed range of the control is assigned to forward "},
    };
    for (const Row& row : rows) {
        settings.*row.setting = row.before;
        open();
        test.messages.whileOpen = [&] { EXPECT_EQ(settings.*row.setting, row.before); };
        test.messages.boxes.clear();
        press(QString::fromUtf16(row.button));
        ASSERT_EQ(test.messages.boxes.size(), 1U);
        const auto& box = test.messages.boxes.front();
        EXPECT_EQ(box.title, QString::fromUtf16(row.title));
        EXPECT_TRUE(box.text.startsWith(QStringView(row.text)));
        EXPECT_EQ(box.icon, MessageIcon::Information);
        EXPECT_EQ(settings.*row.setting, 1 - row.before);
    }
    press(u"ScrollerTurbo"_qs);
    EXPECT_EQ(settings.ScrollerTurbo, 0);
    EXPECT_EQ(test.messages.boxes.size(), 1U) << "off is silent";
}

TEST_F(Form8Test, SpacingAndMaxSpeedStopAtTheirEnds) {
    open();
    const auto pressUntilItStays = [&](const QString& button, const QString& label) {
        int presses = 0;
        for (QString before; before != shown(label) && presses < 100; ++presses) {
            before = shown(label);
            press(button);
        }
        return presses;
    };
    EXPECT_EQ(shown(u"Label3"_qs), u"1.0"_qs);
    EXPECT_EQ(pressUntilItStays(u"SetLineSpacing2"_qs, u"Label3"_qs), 11);
    EXPECT_EQ(shown(u"Label3"_qs), u"2.0"_qs);
    EXPECT_EQ(pressUntilItStays(u"SetLineSpacing1"_qs, u"Label3"_qs), 36);
    EXPECT_EQ(test.session.show.LineSpacingText, u".75"_qs);
    EXPECT_EQ(settings.LineSpacingIndex, 1);

    EXPECT_EQ(pressUntilItStays(u"DelayLess"_qs, u"Label43"_qs), 10);
    EXPECT_EQ(settings.Delay, 0.1);
    EXPECT_EQ(pressUntilItStays(u"DelayMore"_qs, u"Label43"_qs), 50);
    EXPECT_EQ(settings.Delay, 5.0);
}

TEST_F(Form8Test, OpeningShowsWhatIsStoredAndLimitsWhatIsOutOfRange) {
    struct Row final {
        const char16_t* label;
        int Settings::*setting;
        int stored;
        int after;
        const char16_t* text;
    };
    const Row rows[] = {
        {u"Label27", &Settings::ControllerType, 11, 11, u"No Speed Controller"},
        {u"Label27", &Settings::ControllerType, 10, 10, u"Foot Controller"},
        {u"Label27", &Settings::ControllerType, 20, 20, u"Trigger Controller"},
        {u"Label27", &Settings::ControllerType, 21, 21, u"RF Wireless Controller"},
        {u"Label31", &Settings::MirrorMode, 2, 4, u"Two Displays, Mirrored L-R"},
        {u"Label31", &Settings::MirrorMode, -7, -7, u""},
        {u"Label3", &Settings::LineSpacingIndex, 99, 99, u"2.0"},
        {u"Label7", &Settings::AutomaticLooping, 2, 1, u"Auto Looping On"},
        {u"Label11", &Settings::FullScreenMode, -1, 0, u"Display With Controls"},
        {u"Label15", &Settings::FirstDisplayLine, 32767, 1, u"Start At Current Line"},
        {u"Label23", &Settings::ScrollSpeedControl, 7, 1, u"Full Range"},
        {u"Label33", &Settings::TimedDisplay, 9, 1, u"Timed Display On"},
    };
    for (const Row& row : rows) {
        settings.*row.setting = row.stored;
        open();
        EXPECT_EQ(shown(QString::fromUtf16(row.label)), QString::fromUtf16(row.text)) << row.stored;
        EXPECT_EQ(settings.*row.setting, row.after);
    }
    settings.MirrorMode = -7;
    press(u"Mirrordisplay"_qs);
    EXPECT_EQ(settings.MirrorMode, 0) << "an unknown arrangement is left for the first";
    settings.Delay = 77;
    press(u"DelayMore"_qs);
    EXPECT_EQ(settings.Delay, 5.0);
}

TEST_F(Form8Test, TheCaptionPortIsToldAndCannotBeSwitchedOn) {
    struct Row final {
        std::array<int, 6> stored;
        std::array<int, 4> limited;
        const char16_t* text;
    };
    const Row rows[] = {
        {{0, 3, 99, 0, 9, -1}, {99, 0, 9, -1}, u"Off"},
        {{1, 3, 6, 1, 4, 1}, {6, 1, 4, 1}, u"On: COM 3, 9600, n, 8, 1"},
        {{2, -4, 0, 0, 0, 0}, {1, 1, 1, 1}, u"On: COM -4, 110, n, 5, 1"},
        {{1, 10, 99, 99, 99, 99}, {13, 5, 4, 3}, u"On: COM 10, 921600, s, 8, 2"},
    };
    for (const Row& row : rows) {
        std::tie(settings.CCActive, settings.CCPort, settings.CCSpeed, settings.CCParity,
                 settings.CCDataBits, settings.CCStopBits) = std::tuple_cat(row.stored);
        open();
        press(u"CCSetup"_qs);
        EXPECT_EQ(shown(u"Label39"_qs), QString::fromUtf16(row.text));
        const std::array left = {settings.CCSpeed, settings.CCParity, settings.CCDataBits,
                                 settings.CCStopBits};
        EXPECT_EQ(left, row.limited);
        EXPECT_EQ(settings.CCActive, row.stored[0]);
        EXPECT_EQ(test.messages.boxes.back().title, u"Brightleaf Pro™"_qs);
        EXPECT_EQ(test.messages.boxes.back().text,
                  u"Closed Captioning Is Not Supported In This Version"_qs);
    }
}

TEST_F(Form8Test, TheControllerWindowsChoiceIsShownAndDerived) {
    test.pump.setEveryPump([] { QCoreApplication::processEvents(); });
    open();
    const ModalAction user(
        [](QWidget& window) { clickButton(window, u"Use RF Wireless Controller"); });
    press(u"ConfigureController"_qs);
    EXPECT_TRUE(user.done());
    EXPECT_EQ(shown(u"Label27"_qs), u"RF Wireless Controller"_qs);
    EXPECT_EQ(settings.SpeedControllerInUse, 1);
}

} // namespace
} // namespace velmora
