#include "view_fixture.h"

#include "platform/rich_text/rich_text_view_core.h"
#include "platform/rich_text/rich_text_view_drag.h"

#include <QClipboard>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

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
    setText(QStringLiteral("plain bold\nnext"));
    box.select(6, 10);
    box.setSelBold(true);
    box.setSelColor(0x0000FF);
    box.select(4, 13);
    const QByteArray before = box.SelRTF();
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(clipboard().data(QStringLiteral("text/rtf")).startsWith("{\\rtf1"));
    EXPECT_EQ(clipboard().text(), QStringLiteral("n bold\nn")) << "others expect a bare LF";

    box.setSelStart(box.textLength());
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), withLineEnds(QStringLiteral("plain bold\nnextn bold\nn")));
    box.select(box.textLength() - 9, box.textLength());
    EXPECT_EQ(box.SelRTF(), before);

    box.select(0, 6);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(clipboard().text(), QStringLiteral("plain "));
    EXPECT_TRUE(box.Text().startsWith(QStringLiteral("bold")));
    box.setSelStart(0);
    view.copy();
    EXPECT_EQ(clipboard().text(), QStringLiteral("plain ")) << "no selection leaves it alone";
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
        {"rtf first", QStringLiteral("text/rtf"), rtf, QStringLiteral("thin"),
         QStringLiteral("fat"), true},
        {"another name", QStringLiteral("application/rtf"), rtf, QString(), QStringLiteral("fat"),
         true},
        {"richtext that is rtf", QStringLiteral("text/richtext"), rtf, QStringLiteral("thin"),
         QStringLiteral("fat"), true},
        {"richtext that is not", QStringLiteral("text/richtext"), "<bold>fat</bold>",
         QStringLiteral("thin"), QStringLiteral("thin"), false},
        {"damaged rtf", QStringLiteral("text/rtf"), "nothing of the kind", QStringLiteral("thin"),
         QStringLiteral("thin"), false},
        {"line ends", QString(), {}, QStringLiteral("a\nb"), QStringLiteral("a\r\nb"), false},
        {"picture", QStringLiteral("image/png"), "...", QString(), QString(), false},
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
    setText(QStringLiteral("abc"));
    box.select(1, 2);
    QString seen;
    view.setIncomingHandler([&](const QMimeData& data) {
        seen += data.text();
        box.setSelText(QStringLiteral("[") + data.text() + QLatin1Char(']'));
    });
    offer(QString(), {}, QStringLiteral("x"));
    press(Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(box.Text(), QStringLiteral("a[x]c"));
    QMimeData dropped;
    dropped.setText(QStringLiteral("y"));
    EXPECT_TRUE(drop(dropped, 0, Qt::CopyAction));
    EXPECT_EQ(box.Text(), QStringLiteral("[y]a[x]c"));
    view.setReadOnly(true);
    view.paste();
    EXPECT_FALSE(drop(dropped, 0, Qt::CopyAction));
    EXPECT_EQ(seen, QStringLiteral("xy"));
    EXPECT_EQ(box.Text(), QStringLiteral("[y]a[x]c"));
}

TEST_F(ViewClipboard, FilesAreLeftToTheWindow) {
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(QStringLiteral("/a/script.rtf"))});
    EXPECT_FALSE(drop(files, 0, Qt::CopyAction));
    QMimeData link;
    link.setUrls({QUrl(QStringLiteral("https://example.org/"))});
    link.setText(QStringLiteral("example"));
    EXPECT_TRUE(drop(link, 0, Qt::CopyAction));
    EXPECT_EQ(box.Text(), QStringLiteral("example"));
}

TEST_F(ViewClipboard, ADragBeginsOnTheSelectionOnly) {
    setText(QStringLiteral("one two three"));
    box.select(4, 7);
    const QPoint start = pointOn(5);
    const QPoint away = start + QPoint(QApplication::startDragDistance() + 1, 0);
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, start);
    QMouseEvent move(QEvent::MouseMove, away, view.viewport()->mapToGlobal(away), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &move);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, away);
    EXPECT_EQ(selected(), QStringLiteral("two")) << "a drag that nobody takes changes nothing";
    EXPECT_EQ(box.Text(), QStringLiteral("one two three"));
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
        setText(QStringLiteral("one two three"));
        box.select(4, 7);
        ViewCore core(box, view);
        core.setReadOnly(row.readOnly);
        DragHandler handler(core, [&](QDrag& drag, Qt::DropActions actions, Qt::DropAction) {
            EXPECT_EQ(drag.mimeData()->text(), QStringLiteral("two"));
            EXPECT_EQ(actions.testFlag(Qt::MoveAction), !row.readOnly);
            return row.action;
        });
        handler.drag();
        EXPECT_EQ(box.Text(), QString::fromLatin1(row.left)) << row.action;
    }
}

TEST_F(ViewClipboard, WhatChangedDuringADragIsNotDeleted) {
    const struct {
        const char* what;
        std::function<void()> change;
        QString left;
    } rows[] = {
        {"another selection", [&] { box.select(0, 3); }, QStringLiteral("one two three")},
        {"another text", [&] { setText(QStringLiteral("six")); }, QStringLiteral("six")},
        {"another text in the same place",
         [&] {
             setText(QStringLiteral("one six three"));
             box.select(4, 7);
         },
         QStringLiteral("one six three")},
    };
    for (const auto& row : rows) {
        setText(QStringLiteral("one two three"));
        box.select(4, 7);
        ViewCore core(box, view);
        DragHandler handler(core, [&](QDrag&, Qt::DropActions, Qt::DropAction) {
            row.change();
            return Qt::MoveAction;
        });
        handler.drag();
        EXPECT_EQ(box.Text(), row.left) << row.what;
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
        {"move right", Qt::MoveAction, 7, "one three two", 10},
        {"move left", Qt::MoveAction, 0, "twoone  three", 0},
        {"copy", Qt::CopyAction, 0, "twoone two three", 0},
        {"onto itself", Qt::MoveAction, 5, "one two three", 4},
    };
    for (const auto& row : rows) {
        setText(QStringLiteral("one two three"));
        box.select(4, 7);
        const bool right = row.target == 7;
        const int target = right ? 13 : row.target;
        ViewCore core(box, view);
        core.geometry().setViewportSize(view.viewport()->size());
        DragHandler* dragged = nullptr;
        DragHandler handler(core, [&](QDrag& drag, Qt::DropActions, Qt::DropAction) {
            const QPointF point = pointOf(target);
            QDropEvent event(point, row.action, drag.mimeData(), Qt::LeftButton, Qt::NoModifier);
            event.setDropAction(row.action);
            dragged->drop(event);
            return row.action;
        });
        dragged = &handler;
        handler.drag();
        const QString expected =
            right ? QStringLiteral("one  threetwo") : QString::fromLatin1(row.expected);
        EXPECT_EQ(box.Text(), expected) << row.what;
        EXPECT_EQ(selected(), QStringLiteral("two")) << row.what;
        EXPECT_EQ(box.SelStart(), row.selectionStart) << row.what;
    }
}

} // namespace velmora
