#pragma once

#include "controllers/speed_mapping.h"
#include "core/arrangement.h"
#include "core/screen_scale.h"
#include "display/display_geometry.h"
#include "display/flipped_view.h"
#include "display/show_hand_over.h"
#include "display/speaker_window.h"
#include "display/text_window.h"
#include "support/modal_action.h"
#include "support/quiet_observer.h"
#include "support/test_session.h"
#include "tall_picture.h"
#include "widgets/up_down.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

#include <map>
#include <random>

namespace velmora {

/// Which show is played, and how closely it is looked at.
struct RandomPlay final {
    unsigned seed = 1;
    int mirrorMode = mirror::OneDisplay;
    bool timed = false;
    /// Looks at the window between two acts.
    int looks = 9;
    /// Every so many looks the picture is compared.
    int comparison = 1;
    /// The script; random lines where it is empty.
    QString script = {};
};

/// What a show is doing when an act falls into it.
enum class Moment { Ready, Running, Still, Paused, Blank, AtLimit, FullScreen, Looping };

/// Plays a show with random acts at its keys, its controls and its devices, and compares the window
/// with the tall picture of the script at moments at which a handler can look.
class RandomShow final : public QuietObserver {
public:
    explicit RandomShow(const RandomPlay& play)
        : m_play(play), m_mirrorMode(play.mirrorMode), m_random(play.seed) {
        QObject::connect(&m_modalUser, &QTimer::timeout, [this] { useModalWindow(); });
        m_modalUser.start(0);
    }

    void play(int acts) {
        m_actsLeft = acts;
        writeScript();
        Settings& settings = t.session.settings;
        settings.ScrollerTurbo = static_cast<int>(m_random() % 2);
        settings.ScrollSpeedControl = static_cast<int>(m_random() % 2);
        settings.AutomaticLooping = m_random() % 4 == 0 ? 1 : 0;
        settings.MirrorMode = m_mirrorMode;
        settings.LineSpacingIndex = 1 + static_cast<int>(m_random() % 36);
        settings.ScrollSpeed = static_cast<int>(m_random() % 256);
        settings.TimedDisplay = m_play.timed ? 1 : 0;
        const int controllers[] = {controller::Unchosen, controller::Foot, controller::None,
                                   controller::Trigger, controller::RfWireless};
        settings.ControllerType = controllers[upTo(5)];
        t.session.show.StartFromCursor = static_cast<int>(m_random() % 2);
        t.session.show.StartPosition = static_cast<double>(m_random() % 20);
        t.pump.setEveryPump([this] { turn(); });
        ShowHandOver handOver(t.session, t.host);
        handOver.setObserver(this);
        handOver.RunPrompter();
        EXPECT_EQ(m_actsLeft, 0);
        EXPECT_GT(m_checks, acts);
        EXPECT_EQ(t.pointer.confinedTo, nullptr);
    }

    void showPrepared(const ShowTables& tables, const DisplayGeometry& geometry,
                      QWidget& window) override {
        m_window = &window;
        m_text = window.findChild<TextWindow*>();
        m_bar = window.findChild<QScrollBar*>(u"Vscroll1"_qs);
        m_tables = &tables;
        m_rows = geometry.textRows();
        for (QWidget* other : QApplication::topLevelWidgets()) {
            if (const auto* speaker = qobject_cast<SpeakerScriptM*>(other)) {
                m_speakerText = speaker->Picture1;
            }
        }
        ASSERT_EQ(m_speakerText != nullptr, m_mirrorMode == mirror::TwoDisplays);
        const RichTextBox& rtb1 = t.session.script.rtb1;
        m_tall = std::make_unique<TallPicture>(rtb1, tables, geometry.WindowWidth(), rtb1.zoom(),
                                               rtb1.SelAlignment().value_or(Alignment::Left));
    }
    void limitReached() override { m_atLimit = true; }
    void loopEnded() override { m_text = nullptr; }

