#include "display/display_geometry.h"
#include "display/display_window.h"
#include "display/script_preparation.h"
#include "display/show_hand_over.h"
#include "display/show_text.h"
#include "platform/desktop/appearance_effects.h"
#include "show_fixture.h"
#include "support/modal_action.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTest>

#include <tuple>

using namespace velmora;

namespace {

class HandOver : public ShowFixture {};

} // namespace

TEST_F(HandOver, CaretReturnsToTheLineThatWasOnTop) {
    show.StartFromCursor = 1;
    show.StartPosition = 12;
    int& smoothing = t.effects.values[AppearanceSetting::FontSmoothingType];
    smoothing = ClsAppearanceEffects::SubpixelSmoothing;
    showFor(1, [&] {
        EXPECT_EQ(show.ShowRunning, 1);
        EXPECT_EQ(smoothing, ClsAppearanceEffects::NoSmoothing);
        EXPECT_FALSE(rtb1.redraw());
    });
    EXPECT_EQ(shows, 1);
    EXPECT_EQ(smoothing, ClsAppearanceEffects::SubpixelSmoothing);
    EXPECT_EQ(caretLine(), 12);
    EXPECT_EQ(t.host.linesToTop, std::vector<int>{12});
    EXPECT_EQ(t.host.activity, (std::vector<bool>{false, true}));
    EXPECT_EQ(show.ShowRunning, 0);
    EXPECT_EQ(show.ExitRequested, 0);
    EXPECT_TRUE(rtb1.redraw());
    EXPECT_TRUE(display.isNull()) << "the window goes with the show";
}

TEST_F(HandOver, WindowThatIsClosedByItsFrameLeavesTheShowAndStaysUntilItEnds) {
    settings.ScrollSpeed = 0;
    t.pump.at(0.5, [&] { press(Qt::Key_Space); });
    t.pump.at(1.5, [&] {
        QCloseEvent close;
        QApplication::sendEvent(display, &close);
        EXPECT_FALSE(close.isAccepted());
    });
    handOver.RunPrompter();
    EXPECT_GT(caretLine(), 2);
}

TEST_F(HandOver, MissingSecondDisplayIsToldAndEndsTheShow) {
    settings.MirrorMode = 4;
    handOver.RunPrompter();
    EXPECT_EQ(shows, 0);
    ASSERT_EQ(t.messages.boxes.size(), 1u);
    EXPECT_EQ(t.messages.boxes[0].title, u"Display 2 Not Available"_qs);
    EXPECT_EQ(t.messages.boxes[0].text,
              u"I can only detect 1 available display.  Please enable Display 2 using the Display "
              u"Properties Settings menu."_qs);
    EXPECT_EQ(show.ShowRunning, 0);
}

TEST_F(HandOver, NothingStartsWithAnEmptyScriptOrInsideAShow) {
    showFor(1, [&] {
        handOver.RunPrompter();
        EXPECT_EQ(shows, 1);
    });
    rtb1.setText(QString());
    handOver.RunPrompter();
    EXPECT_EQ(shows, 1);
}

TEST_F(HandOver, HeldKeysRepeatWhereTheyShouldAndTheWindowFollowsThem) {
    showFor(0.1, [&] {
        press(Qt::Key_F12);
        press(Qt::Key_Space);
        EXPECT_EQ(show.PauseState, 3) << "dead while blanked";
        press(Qt::Key_F12);
        press(Qt::Key_Space);
        press(Qt::Key_F12);
        EXPECT_EQ(show.BlankState, 0) << "not while scrolling";
        const auto hold = [&](int key) {
            QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(display->focusWidget(), &repeated);
        };
        hold(Qt::Key_Space);
        EXPECT_EQ(show.PauseState, 0) << "acts once a press";
        const QImage scale = control("Picture6")->grab().toImage();
        hold(Qt::Key_Right);
        EXPECT_EQ(settings.ScrollSpeed, 58);
        EXPECT_NE(control("Picture6")->grab().toImage(), scale) << "the thumb follows";
        const QRect before = display->focusWidget()->geometry();
        press(Qt::Key_F10);
        EXPECT_EQ(display->focusWidget()->geometry(), before.translated(10, 20));
        press(Qt::Key_F10);
        EXPECT_EQ(display->focusWidget()->geometry(), before);
        press(Qt::Key_B);
    });
    ASSERT_EQ(t.messages.boxes.size(), 1u);
    EXPECT_EQ(t.messages.boxes[0].text,
              u"You have inserted 1 new bookmark.  Do you wish to add this new bookmark to your "
              u"script?"_qs);
}

