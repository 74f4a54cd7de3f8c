#include "core/screen_scale.h"
#include "display/display_geometry.h"
#include "display/display_window.h"
#include "display/script_preparation.h"
#include "display/show_hand_over.h"
#include "support/quiet_observer.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

using namespace velmora;

namespace {

/// A show over a script of forty lines, with acts on its window at given moments.
class HandOver : public ::testing::Test, public QuietObserver {
protected:
    void SetUp() override {
        RichTextBox& rtb1 = t.session.script.rtb1;
        CharacterFormat format;
        format.fontName = u"Liberation Sans"_qs;
        format.halfPoints = 52;
        format.color = White;
        rtb1.setDefaultFormat(format);
        rtb1.setWrapWidth(wrapWidthForMargin(12));
        rtb1.setZoom(6);
        QStringList lines;
        for (int line = 0; line < 40; ++line) {
            lines.append(u"Line %1"_qs.arg(line));
        }
        rtb1.setText(lines.join(u"\r\n"_qs));
        t.monitors.rectangles = {QRect(0, 0, 1280, 720)};
        handOver.setObserver(this);
    }

    void showPrepared(const ShowTables&, const DisplayGeometry&, QWidget& window) override {
        display = &window;
    }
    void loopStarted() override { ++shows; }

    void press(int key) {
        QWidget* text = display->focusWidget();
        ASSERT_NE(text, nullptr);
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(text, &event);
    }
    [[nodiscard]] int caretLine() const {
        return t.session.script.rtb1.GetLineFromChar(t.session.script.rtb1.SelStart());
    }

    TestSession t;
    ShowHandOver handOver{t.session, t.host};
    QPointer<QWidget> display;
    int shows = 0;
};

} // namespace

TEST_F(HandOver, CaretReturnsToTheLineThatWasOnTop) {
    t.session.show.StartFromCursor = 1;
    t.session.show.StartPosition = 12;
    t.pump.at(1, [&] {
        EXPECT_EQ(t.session.show.ShowRunning, 1);
        EXPECT_FALSE(t.session.script.rtb1.redraw());
        press(Qt::Key_Escape);
    });
    handOver.RunPrompter();
    EXPECT_EQ(shows, 1);
    EXPECT_EQ(caretLine(), 12);
    EXPECT_EQ(t.host.linesToTop, std::vector<int>{12});
    EXPECT_EQ(t.host.activity, (std::vector<bool>{false, true}));
    EXPECT_EQ(t.session.show.ShowRunning, 0);
    EXPECT_EQ(t.session.show.ExitRequested, 0);
    EXPECT_TRUE(t.session.script.rtb1.redraw());
    EXPECT_TRUE(display.isNull()) << "the window goes with the show";
}

TEST_F(HandOver, WindowThatIsClosedByItsFrameLeavesTheShowAndStaysUntilItEnds) {
    t.session.settings.ScrollSpeed = 0;
    t.pump.at(0.5, [&] { press(Qt::Key_Space); });
    t.pump.at(1.5, [&] {
        QCloseEvent close;
        QApplication::sendEvent(display, &close);
        EXPECT_FALSE(close.isAccepted());
    });
    handOver.RunPrompter();
    EXPECT_GT(caretLine(), 2);
}

TEST_F(HandOver, ExitButtonLeavesTheShow) {
    t.pump.at(1, [&] { display->findChild<QPushButton*>()->click(); });
    handOver.RunPrompter();
    EXPECT_EQ(shows, 1);
    EXPECT_LT(t.clock.secondsSinceStart(), 1.5);
}

TEST_F(HandOver, UnknownArrangementShowsNothingAndGivesTheEditorBack) {
    t.session.settings.MirrorMode = 2;
    t.session.script.rtb1.setSelStart(t.session.script.rtb1.lineIndex(7));
    handOver.RunPrompter();
    EXPECT_EQ(shows, 0);
    EXPECT_EQ(caretLine(), 7);
    EXPECT_EQ(t.host.notices.size(), 1);
    EXPECT_EQ(t.session.show.ShowRunning, 0);
}

