#include "core/arrangement.h"
#include "core/script_marks.h"
#include "display/display_geometry.h"
#include "display/flipped_view.h"
#include "display/mirrored_question.h"
#include "display/script_preparation.h"
#include "display/show_find_window.h"
#include "show_fixture.h"
#include "support/accessible_names.h"
#include "support/modal_action.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

using namespace velmora;

namespace {

class ShowKeys : public ShowFixture {
protected:
    void markLines(const std::vector<int>& lines, const QString& mark) {
        for (const int line : lines) {
            rtb1.setSelStart(rtb1.lineIndex(line));
            rtb1.setSelText(mark);
        }
        rtb1.setSelStart(0);
    }
    /// Opens the find window and acts whenever it asks; tells how often.
    int find(const std::function<void(QWidget& window, int round)>& act) {
        int round = 0;
        QTimer user;
        QObject::connect(&user, &QTimer::timeout, &user, [&] {
            if (QWidget* window = QApplication::activeModalWidget()) {
                act(*window, round++);
            }
        });
        user.start(5);
        press(Qt::Key_F);
        return round;
    }
};

} // namespace

TEST_F(ShowKeys, TheWindowsControlsHaveNamesAndRoles) {
    for (const int timed : {0, 1}) {
        settings.TimedDisplay = timed;
        showFor(0.2, [this] { EXPECT_EQ(unnamedControls(*display), ""); });
    }
}

TEST_F(ShowKeys, KeysDoWhatTheirTableSays) {
    struct Row {
        int key;
        Qt::KeyboardModifiers modifiers;
        std::function<void()> before;
        /// What is otherwise than in a ready show at speed 60.
        const char* after;
    };
    const Qt::KeyboardModifiers none = Qt::NoModifier;
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    const auto fullRange = [&] { settings.ScrollSpeedControl = 1; };
    const auto looping = [&] { settings.AutomaticLooping = 1; };
    const auto wireless = [&] { settings.ControllerType = 21; };
    const auto button = [&](int Settings::*setting, int function) {
        return [this, setting, function] { settings.*setting = function; };
    };
    const Row rows[] = {
        {Qt::Key_F24, none, {}, "speed 195"},
        {Qt::Key_F24, none, fullRange, "back 1"},
        {Qt::Key_F24, none, looping, "speed 195"},
        {Qt::Key_F24, shift, {}, "full 1"},
        {Qt::Key_F24, none, button(&Settings::ShuttleButton1, 6), "arrow 0"},
        {Qt::Key_F24, none, button(&Settings::ShuttleButton1, 0), ""},
        {Qt::Key_F24, none, button(&Settings::ShuttleButton1, 9), "speed 195"},
        {Qt::Key_F24, shift, button(&Settings::ShuttleButton3, 9), "full 1"},
        {Qt::Key_F23, none, {}, "pause 0"},
        {Qt::Key_F23, none, looping, ""},
        {Qt::Key_F23, shift, {}, "jump 1"},
        {Qt::Key_F23, shift, looping, ""},
        {Qt::Key_F22, shift, {}, "jump 2"},
        {Qt::Key_F22, shift, looping, ""},
        {Qt::Key_PageDown, none, {}, "jump 1"},
        {Qt::Key_PageDown, none, looping, ""},
        {Qt::Key_PageUp, none, {}, "jump 2"},
        {Qt::Key_PageUp, none, looping, ""},
        {Qt::Key_Backspace, none, {}, ""},
        {Qt::Key_Backspace, none, fullRange, "back 1"},
        {Qt::Key_F13, none, {}, "speed 62"},
        {Qt::Key_F13, shift, {}, ""},
        {Qt::Key_F14, none, looping, "speed 58"},
        {Qt::Key_B, none, {}, "notice 1"},
        {Qt::Key_B, none, looping, ""},
        {Qt::Key_B, none, wireless, "pause 0"},
        {Qt::Key_Right, none, wireless, "jump 1"},
        {Qt::Key_Left, none, wireless, "jump 2"},
        {Qt::Key_Return, none, {}, "pause 0"},
        {Qt::Key_Return, none, looping, ""},
        {Qt::Key_Left, none, {}, "speed 62"},
        {Qt::Key_Up, none, {}, "speed 40"},
        {Qt::Key_Up, none, looping, ""},
        {Qt::Key_Home, none, {}, "speed 0"},
        {Qt::Key_End, none, {}, "speed 127"},
        {Qt::Key_End, none, fullRange, "speed 255"},
        {Qt::Key_Space, Qt::ControlModifier, {}, ""},
        {Qt::Key_Space, Qt::MetaModifier, {}, ""},
    };
    const auto changes = [&] {
        const std::tuple<const char*, double, double> values[] = {
            {"speed", 60, settings.ScrollSpeed},
            {"full", 0, settings.FullScreenMode},
            {"arrow", 1, settings.ArrowVisible},
            {"pause", 3, show.PauseState},
            {"jump", 0, show.BookmarkJump},
            {"back", 0, show.ReverseToBackward},
            {"notice", 0, control("Picture7")->isVisibleTo(display) ? 1 : 0}};
        QStringList found;
        for (const auto& [name, usual, value] : values) {
            if (value != usual) {
                found += u"%1 %2"_qs.arg(QLatin1String(name)).arg(value);
            }
        }
        return found.join(u' ').toStdString();
    };
    const Settings defaults = settings;
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.key << " for " << row.after);
        settings = defaults;
        if (row.before) {
            row.before();
        }
        showFor(0.1, [&] {
            press(row.key, row.modifiers);
            EXPECT_EQ(changes(), row.after);
        });
    }
}

