#include "view_fixture.h"

#include "platform/rich_text/rich_text_view_core.h"
#include "platform/rich_text/rich_text_view_drag.h"

#include <QClipboard>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>

namespace velmora {

class ViewClipboard : public ViewTest {
protected:
    static const QMimeData& clipboard() { return *QGuiApplication::clipboard()->mimeData(); }
    static void offer(const QString& format, const QByteArray& bytes, const QString& text) {
        auto* data = new QMimeData;
        if (!format.isEmpty()) {
            data->setData(format, bytes);
        }
        if (!text.isEmpty()) {
            data->setText(text);
        }
        QGuiApplication::clipboard()->setMimeData(data);
    }
    /// Drops data as the window system would; tells whether the view took it.
    bool drop(const QMimeData& data, int position, Qt::DropAction action) {
        const QPointF point = pointOf(position);
        QDragEnterEvent enter(point.toPoint(), Qt::CopyAction | Qt::MoveAction, &data,
                              Qt::LeftButton, Qt::NoModifier);
        enter.setDropAction(action);
        QApplication::sendEvent(view.viewport(), &enter);
        QDropEvent event(point, action, &data, Qt::LeftButton, Qt::NoModifier);
        event.setDropAction(action);
        QApplication::sendEvent(view.viewport(), &event);
        return enter.isAccepted() && event.isAccepted();
    }
};

TEST_F(ViewClipboard, RoundTripKeepsFormats) {
    setText(u"plain bold\nnext"_qs);
    box.select(6, 10);
    box.setSelBold(true);
    box.setSelColor(0x0000FF);
    box.select(4, 13);
    const QByteArray before = box.SelRTF();
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(clipboard().data(u"text/rtf"_qs).startsWith("{\\rtf1"));
    EXPECT_EQ(clipboard().text(), u"n bold\nn"_qs) << "others expect a bare LF";

    box.setSelStart(box.textLength());
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), withLineEnds(u"plain bold\nnextn bold\nn"_qs));
    box.select(box.textLength() - 9, box.textLength());
    EXPECT_EQ(box.SelRTF(), before);

    box.select(0, 6);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(clipboard().text(), u"plain "_qs);
    EXPECT_TRUE(box.Text().startsWith(u"bold"_qs));
    box.setSelStart(0);
    view.copy();
    EXPECT_EQ(clipboard().text(), u"plain "_qs) << "no selection leaves it alone";
}

TEST_F(ViewClipboard, TakesTheBestThatItCanRead) {
    const QByteArray rtf = "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil Arial;}}\\f0\\fs28\\b fat}";
    const struct {
        const char* what;
        QString format;
        QByteArray bytes;
        QString text;
        QString expected;
        bool bold;
    } rows[] = {
        {"rtf first", u"text/rtf"_qs, rtf, u"thin"_qs, u"fat"_qs, true},
        {"another name", u"application/rtf"_qs, rtf, QString(), u"fat"_qs, true},
        {"richtext that is rtf", u"text/richtext"_qs, rtf, u"thin"_qs, u"fat"_qs, true},
        {"richtext that is not", u"text/richtext"_qs, "<bold>fat</bold>", u"thin"_qs, u"thin"_qs,
         false},
        {"damaged rtf", u"text/rtf"_qs, "nothing of the kind", u"thin"_qs, u"thin"_qs, false},
        {"line ends", QString(), {}, u"a\nb"_qs, u"a\r\nb"_qs, false},
        {"web page alone", u"text/html"_qs,
         "<link rel='stylesheet' href='/dev/zero'><style>@import url(/dev/zero);</style><p>a &amp; "
         "<b>b</b><p>c<img "
         "src='/dev/zero'>",
         QString(), u"a & b\r\nc"_qs, false},
        {"picture", u"image/png"_qs, "...", QString(), QString(), false},
    };
    for (const auto& row : rows) {
        setText(QString());
        offer(row.format, row.bytes, row.text);
        view.paste();
        EXPECT_EQ(box.Text(), row.expected) << row.what;
        if (row.bold) {
            box.selectAll();
            EXPECT_EQ(box.SelBold(), true) << row.what;
        }
    }
}