TEST_F(HandOver, ControlsInSightFollowTheStateAlone) {
    struct Row {
        int fullScreen;
        bool blank;
        int arrow;
    };
    for (const Row& row : {Row{0, false, 1}, Row{0, false, 0}, Row{1, false, 1}, Row{1, false, 0},
                           Row{0, true, 1}, Row{1, true, 1}}) {
        SCOPED_TRACE(testing::Message() << row.fullScreen << row.blank << row.arrow);
        settings.FullScreenMode = row.fullScreen;
        settings.ArrowVisible = row.arrow;
        const auto look = [&](bool blank) {
            const auto seen = [&](const QWidget* widget) { return widget->isVisibleTo(display); };
            for (const QWidget* shown : {control("Vscroll1"), control("Command3"),
                                         control("Vscroll2"), control("Label1")}) {
                EXPECT_EQ(seen(shown), !blank && row.fullScreen == 0);
            }
            EXPECT_EQ(seen(display->findChild<ArrowStrip*>()), !blank && row.arrow == 1);
        };
        showFor(0.1, [&] {
            if (row.blank) {
                press(Qt::Key_F12);
                look(true);
                press(Qt::Key_F12);
            }
            look(false);
        });
    }
}

TEST_F(HandOver, BlankScreenAlwaysComesBack) {
    settings.AutomaticLooping = 1;
    t.pump.at(1, [&] { press(Qt::Key_F12); });
    showFor(20, [&] {
        EXPECT_EQ(show.BlankState, 1);
        show.PauseState = 0;
        press(Qt::Key_F12);
        EXPECT_EQ(show.BlankState, 0);
    });
    EXPECT_LT(t.clock.secondsSinceStart(), 21);
}

TEST_F(HandOver, ScriptThatFitsTheWindowStandsWhateverIsPressed) {
    rtb1.setText(u"One line"_qs);
    showFor(0.5, [&] {
        press(Qt::Key_Space);
        const ModalAction leave([](QWidget& window) { window.close(); });
        press(Qt::Key_F);
        EXPECT_TRUE(leave.done());
        press(Qt::Key_F12);
        EXPECT_EQ(show.BlankState, 1);
        press(Qt::Key_F12);
    });
}

TEST_F(HandOver, ArrowKeepsTheHeightThatItsButtonsGaveIt) {
    settings.ArrowPosition = 5000;
    showFor(0.1, [&] {
        const int lowest = settings.ArrowPosition;
        EXPECT_EQ(lowest, 720 - 36 - 74) << "limited to the strip";
        auto* buttons = display->findChild<UpDown*>();
        const auto repeats = [&] {
            return !QAbstractEventDispatcher::instance()->registeredTimers(buttons).isEmpty();
        };
        QTest::mousePress(buttons, Qt::LeftButton, {}, QPoint(9, 4));
        EXPECT_TRUE(repeats());
        press(Qt::Key_F10);
        press(Qt::Key_F10);
        EXPECT_FALSE(repeats()) << "a hidden button lets go";
        EXPECT_EQ(settings.ArrowPosition, lowest - 1);
    });
}

TEST_F(HandOver, FullRangeTurnsByKeyOnTheWayAndAtEitherEnd) {
    settings.ScrollSpeedControl = 1;
    settings.ScrollSpeed = 255;
    struct Row {
        int second, key, pauseBefore, direction;
    };
    for (const Row& row : {Row{10, Qt::Key_Backspace, 1, -1}, Row{11, Qt::Key_F24, 0, 1},
                           Row{20, Qt::Key_Space, 1, -1}, Row{30, Qt::Key_F24, 1, 1}}) {
        t.pump.at(row.second, [this, row] {
            EXPECT_EQ(show.PauseState, row.pauseBefore);
            press(row.key);
        });
        t.pump.at(row.second + 0.5, [this, row] {
            EXPECT_EQ(show.PauseState, 0);
            EXPECT_EQ(show.ScrollDirection, row.direction) << row.second;
            EXPECT_EQ(control("Picture4")->isVisibleTo(display), row.direction > 0);
            EXPECT_EQ(control("Picture5")->isVisibleTo(display), row.direction < 0);
        });
    }
    t.pump.at(0.1, [&] {
        for (const int coming : {-1, 1}) {
            press(Qt::Key_Backspace);
            EXPECT_EQ(show.comingDirection(), coming)
                << "the second press takes the first one back";
        }
    });
    t.pump.at(0.2, [&] { press(Qt::Key_Space); });
    showFor(35, [&] { EXPECT_EQ(settings.ScrollSpeed, 0) << "folded at the start"; });
}