    TestSession t;
    /// Acts by the moment that they fell into.
    std::map<Moment, int> actsIn;
    /// Modal windows met: the search, the question of a mirrored show.
    int searches = 0;
    int questions = 0;

private:
    [[nodiscard]] int upTo(int limit) { return static_cast<int>(m_random() % unsigned(limit)); }

    void writeScript() {
        RichTextBox& rtb1 = t.session.script.rtb1;
        rtb1.setWrapWidth(wrapWidthForMargin(12 + upTo(300)));
        rtb1.setBackColor(Black);
        rtb1.setDefaultFormat({u"Liberation Sans"_qs, 24, White});
        if (m_play.script.isEmpty()) {
            writeRandomLines();
        } else {
            rtb1.setText(m_play.script);
        }
        rtb1.selectAll();
        rtb1.setSelAlignment(static_cast<Alignment>(upTo(3)));
        rtb1.setSelStart(0);
        const QSize screens[] = {{320, 240}, {200, 60}, {400, 300}};
        const QSize first = screens[upTo(3)];
        t.monitors.rectangles = {QRect(QPoint(0, 0), first),
                                 QRect(QPoint(first.width(), 0), screens[upTo(3)])};
    }

    void writeRandomLines() {
        RichTextBox& rtb1 = t.session.script.rtb1;
        const int lines = 2 + upTo(40);
        for (int line = 0; line < lines; ++line) {
            rtb1.setSelFontSize(6 + upTo(30));
            rtb1.setSelColor(m_random() & 0xFFFFFF);
            const QString text = upTo(5) == 0   ? u"^----"_qs
                                 : upTo(4) == 0 ? QString()
                                                : u"Line ^%1 of ~the script"_qs.arg(line);
            rtb1.setSelText(text + u"\r\n"_qs);
            if (upTo(4) == 0) {
                writeOnBackground(u"Bar %1"_qs.arg(line));
            }
        }
    }

    void writeOnBackground(const QString& text) {
        RichTextBox& rtb1 = t.session.script.rtb1;
        rtb1.setSelBackColor(0x80 + (m_random() & 0xFFFF00));
        rtb1.setSelText(text);
        rtb1.setSelBackColor(0);
        rtb1.setSelText(u"\r\n"_qs);
    }

    /// One look at the window, and now and then an act.
    void turn() {
        if (m_text == nullptr || !m_text->isVisibleTo(m_window)) {
            return;
        }
        look();
        if (++m_turns % m_play.looks != 0) {
            return;
        }
        if (m_actsLeft == 0) {
            leave();
            return;
        }
        --m_actsLeft;
        ++actsIn[moment()];
        act();
        look();
    }

    /// By the keys or by the window's frame, whatever state the acts have led to.
    void leave() {
        if (m_play.seed % 4 == 0) {
            m_window->close();
        } else {
            press(t.session.show.BlankState == 1 ? Qt::Key_F12 : Qt::Key_Escape);
        }
    }

    [[nodiscard]] Moment moment() {
        const ShowState& show = t.session.show;
        const Settings& settings = t.session.settings;
        m_atLimit = m_atLimit && show.PauseState != pause::Scrolling;
        const bool isStill = isFullRange(settings.ScrollSpeedControl)
                                 ? inStopZone(settings.ScrollSpeed)
                                 : inDeadBand(settings.ScrollSpeed);
        return show.BlankState == 1                    ? Moment::Blank
               : m_atLimit                             ? Moment::AtLimit
               : show.PauseState == pause::BeforeStart ? Moment::Ready
               : show.PauseState == pause::Paused      ? Moment::Paused
               : isStill && !m_play.timed              ? Moment::Still
               : settings.FullScreenMode == 1          ? Moment::FullScreen
               : settings.AutomaticLooping == 1        ? Moment::Looping
                                                       : Moment::Running;
    }

