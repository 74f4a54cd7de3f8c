#include "view_fixture.h"

#include <QInputMethod>
#include <QInputMethodEvent>
#include <QTextLayout>

namespace velmora {

class ViewInputMethod : public ViewTest {
protected:
    void compose(const QString& text, const QList<QInputMethodEvent::Attribute>& attributes = {}) {
        QInputMethodEvent event(text, attributes);
        QApplication::sendEvent(&view, &event);
    }
    void commit(const QString& text, int replaceFrom = 0, int replaceLength = 0) {
        QInputMethodEvent event;
        event.setCommitString(text, replaceFrom, replaceLength);
        QApplication::sendEvent(&view, &event);
    }
    [[nodiscard]] QString composed() const {
        QString all;
        for (QTextBlock block = box.document().begin(); block.isValid(); block = block.next()) {
            all += block.layout()->preeditAreaText();
        }
        return all;
    }
    [[nodiscard]] QRect cursor() const {
        return view.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    }
};

TEST_F(ViewInputMethod, ComposedTextStandsInPlaceAndOutsideOfTheText) {
    setText(u"first\nab"_qs);
    box.setSelStart(positionOf(u"b"_qs));
    const QRect before = cursor();
    int changes = 0;
    QObject::connect(&box, &RichTextBox::Change, &view, [&] { ++changes; });
    compose(u"にほ"_qs);
    EXPECT_EQ(composed(), u"にほ"_qs);
    EXPECT_EQ(box.Text(), u"first\r\nab"_qs);
    EXPECT_EQ(changes, 0);
    EXPECT_GT(cursor().left(), before.left()) << "the caret goes behind it";
    const auto formats = box.document().lastBlock().layout()->formats();
    ASSERT_EQ(formats.size(), 1);
    EXPECT_TRUE(formats[0].format.fontUnderline());
    EXPECT_EQ(formats[0].start, 1);
    EXPECT_EQ(formats[0].length, 2);

    compose(u"にほ"_qs, {{QInputMethodEvent::Cursor, 0, 1, QVariant()}});
    EXPECT_EQ(cursor().left(), before.left()) << "or where the input method wants it";
    commit(u"日本"_qs);
    EXPECT_EQ(box.Text(), u"first\r\na日本b"_qs);
    EXPECT_EQ(composed(), QString());
    EXPECT_EQ(box.SelStart(), box.textLength() - 1);
    EXPECT_EQ(changes, 1);
}

TEST_F(ViewInputMethod, ComposedTextLooksLikeTextAndIsUnderlined) {
    for (const QString& text : {QString(), u"ab"_qs, u"ab\n"_qs}) {
        setText(text);
        box.setSelStart(box.textLength());
        const int height = cursor().height();
        const int left = cursor().left();
        compose(u"xy"_qs, {{QInputMethodEvent::Cursor, 2, 1, QVariant()}});
        EXPECT_EQ(cursor().height(), height) << text.toStdString();
        QTest::qWait(1);
        const QImage picture = view.viewport()->grab().toImage();
        const int width = cursor().left() - left;
        int longest = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0, length = 0; x < picture.width(); ++x) {
                length = picture.pixelColor(x, y).lightness() > 128 ? length + 1 : 0;
                longest = std::max(longest, length);
            }
        }
        EXPECT_GT(longest, 0.9 * width) << "underlined: " << text.toStdString();
        compose(QString());
    }
}

TEST_F(ViewInputMethod, ComposingEnds) {
    setText(u"abcdef"_qs);
    const struct {
        const char* what;
        std::function<void()> act;
        QString text;
    } rows[] = {
        {"cancelled", [&] { compose(QString()); }, u"abcdef"_qs},
        {"caret moved", [&] { box.setSelStart(0); }, u"abcdef"_qs},
        {"text replaced", [&] { box.setText(u"new"_qs); }, u"new"_qs},
        {"paragraph split", [&] { box.setSelText(u"\r\n"_qs); }, u"abc\r\ndef"_qs},
        {"clicked elsewhere",
         [&] { QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, pointOn(0)); }, u"abcdef"_qs},
        {"read-only", [&] { view.setReadOnly(true); }, u"abcdef"_qs},
    };
    for (const auto& row : rows) {
        view.setReadOnly(false);
        setText(u"abcdef"_qs);
        box.setSelStart(3);
        compose(u"xy"_qs);
        ASSERT_EQ(composed(), u"xy"_qs) << row.what;
        row.act();
        EXPECT_EQ(composed(), QString()) << row.what;
        EXPECT_EQ(box.Text(), row.text) << row.what;
    }
}

TEST_F(ViewInputMethod, CommitsMayReplace) {
    setText(u"teh cat"_qs);
    box.setSelStart(3);
    commit(u"the"_qs, -3, 3);
    EXPECT_EQ(box.Text(), u"the cat"_qs);
    EXPECT_EQ(box.SelStart(), 3);
    box.select(0, 3);
    compose(u"a"_qs);
    EXPECT_EQ(box.Text(), u" cat"_qs) << "composing replaces the selection";
    commit(u"a"_qs);
    EXPECT_EQ(box.Text(), u"a cat"_qs);
}

TEST_F(ViewInputMethod, TellsTheTextAround) {
    setText(u"first\nsecond part"_qs);
    const int second = positionOf(u"second"_qs);
    box.select(second + 2, second + 6);
    const struct {
        Qt::InputMethodQuery query;
        QVariant expected;
    } rows[] = {
        {Qt::ImEnabled, true},
        {Qt::ImSurroundingText, u"second part"_qs},
        {Qt::ImCursorPosition, 6},
        {Qt::ImAnchorPosition, 2},
        {Qt::ImCurrentSelection, u"cond"_qs},
        {Qt::ImTextBeforeCursor, u"second"_qs},
        {Qt::ImTextAfterCursor, u" part"_qs},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(view.inputMethodQuery(row.query), row.expected) << row.query;
    }
    EXPECT_EQ(view.inputMethodQuery(Qt::ImTextBeforeCursor, 3), QVariant(u"ond"_qs));
    EXPECT_NEAR(cursor().center().x(), pointOf(second + 6).x(), 2);
    EXPECT_NEAR(cursor().center().y(), pointOf(second + 6).y(), 2);
}

TEST_F(ViewInputMethod, TheBlinkingCaretIsNoNewsForTheInputMethod) {
    QApplication::setCursorFlashTime(10);
    setText(u"one"_qs);
    int told = 0;
    QObject::connect(QGuiApplication::inputMethod(), &QInputMethod::cursorRectangleChanged, &view,
                     [&] { ++told; });
    press(Qt::Key_Right);
    EXPECT_GT(told, 0);
    told = 0;
    const PaintCounter blinks(*view.viewport());
    EXPECT_TRUE(QTest::qWaitFor([&] { return blinks.count >= 4; }));
    EXPECT_EQ(told, 0);
    QApplication::setCursorFlashTime(0);
}

} // namespace velmora