TEST_F(ShowKeys, BookmarksAreJumpedToByEveryKeyThatNamesThem) {
    // The mark on line 12, full to the brim, makes two lines of it.
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
    const auto jump = [&](std::initializer_list<int> keys) {
        double second = 0;
        for (const int key : keys) {
            t.pump.in(second += 0.2, [this, key] { press(key); });
        }
        showFor(second + 0.1, [] {});
        return caretLine();
    };
    const int next = Qt::Key_PageDown;
    const int previous = Qt::Key_PageUp;
    EXPECT_EQ(jump({next}), 5);
    EXPECT_EQ(jump({next, next, next}), 12);
    EXPECT_EQ(jump({next, next, next, next, next, next}), 21) << "the last one is left alone";
    EXPECT_EQ(jump({Qt::Key_2, previous, previous}), 5);
    EXPECT_EQ(jump({Qt::Key_2, previous, previous, previous}), 0) << "the top of the script";
    settings.ScrollSpeed = 115;
    EXPECT_EQ(jump({Qt::Key_Space, next, next, previous, next}), 9) << "while the text runs";
    settings.ScrollSpeed = 0;
    EXPECT_EQ(jump({Qt::Key_0, Qt::Key_Space, next, previous}), 21) << "at the end";
}

TEST_F(ShowKeys, NewBookmarksGoIntoTheScriptOnYesAtTheLinesThatWereSeen) {
    const auto addTwo = [&] {
        showFor(0.1, [&] {
            control<QScrollBar>("Vscroll1")->setValue(4);
            press(Qt::Key_B);
            press(Qt::Key_B);
            control<QScrollBar>("Vscroll1")->setValue(9);
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
    EXPECT_TRUE(rtb1.Text().contains(u"^Line 4 "_qs));
    EXPECT_TRUE(rtb1.Text().contains(u"^Line 9 "_qs));
    EXPECT_EQ(rtb1.lineCount(), 41) << "the mark does not fit on line 4";
    EXPECT_TRUE(rtb1.Text().mid(rtb1.SelStart()).startsWith(u"^Line 9"_qs));
}

TEST_F(ShowKeys, MirroredQuestionIsAskedByItsOwnWindow) {
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

TEST_F(ShowKeys, FindMovesTheTextAndLeavingWithoutAHitPutsItBack) {
    const auto search = [&](const QString& text, const char16_t* button) {
        showFor(0.1, [&] {
            control<QScrollBar>("Vscroll1")->setValue(6);
            const std::int64_t row = show.ScrollRow;
            // One press, then the way out.
            const int rounds = find([&](QWidget& window, int round) {
                if (round == 0) {
                    window.findChild<QLineEdit*>()->setText(text);
                    clickButton(window, button);
                } else {
                    EXPECT_EQ(window.findChild<QLabel*>()->text() == u"No More Matches.",
                              text == u"nowhere");
                    clickButton(window, u"Exit");
                }
            });
            EXPECT_EQ(rounds, 2);
            if (text == u"nowhere") {
                EXPECT_EQ(show.ScrollRow, row);
            }
        });
        return caretLine();
    };
    EXPECT_EQ(search(u"line 20"_qs, u"Find Next"), 20);
    EXPECT_EQ(search(u"LINE 3"_qs, u"Find Previous"), 3);
    EXPECT_EQ(search(u"nowhere"_qs, u"Find Next"), 6);
    EXPECT_EQ(search(u"line 6"_qs, u"Find Next"), 6) << "on the top line itself";
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
}

TEST_F(ShowKeys, FindWindowStandsWhereItWasPutButNeverOnTheHit) {
    // Hits at the top and, in the last screen, at the foot; and where the window is put after each.
    struct Row {
        int line;
        bool stays;
        QPoint put;
    };
    const Row rows[] = {{20, false, {300, 200}}, {21, true, {300, 20}},  {3, false, {}},
                        {5, false, {}},          {38, true, {300, 600}}, {39, false, {}}};
    QPoint put(0, 0);
    const auto act = [&](QWidget& window, int round) {
        const auto next = static_cast<std::size_t>(round);
        if (round > 0) {
            const Row& row = rows[next - 1];
            SCOPED_TRACE(row.line);
            EXPECT_EQ(window.pos() == put, row.stays);
            const auto top = show.ScrollRow - (geometry->textRows() - 1);
            const auto first = tables->scanTable.firstRowOfLine(row.line) - top + TextTopMargin;
            const auto end = tables->scanTable.firstRowOfLine(row.line + 1) - top + TextTopMargin;
            EXPECT_TRUE(window.y() >= end || window.frameGeometry().bottom() < first);
            if (!row.put.isNull()) {
                window.move(put = row.put);
            }
        }
        if (next == std::size(rows)) {
            clickButton(window, u"Exit");
            return;
        }
        window.findChild<QLineEdit*>()->setText(u"line %1 "_qs.arg(rows[next].line));
        clickButton(window, rows[next].line == 3 ? u"Find Previous" : u"Find Next");
    };
    showFor(0.1, [&] { EXPECT_EQ(find(act), std::size(rows) + 1); });
}

TEST_F(ShowKeys, FindWindowOfAMirroredShowIsFlippedAndWorks) {
    settings.MirrorMode = mirror::Mirrored;
    const auto act = [](QWidget& window, int round) {
        auto* view = window.findChild<FlippedView*>();
        ASSERT_NE(view, nullptr);
        // Where the eye sees a button: flipped.
        const auto click = [view](const char16_t* caption) {
            QRect place;
            for (const QPushButton* button : view->sheet()->findChildren<QPushButton*>()) {
                if (button->text() == caption) {
                    place = button->geometry();
                }
            }
            const QPoint seen(view->width() - 1 - place.center().x(), place.center().y());
            QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, seen);
        };
        switch (round) {
        case 0:
            QTest::keyClicks(view, u"line 20"_qs);
            QTest::keyClick(view, Qt::Key_Return);
            break;
        case 1:
            QTest::keyClicks(view, u"line 7"_qs);
            click(u"Find Previous");
            break;
        default:
            click(u"Exit");
        }
    };
    showFor(0.1, [&] { EXPECT_EQ(find(act), 3); });
    EXPECT_EQ(caretLine(), 7);
}
