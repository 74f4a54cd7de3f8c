#include "display/display_geometry.h"
#include "display/script_preparation.h"
#include "display/text_window.h"
#include "show_fixture.h"

#include <gtest/gtest.h>

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QTest>
#include <QWheelEvent>

using namespace velmora;

namespace {

class ShowDevices : public ShowFixture {
protected:
    /// 0-based line on top of the window, going forward.
    [[nodiscard]] int topLine() const {
        return tables->scanTable.at(show.ScrollRow - geometry->textRows() + 1).line - 1;
    }
    static void turnWheel(QWidget* target) {
        QWheelEvent wheel(QPointF(50, 50), target->mapToGlobal(QPointF(50, 50)), QPoint(),
                          QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(target, &wheel);
    }
    static void mouse(QWidget* target, QEvent::Type type, QPointF at, Qt::MouseButton held) {
        QMouseEvent event(type, at, target->mapToGlobal(at), held, held, Qt::NoModifier);
        QApplication::sendEvent(target, &event);
    }
    static void drag(QWidget* target, QPointF from, QPointF to,
                     Qt::MouseButton button = Qt::LeftButton) {
        mouse(target, QEvent::MouseButtonPress, from, button);
        mouse(target, QEvent::MouseMove, from, button);
        mouse(target, QEvent::MouseMove, to, button);
        mouse(target, QEvent::MouseButtonRelease, to, button);
    }
};

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
        EXPECT_EQ(t.pointer.hiddenOver, display->focusWidget());
        EXPECT_FALSE(control("Command3")->isVisibleTo(display));
        QTest::mouseClick(display->focusWidget(), Qt::RightButton, Qt::NoModifier, QPoint(9, 9));
        EXPECT_EQ(settings.FullScreenMode, 1);
        QTest::mouseClick(display->focusWidget(), Qt::MiddleButton);
        settings.ScrollSpeed = 60;
        for (const int scrollSpeed : {60, 195}) {
            QTest::mousePress(display->focusWidget(), Qt::LeftButton);
            EXPECT_EQ(show.PauseState, 0);
            EXPECT_EQ(settings.ScrollSpeed, scrollSpeed) << "the first press starts";
        }
    });
    EXPECT_EQ(t.pointer.confinedTo, nullptr);

    settings.FullScreenMode = 0;
    settings.ControllerType = 20;
    showFor(0.2, [&] {
        QTest::mouseClick(display->focusWidget(), Qt::RightButton, Qt::NoModifier, QPoint(9, 9));
        EXPECT_EQ(show.PauseState, 0);
        EXPECT_EQ(settings.FullScreenMode, 0);
    });

    settings.ControllerType = 11;
    settings.ScrollSpeed = 60;
    showFor(0.2, [&] {
        QWidget* picture = display->focusWidget();
        EXPECT_EQ(t.pointer.confinedTo, nullptr);
        turnWheel(picture);
        EXPECT_EQ(settings.ScrollSpeed, 58);
        QTest::mouseClick(picture, Qt::RightButton, Qt::NoModifier, QPoint(9, 9));
        EXPECT_EQ(show.PauseState, 0);
        QTest::mouseClick(picture, Qt::LeftButton, Qt::NoModifier, QPoint(9, 9));
        EXPECT_EQ(settings.ScrollSpeed, 58) << "a plain mouse drags with it";
    });
}

TEST_F(ShowDevices, ArrowsTroughAndThumbOfTheScrollBarStartFromTheLineOnTop) {
    struct Row {
        QStyle::SubControl part;
        int dragged, from, to;
    };
    settings.ScrollSpeed = 0;
    show.StartFromCursor = 1;
    show.StartPosition = 4;
    int before = 0;
    for (const Row& row :
         {Row{QStyle::SC_ScrollBarSubLine, 0, -1, -1}, Row{QStyle::SC_ScrollBarAddLine, 0, 1, 1},
          Row{QStyle::SC_ScrollBarSubPage, 0, -2, -2}, Row{QStyle::SC_ScrollBarAddPage, 0, 2, 2},
          Row{QStyle::SC_ScrollBarSlider, 1, 0, 1}, Row{QStyle::SC_ScrollBarSlider, 50, 2, 5},
          Row{QStyle::SC_ScrollBarSlider, -50, -5, -2},
          Row{QStyle::SC_ScrollBarSlider, -900, -99, -99}}) {
        SCOPED_TRACE(testing::Message() << row.part << " dragged by " << row.dragged);
        t.pump.in(0.1, [&] { press(Qt::Key_Space); });
        t.pump.in(0.7, [&] { press(Qt::Key_Space); });
        showFor(0.8, [&] {
            auto* bar = control<QScrollBar>("Vscroll1");
            before = topLine();
            EXPECT_GT(bar->value(), before + 3) << "it tells the leading edge";
            QStyleOptionSlider option;
            option.initFrom(bar);
            option.orientation = Qt::Vertical;
            option.maximum = bar->maximum();
            option.pageStep = bar->pageStep();
            option.sliderPosition = bar->value();
            const QPointF at =
                bar->style()->subControlRect(QStyle::CC_ScrollBar, &option, row.part, bar).center();
            drag(bar, at, at + QPointF(0, row.dragged));
            EXPECT_GE(topLine() - before, std::max(row.from, -before));
            EXPECT_LE(topLine() - before, std::max(row.to, -before));
        });
    }
}

