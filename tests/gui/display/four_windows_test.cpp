#include "core/script_marks.h"
#include "display/display_windows.h"
#include "display/mirrored_question.h"
#include "display/speaker_window.h"
#include "editor/show_find_window.h"
#include "show_fixture.h"
#include "support/modal_action.h"

#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

using namespace velmora;

namespace {

class FourWindows : public ShowFixture {
protected:
    void markLines(const std::vector<int>& lines, const QString& mark) {
        for (const int line : lines) {
            rtb1.setSelStart(rtb1.lineIndex(line));
            rtb1.setSelText(mark);
        }
        rtb1.setSelStart(0);
    }
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

} // namespace

TEST_F(FourWindows, SettingsChooseTheWindow) {
    struct Row {
        int mirrorMode;
        int timed;
        const char* window;
    };
    for (const Row& row : {Row{0, 0, "Form4"}, Row{1, 0, "Form20"}, Row{4, 0, "Form4"},
                           Row{0, 1, "Form22"}, Row{1, 1, "Form25"}, Row{4, 1, "Form22"}}) {
        SCOPED_TRACE(testing::Message() << row.mirrorMode << " timed " << row.timed);
        twoDisplays(QSize(1280, 720));
        settings.MirrorMode = row.mirrorMode;
        settings.TimedDisplay = row.timed;
        showFor(0.1, [&] {
            const bool isForm[] = {dynamic_cast<Form4*>(display.data()) != nullptr,
                                   dynamic_cast<Form20*>(display.data()) != nullptr,
                                   dynamic_cast<Form22*>(display.data()) != nullptr,
                                   dynamic_cast<Form25*>(display.data()) != nullptr};
            const char* const names[] = {"Form4", "Form20", "Form22", "Form25"};
            for (int i = 0; i < 4; ++i) {
                EXPECT_EQ(isForm[i], std::string(names[i]) == row.window) << names[i];
            }
            EXPECT_EQ(speaker() != nullptr, row.mirrorMode == 4);
            EXPECT_TRUE(t.sleepInhibitor.inhibited);
            EXPECT_EQ(control("Hscroll1")->isVisibleTo(display), row.timed == 1);
            EXPECT_EQ(control("Picture6")->isVisibleTo(display), row.timed == 0);
        });
        EXPECT_FALSE(t.sleepInhibitor.inhibited);
        EXPECT_EQ(speaker(), nullptr);
    }
}

TEST_F(FourWindows, KeysDoWhatTheirTableSays) {
    struct Row {
        int key;
        Qt::KeyboardModifiers modifiers;
        std::function<void()> before;
        std::function<bool()> done;
    };
    const Qt::KeyboardModifiers none = Qt::NoModifier;
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    const auto fullRange = [&] { settings.ScrollSpeedControl = 1; };
    const auto looping = [&] { settings.AutomaticLooping = 1; };
    const auto wireless = [&] { settings.ControllerType = 21; };
    const std::vector<Row> rows = {
        {Qt::Key_F24, none, {}, [&] { return settings.ScrollSpeed == 195; }},
        {Qt::Key_F24, none, fullRange, [&] { return show.ReverseToBackward == 1; }},
        {Qt::Key_F24, shift, {}, [&] { return settings.FullScreenMode == 1; }},
        {Qt::Key_F24, none, [&] { settings.ShuttleButton1 = 6; },
         [&] { return settings.ArrowVisible == 0; }},
        {Qt::Key_F24, none, [&] { settings.ShuttleButton1 = 0; },
         [&] { return settings.ScrollSpeed == 60; }},
        {Qt::Key_F23, none, {}, [&] { return show.PauseState == 0; }},
        {Qt::Key_F23, none, looping, [&] { return show.PauseState == 3; }},
        {Qt::Key_F23, shift, {}, [&] { return show.BookmarkJump == 1; }},
        {Qt::Key_F22, shift, {}, [&] { return show.BookmarkJump == 2; }},
        {Qt::Key_PageDown, none, {}, [&] { return show.BookmarkJump == 1; }},
        {Qt::Key_PageUp, none, {}, [&] { return show.BookmarkJump == 2; }},
        {Qt::Key_PageUp, none, looping, [&] { return show.BookmarkJump == 0; }},
        {Qt::Key_Backspace, none, {}, [&] { return settings.ScrollSpeed == 60; }},
        {Qt::Key_Backspace, none, fullRange, [&] { return show.ReverseToBackward == 1; }},
        {Qt::Key_F13, none, {}, [&] { return settings.ScrollSpeed == 62; }},
        {Qt::Key_F14, none, looping, [&] { return settings.ScrollSpeed == 58; }},
        {Qt::Key_B, none, wireless, [&] { return show.PauseState == 0; }},
        {Qt::Key_Right, none, wireless, [&] { return show.BookmarkJump == 1; }},
        {Qt::Key_Return, none, {}, [&] { return show.PauseState == 0; }},
        {Qt::Key_B,
         none,
         {},
         [&] { return show.MessageShownAt > 0 && control("Picture7")->isVisibleTo(display); }},
        {Qt::Key_B, none, looping, [&] { return show.MessageShownAt == 0; }},
        {Qt::Key_F24, none, [&] { settings.ShuttleButton1 = 9; },
         [&] { return settings.ScrollSpeed == 195; }},
        {Qt::Key_F24, shift, [&] { settings.ShuttleButton3 = 9; },
         [&] { return settings.FullScreenMode == 1; }},
        {Qt::Key_F24, none, looping, [&] { return settings.ScrollSpeed == 195; }},
        {Qt::Key_F23, shift, looping, [&] { return show.BookmarkJump == 0; }},
        {Qt::Key_F22, shift, looping, [&] { return show.BookmarkJump == 0; }},
        {Qt::Key_PageDown, none, looping, [&] { return show.BookmarkJump == 0; }},
        {Qt::Key_Return, none, looping, [&] { return show.PauseState == 3; }},
        {Qt::Key_F13, shift, {}, [&] { return settings.ScrollSpeed == 60; }},
        {Qt::Key_Left, none, {}, [&] { return settings.ScrollSpeed == 62; }},
        {Qt::Key_Up, none, {}, [&] { return settings.ScrollSpeed == 40; }},
        {Qt::Key_Up, none, looping, [&] { return settings.ScrollSpeed == 60; }},
        {Qt::Key_Home, none, {}, [&] { return settings.ScrollSpeed == 0; }},
        {Qt::Key_End, none, {}, [&] { return settings.ScrollSpeed == 127; }},
        {Qt::Key_End, none, fullRange, [&] { return settings.ScrollSpeed == 255; }},
        {Qt::Key_Left, none, wireless, [&] { return show.BookmarkJump == 2; }},
        {Qt::Key_Space, Qt::ControlModifier, {}, [&] { return show.PauseState == 3; }},
    };
    const Settings defaults = settings;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE(testing::Message() << "row " << i);
        settings = defaults;
        if (rows[i].before) {
            rows[i].before();
        }
        showFor(0.1, [&] {
            press(rows[i].key, rows[i].modifiers);
            EXPECT_TRUE(rows[i].done());
        });
    }
}

