#include "core/colour_tables.h"
#include "core/screen_scale.h"
#include "main_window_fixture.h"
#include "support/accessible_names.h"
#include "support/modal_action.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <functional>

namespace velmora {
namespace {

/// No window: a show is handed over and comes back at once.
constexpr int NoDisplayWindow = 2;

TEST_F(Form1Test, TheLoadStepBringsTheSettingsIntoTheEditor) {
    settings.ColumnMargin = 160;
    settings.ScreenFontSize = 52;
    settings.ScreenTextColor = 0x00ffff;
    settings.ScreenBackColor = 0x800000;
    settings.MirrorMode = 1;
    load();
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->windowTitle(), u"Velmora V12.0"_qs);
    EXPECT_EQ(rtb1().zoom(), 6.0);
    EXPECT_EQ(rtb1().wrapWidth(), wrapWidthForMargin(160));
    EXPECT_EQ(rtb1().BackColor(), Rgb24{0x800000});
    EXPECT_EQ(rtb1().SelColor(), Rgb24{0x00ffff});
    EXPECT_EQ(rtb1().SelFontSize(), 52);
    EXPECT_EQ(rtb1().SelFontName(), test.host.fontName);
    EXPECT_EQ(form->comboFontName(), test.host.fontName);
    EXPECT_EQ(form->comboFontSize(), 52) << "a size beyond the list is shown all the same";
    EXPECT_EQ(control<QSlider>(u"Hscroll1")->value(), 160);
    EXPECT_EQ(control<RichTextView>(u"rtb1")->x(), 240);
    EXPECT_EQ(control<RichTextView>(u"rtb1")->width(), 1440);
    EXPECT_EQ(test.session.script.TextChanged, 0);
    EXPECT_TRUE(test.messages.boxes.empty());
}

TEST_F(Form1Test, TheHelpOnMonitorsOpensUnlessItIsIgnoredAndThenTheDisplaysAreChecked) {
    settings.IgnoreMonitorHelp = 0;
    settings.MirrorMode = 4;
    const ModalAction user([this](QWidget& window) {
        EXPECT_EQ(window.objectName(), u"Form11"_qs);
        EXPECT_TRUE(test.messages.boxes.empty()) << "the check comes after the help";
        clickButton(window, u"OK");
    });
    load();
    EXPECT_TRUE(user.done());
    ASSERT_EQ(test.messages.boxes.size(), 1U);
    EXPECT_EQ(test.messages.boxes.front().title, u"Display 2 Not Available"_qs);
    EXPECT_EQ(control<QSlider>(u"Hscroll1")->minimum(), 12);
}

TEST_F(Form1Test, AKeyPressedInsideTheLoadStepStartsNothingAndLaterCommandsDo) {
    settings.MirrorMode = NoDisplayWindow;
    int pressed = 0;
    test.pump.next([&] {
        ++pressed;
        test.session.show.StartFromCursor = 9;
        rtb1().setText(u"typed early"_qs);
        press(Qt::Key_L, Qt::ControlModifier);
        press(Qt::Key_F1);
        // Without text, so that the exit would have nothing to ask.
        rtb1().setText(QString());
        EXPECT_FALSE(form->close());
    });
    load();
    EXPECT_EQ(pressed, 1);
    EXPECT_TRUE(test.dialogs.openRequests.empty());
    EXPECT_EQ(test.session.show.StartFromCursor, 9) << "no show was handed over";
    form->openScript(test.write(u"named.txt"_qs, "named at the start"));
    EXPECT_EQ(rtb1().Text(), u"named at the start"_qs);
}

TEST_F(Form1Test, TheSetupReturnsWithItsSettingsInForce) {
    settings.ColumnMargin = 300;
    load();
    form->show();
    const auto setUp = [this](const std::vector<const char16_t*>& presses) {
        const ModalAction user([&](QWidget& window) {
            EXPECT_EQ(window.objectName(), u"Form8"_qs);
            EXPECT_EQ(test.session.script.DialogClosing, 0);
            for (const char16_t* caption : presses) {
                clickButton(window, caption);
            }
            press(Qt::Key_F1);
            EXPECT_EQ(test.session.show.StartFromCursor, 0);
            window.close();
        });
        if (presses.empty()) {
            press(Qt::Key_U, Qt::AltModifier);
        } else {
            control<QPushButton>(u"SetupButton")->click();
        }
        EXPECT_TRUE(user.done());
        EXPECT_EQ(test.session.script.DialogClosing, 1);
        EXPECT_EQ(form->focusWidget(), control<RichTextView>(u"rtb1"));
    };
    auto& slider = *control<QSlider>(u"Hscroll1");
    test.monitors.rectangles.push_back(QRect(1920, 0, 1280, 720));
    setUp({u"Scroller Turbo Mode", u"Spacing +", u"Configure Displays", u"Configure Displays"});
    EXPECT_EQ(test.session.settings.RowStep, 2);
    EXPECT_EQ(test.session.show.LineSpacingText, u"1.1"_qs);
    EXPECT_EQ(test.session.settings.MirrorMode, 4);
    EXPECT_EQ(slider.minimum(), 231) << "the column fits the narrower display 2";
    setUp({});
    EXPECT_EQ(slider.minimum(), 231);
    form->openScript(test.write(u"wide.rtf"_qs, "{\\rtf1{\\fonttbl{\\f0 Liberation Sans;}}"
                                                "\\f0\\fs80 EVENING}"));
    EXPECT_LT(slider.minimum(), 231) << "the heading would break";
    rtb1().selectAll();
    QGuiApplication::clipboard()->setText(u"A"_qs);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(slider.minimum(), 231);
    rtb1().setText(u"EVENING"_qs);
    rtb1().selectAll();
    rtb1().setSelFontSize(40);
    test.pump.in(1, [this] { test.session.show.ExitRequested = 1; });
    press(Qt::Key_F1);
    EXPECT_LT(slider.minimum(), 231) << "a show breaks no word either";
    rtb1().setText(QString());
    test.session.script.TextChanged = 0;
    setUp({u"Configure Displays"});
    EXPECT_EQ(slider.minimum(), 12);
    EXPECT_EQ(slider.value(), 300);
    test.messages.boxes.clear();
    test.monitors.rectangles.pop_back();
    setUp({u"Configure Displays", u"Configure Displays"});
    ASSERT_EQ(test.messages.boxes.size(), 1U);
    EXPECT_EQ(test.messages.boxes[0].title, u"Display 2 Not Available"_qs);
}

TEST_F(Form1Test, AnEmptyEditorTakesTheDefaultLookThatTheSetupSaved) {
    load();
    const auto saveGreenAndNarrow = [this] {
        const ModalAction setup([](QWidget& window) {
            const ModalAction defaults([](QWidget& dialog) {
                dialog.findChild<QAbstractButton*>(u"SC4"_qs)->click();
                dialog.findChild<QSlider*>(u"Hscroll1"_qs)->setValue(100);
                dialog.findChild<QAbstractButton*>(u"Save"_qs)->click();
            });
            clickButton(window, u"Default Editor Settings");
            window.close();
        });
        press(Qt::Key_U, Qt::AltModifier);
    };
    rtb1().setText(u"open"_qs);
    saveGreenAndNarrow();
    EXPECT_EQ(rtb1().BackColor(), Black);
    rtb1().setText(QString());
    saveGreenAndNarrow();
    EXPECT_EQ(rtb1().BackColor(), Black) << "nothing was changed";
    test.session.settings.ScreenBackColor = 0;
    saveGreenAndNarrow();
    EXPECT_EQ(rtb1().BackColor(), rgb(0, 128, 0));
    EXPECT_EQ(rtb1().wrapWidth(), wrapWidthForMargin(100));
}

TEST_F(Form1Test, OnlyTheKeyboardsOwnActsLeaveTheFocusBesideTheText) {
    load();
    QApplication::setActiveWindow(&*form);
    auto& slider = *control<QSlider>(u"Hscroll1");
    auto& name = *control<QComboBox>(u"Combo1");
    auto& points = *control<QComboBox>(u"Combo2");
    const auto walkTo = [&](QWidget& to) {
        for (int step = 0; step < 4 && form->focusWidget() != &to; ++step) {
            QTest::keyClick(form->focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        }
        EXPECT_EQ(form->focusWidget(), &to);
    };
    const auto isInText = [&] { return form->focusWidget() == control<RichTextView>(u"rtb1"); };
    walkTo(slider);
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_EQ(slider.value(), settings.ColumnMargin + 1);
    EXPECT_EQ(form->focusWidget(), &slider) << "for the next step";
    QTest::keyClick(&slider, Qt::Key_Escape);
    EXPECT_TRUE(isInText());
    QTest::mouseClick(&slider, Qt::LeftButton);
    EXPECT_TRUE(isInText());
    for (QComboBox* list : {&name, &points}) {
        walkTo(*list);
        const QString before = list->currentText();
        QTest::keyClick(list, list->currentIndex() > 0 ? Qt::Key_Up : Qt::Key_Down);
        EXPECT_NE(list->currentText(), before);
        EXPECT_EQ(form->focusWidget(), list);
        for (const Qt::Key closing : {Qt::Key_Escape, Qt::Key_Return}) {
            walkTo(*list);
            QTest::keyClick(list, Qt::Key_Space);
            QTest::keyClick(list->view(), closing);
            EXPECT_TRUE(isInText()) << closing;
            QTest::mouseClick(list, Qt::LeftButton);
            QTest::keyClick(list->view(), closing);
            EXPECT_TRUE(isInText()) << closing;
        }
    }
    walkTo(points);
    test.dialogs.choose(test.write(u"news.txt"_qs, "news"));
    QTest::keyClick(&points, Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(rtb1().Text(), u"news"_qs) << "the editor's keys are the window's";
    EXPECT_EQ(unnamedControls(*form), "");
    EXPECT_LT(control<QLabel>(u"Label5")->x(), slider.x()) << "the wide end";
}

TEST_F(Form1Test, ANoticeGivesTheKeysBackTheirLine) {
    load();
    auto& line = *control<QLabel>(u"NoticeLine");
    const QString keys = line.text();
    form->showNotice(u"something"_qs);
    EXPECT_EQ(line.text(), u"something"_qs);
    auto* time = form->findChild<QTimer*>(u"NoticeTime"_qs);
    ASSERT_TRUE(time->isActive());
    time->start(0);
    QTest::qWait(1);
    EXPECT_EQ(line.text(), keys);
}

TEST_F(Form1Test, CommandKeysCountByTheirPlaceWhereTheKeyboardWritesNoLatinLetters) {
    load();
    QLineEdit box;
    const auto pressAt = [&](quint32 place, char16_t letter, Qt::KeyboardModifiers modifiers,
                             QWidget* to) {
        for (const auto type : {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, letter, modifiers, place, 0, 0, QString(QChar(letter)).toLower());
            QApplication::sendEvent(to, &event);
        }
    };
    QWidget* view = control<RichTextView>(u"rtb1");
    test.dialogs.choose(test.write(u"news.txt"_qs, "news"));
    pressAt(46, u'Д', Qt::ControlModifier, view);
    EXPECT_EQ(rtb1().Text(), u"news"_qs);
    pressAt(38, u'Ф', Qt::ControlModifier, view);
    EXPECT_EQ(rtb1().SelLength(), 4);
    pressAt(54, u'С', Qt::ControlModifier, view);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"news"_qs);
    pressAt(55, u'М', Qt::ControlModifier, &box);
    EXPECT_EQ(box.text(), u"news"_qs) << "in every window";
    const ModalAction setup([](QWidget& window) { window.close(); });
    pressAt(30, u'Г', Qt::AltModifier, view);
    EXPECT_TRUE(setup.done());
    pressAt(46, u'Д', Qt::NoModifier, view);
    EXPECT_EQ(rtb1().Text(), u"д"_qs);
}

TEST_F(Form1Test, TheSliderMovesTheColumnAndWrapsTheScriptAnew) {
    load();
    rtb1().setText(u"some words that fill more than one line "_qs.repeated(5));
    const int linesBefore = rtb1().lineCount();
    control<QSlider>(u"Hscroll1")->setValue(320);
    EXPECT_EQ(control<RichTextView>(u"rtb1")->x(), 480);
    EXPECT_EQ(test.session.settings.ColumnMargin, 320);
    EXPECT_GT(rtb1().lineCount(), linesBefore);
}

TEST_F(Form1Test, ANarrowWindowShowsTheWholeColumnAndARunningShowKeepsItsZoom) {
    settings.MirrorMode = 0;
    load();
    rtb1().setText(u"some words that fill more than one line "_qs.repeated(5));
    const int lines = rtb1().lineCount();
    form->resize(960, 800);
    EXPECT_EQ(rtb1().zoom(), 3.0);
    EXPECT_EQ(control<RichTextView>(u"rtb1")->x(), 9);
    EXPECT_EQ(control<RichTextView>(u"rtb1")->width(), 942);
    EXPECT_EQ(rtb1().lineCount(), lines);
    test.pump.in(1, [&] {
        const double zoom = rtb1().zoom();
        form->resize(1280, 800);
        EXPECT_EQ(rtb1().zoom(), zoom);
        test.session.show.ExitRequested = 1;
    });
    press(Qt::Key_F1);
    EXPECT_EQ(rtb1().zoom(), 4.0);
}

TEST_F(Form1Test, KeysAndButtonsStartAShowWhereTheySay) {
    settings.MirrorMode = NoDisplayWindow;
    load();
    const QString text = u"word\r\n"_qs.repeated(10);
    struct Row final {
        const char* what;
        int FirstDisplayLine;
        std::function<void()> act;
        int StartFromCursor;
        double StartPosition;
    };
    const auto startButton = [this] { control<QPushButton>(u"StartButton")->click(); };
    // The caret stands two characters into line 4.
    const Row rows[] = {
        {"F1 whatever the setting", 1, [this] { press(Qt::Key_F1); }, 0, 0},
        {"F2 whatever the setting", 0, [this] { press(Qt::Key_F2); }, 1, 4},
        {"button, current line", 1, startButton, 1, 4},
        {"button, first line", 0, startButton, 0, 26},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        test.session.settings.FirstDisplayLine = row.FirstDisplayLine;
        test.session.show.StartFromCursor = 9;
        rtb1().setText(text);
        rtb1().setSelStart(rtb1().lineIndex(4) + 2);
        row.act();
        EXPECT_EQ(test.session.show.StartFromCursor, row.StartFromCursor);
        EXPECT_EQ(test.session.show.StartPosition, row.StartPosition);
        EXPECT_EQ(test.session.show.ShowRunning, 0);
        EXPECT_TRUE(form->isEnabled());
        EXPECT_EQ(rtb1().GetLineFromChar(rtb1().SelStart()), 4);
        EXPECT_EQ(rtb1().Text(), text) << "no key reached the text";

        test.session.show.StartFromCursor = 9;
        rtb1().setText(QString());
        control<QPushButton>(u"StartButton")->setFocus();
        row.act();
        EXPECT_EQ(test.session.show.StartFromCursor, 9) << "there is nothing to show";
        EXPECT_EQ(form->focusWidget(), control<RichTextView>(u"rtb1"));
    }
    rtb1().setText(text);
    test.pump.next([this] { rtb1().setText(QString()); });
    startButton();
    EXPECT_EQ(test.session.show.StartFromCursor, 9) << "cleared by a handler of the first pump";
}

TEST_F(Form1Test, DuringAShowCommandsRestAndClosingEndsTheShowInstead) {
    load();
    rtb1().setText(u"text"_qs);
    test.session.script.TextChanged = 0;
    test.session.show.ShowRunning = 1;
    rtb1().setText(u"walked over by the show"_qs);
    EXPECT_EQ(test.session.script.TextChanged, 0);
    test.dialogs.choose(test.write(u"other.txt"_qs, "other"));
    press(Qt::Key_L, Qt::ControlModifier);
    control<QPushButton>(u"StartButton")->click();
    EXPECT_TRUE(test.dialogs.openRequests.empty());
    EXPECT_FALSE(form->close());
    EXPECT_EQ(test.session.show.ExitRequested, 1);
    EXPECT_TRUE(form->isVisible());
    test.session.show.ShowRunning = 0;
}

TEST_F(Form1Test, WhileADialogIsOpenNeitherACommandNorTheCloseGetsIn) {
    load();
    int opened = 0;
    test.dialogs.whileOpen = [&] {
        ++opened;
        press(Qt::Key_L, Qt::ControlModifier);
        press(Qt::Key_F1);
        EXPECT_FALSE(form->close());
    };
    press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(opened, 1);
    EXPECT_TRUE(form->close());
}

} // namespace
} // namespace velmora
