#include "core/arrangement.h"
#include "display/display_windows.h"
#include "display/flipped_view.h"
#include "display/speaker_window.h"
#include "show_fixture.h"
#include "support/modal_action.h"

#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QWindow>

using namespace velmora;

namespace {

class FourWindows : public ShowFixture {
protected:
    static SpeakerScriptM* speaker() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<SpeakerScriptM*>(window)) {
                return found;
            }
        }
        return nullptr;
    }
    void twoDisplays(QSize second) {
        settings.MirrorMode = 4;
        t.monitors.rectangles = {QRect(0, 0, 1280, 720), QRect(QPoint(1280, 0), second)};
    }
};

template<typename Window> bool is(const QWidget* window) {
    return dynamic_cast<const Window*>(window) != nullptr;
}

} // namespace

TEST_F(FourWindows, SettingsChooseTheWindow) {
    struct Row {
        int mirrorMode;
        int timed;
        bool (*isIts)(const QWidget*);
    };
    for (const Row& row : {Row{0, 0, is<Form4>}, Row{1, 0, is<Form20>}, Row{4, 0, is<Form4>},
                           Row{0, 1, is<Form22>}, Row{1, 1, is<Form25>}, Row{4, 1, is<Form22>}}) {
        SCOPED_TRACE(testing::Message() << row.mirrorMode << " timed " << row.timed);
        twoDisplays(QSize(1280, 720));
        settings.MirrorMode = row.mirrorMode;
        settings.TimedDisplay = row.timed;
        showFor(0.1, [&] {
            EXPECT_TRUE(row.isIts(display));
            EXPECT_EQ(speaker() != nullptr, row.mirrorMode == 4);
            EXPECT_TRUE(t.sleepInhibitor.inhibited);
            EXPECT_EQ(control("Hscroll1")->isVisibleTo(display), row.timed == 1);
            EXPECT_EQ(control("Picture6")->isVisibleTo(display), row.timed == 0);
        });
        EXPECT_FALSE(t.sleepInhibitor.inhibited);
        EXPECT_EQ(speaker(), nullptr);
    }
}

TEST_F(FourWindows, TimedShowIsStartedAndResetByButtonKeyAndPress) {
    settings.TimedDisplay = 1;
    settings.TimedDisplaySeconds = 3;
    settings.ControllerType = 20;
    for (const int mirrorMode : {0, 1}) {
        settings.MirrorMode = mirrorMode;
        const auto press1 = [&] { control<QPushButton>("Command1")->click(); };
        const auto press2 = [&] { control<QPushButton>("Command2")->click(); };
        const auto space = [&] { press(Qt::Key_Space); };
        const auto click = [&] {
            QTest::mouseClick(display->focusWidget(), Qt::LeftButton, Qt::NoModifier, QPoint(9, 9));
        };
        const std::vector<std::pair<std::function<void()>, std::function<void()>>> ways = {
            {press1, press2}, {space, space}, {click, click}};
        for (const auto& [start, reset] : ways) {
            t.pump.in(0.5, [&] {
                EXPECT_EQ(settings.TimedDisplaySeconds, 10);
                EXPECT_TRUE(control("Command1")->isVisibleTo(display));
                EXPECT_EQ(t.pointer.confinedTo, nullptr) << "the bar must be in reach";
                start();
            });
            t.pump.in(1.5, [&] {
                EXPECT_EQ(show.PauseState, 0);
                EXPECT_FALSE(control("Hscroll1")->isVisibleTo(display));
                EXPECT_TRUE(control("Command2")->isVisibleTo(display));
                press(Qt::Key_Left);
                press(Qt::Key_F12);
                EXPECT_EQ(settings.ScrollSpeed, 60) << "nobody steers";
                EXPECT_EQ(show.BlankState, 0);
                reset();
            });
            showFor(2, [&] {
                EXPECT_EQ(show.AwaitingStart, 1);
                EXPECT_TRUE(control("Command1")->isVisibleTo(display));
                control<QScrollBar>("Hscroll1")->setValue(3599);
                EXPECT_EQ(control<ShowText>("Label3")->text(), u"59:59"_qs);
                settings.TimedDisplaySeconds = 3;
            });
        }
    }
}

TEST_F(FourWindows, RemainingTimeOfTheFullRangeIsToldInTheMirroredWindowAlone) {
    settings.ScrollSpeedControl = 1;
    settings.ScrollSpeed = 0;
    for (const int mode : {0, 1}) {
        settings.MirrorMode = mode;
        t.pump.in(0.5, [&] { press(Qt::Key_Space); });
        showFor(1.5,
                [&] { EXPECT_EQ(control<ShowText>("Label4")->text() != u"00:00"_qs, mode == 1); });
    }
}

