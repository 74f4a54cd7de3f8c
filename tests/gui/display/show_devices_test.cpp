#include "show_fixture.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWheelEvent>

using namespace velmora;

namespace {

class ShowDevices : public ShowFixture {};

} // namespace

TEST_F(ShowDevices, ReachTheShow) {
    settings.ControllerType = 10;
    t.pump.in(0.2, [&] { t.joystick.held = 4; });
    t.pump.in(0.4, [&] { t.joystick.held = 0; });
    t.pump.in(0.6, [&] {
        EXPECT_EQ(show.PauseState, 0);
        t.joystick.held = 1;
    });
    showFor(1, [&] { EXPECT_LT(settings.ScrollSpeed, 58); });

    settings.ControllerType = 21;
    settings.ScrollSpeed = 60;
    t.joystick.held = 0;
    showFor(0.2, [&] {
        EXPECT_EQ(t.pointer.confinedTo, display->focusWidget());
        EXPECT_FALSE(control("Command3")->isVisibleTo(display));
        QTest::mouseClick(display->focusWidget(), Qt::RightButton, Qt::NoModifier, QPoint(9, 9));
        EXPECT_EQ(settings.FullScreenMode, 1);
        settings.ScrollSpeed = 60;
        for (const int scrollSpeed : {60, 195}) {
            QTest::mousePress(display->focusWidget(), Qt::LeftButton);
            EXPECT_EQ(show.PauseState, 0);
            EXPECT_EQ(settings.ScrollSpeed, scrollSpeed) << "the first press starts";
        }
    });
    EXPECT_EQ(t.pointer.confinedTo, nullptr);

    settings.ControllerType = 11;
    settings.FullScreenMode = 0;
    settings.ScrollSpeed = 60;
    showFor(0.2, [&] {
        QWidget* picture = display->focusWidget();
        QWheelEvent wheel(QPointF(50, 50), picture->mapToGlobal(QPointF(50, 50)), QPoint(),
                          QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(picture, &wheel);
        EXPECT_EQ(settings.ScrollSpeed, 58);
        QTest::mouseClick(picture, Qt::RightButton, Qt::NoModifier, QPoint(9, 9));
        EXPECT_EQ(show.PauseState, 0);
        QTest::mouseClick(picture, Qt::LeftButton, Qt::NoModifier, QPoint(9, 9));
        EXPECT_EQ(settings.ScrollSpeed, 58) << "a plain mouse drags with it";
        QWidget* scale = control("Picture6");
        QTest::mouseClick(scale, Qt::LeftButton, Qt::NoModifier, QPoint(324, 9));
        EXPECT_EQ(settings.ScrollSpeed, 0);
        QTest::mouseClick(scale, Qt::LeftButton, Qt::NoModifier, QPoint(72, 9));
        EXPECT_EQ(show.PauseState, 0);
        QTest::mouseClick(scale, Qt::LeftButton, Qt::NoModifier, QPoint(50, 9));
        EXPECT_EQ(show.PauseState, 1);
    });
}

TEST_F(ShowDevices, TheWheelDuringThePreparationDoesNothing) {
    bool turned = false;
    t.pump.next([&] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, 120), Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            turned = turned || window->windowTitle() == u"Velmora Display"_qs;
            QApplication::sendEvent(window, &wheel);
        }
    });
    showFor(0.2, [&] { EXPECT_EQ(settings.ScrollSpeed, 60); });
    EXPECT_TRUE(turned) << "the window is there before the script is prepared";
}