TEST_F(ShowDevices, TheWheelDuringThePreparationDoesNothing) {
    bool turned = false;
    t.pump.next([&] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            turned = turned || window->windowTitle() == u"Velmora Display"_qs;
            turnWheel(window);
        }
    });
    showFor(0.2, [&] { EXPECT_EQ(settings.ScrollSpeed, 60); });
    EXPECT_TRUE(turned) << "the window is there before the script is prepared";
}

TEST_F(ShowDevices, TheScaleIsPressedAndDraggedInBothWindows) {
    struct Row {
        int mirrorMode;
        double from, to, speed;
        int pause;
    };
    for (const Row& row :
         {Row{0, 200, 300, 26, 0}, Row{0, 265, 203, 132, 0}, Row{0, 20, 300, 60, 0},
          Row{0, 50, 300, 60, 1}, Row{0, 72, 300, 60, 0}, Row{1, 123, 203, 198, 0},
          Row{1, 77, 125, 115, 0}, Row{1, 320, 9, 60, 0}, Row{1, 290, 9, 60, 1}}) {
        settings.MirrorMode = row.mirrorMode;
        settings.ScrollSpeed = 60;
        showFor(0.1, [&] {
            show.PauseState = 0;
            drag(control("Picture6"), QPointF(row.from, 9), QPointF(row.to, 9));
            EXPECT_EQ(settings.ScrollSpeed, row.speed) << row.from << " to " << row.to;
            EXPECT_EQ(show.PauseState, row.pause) << row.from;
            mouse(control("Picture6"), QEvent::MouseButtonDblClick, QPointF(row.from, 9),
                  Qt::LeftButton);
            EXPECT_EQ(show.PauseState, row.pause) << row.from;
        });
    }
}

TEST_F(ShowDevices, OnALargeDisplayTheControlsAreDrawnAndPressedTwiceAsLarge) {
    QImage faces[2];
    for (const int unit : {1, 2}) {
        t.monitors.rectangles = {QRect(0, 0, 1920 * unit, 1080 * unit)};
        settings.ArrowPosition = 100 * unit;
        showFor(0.1, [&] {
            drag(control("Picture6"), QPointF(200, 9) * unit, QPointF(300, 9) * unit);
            EXPECT_EQ(settings.ScrollSpeed, 26);
            QImage face(400, 250, QImage::Format_RGB32);
            face.fill(Qt::black);
            QPainter painter(&face);
            painter.scale(1.0 / unit, 1.0 / unit);
            QPoint place;
            for (const char* name : {"Picture3", "Picture4", "Picture6", "Label1"}) {
                painter.drawImage(place, control(name)->grab().toImage());
                place = QPoint(45, place.y() / unit + 50) * unit;
            }
            faces[unit - 1] = face;
        });
    }
    // The same but for the edges of lines and letters.
    int unlike = 0;
    for (int at = 0; at < faces[0].width() * faces[0].height(); ++at) {
        const QPoint place(at % faces[0].width(), at / faces[0].width());
        const int one = qGray(faces[0].pixel(place));
        unlike += std::abs(one - qGray(faces[1].pixel(place))) > 60 ? 1 : 0;
    }
    EXPECT_LT(unlike, 220);
}

