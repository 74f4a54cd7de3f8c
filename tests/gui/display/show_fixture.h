#pragma once

#include "core/screen_scale.h"
#include "display/show_hand_over.h"
#include "support/quiet_observer.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>

namespace velmora {

/// A show over a script of forty lines, with acts on its window at given moments. Every even line
/// is full to the brim and goes on in the odd one without a line end: a mark on it breaks it anew.
class ShowFixture : public ::testing::Test, public QuietObserver {
protected:
    void SetUp() override {
        rtb1.setBackColor(Black);
        rtb1.setDefaultFormat({u"Liberation Sans"_qs, 52, White});
        rtb1.setWrapWidth(wrapWidthForMargin(12));
        rtb1.setZoom(6);
        QString text;
        for (int line = 0; line < 40; line += 2) {
            text += fullLine(u"Line %1 "_qs.arg(line)) + u" Line %1 too\r\n"_qs.arg(line + 1);
        }
        text.chop(2);
        rtb1.setText(text);
        t.monitors.rectangles = {QRect(0, 0, 1280, 720)};
        handOver.setObserver(this);
    }

    /// The words, with as much behind them as a line takes.
    QString fullLine(QString words) {
        do {
            words += u'x';
            rtb1.setText(words + u'x');
        } while (rtb1.lineCount() == 1);
        return words;
    }
    void showPrepared(const ShowTables& prepared, const DisplayGeometry& laidOut,
                      QWidget& window) override {
        tables = &prepared;
        geometry = &laidOut;
        display = &window;
    }
    void loopStarted() override { ++shows; }

    /// A show in which the act is done after so many seconds, and which then is left.
    void showFor(double seconds, const std::function<void()>& act) {
        bool acted = false;
        t.pump.in(seconds, [&] {
            acted = true;
            act();
            press(Qt::Key_Escape);
        });
        handOver.RunPrompter();
        EXPECT_TRUE(acted);
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* text = display->focusWidget();
        ASSERT_NE(text, nullptr);
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(text, &event);
    }
    template<typename Control = QWidget> Control* control(const char* name) {
        return display->findChild<Control*>(QString::fromLatin1(name));
    }
    [[nodiscard]] int caretLine() const { return rtb1.GetLineFromChar(rtb1.SelStart()); }

    TestSession t;
    ShowState& show = t.session.show;
    Settings& settings = t.session.settings;
    RichTextBox& rtb1 = t.session.script.rtb1;
    ShowHandOver handOver{t.session, t.host};
    QPointer<QWidget> display;
    /// Of the show that runs.
    const ShowTables* tables = nullptr;
    const DisplayGeometry* geometry = nullptr;
    int shows = 0;
};

} // namespace velmora