TEST_F(FourWindows, BookmarksAreJumpedToByEveryKeyThatNamesThem) {
    markLines({5, 9, 20}, u"^"_qs);
    markLines({12}, u"~"_qs);
    const auto after = [&](std::initializer_list<int> keys) {
        showFor(0.1, [&] {
            for (const int key : keys) {
                press(key);
                t.pump.waitForEvents(50);
                t.pump.waitForEvents(50);
            }
        });
        return caretLine();
    };
    EXPECT_EQ(after({Qt::Key_2}), 12);
    EXPECT_EQ(after({Qt::Key_0, Qt::Key_1}), 0);
    EXPECT_EQ(after({Qt::Key_3}), 0) << "there is none";
    EXPECT_EQ(after({Qt::Key_F18, Qt::Key_F17}), 12) << "eight and four lines";
    EXPECT_EQ(after({Qt::Key_F18, Qt::Key_F19}), 7);
    // Jumps are served by the loop's next turn, outside this handler.
    const auto jump = [&](int key, int times) {
        for (int i = 0; i < times; ++i) {
            t.pump.in(0.2 + 0.2 * i, [this, key] { press(key); });
        }
        showFor(0.4 + 0.2 * times, [] {});
        return caretLine();
    };
    EXPECT_EQ(jump(Qt::Key_PageDown, 1), 5);
    EXPECT_EQ(jump(Qt::Key_PageDown, 3), 12);
    EXPECT_EQ(jump(Qt::Key_PageDown, 9), 20) << "the last one is left alone";
    EXPECT_EQ(jump(Qt::Key_PageUp, 1), 0);
}