TEST_F(ShowDevices, MovesOverTheTextSteerAsTheControllerSays) {
    settings.ScrollSpeedControl = 1;
    showFor(0.1, [&] {
        QWidget* text = display->focusWidget();
        drag(text, QPointF(300, 300), QPointF(290, 300));
        drag(text, QPointF(10, 10), QPointF(10, 10));
        EXPECT_EQ(settings.ScrollSpeed, 70) << "let go in between";
        drag(text, QPointF(300, 300), QPointF(300, 310), Qt::RightButton);
        EXPECT_EQ(show.ReverseToBackward, 1);
        mouse(text, QEvent::MouseButtonDblClick, QPointF(9, 9), Qt::RightButton);
        EXPECT_EQ(show.PauseState, 0) << "its first press was the press";
        drag(text, QPointF(300, 300), QPointF(300, 290), Qt::RightButton);
        EXPECT_EQ(show.comingDirection(), 1) << "the other way takes the turn back";
        turnWheel(control("Vscroll1"));
        EXPECT_EQ(settings.ScrollSpeed, 68) << "the wheel is the speed's everywhere";
        show.PauseState = 1;
        press(Qt::Key_F12);
        drag(text, QPointF(300, 300), QPointF(290, 300));
        turnWheel(text);
        QTest::mouseClick(text, Qt::RightButton, Qt::NoModifier, QPoint(9, 9));
        EXPECT_EQ(settings.ScrollSpeed, 68) << "blank";
        EXPECT_EQ(show.PauseState, 1);
        press(Qt::Key_F12);
    });
    settings.ControllerType = 20;
    settings.MirrorMode = 1;
    showFor(0.1, [&] {
        QWidget* text = display->focusWidget();
        const QPointF middle(text->width() / 2, text->height() / 2);
        for (const QPointF& at : {QPointF(9, 9), middle - QPointF(10, 0)}) {
            mouse(text, QEvent::MouseMove, at, Qt::NoButton);
            EXPECT_EQ(t.pointer.place, text->mapToGlobal(middle).toPoint());
        }
        EXPECT_EQ(settings.ScrollSpeed, 73);
        QTest::mouseClick(text, Qt::RightButton, Qt::NoModifier, QPoint(9, 9));
        EXPECT_EQ(settings.FullScreenMode, 1);
        QTest::mouseDClick(display->windowHandle(), Qt::RightButton, {}, QPoint(600, 300));
        EXPECT_EQ(settings.FullScreenMode, 1) << "there and back";
    });
}

TEST_F(ShowDevices, ThePointerThatRestsOnTheRunningTextGoesUntilItIsMoved) {
    settings.MirrorMode = 4;
    t.monitors.rectangles = {QRect(0, 0, 1280, 720), QRect(1280, 0, 1280, 720)};
    const auto expectShown = [&](double second, bool shown) {
        t.pump.at(second, [second, shown] {
            int pictures = 0;
            for (const QWidget* widget : QApplication::allWidgets()) {
                if (qobject_cast<const TextWindow*>(widget)) {
                    EXPECT_EQ(widget->cursor().shape() != Qt::BlankCursor, shown) << second;
                    ++pictures;
                }
            }
            EXPECT_EQ(pictures, 2);
        });
    };
    const auto move = [&](double second, int x) {
        t.pump.at(second, [&, x] {
            mouse(display->focusWidget(), QEvent::MouseMove, QPointF(x, 9), Qt::NoButton);
        });
    };
    t.pump.at(2.5, [&] { press(Qt::Key_Space); });
    expectShown(2.4, true);
    move(2.6, 9);
    expectShown(4.5, true);
    expectShown(4.7, false);
    move(4.8, 9);
    expectShown(4.9, false);
    move(5, 10);
    expectShown(5.1, true);
    t.pump.at(5.2, [&] { press(Qt::Key_Space); });
    expectShown(9, true);
    showFor(10, [] {});
}

TEST_F(ShowDevices, ADoubleClickOnStartOrResetOrTheTextIsOnePress) {
    settings.TimedDisplay = 1;
    const auto doubleClick = [&](QWidget* target) {
        QTest::mouseDClick(display->windowHandle(), Qt::LeftButton, {},
                           target->mapTo(display, target->rect().center()));
    };
    t.pump.at(0.2, [&] { doubleClick(control("Command1")); });
    t.pump.at(0.4, [&] {
        EXPECT_EQ(show.PauseState, 0);
        EXPECT_EQ(show.ExitRequested, 0) << "Reset has come where Start was";
        doubleClick(control("Command2"));
    });
    t.pump.at(0.6, [&] {
        EXPECT_EQ(show.AwaitingStart, 1);
        doubleClick(display->focusWidget());
        EXPECT_EQ(show.ExitRequested, 0);
    });
    showFor(0.8, [&] { EXPECT_EQ(show.PauseState, 0); });
}

TEST_F(ShowDevices, PedalStartsATimedShowOfTheLengthThatItsBarTells) {
    settings.TimedDisplay = 1;
    settings.TimedDisplaySeconds = 3599;
    settings.ControllerType = 10;
    double ended = 0;
    onLimit = [&] { ended = t.clock.secondsSinceStart(); };
    t.pump.at(1, [&] { control<QScrollBar>("Hscroll1")->setValue(20); });
    t.pump.at(1.5, [&] { t.joystick.held = 4; });
    t.pump.at(2, [&] { t.joystick.held = 0; });
    showFor(25, [&] { EXPECT_EQ(show.AwaitingStart, 0) << "stands at its end"; });
    EXPECT_NEAR(ended, 22, 0.05);
}
