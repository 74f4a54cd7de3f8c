#include "setup/caption_port.h"

#include "gui/setup/window_controls.h"

#include <QLineEdit>

namespace velmora {
namespace {

class Form30Test : public SetupWindowTest<Form30> {
protected:
    [[nodiscard]] bool edits(int number) const {
        const bool box = control<QLineEdit>(*form, u"Text%1"_qs.arg(number)).isVisible();
        EXPECT_EQ(box, control<QWidget>(*form, u"CB%1"_qs.arg(number)).isVisible());
        return box;
    }
};

TEST_F(Form30Test, EachButtonLimitsItsSettingAndLeadsItRound) {
    const Cycle cycles[] = {
        {u"CCActiveButton", u"Closed Captioning Status", u"StatusLabel", &Settings::CCActive,
         u"0 Off|1 On"},
        {u"CCPortButton", u"Communications Port", u"Label4", &Settings::CCPort,
         u"1 COM 1:|2 COM 2:|3 COM 3:|4 COM 4:|5 COM 5:|6 COM 6:|7 COM 7:|8 COM 8:|9 COM 9:|"
         u"10 COM 10:"},
        {u"CCParityButton", u"Parity", u"Label6", &Settings::CCParity,
         u"1 None|2 Even|3 Odd|4 Mark|5 Space"},
        {u"CCFlowButton", u"Flow Control", u"Label9", &Settings::CCFlow,
         u"1 None|2 Xon/Xoff|3 RTS|4 RTS + Xon/Xoff"},
    };
    for (const Cycle& cycle : cycles) {
        for (const int stored : {32767, -32768}) {
            settings.*cycle.setting = stored;
            open();
            if (stored > 0) {
                click(*form, QString::fromUtf16(cycle.button));
            }
            leadRound(*form, settings, cycle);
        }
    }
    settings.CCPort = 0;
    click(*form, u"CCPortButton"_qs);
    EXPECT_EQ(labelText(*form, u"Label4"_qs), u"COM 2:"_qs) << "raised to the first, then one on";
}

TEST_F(Form30Test, ACodeIsStoredBySaveAndDroppedByAnyOtherButton) {
    const std::pair<const char16_t*, QString Settings::*> codes[] = {
        {u"CCStartCodeButton", &Settings::CCStartCode},
        {u"CCStopCodeButton", &Settings::CCStopCode},
        {u"CCLineStartCodeButton", &Settings::CCLineStartCode},
        {u"CCLineStopCodeButton", &Settings::CCLineStopCode},
        {u"CCResetButton", &Settings::CCResetCode},
    };
    settings.CCStopCode = u"^Z"_qs.repeated(500);
    open();
    EXPECT_EQ(labelText(*form, u"Label11"_qs), settings.CCStopCode);
    EXPECT_LT(form->width(), 1200) << "on the screen all the same";
    int number = 1;
    for (const auto& [button, setting] : codes) {
        const QString before = settings.*setting;
        auto& box = control<QLineEdit>(*form, u"Text%1"_qs.arg(number));
        for (const char16_t* way : {u"CCParityButton", u"Return", u"CB%1"}) {
            click(*form, QString::fromUtf16(button));
            EXPECT_EQ(form->focusWidget(), &box);
            box.setText(u"^A<b>%1"_qs.arg(number));
            if (QStringView(way) == u"Return") {
                QTest::keyClick(&box, Qt::Key_Return);
            } else {
                click(*form, QString::fromUtf16(way).replace(u"%1"_qs, QString::number(number)));
            }
            EXPECT_FALSE(edits(number));
            const bool dropped = way[2] == u'P';
            EXPECT_EQ(settings.*setting, dropped ? before : u"^A<b>%1"_qs.arg(number));
        }
        EXPECT_EQ(labelText(*form, u"Label%1"_qs.arg(9 + number)), settings.*setting);
        ++number;
    }
}

} // namespace
} // namespace velmora
