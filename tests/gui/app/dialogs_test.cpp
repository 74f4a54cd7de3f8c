#include "app/exit_question.h"
#include "display/show_find_window.h"
#include "setup/monitor_help.h"
#include "support/modal_action.h"
#include "support/test_session.h"
#include "widgets/dialog_animation.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QTest>

#include <functional>

namespace velmora {
namespace {

using Act = std::function<void(QWidget&)>;

const Act closeByFrame = [](QWidget& window) { window.close(); };

Act pressKey(Qt::Key key) {
    return [key](QWidget& window) { QTest::keyClick(&window, key); };
}

Act press(const char16_t* caption) {
    return [caption](QWidget& window) { clickButton(window, caption); };
}

/// On a keyboard that writes Cyrillic, where X11 has the place 57 for it.
const Act pressCyrillicN = [](QWidget& window) {
    QKeyEvent event(QEvent::KeyPress, u'Т', Qt::NoModifier, 57, 0, 0, u"т"_qs);
    QApplication::sendEvent(&window, &event);
};

TEST(Form17, AnswersAsPressedAndTheFrameIsCancel) {
    struct Row final {
        const char* what;
        Act act;
        int answer;
    };
    const Row rows[] = {
        {"Yes", press(u"Yes"), 6},
        {"No", press(u"No"), 7},
        {"Cancel", press(u"Cancel"), 2},
        {"Escape", pressKey(Qt::Key_Escape), 2},
        {"frame", closeByFrame, 2},
        {"Enter", pressKey(Qt::Key_Return), 6},
        {"Y", pressKey(Qt::Key_Y), 6},
        {"N", pressKey(Qt::Key_N), 7},
        {"the place of N", pressCyrillicN, 7},
    };
    for (const Row& row : rows) {
        TestSession test;
        test.session.script.DialogClosing = 1;
        const ModalAction user([&](QWidget& window) {
            EXPECT_EQ(test.session.script.DialogClosing, 0) << row.what;
            row.act(window);
        });
        Form17(test.session, nullptr).ask();
        EXPECT_EQ(test.session.script.ExitAnswer, row.answer) << row.what;
        EXPECT_EQ(test.session.script.DialogClosing, 1) << row.what;
        EXPECT_FALSE(user.expired()) << row.what;
    }
}

TEST(Form11, OnlyOkTakesTheTickAndEveryWayOutClosesTheHelp) {
    struct Row final {
        const char* what;
        bool ticked;
        Act act;
        int IgnoreMonitorHelp;
    };
    const Row rows[] = {
        {"OK", false, press(u"OK"), 0},
        {"OK with the tick", true, press(u"OK"), 1},
        {"Escape with the tick", true, pressKey(Qt::Key_Escape), 0},
        {"frame with the tick", true, closeByFrame, 0},
    };
    for (const Row& row : rows) {
        TestSession test;
        const ModalAction user([&](QWidget& window) {
            EXPECT_EQ(window.windowTitle(), u"Multiple Monitors"_qs);
            window.findChild<QCheckBox*>(u"Check1"_qs)->setChecked(row.ticked);
            row.act(window);
        });
        Form11(test.session, nullptr).showHelp();
        EXPECT_EQ(test.session.settings.IgnoreMonitorHelp, row.IgnoreMonitorHelp) << row.what;
        EXPECT_EQ(test.session.script.MonitorHelpClosed, 1) << row.what;
        EXPECT_FALSE(user.expired()) << row.what;
    }
}

TEST(DialogAnimation, MovesInEachWindowThatHasOne) {
    TestSession test;
    Form11 help(test.session, nullptr);
    Form14 find(test.session, Orientation::Plain, nullptr);
    Form17 exit(test.session, nullptr);
    for (QDialog* window : std::initializer_list<QDialog*>{&help, &find, &exit}) {
        auto* animation = window->findChild<DialogAnimation*>();
        ASSERT_NE(animation, nullptr);
        window->show();
        const QImage first = animation->grab().toImage();
        test.clock.advanceSeconds(0.5);
        EXPECT_NE(animation->grab().toImage(), first);
    }
}

} // namespace
} // namespace velmora
