#include "setup/controller_choice.h"

#include "gui/setup/window_controls.h"
#include "setup/two_button_page.h"
#include "support/modal_action.h"
#include "support/test_session.h"

#include <QListWidget>
#include <QRadioButton>

#include <array>

namespace velmora {
namespace {

using Buttons = std::array<int, 5>;

class Form3Test : public ::testing::Test {
protected:
    Form3Test() {
        test.pump.setEveryPump([] { QCoreApplication::processEvents(); });
        settings.ControllerType = 21;
    }
    /// Opens the window, acts in it and waits for its end; false when it did not end by itself.
    bool choose(const std::function<void(QWidget&)>& act, int NeedsRestart = 0) {
        const ModalAction user(act);
        Form3 form(test.session, nullptr);
        form.NeedsRestart = NeedsRestart;
        form.choose();
        return user.done() && !user.expired();
    }
    void setButtons(const Buttons& to) {
        std::tie(settings.ShuttleButton1, settings.ShuttleButton2, settings.ShuttleButton3,
                 settings.ShuttleButton4, settings.ShuttleButton5) = std::tuple_cat(to);
    }
    [[nodiscard]] Buttons buttons() const {
        return {settings.ShuttleButton1, settings.ShuttleButton2, settings.ShuttleButton3,
                settings.ShuttleButton4, settings.ShuttleButton5};
    }

    TestSession test;
    Settings& settings = test.session.settings;
};

QListWidget& list(const QWidget& window, int number) {
    return control<QListWidget>(window, u"Button%1"_qs.arg(number));
}

Buttons rowsShown(const QWidget& window) {
    Buttons rows = {};
    for (int i = 0; i < 5; ++i) {
        rows[static_cast<std::size_t>(i)] = list(window, i + 1).currentRow() + 1;
    }
    return rows;
}

TEST_F(Form3Test, AChoiceIsStoredAndEveryWayOutKeepsWhatWas) {
    const std::pair<const char16_t*, int> choices[] = {
        {u"Use Foot Controller", 10},
        {u"No Controller", 11},
        {u"Use USB Trigger Controller", 20},
        {u"Use RF Wireless Controller", 21},
    };
    for (const auto& [caption, type] : choices) {
        settings.ControllerType = 0;
        EXPECT_TRUE(
            choose([&, caption = caption](QWidget& window) { clickButton(window, caption); }));
        EXPECT_EQ(settings.ControllerType, type);
    }
    for (const int before : {0, 10, -3}) {
        for (const WayOut& way : waysOut()) {
            settings.ControllerType = before;
            EXPECT_TRUE(choose([&](QWidget& window) {
                EXPECT_EQ(settings.ControllerType, 0) << "while the window is open";
                way.act(window);
            })) << way.what;
            EXPECT_EQ(settings.ControllerType, before) << way.what;
        }
    }
    EXPECT_TRUE(test.messages.boxes.empty());
}

TEST_F(Form3Test, TheButtonPageShowsLimitedFunctionsAndSavesThem) {
    struct Row final {
        Buttons stored;
        Buttons shown;
    };
    const Row rows[] = {
        {{1, 2, 3, 6, 7}, {1, 2, 3, 6, 7}},
        {{0, 9, -1, 32767, -32768}, {5, 4, 8, 2, 3}},
    };
    for (const Row& row : rows) {
        setButtons(row.stored);
        EXPECT_TRUE(choose([&](QWidget& window) {
            click(window, u"ShuttleXpress"_qs);
            EXPECT_FALSE(control<QWidget>(window, u"NoHandController"_qs).isVisible());
            EXPECT_EQ(rowsShown(window), row.shown);
            EXPECT_TRUE(labelText(window, u"ShuttleNote"_qs).contains(u"No Speed Controller"_qs));
            QStringList texts;
            for (int i = 0; i < list(window, 5).count(); ++i) {
                texts += list(window, 5).item(i)->text();
            }
            EXPECT_EQ(texts.join(u'|').toStdString(),
                      std::string("Exit To Editor|Next Bookmark|Pause/Resume|Previous Bookmark|"
                                  "Reverse Direction|Toggle Arrow|Toggle Blank Screen|"
                                  "Toggle Full Screen"));
            QTest::keyClick(&list(window, 1), Qt::Key_End);
            list(window, 3).clearSelection();
            click(window, u"CB2"_qs);
        }));
        Buttons saved = row.shown;
        saved[0] = 8;
        saved[2] = 8;
        EXPECT_EQ(buttons(), saved) << "a list with nothing selected takes its default";
        EXPECT_EQ(settings.ControllerType, 11);
    }
}

TEST_F(Form3Test, CancelKeepsTheFunctionsAndTheWindow) {
    const Buttons before = {1, 2, 3, 6, 7};
    setButtons(before);
    EXPECT_TRUE(choose([&](QWidget& window) {
        click(window, u"ShuttleXpress"_qs);
        list(window, 2).setCurrentRow(7);
        click(window, u"CB1"_qs);
        EXPECT_EQ(buttons(), before);
        EXPECT_TRUE(window.isVisible());
        EXPECT_TRUE(control<QWidget>(window, u"ShuttleXpress"_qs).isVisible());
        click(window, u"ShuttleXpress"_qs);
        EXPECT_EQ(rowsShown(window), before) << "the cancelled choice does not come back";
        QTest::keyClick(&list(window, 1), Qt::Key_Escape);
    }));
    EXPECT_EQ(buttons(), before);
    EXPECT_EQ(settings.ControllerType, 21);
}

TEST_F(Form3Test, ACalibrationTellsOfTheRestartWhenExitIsPressed) {
    EXPECT_TRUE(choose([](QWidget& window) { click(window, u"ExitButton"_qs); }, 1));
    ASSERT_EQ(test.messages.boxes.size(), 1U);
    EXPECT_EQ(test.messages.boxes[0].title, u"Restart To Apply Changes"_qs);
    EXPECT_EQ(test.messages.boxes[0].text,
              u"You must restart Velmora™ before calibration changes take effect."_qs);
}

TEST_F(Form3Test, TheTwoButtonPageStoresItsOptions) {
    TwoButtonPage page(settings, nullptr);
    page.show();
    const std::pair<const char16_t*, int> options[] = {{u"Jump To Next Bookmark", 0},
                                                       {u"Jump To Previous Bookmark", 1},
                                                       {u"Pause", 2},
                                                       {u"Jump To Beginning Of Text", 3},
                                                       {u"Jump To End Of Text", 4},
                                                       {u"Toggle Full-Screen Mode", 5},
                                                       {u"Exit To Editor Screen", 6},
                                                       {u"Insert Bookmark", 7},
                                                       {u"Disable Button", 10}};
    const auto radios = page.findChildren<QRadioButton*>();
    for (const auto& [text, value] : options) {
        settings.ControllerButton1 = settings.ControllerButton2 = -1;
        for (QRadioButton* option : radios) {
            if (option->text() == text) {
                option->click();
            }
        }
        EXPECT_EQ(settings.ControllerButton1, value);
        EXPECT_EQ(settings.ControllerButton2, value);
    }
    click(page, u"Cancel"_qs);
    EXPECT_EQ(settings.ControllerButton1, 0);
    EXPECT_EQ(settings.ControllerButton2, 1);
}

} // namespace
} // namespace velmora
