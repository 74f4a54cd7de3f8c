#include "core/colour_tables.h"
#include "core/screen_scale.h"
#include "main_window_fixture.h"
#include "platform/rich_text/rtf_reader.h"
#include "support/accessible_names.h"
#include "support/modal_action.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>
#include <QTimer>
#include <QUrl>
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

TEST_F(Form1Test, CopiedTextIsBlackForOthersAndKeepsItsLookHere) {
    load();
    rtb1().setBackColor(0x800000);
    rtb1().setText(u"white"_qs);
    rtb1().selectAll();
    rtb1().setSelColor(White);
    for (const int key : {Qt::Key_C, Qt::Key_X}) {
        press(key, Qt::ControlModifier);
        const QMimeData& copied = *QGuiApplication::clipboard()->mimeData();
        for (const char16_t* name : {u"text/rtf", u"application/rtf"}) {
            const RtfReadResult others = readRtf(copied.data(QString::fromUtf16(name)));
            EXPECT_EQ(others.fragment.formats.front().color, Black);
        }
        press(Qt::Key_V, Qt::ControlModifier);
        rtb1().selectAll();
        EXPECT_EQ(rtb1().SelColor(), White);
    }
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

TEST_F(Form1Test, LoadAndSaveByKeysKeepTheCaptionTrue) {
    load();
    test.dialogs.choose(test.write(u"news.txt"_qs, "first\r\nsecond"));
    press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(rtb1().Text(), u"first\r\nsecond"_qs);
    EXPECT_EQ(form->windowTitle(), u"Velmora V12.0 - news.txt"_qs);

    // A load that fails changes nothing, the caption included.
    test.messages.answers = {MessageAnswer::Yes};
    test.dialogs.choose(test.path(u"missing.rtf"_qs));
    control<QPushButton>(u"LoadText")->click();
    EXPECT_EQ(rtb1().Text(), u"first\r\nsecond"_qs);
    EXPECT_EQ(form->windowTitle(), u"Velmora V12.0 - news.txt"_qs);

    // Text that comes in at the caret changes the script, and leaves it its name.
    test.messages.answers = {MessageAnswer::No};
    test.dialogs.choose(test.write(u"more.txt"_qs, "more "));
    press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(form->windowTitle(), u"Velmora V12.0 - news.txt*"_qs);
    EXPECT_EQ(test.session.script.ScriptFileName, test.path(u"news.txt"_qs));

    test.dialogs.choose(test.path(u"kept.txt"_qs), 1);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(test.read(u"kept.txt"_qs), "more first\r\nsecond");
    EXPECT_EQ(form->windowTitle(), u"Velmora V12.0 - kept.txt"_qs);

    rtb1().setSelText(u"x"_qs);
    EXPECT_EQ(form->windowTitle(), u"Velmora V12.0 - kept.txt*"_qs);
    EXPECT_EQ(test.session.script.TextChanged, 1);

    test.session.script.TextChanged = 0;
    rtb1().setText(QString());
    EXPECT_EQ(form->windowTitle(), u"Velmora V12.0 - kept.txt*"_qs) << "emptied";
    form->openScript(test.write(u"empty.txt"_qs, ""));
    EXPECT_EQ(form->windowTitle(), u"Velmora V12.0 - empty.txt"_qs);
    form->openScript(test.write(u"a[*].txt"_qs, "a"));
    EXPECT_EQ(form->windowHandle()->title(), u"Velmora V12.0 - a[*].txt"_qs);
}

TEST_F(Form1Test, LeavingWritesTheSettingsAndAsksAboutChangedTextOnly) {
    struct Row final {
        const char* what;
        const char16_t* text;
        int TextChanged;
        /// Button of the question; null: the question is closed by its frame.
        const char16_t* answer;
        /// File name given to the save dialog; null: cancelled.
        const char16_t* savedAs;
        bool asks;
        bool leaves;
        bool settingsWritten;
    };
    const Row rows[] = {
        {"empty editor, though changed", u"", 1, nullptr, nullptr, false, true, true},
        {"nothing to save", u"text", 0, nullptr, nullptr, false, true, true},
        {"No", u"text", 1, u"No", nullptr, true, true, true},
        {"Cancel", u"text", 1, u"Cancel", nullptr, true, false, false},
        {"frame", u"text", 1, nullptr, nullptr, true, false, false},
        {"Yes, saved", u"text", 1, u"Yes", u"out.rtf", true, true, true},
        {"Yes, save cancelled", u"text", 1, u"Yes", nullptr, true, false, true},
        {"Yes, folder gone", u"text", 1, u"Yes", u"gone/out.rtf", true, false, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        load();
        ScriptState& script = test.session.script;
        rtb1().setText(QString::fromUtf16(row.text));
        script.TextChanged = row.TextChanged;
        // The answer and the result of whatever was asked before.
        script.ExitAnswer = 2;
        script.SaveFailed = 1;
        test.session.settings.TimedDisplaySeconds = 77;
        const auto secondsWritten = [this] { return savedSettings().at(25).trimmed(); };
        test.dialogs.whileOpen = [&] {
            EXPECT_EQ(secondsWritten(), "77") << "the settings come before the script";
            EXPECT_EQ(script.ExitSaveInProgress, 1);
            EXPECT_EQ(script.SaveFailed, 1);
        };
        test.dialogs.choices.clear();
        if (row.savedAs != nullptr) {
            test.dialogs.choose(test.path(QString::fromUtf16(row.savedAs)), 2);
        }
        const ModalAction user([&](QWidget& window) {
            EXPECT_EQ(window.objectName(), u"Form17"_qs);
            EXPECT_EQ(script.ExitAnswer, 0);
            row.answer != nullptr ? clickButton(window, row.answer)
                                  : static_cast<void>(window.close());
        });
        const QSignalSpy unloaded(&*form, &Form1::unloaded);
        control<QPushButton>(u"StartButton")->setFocus();
        EXPECT_EQ(form->close(), row.leaves);
        EXPECT_EQ(unloaded.count(), row.leaves ? 1 : 0);
        EXPECT_EQ(user.done(), row.asks);
        ASSERT_EQ(savedSettings().size(), 47) << "46 values, each ended by a line end";
        EXPECT_EQ(secondsWritten(), row.settingsWritten ? "77" : "30");
        EXPECT_EQ(script.ExitSaveInProgress, 0);
        EXPECT_EQ(form->focusWidget() == control<RichTextView>(u"rtb1"), !row.leaves);
        form.reset();
    }
    EXPECT_FALSE(test.read(u"out.rtf"_qs).isEmpty());
}

TEST_F(Form1Test, SettingsThatCannotBeWrittenAreToldAndTheProgramIsLeftAllTheSame) {
    load();
    const QString file = test.path(SettingsFile::fileName());
    ASSERT_TRUE(QFile::remove(file) && QDir().mkdir(file));
    EXPECT_TRUE(form->close());
    ASSERT_EQ(test.messages.boxes.size(), 1U);
    const FakeMessageBoxes::Box& box = test.messages.boxes.front();
    EXPECT_EQ(box.title, u"Could Not Save Settings"_qs);
    EXPECT_EQ(box.buttons, MessageButtons::Ok);
    EXPECT_TRUE(box.text.contains(file + u".\r\n\r\n"_qs)) << box.text.toStdString();
    EXPECT_FALSE(box.text.contains(u"\r\n\r\n\r\n"_qs)) << "the reason stands there";
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

TEST_F(Form1Test, AScriptFileDroppedOnTheTextIsLoaded) {
    load();
    QWidget* viewport = control<RichTextView>(u"rtb1")->viewport();
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(test.write(u"news.txt"_qs, "dropped file"))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &drop);
    EXPECT_TRUE(rtb1().isEmpty()) << "not inside the drop, which another program waits for";
    QCoreApplication::processEvents();
    EXPECT_EQ(rtb1().Text(), u"dropped file"_qs);
    EXPECT_TRUE(form->windowTitle().contains(u"news.txt"_qs));
}

TEST_F(Form1Test, PastedTextIsTamedAndUnderAShowTheEditorIsReadOnly) {
    load();
    auto* rich = new QMimeData;
    rich->setData(u"text/rtf"_qs, "{\\rtf1\\ansi\\fs28\\b black\\tab bold}");
    QGuiApplication::clipboard()->setMimeData(rich);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(rtb1().Text(), u"black bold"_qs);
    EXPECT_EQ(rtb1().SelStart(), 10);
    rtb1().selectAll();
    EXPECT_EQ(rtb1().SelColor(), White);
    EXPECT_EQ(rtb1().SelBold(), true);
    EXPECT_EQ(rtb1().SelFontSize(), settings.ScreenFontSize);
    EXPECT_EQ(test.session.script.TextChanged, 1);

    auto* view = control<RichTextView>(u"rtb1");
    form->setEditorActive(false);
    EXPECT_TRUE(view->isReadOnly());
    form->setEditorActive(true);
    EXPECT_FALSE(view->isReadOnly());
    view->paste();
    EXPECT_EQ(rtb1().Text(), u"black bold"_qs) << "in the place of the same text";
    EXPECT_EQ(rtb1().SelLength(), 0);
}

} // namespace
} // namespace velmora