TEST_F(ViewClipboard, TheOwnerGetsWhatComesIn) {
    setText(u"abc"_qs);
    box.select(1, 2);
    QString seen;
    view.setIncomingHandler([&](const QMimeData& data) {
        seen += data.text();
        box.setSelText(u"["_qs + data.text() + QLatin1Char(']'));
    });
    offer(QString(), {}, u"x"_qs);
    press(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(box.Text(), u"a[x]c"_qs);
    QMimeData dropped;
    dropped.setText(u"y"_qs);
    EXPECT_TRUE(drop(dropped, 0, Qt::CopyAction));
    EXPECT_EQ(box.Text(), u"[y]a[x]c"_qs);
    view.setReadOnly(true);
    view.paste();
    EXPECT_FALSE(drop(dropped, 0, Qt::CopyAction));
    EXPECT_EQ(seen, u"xy"_qs);
    EXPECT_EQ(box.Text(), u"[y]a[x]c"_qs);
}

TEST_F(ViewClipboard, TextDraggedAwayIsDeletedIfItMoved) {
    const struct {
        Qt::DropAction action;
        bool readOnly;
        const char* left;
    } rows[] = {{Qt::MoveAction, false, "one  three"},
                {Qt::CopyAction, false, "one two three"},
                {Qt::IgnoreAction, false, "one two three"},
                {Qt::MoveAction, true, "one two three"}};
    for (const auto& row : rows) {
        setText(u"one two three"_qs);
        box.select(4, 7);
        ViewCore core(box, view);
        core.setReadOnly(row.readOnly);
        DragHandler handler(core, [&](QDrag& drag, Qt::DropActions actions, Qt::DropAction) {
            EXPECT_EQ(drag.mimeData()->text(), u"two"_qs);
            EXPECT_EQ(actions.testFlag(Qt::MoveAction), !row.readOnly);
            return row.action;
        });
        handler.drag();
        EXPECT_EQ(box.Text(), QString::fromLatin1(row.left)) << row.action;
    }
}

TEST_F(ViewClipboard, WhatHasChangedDuringADragIsNotDeleted) {
    for (const bool onlySelection : {true, false}) {
        setText(u"one two three"_qs);
        box.select(4, 7);
        ViewCore core(box, view);
        DragHandler handler(core, [&](QDrag&, Qt::DropActions, Qt::DropAction) {
            setText(onlySelection ? u"one two three"_qs : u"one six three"_qs);
            box.select(onlySelection ? 0 : 4, onlySelection ? 3 : 7);
            return Qt::MoveAction;
        });
        handler.drag();
        EXPECT_EQ(box.textLength(), 13);
    }
}

TEST_F(ViewClipboard, ADragInsideMovesOrCopies) {
    const struct {
        const char* what;
        Qt::DropAction action;
        int target;
        const char* expected;
        int selectionStart;
    } rows[] = {
        {"move right", Qt::MoveAction, 13, "one  threetwo", 10},
        {"move left", Qt::MoveAction, 0, "twoone  three", 0},
        {"copy", Qt::CopyAction, 0, "twoone two three", 0},
        {"onto itself", Qt::MoveAction, 5, "one two three", 4},
    };
    for (const auto& row : rows) {
        setText(u"one two three"_qs);
        box.select(4, 7);
        ViewCore core(box, view);
        core.geometry().setViewportSize(view.viewport()->size());
        DragHandler* dragged = nullptr;
        DragHandler handler(core, [&](QDrag& drag, Qt::DropActions, Qt::DropAction) {
            const QPointF point = pointOf(row.target);
            QDropEvent event(point, row.action, drag.mimeData(), Qt::LeftButton, Qt::NoModifier);
            event.setDropAction(row.action);
            dragged->drop(event);
            return row.action;
        });
        dragged = &handler;
        handler.drag();
        EXPECT_EQ(box.Text(), QString::fromLatin1(row.expected)) << row.what;
        EXPECT_EQ(selected(), u"two"_qs) << row.what;
        EXPECT_EQ(box.SelStart(), row.selectionStart) << row.what;
    }
}

} // namespace velmora