TEST_F(FourWindows, EachWindowHidesWhileItsDisplayIsAwayAndTheOtherGoesOn) {
    twoDisplays(QSize(1280, 720));
    const auto expectFaceInside = [&](QWidget& window, const QWidget& picture) {
        EXPECT_TRUE(window.rect().contains(picture.geometry()));
        EXPECT_GT(picture.width(), window.width() / 2);
    };
    t.pump.in(0.1, [&] {
        EXPECT_EQ(speaker()->geometry(), QRect(1280, 0, 1280, 720));
        control<UpDown>("Vscroll2")->setValue(77);
        EXPECT_EQ(speaker()->Picture3->grab().toImage(),
                  control("Picture3")->grab().toImage().mirrored(true, false));
        press(Qt::Key_F9);
        EXPECT_FALSE(speaker()->Picture3->isVisibleTo(speaker()));
        press(Qt::Key_F12);
        EXPECT_EQ(speaker()->Picture1->grab().toImage().pixel(600, 300), 0xff000000u);
        press(Qt::Key_F12);
        press(Qt::Key_Space);
        t.monitors.rectangles.resize(1);
        Q_EMIT qGuiApp->screenRemoved(nullptr);
        EXPECT_FALSE(speaker()->isVisible());
        const QSize picture = display->focusWidget()->size();
        press(Qt::Key_F10);
        press(Qt::Key_F10);
        EXPECT_EQ(display->focusWidget()->size(), picture) << "the picture keeps its size";
    });
    t.pump.in(2, [&] {
        EXPECT_GT(show.ScrollRow, 700) << "the show runs on";
        t.monitors.rectangles.push_back(QRect(1280, 0, 800, 600));
        Q_EMIT qGuiApp->screenAdded(nullptr);
        EXPECT_TRUE(speaker()->isVisible());
        EXPECT_EQ(speaker()->geometry(), QRect(1280, 0, 800, 600));
        expectFaceInside(*speaker(), *speaker()->Picture1);
    });
    t.pump.in(2.2, [&] {
        // The operator's display goes: the speaker's keeps its picture, and takes keys and pointer.
        t.monitors.rectangles.erase(t.monitors.rectangles.begin());
        Q_EMIT qGuiApp->screenRemoved(nullptr);
        EXPECT_FALSE(display->isVisible());
        EXPECT_EQ(speaker()->geometry(), QRect(1280, 0, 800, 600));
        EXPECT_EQ(speaker()->focusWidget(), speaker()->Picture1);
        EXPECT_FALSE(speaker()->windowHandle()->flags().testFlag(Qt::WindowDoesNotAcceptFocus));
        const double speed = settings.ScrollSpeed;
        QTest::keyClick(speaker()->Picture1, Qt::Key_Right);
        EXPECT_LT(settings.ScrollSpeed, speed);
        QTest::mouseClick(speaker()->Picture1, Qt::RightButton);
        EXPECT_EQ(show.PauseState, pause::Paused);
        ModalAction user([&](QWidget& dialog) {
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_NE(dialog.findChild<FlippedView*>(), nullptr);
            EXPECT_TRUE(speaker()->geometry().contains(dialog.frameGeometry()));
            dialog.close();
        });
        QTest::keyClick(speaker()->Picture1, Qt::Key_F);
        EXPECT_TRUE(user.done());
        QTest::keyClick(speaker()->Picture1, Qt::Key_Space);
        EXPECT_EQ(show.PauseState, pause::Scrolling);
        // Both come home.
        t.monitors.rectangles = {QRect(0, 0, 1280, 720), QRect(1280, 0, 1280, 720)};
        Q_EMIT qGuiApp->screenAdded(nullptr);
        EXPECT_EQ(display->geometry(), QRect(0, 0, 1280, 720));
        EXPECT_EQ(speaker()->geometry(), QRect(1280, 0, 1280, 720));
        EXPECT_TRUE(display->isVisible() && speaker()->isVisible());
        EXPECT_TRUE(speaker()->windowHandle()->flags().testFlag(Qt::WindowDoesNotAcceptFocus));
        EXPECT_EQ(speaker()->Picture1->size(), display->focusWidget()->size());
        QTest::mouseClick(speaker()->Picture1, Qt::RightButton);
        EXPECT_EQ(show.PauseState, pause::Scrolling) << "the speaker's picture is a picture again";
        // It comes back in another mode, or there is a third one: the speaker keeps the own.
        for (const QRect& other : {QRect(0, 0, 1024, 768), QRect(2560, 0, 1280, 720)}) {
            t.monitors.rectangles = {QRect(1280, 0, 1280, 720)};
            Q_EMIT qGuiApp->screenRemoved(nullptr);
            EXPECT_FALSE(display->isVisible());
            t.monitors.rectangles.push_back(other);
            Q_EMIT qGuiApp->screenAdded(nullptr);
            EXPECT_EQ(display->geometry(), other);
            for (const char* name : {"Picture6", "Command3", "Vscroll1", "Label4"}) {
                EXPECT_TRUE(display->rect().contains(control(name)->geometry())) << name;
            }
            EXPECT_EQ(speaker()->geometry(), QRect(1280, 0, 1280, 720));
            EXPECT_TRUE(speaker()->isVisible());
        }
    });
    t.pump.in(2.5, [&] {
        QCloseEvent close;
        QApplication::sendEvent(speaker(), &close);
        EXPECT_FALSE(close.isAccepted());
    });
    handOver.RunPrompter();
    EXPECT_LT(t.clock.secondsSinceStart(), 3.5);
}

TEST_F(FourWindows, ADisplayThatGoesIsMissedDuringThePreparationAndByADialogToo) {
    twoDisplays(QSize(1280, 720));
    t.pump.next([&] { t.monitors.rectangles.resize(1); });
    showFor(0.1, [&] { EXPECT_FALSE(speaker()->isVisible()); });

    twoDisplays(QSize(800, 600));
    settings.MirrorMode = mirror::OneDisplay;
    ModalAction user([&](QWidget& dialog) {
        t.monitors.rectangles.erase(t.monitors.rectangles.begin());
        Q_EMIT qGuiApp->screenRemoved(nullptr);
        EXPECT_TRUE(QRect(1280, 0, 800, 600).contains(dialog.frameGeometry()));
        dialog.close();
    });
    showFor(0.1, [&] { press(Qt::Key_F); });
    EXPECT_TRUE(user.done());
}