TEST_F(FourWindows, NewBookmarksGoIntoTheScriptOnYesAtTheLinesThatWereSeen) {
    const auto addTwo = [&] {
        showFor(0.1, [&] {
            control<QScrollBar>("Vscroll1")->setValue(9);
            press(Qt::Key_B);
            press(Qt::Key_B);
            control<QScrollBar>("Vscroll1")->setValue(4);
            press(Qt::Key_B);
        });
    };
    addTwo();
    ASSERT_EQ(t.messages.boxes.size(), 1u);
    EXPECT_EQ(t.messages.boxes[0].title, u"Add New Bookmarks"_qs);
    EXPECT_EQ(t.messages.boxes[0].text,
              u"You have inserted 2 new bookmarks.  Do you wish to add the new bookmarks to "
              u"your script?"_qs);
    EXPECT_FALSE(rtb1.Text().contains(u'^'));
    t.messages.answers = {MessageAnswer::Yes};
    t.session.script.TextChanged = 0;
    addTwo();
    EXPECT_EQ(t.session.script.TextChanged, 1);
    EXPECT_EQ(rtb1.Text().count(u'^'), 2);
    EXPECT_TRUE(rtb1.Text().contains(u"^Line 4\r"_qs));
    EXPECT_TRUE(rtb1.Text().contains(u"^Line 9\r"_qs));
}

TEST_F(FourWindows, MirroredQuestionIsAskedByItsOwnWindow) {
    settings.MirrorMode = 1;
    for (const bool yes : {true, false}) {
        ModalAction answer([&](QWidget& window) {
            EXPECT_NE(qobject_cast<Form6*>(&window), nullptr);
            EXPECT_TRUE(window.accessibleDescription().startsWith(u"You have inserted 1 new "_qs));
            clickButton(window, yes ? u"Yes" : u"No");
        });
        showFor(0.1, [&] { press(Qt::Key_B); });
        EXPECT_TRUE(answer.done());
        EXPECT_EQ(rtb1.Text().startsWith(BookmarkMarker), yes);
        rtb1.setSelStart(0);
        rtb1.setSelLength(yes ? 1 : 0);
        rtb1.setSelText(QString());
    }
    EXPECT_TRUE(t.messages.boxes.empty());
}