TEST_F(HandOver, MissingSecondDisplayIsToldAndEndsTheShow) {
    t.session.settings.MirrorMode = 4;
    handOver.RunPrompter();
    EXPECT_EQ(shows, 0);
    ASSERT_EQ(t.messages.boxes.size(), 1u);
    EXPECT_EQ(t.messages.boxes[0].title, u"Display 2 Not Available"_qs);
    EXPECT_EQ(t.session.show.ShowRunning, 0);
}

TEST_F(HandOver, NothingStartsWithAnEmptyScriptOrInsideAShow) {
    t.pump.at(1, [&] {
        handOver.RunPrompter();
        EXPECT_EQ(shows, 1);
        press(Qt::Key_Escape);
    });
    handOver.RunPrompter();
    t.session.script.rtb1.setText(QString());
    handOver.RunPrompter();
    EXPECT_EQ(shows, 1);
}

TEST_F(HandOver, KeysSteerTheShow) {
    Settings& settings = t.session.settings;
    t.pump.at(0.1, [&] {
        press(Qt::Key_F12);
        EXPECT_EQ(t.session.show.BlankState, 1);
        press(Qt::Key_Space);
        EXPECT_EQ(t.session.show.PauseState, 3) << "dead while blanked";
        press(Qt::Key_F12);
        EXPECT_EQ(t.session.show.BlankState, 0);
        press(Qt::Key_Space);
        EXPECT_EQ(t.session.show.PauseState, 0);
        press(Qt::Key_F12);
        EXPECT_EQ(t.session.show.BlankState, 0) << "not while scrolling";
        press(Qt::Key_Right);
        EXPECT_EQ(settings.ScrollSpeed, 58);
        press(Qt::Key_Down);
        EXPECT_EQ(settings.ScrollSpeed, 78);
        const QRect before = display->focusWidget()->geometry();
        press(Qt::Key_F10);
        EXPECT_EQ(settings.FullScreenMode, 1);
        EXPECT_EQ(display->focusWidget()->geometry(), before.translated(10, 20));
        EXPECT_FALSE(display->findChild<QScrollBar*>()->isVisibleTo(display));
        press(Qt::Key_F10);
        EXPECT_EQ(display->focusWidget()->geometry(), before);
        press(Qt::Key_F9);
        EXPECT_EQ(settings.ArrowVisible, 0);
        press(Qt::Key_Escape);
    });
    handOver.RunPrompter();
    EXPECT_EQ(shows, 1);
}

TEST_F(HandOver, ControlsInSightFollowTheStateAlone) {
    struct Row {
        int fullScreen;
        bool blank;
        int arrow;
        bool controls;
        bool arrowShown;
    };
    const Row rows[] = {{0, false, 1, true, true},  {0, false, 0, true, false},
                        {1, false, 1, false, true}, {1, false, 0, false, false},
                        {0, true, 1, false, false}, {1, true, 1, false, false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fullScreen << row.blank << row.arrow);
        t.session.settings.FullScreenMode = row.fullScreen;
        t.session.settings.ArrowVisible = row.arrow;
        t.pump.in(0.1, [&] {
            const auto seen = [&](const QWidget* widget) { return widget->isVisibleTo(display); };
            const auto look = [&](bool blank) {
                for (const QWidget* control :
                     {static_cast<QWidget*>(display->findChild<QScrollBar*>()),
                      static_cast<QWidget*>(display->findChild<QPushButton*>()),
                      static_cast<QWidget*>(display->findChild<UpDown*>()),
                      static_cast<QWidget*>(display->findChild<QLabel*>())}) {
                    EXPECT_EQ(seen(control), blank ? false : row.fullScreen == 0);
                }
                EXPECT_EQ(seen(display->findChild<ArrowStrip*>()), !blank && row.arrow == 1);
            };
            if (row.blank) {
                press(Qt::Key_F12);
            }
            look(row.blank);
            if (row.blank) {
                press(Qt::Key_F12);
                look(false);
            }
            press(Qt::Key_Escape);
        });
        handOver.RunPrompter();
    }
}