TEST_F(HandOver, FindOpensWhereTheTextStandsStill) {
    for (const auto& [range, speed, looping, opens] : {std::tuple(0, 120, 0, true),
                                                       {0, 137, 0, false},
                                                       {0, 120, 1, false},
                                                       {1, 250, 0, true},
                                                       {1, 249, 0, false}}) {
        showFor(0.1, [&, range = range, speed = speed, looping = looping, opens = opens] {
            std::tie(settings.ScrollSpeedControl, settings.ScrollSpeed, show.PauseState) =
                std::tuple(range, speed, 0);
            settings.AutomaticLooping = looping;
            const ModalAction leave([](QWidget& window) { window.close(); });
            press(Qt::Key_F);
            EXPECT_EQ(leave.done(), opens) << range << " at " << speed;
            const std::int64_t row = show.ScrollRow;
            press(Qt::Key_F3);
            EXPECT_EQ(show.ScrollRow, row) << "nothing has been looked for";
        });
    }
}

TEST_F(HandOver, EscapeAndTheFrameLeaveDuringThePreparation) {
    rtb1.setSelStart(rtb1.lineIndex(7));
    for (const bool byKey : {true, false}) {
        t.pump.next([&] {
            QWidget* form23 = QApplication::activeModalWidget();
            ASSERT_NE(form23, nullptr);
            if (byKey) {
                QTest::keyClick(form23, Qt::Key_Escape);
            } else {
                EXPECT_FALSE(form23->close());
            }
        });
        handOver.RunPrompter();
        EXPECT_EQ(shows, 0);
        EXPECT_EQ(caretLine(), 7);
        EXPECT_EQ(show.ExitRequested, 0);
    }
}

TEST_F(HandOver, TimedWindowsKnowTheirKeys) {
    settings.TimedDisplay = 1;
    settings.TimedDisplaySeconds = 100;
    t.pump.at(0.1, [&] {
        for (const auto& [key, seconds] : {std::pair(Qt::Key_Right, 101),
                                           {Qt::Key_Up, 111},
                                           {Qt::Key_PageUp, 171},
                                           {Qt::Key_Left, 170},
                                           {Qt::Key_Down, 160},
                                           {Qt::Key_PageDown, 100},
                                           {Qt::Key_PageDown, 40},
                                           {Qt::Key_PageDown, 10},
                                           {Qt::Key_End, 10}}) {
            press(key);
            EXPECT_EQ(settings.TimedDisplaySeconds, seconds) << key;
        }
        EXPECT_EQ(control<ShowText>("Label3")->text(), u"00:10"_qs);
    });
    const auto seen = [&](const char* name) { return control(name)->isVisibleTo(display); };
    t.pump.at(0.2, [&] {
        press(Qt::Key_F10);
        for (const char* name : {"Label3", "Hscroll1", "Vscroll1", "Command1", "Command2"}) {
            EXPECT_FALSE(seen(name)) << name;
        }
        press(Qt::Key_F23);
    });
    t.pump.at(0.4, [&] {
        EXPECT_EQ(show.PauseState, 0) << "started";
        press(Qt::Key_Up);
        EXPECT_EQ(settings.TimedDisplaySeconds, 10) << "only before the start";
        press(Qt::Key_F24, Qt::ShiftModifier);
        EXPECT_TRUE(seen("Command2") && seen("Label3"));
        press(Qt::Key_F9);
        EXPECT_FALSE(seen("Picture3"));
        press(Qt::Key_F23);
    });
    showFor(0.6, [&] { EXPECT_TRUE(seen("Command1")) << "reset"; });
}

TEST_F(HandOver, ScriptTooLongForOneShowIsAskedAboutAndShownAsFarAsItGoes) {
    rtb1.setText(u"x\r\n"_qs.repeated(40'000));
    t.messages.answers.push_back(MessageAnswer::Cancel);
    handOver.RunPrompter();
    EXPECT_EQ(shows, 0);
    ASSERT_EQ(t.messages.boxes.size(), 1u);
    EXPECT_TRUE(t.messages.boxes[0].text.contains(u"The last 7,236 lines"_qs))
        << qPrintable(t.messages.boxes[0].text);
    for (const int timed : {0, 1}) {
        settings.TimedDisplay = timed;
        t.messages.answers.push_back(MessageAnswer::Ok);
        showFor(0.5, [&] {
            auto* bar = control<QScrollBar>("Vscroll1");
            EXPECT_EQ(bar->maximum(), 32'765);
            bar->setValue(bar->maximum());
        });
        EXPECT_GT(caretLine(), 32'740);
        EXPECT_LT(caretLine(), 32'765);
        EXPECT_EQ(rtb1.lineCount(), 40'001);
    }
}