TEST_F(FourWindows, FindMovesTheTextAndLeavingWithoutAHitPutsItBack) {
    const auto search = [&](const QString& text, const char16_t* button) {
        int round = 0;
        showFor(0.1, [&] {
            control<QScrollBar>("Vscroll1")->setValue(6);
            const std::int64_t row = show.ScrollRow;
            // One press, then the way out.
            QTimer user;
            QObject::connect(&user, &QTimer::timeout, &user, [&] {
                auto* window = qobject_cast<Form14*>(QApplication::activeModalWidget());
                if (window == nullptr) {
                    return;
                }
                if (round++ == 0) {
                    window->findChild<QLineEdit*>()->setText(text);
                    clickButton(*window, button);
                } else {
                    EXPECT_EQ(window->findChild<QLabel*>()->text() == u"No More Matches.",
                              text == u"nowhere");
                    clickButton(*window, u"Exit");
                }
            });
            user.start(5);
            press(Qt::Key_F);
            EXPECT_EQ(round, 2);
            if (text == u"nowhere") {
                EXPECT_EQ(show.ScrollRow, row);
            }
        });
        return caretLine();
    };
    EXPECT_EQ(search(u"line 20"_qs, u"Find Next"), 20);
    EXPECT_EQ(search(u"LINE 3"_qs, u"Find Previous"), 3);
    EXPECT_EQ(search(u"nowhere"_qs, u"Find Next"), 6);
    // In mid-line, and on the last screen too, the next one follows on the last one.
    t.session.find.LastFindText = u"INE 1"_qs;
    showFor(0.1, [&] {
        press(Qt::Key_F3);
        press(Qt::Key_F3);
        press(Qt::Key_F3);
    });
    EXPECT_EQ(caretLine(), 11);
    t.session.find.LastFindText = u"ine 3"_qs;
    showFor(0.1, [&] {
        for (int hits = 0; hits < 11; ++hits) {
            press(Qt::Key_F3);
        }
        EXPECT_EQ(rtb1.Text().mid(rtb1.SelStart(), 6), u"ine 39"_qs);
    });
    settings.ScrollSpeed = 60;
    showFor(0.5, [&] {
        press(Qt::Key_Space);
        press(Qt::Key_F);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "not while the text moves";
    });
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

TEST_F(FourWindows, MirroredFaceIsThePlainOneFlipped) {
    QImage faces[2];
    for (const int mode : {0, 1}) {
        settings.MirrorMode = mode;
        showFor(0.1, [&] {
            const QImage text = display->focusWidget()->grab().toImage();
            const QImage scale = control("Picture6")->grab().toImage();
            const QImage clock = control("Label1")->grab().toImage();
            QImage face(scale.width(), text.height() + scale.height() + clock.height(),
                        QImage::Format_RGB32);
            face.fill(Qt::black);
            QPainter painter(&face);
            auto put = [&, y = 0](const QImage& image) mutable {
                painter.drawImage(0, y, image.mirrored(mode == 1, false));
                y += image.height();
            };
            put(text);
            put(scale);
            put(clock);
            faces[mode] = face;
            EXPECT_EQ(control("Command3")->x(), mode == 1 ? 0 : 1280 - 68);
        });
    }
    ASSERT_EQ(faces[0].size(), faces[1].size());
    EXPECT_EQ(faces[0], faces[1]);
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

TEST_F(FourWindows, SpeakersWindowRestsWhileItsDisplayIsAway) {
    twoDisplays(QSize(1024, 600));
    t.pump.in(0.1, [&] {
        EXPECT_EQ(speaker()->geometry(), QRect(1280, 0, 1024, 600));
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
        EXPECT_EQ(speaker()->Picture3->geometry().right(), 799) << "the lines begin there";
    });
    t.pump.in(2.2, [&] {
        // The operator's display goes: the speaker's stays, whatever its number is now.
        t.monitors.rectangles.erase(t.monitors.rectangles.begin());
        Q_EMIT qGuiApp->screenRemoved(nullptr);
        EXPECT_EQ(display->geometry(), QRect(1280, 0, 800, 600));
        t.monitors.rectangles.push_back(QRect(0, 0, 1280, 720));
        Q_EMIT qGuiApp->screenAdded(nullptr);
        EXPECT_EQ(display->geometry(), QRect(1280, 0, 800, 600)) << "stays where it is";
        EXPECT_TRUE(speaker()->isVisible());
        EXPECT_EQ(speaker()->geometry(), QRect(0, 0, 1280, 720));
    });
    t.pump.in(2.5, [&] {
        QCloseEvent close;
        QApplication::sendEvent(speaker(), &close);
        EXPECT_FALSE(close.isAccepted());
    });
    handOver.RunPrompter();
    EXPECT_LT(t.clock.secondsSinceStart(), 3.5);
}