TEST_F(HandOver, BlankScreenAlwaysComesBack) {
    t.session.settings.AutomaticLooping = 1;
    t.pump.at(1, [&] { press(Qt::Key_F12); });
    t.pump.at(20, [&] {
        EXPECT_EQ(t.session.show.BlankState, 1);
        t.session.show.PauseState = 0;
        press(Qt::Key_F12);
        EXPECT_EQ(t.session.show.BlankState, 0);
        press(Qt::Key_Escape);
    });
    handOver.RunPrompter();
    EXPECT_LT(t.clock.secondsSinceStart(), 21);
}

TEST_F(HandOver, NothingOfTheDisplayOpensAMenuInWhichTheShowWouldStand) {
    t.pump.at(0.1, [&] {
        const auto children = display->findChildren<QWidget*>();
        for (QWidget* child : children) {
            if (qobject_cast<QScrollBar*>(child) || qobject_cast<QPushButton*>(child)) {
                EXPECT_EQ(child->contextMenuPolicy(), Qt::NoContextMenu);
            }
        }
        press(Qt::Key_Escape);
    });
    handOver.RunPrompter();
}

TEST_F(HandOver, ArrowKeepsTheHeightThatItsButtonsGaveIt) {
    t.session.settings.ArrowPosition = 5000;
    t.pump.at(0.1, [&] {
        const int lowest = t.session.settings.ArrowPosition;
        EXPECT_EQ(lowest, 720 - 36 - 74) << "limited to the strip";
        auto* buttons = display->findChild<UpDown*>();
        QTest::mousePress(buttons, Qt::LeftButton, {}, QPoint(9, 4));
        press(Qt::Key_F10);
        press(Qt::Key_F10);
        QTest::qWait(350);
        EXPECT_EQ(t.session.settings.ArrowPosition, lowest - 1) << "a hidden button lets go";
        press(Qt::Key_Escape);
    });
    handOver.RunPrompter();
}

TEST_F(HandOver, CaretReturnsToTheTopLineGoingBackwardToo) {
    t.session.show.StartFromCursor = 1;
    t.session.show.StartPosition = 20;
    t.session.settings.ScrollSpeed = 195;
    t.pump.at(0.1, [&] { press(Qt::Key_Space); });
    t.pump.at(2, [&] { press(Qt::Key_Escape); });
    handOver.RunPrompter();
    EXPECT_LT(caretLine(), 20);
    EXPECT_GT(caretLine(), 5);
}

TEST_F(HandOver, UnattendedLoopingShowIgnoresTheSpeedKeys) {
    t.session.settings.AutomaticLooping = 1;
    t.pump.at(5, [&] {
        press(Qt::Key_Space);
        EXPECT_EQ(t.session.show.PauseState, 0);
        press(Qt::Key_Left);
        EXPECT_EQ(t.session.settings.ScrollSpeed, 60);
        press(Qt::Key_Escape);
    });
    handOver.RunPrompter();
}

TEST_F(HandOver, ScrollBarRepositionsAsFarAsTheEndAllows) {
    t.pump.at(0.1, [&] {
        auto* bar = display->findChild<QScrollBar*>();
        bar->setValue(5);
        press(Qt::Key_Escape);
    });
    handOver.RunPrompter();
    EXPECT_EQ(caretLine(), 5);
    t.pump.in(0.1, [&] {
        press(Qt::Key_0);
        press(Qt::Key_Escape);
    });
    handOver.RunPrompter();
    EXPECT_GT(caretLine(), 30);
    EXPECT_LT(caretLine(), 40);
}

TEST_F(HandOver, ScriptTooLongForOneShowIsAskedAbout) {
    t.session.script.rtb1.setText(u"x\r\n"_qs.repeated(32770));
    t.messages.answers.push_back(MessageAnswer::Cancel);
    handOver.RunPrompter();
    EXPECT_EQ(shows, 0);
    ASSERT_EQ(t.messages.boxes.size(), 1u);
    EXPECT_TRUE(t.messages.boxes[0].text.contains(u"The last 6 lines"_qs))
        << qPrintable(t.messages.boxes[0].text);
}
