#include "setup/caption_port.h"

#include "gui/setup/window_controls.h"
#include "support/test_session.h"

#include <QLineEdit>

#include <optional>

namespace velmora {
namespace {

class Form30Test : public ::testing::Test {
protected:
    void open() {
        form.emplace(test.session, nullptr);
        form->show();
    }
    [[nodiscard]] bool edits(int number) const {
        const bool box = control<QLineEdit>(*form, u"Text%1"_qs.arg(number)).isVisible();
        EXPECT_EQ(box, control<QWidget>(*form, u"CB%1"_qs.arg(number)).isVisible());
        return box;
    }
    TestSession test;
    Settings& settings = test.session.settings;
    std::optional<Form30> form;
};

struct Cycle final {
    const char16_t* button;
    const char16_t* caption;
    const char16_t* label;
    int Settings::*setting;
    int first;
    const char16_t* texts;
};

TEST_F(Form30Test, EachButtonLimitsItsSettingAndLeadsItRound) {
    const Cycle cycles[] = {
        {u"CCActiveButton", u"Closed Captioning Status", u"StatusLabel", &Settings::CCActive, 0,
         u"Off|On"},
        {u"CCPortButton", u"Communications Port", u"Label4", &Settings::CCPort, 1,
         u"COM 1:|COM 2:|COM 3:|COM 4:|COM 5:|COM 6:|COM 7:|COM 8:|COM 9:|COM 10:"},
        {u"CCSpeedButton", u"Port Speed", u"Label5", &Settings::CCSpeed, 1,
         u"110|300|1200|2400|4800|9600|19200|38400|57600|115200|230400|460800|921600"},
        {u"CCParityButton", u"Parity", u"Label6", &Settings::CCParity, 1,
         u"None|Even|Odd|Mark|Space"},
        {u"CCDataBitsButton", u"Data Bits", u"Label7", &Settings::CCDataBits, 1, u"5|6|7|8"},
        {u"CCStopBitsButton", u"Stop Bits", u"Label8", &Settings::CCStopBits, 1, u"1|1.5|2"},
        {u"CCFlowButton", u"Flow Control", u"Label9", &Settings::CCFlow, 1,
         u"None|Xon/Xoff|RTS|RTS + Xon/Xoff"},
    };
    for (const Cycle& cycle : cycles) {
        const QStringList texts = QString::fromUtf16(cycle.texts).split(u'|');
        const auto button = QString::fromUtf16(cycle.button);
        const auto label = QString::fromUtf16(cycle.label);
        settings.*cycle.setting = -1;
        open();
        EXPECT_EQ(control<QAbstractButton>(*form, button).text(),
                  QString::fromUtf16(cycle.caption));
        for (int press = 0; press <= texts.size(); ++press) {
            const int index = press % static_cast<int>(texts.size());
            EXPECT_EQ(labelText(*form, label), texts[index]) << button.toStdString();
            EXPECT_EQ(settings.*cycle.setting, cycle.first + index);
            click(*form, button);
        }
        settings.*cycle.setting = 32767;
        open();
        EXPECT_EQ(labelText(*form, label), texts.last());
        settings.*cycle.setting = -32768;
        click(*form, button);
        EXPECT_EQ(labelText(*form, label), texts[1]) << "raised to the first, then one on";
    }
}

TEST_F(Form30Test, ACodeIsStoredBySaveAndDroppedByAnyOtherButton) {
    const std::pair<const char16_t*, QString Settings::*> codes[] = {
        {u"CCStartCodeButton", &Settings::CCStartCode},
        {u"CCStopCodeButton", &Settings::CCStopCode},
        {u"CCLineStartCodeButton", &Settings::CCLineStartCode},
        {u"CCLineStopCodeButton", &Settings::CCLineStopCode},
        {u"CCResetButton", &Settings::CCResetCode},
    };
    settings.CCStopCode = u"^Z"_qs;
    open();
    EXPECT_EQ(labelText(*form, u"Label11"_qs), u"^Z"_qs);
    int number = 1;
    for (const auto& [button, setting] : codes) {
        const QString before = settings.*setting;
        const QString label = u"Label%1"_qs.arg(9 + number);
        auto& box = control<QLineEdit>(*form, u"Text%1"_qs.arg(number));
        EXPECT_FALSE(edits(number));
        click(*form, QString::fromUtf16(button));
        EXPECT_TRUE(edits(number));
        EXPECT_EQ(box.text(), before);
        EXPECT_EQ(form->focusWidget(), &box);
        box.setText(u"^A<b>%1"_qs.arg(number));
        click(*form, u"CCParityButton"_qs);
        EXPECT_FALSE(edits(number));
        EXPECT_EQ(settings.*setting, before) << "dropped";

        click(*form, QString::fromUtf16(button));
        EXPECT_EQ(box.text(), before);
        box.setText(u"^A<b>%1"_qs.arg(number));
        if (number % 2 == 0) {
            QTest::keyClick(&box, Qt::Key_Return);
        } else {
            click(*form, u"CB%1"_qs.arg(number));
        }
        EXPECT_FALSE(edits(number));
        EXPECT_EQ(settings.*setting, u"^A<b>%1"_qs.arg(number));
        EXPECT_EQ(labelText(*form, label), settings.*setting);
        ++number;
    }
    for (const WayOut& way : waysOut()) {
        open();
        click(*form, u"CCStartCodeButton"_qs);
        control<QLineEdit>(*form, u"Text1"_qs).setText(u"lost"_qs);
        way.act(*form);
        EXPECT_FALSE(form->isVisible()) << way.what;
        EXPECT_EQ(settings.CCStartCode, u"^A<b>1"_qs) << way.what;
    }
}

} // namespace
} // namespace velmora
