// Form1: what comes into the script and goes out of it, and leaving.
#include "main_window_fixture.h"
#include "platform/rich_text/rtf_reader.h"
#include "support/modal_action.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

namespace velmora {
namespace {

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

} // namespace
} // namespace velmora