    void act() {
        constexpr int Keys[] = {
            Qt::Key_Space, Qt::Key_Return, Qt::Key_Left, Qt::Key_Right,     Qt::Key_Up,
            Qt::Key_Down,  Qt::Key_Home,   Qt::Key_End,  Qt::Key_0,         Qt::Key_1,
            Qt::Key_2,     Qt::Key_3,      Qt::Key_4,    Qt::Key_5,         Qt::Key_6,
            Qt::Key_7,     Qt::Key_8,      Qt::Key_9,    Qt::Key_PageUp,    Qt::Key_PageDown,
            Qt::Key_F9,    Qt::Key_F10,    Qt::Key_F12,  Qt::Key_Backspace, Qt::Key_F13,
            Qt::Key_F14,   Qt::Key_F15,    Qt::Key_F16,  Qt::Key_F17,       Qt::Key_F18,
            Qt::Key_F19,   Qt::Key_F20,    Qt::Key_F21,  Qt::Key_F22,       Qt::Key_F23,
            Qt::Key_F24,   Qt::Key_F3,     Qt::Key_B,    Qt::Key_F,         Qt::Key_A};
        switch (upTo(10)) {
        case 0:
            m_jumped = true;
            m_bar->setValue(upTo(m_bar->maximum() + 1));
            break;
        case 1:
            t.session.settings.ScrollSpeed = upTo(256);
            break;
        case 2:
            press(Qt::Key_Backspace);
            break;
        case 3:
            t.session.show.PauseState = 0;
            break;
        case 4:
            usePointer();
            break;
        case 5:
            useControls();
            break;
        case 6:
            // The pedal's three buttons, several at a time, none.
            t.joystick.held = static_cast<std::uint32_t>(upTo(8));
            t.joystick.plugged = upTo(4) != 0;
            break;
        case 7:
            // The clock is set, or it is midnight.
            t.clock.setTimer(upTo(86'400));
            break;
        default:
            // Many of the keys jump.
            m_jumped = true;
            press(Keys[upTo(static_cast<int>(std::size(Keys)))],
                  upTo(3) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
        }
        const double speed = t.session.settings.ScrollSpeed;
        ASSERT_TRUE(speed >= 0 && speed <= 255) << speed;
        const std::int64_t row = t.session.show.ScrollRow;
        ASSERT_TRUE(row >= 0 && row <= m_tables->LastScrollRow + m_rows) << row;
    }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(m_text, &event);
    }

    /// The arrow's place, and the bar and the buttons of a timed show where they are in sight.
    void useControls() {
        m_window->findChild<UpDown*>(u"Vscroll2"_qs)->setValue(upTo(400));
        const char16_t* names[] = {u"Command1", u"Command2"};
        auto* button = m_window->findChild<QPushButton*>(QString::fromUtf16(names[upTo(2)]));
        if (auto* bar = m_window->findChild<QScrollBar*>(u"Hscroll1"_qs);
            bar->isVisibleTo(m_window)) {
            bar->setValue(upTo(3700));
        }
        if (button->isVisibleTo(m_window)) {
            button->click();
        }
    }

    /// The search window and the question of a mirrored show.
    void useModalWindow() {
        QWidget* window = QApplication::activeModalWidget();
        if (window == nullptr) {
            return;
        }
        if (const auto* flipped = window->findChild<FlippedView*>()) {
            window = flipped->sheet();
        }
        auto* text = window->findChild<QLineEdit*>();
        ++(text != nullptr ? searches : questions);
        if (text != nullptr && upTo(2) == 0) {
            m_jumped = true;
            text->setText(upTo(3) == 0 ? u"nowhere"_qs : u"ne ^1"_qs);
            clickButton(*window, upTo(2) == 0 ? u"Find Next" : u"Find Previous");
        } else {
            QApplication::activeModalWidget()->close();
        }
    }

    /// A press and a drag on the text, on the scale or on its thumb, or a turn of the wheel.
    void usePointer() {
        QWidget* target =
            upTo(2) == 0 || m_play.timed ? m_text : m_window->findChild<QWidget*>(u"Picture6"_qs);
        const QPointF from(upTo(target->width()), upTo(target->height()));
        const QPointF to(upTo(target->width()), upTo(target->height()));
        const Qt::MouseButton button = upTo(2) == 0 ? Qt::LeftButton : Qt::RightButton;
        QMouseEvent down(QEvent::MouseButtonPress, from, from, button, button, Qt::NoModifier);
        QMouseEvent move(QEvent::MouseMove, to, to, Qt::NoButton, button, Qt::NoModifier);
        QMouseEvent up(QEvent::MouseButtonRelease, to, to, button, Qt::NoButton, Qt::NoModifier);
        QWheelEvent wheel(to, to, QPoint(), QPoint(0, 120 - upTo(3) * 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        for (QEvent* event : {static_cast<QEvent*>(&down), static_cast<QEvent*>(&move),
                              static_cast<QEvent*>(&up), static_cast<QEvent*>(&wheel)}) {
            QApplication::sendEvent(target, event);
        }
    }

    void look() {
        ++m_checks;
        const ShowState& show = t.session.show;
        const std::int64_t top = m_text->surface().top();
        // Between two looks the window moves by a step at most, unless something jumped; what is
        // made ready again does.
        const bool madeReady = m_play.timed && show.PauseState != pause::Scrolling;
        const bool looping = !m_play.timed && t.session.settings.AutomaticLooping == 1;
        const std::int64_t moved = std::abs(top - m_lastTop);
        if (!m_jumped && !madeReady && !looping && m_checks > 1) {
            ASSERT_LE(moved, t.session.settings.RowStep);
        }
        m_jumped = show.BookmarkJump != 0;
        m_lastTop = top;
        if (m_speakerText != nullptr) {
            ASSERT_EQ(m_speakerText->surface().top(), top);
        }
        if (m_checks % m_play.comparison == 0) {
            compare(top);
            expectMarkOfDirection();
        }
    }

    void expectMarkOfDirection() {
        const ShowState& show = t.session.show;
        const bool inSight =
            !m_play.timed && t.session.settings.FullScreenMode == 0 && show.BlankState == 0;
        if (show.ReverseToBackward == 0 && show.ReverseToForward == 0) {
            ASSERT_EQ(m_window->findChild<QWidget*>(u"Picture5"_qs)->isVisibleTo(m_window),
                      inSight && show.ScrollDirection < 0);
        }
    }

    void compare(std::int64_t top) {
        const QImage plain = m_tall->window(top, m_rows);
        const QImage flipped = plain.mirrored(true, false);
        ASSERT_EQ(m_text->surface().toImage(), m_mirrorMode == mirror::Mirrored ? flipped : plain)
            << "top row " << top;
        if (m_speakerText != nullptr) {
            ASSERT_EQ(m_speakerText->surface().toImage(), flipped) << "top row " << top;
        }
        if (++m_comparisons % 50 == 0) {
            compareWindow(top);
        }
    }

    /// What is painted: the picture between its margins, or nothing while the screen is blanked.
    void compareWindow(std::int64_t top) {
        const QImage painted = m_text->grab().toImage().convertToFormat(QImage::Format_RGB32);
        QImage expected(painted.size(), QImage::Format_RGB32);
        expected.fill(Qt::black);
        if (t.session.show.BlankState == 0) {
            const QImage window =
                m_tall->window(top, m_rows).mirrored(m_mirrorMode == mirror::Mirrored, false);
            for (int row = 0; row < m_rows; ++row) {
                std::copy_n(window.constScanLine(row), window.width() * 4,
                            expected.scanLine(row + TextTopMargin));
            }
        }
        ASSERT_EQ(painted, expected);
    }

    RandomPlay m_play;
    int m_mirrorMode;
    std::mt19937 m_random;
    QTimer m_modalUser;
    QPointer<QWidget> m_window;
    TextWindow* m_text = nullptr;
    TextWindow* m_speakerText = nullptr;
    QScrollBar* m_bar = nullptr;
    const ShowTables* m_tables = nullptr;
    std::unique_ptr<TallPicture> m_tall;
    int m_rows = 0;
    int m_actsLeft = 0;
    int m_turns = 0;
    int m_checks = 0;
    int m_comparisons = 0;
    bool m_atLimit = false;
    bool m_jumped = true;
    std::int64_t m_lastTop = 0;
};

} // namespace velmora
