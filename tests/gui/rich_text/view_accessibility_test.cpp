#include "view_fixture.h"

#include "platform/rich_text/rich_text_view_accessibility.h"

#include <QAccessible>

#include <climits>

namespace velmora {

namespace {

/// What assistive programs were told, in words. The notifier takes plain functions.
QStringList& told() {
    static QStringList events;
    return events;
}

void note(QAccessibleEvent* event) {
    switch (event->type()) {
    case QAccessible::TextCaretMoved:
        told() << u"caret %1"_qs.arg(
            static_cast<QAccessibleTextCursorEvent*>(event)->cursorPosition());
        break;
    case QAccessible::TextSelectionChanged: {
        auto* selection = static_cast<QAccessibleTextSelectionEvent*>(event);
        told() << u"selection %1 %2"_qs.arg(selection->selectionStart())
                      .arg(selection->selectionEnd());
        break;
    }
    case QAccessible::TextUpdated: {
        auto* update = static_cast<QAccessibleTextUpdateEvent*>(event);
        told() << u"text %1 -%2 +%3"_qs.arg(update->changePosition())
                      .arg(update->textRemoved(), update->textInserted());
        break;
    }
    default:
        break;
    }
}

} // namespace

class ViewAccessibility : public ViewTest {
protected:
    [[nodiscard]] QAccessibleInterface& interface() {
        return *QAccessible::queryAccessibleInterface(&view);
    }
    [[nodiscard]] QAccessibleTextInterface& text() { return *interface().textInterface(); }
};

TEST_F(ViewAccessibility, TellsTextCaretAndSelection) {
    setText(u"One two.\nThree\n"_qs);
    EXPECT_EQ(interface().role(), QAccessible::EditableText);
    ASSERT_NE(interface().textInterface(), nullptr);
    const QString all = u"One two.\nThree\n"_qs;
    EXPECT_EQ(text().characterCount(), all.size()) << "a line end is one character here";
    EXPECT_EQ(text().text(0, text().characterCount()), all);
    EXPECT_EQ(text().text(4, 11), u"two.\nTh"_qs);
    box.setSelStart(positionOf(u"Three"_qs) + 2);
    EXPECT_EQ(text().cursorPosition(), 11);
    text().setSelection(0, 4, 11);
    EXPECT_EQ(selected(), u"two.\r\nTh"_qs);
    int start = -1;
    int end = -1;
    text().selection(0, &start, &end);
    EXPECT_EQ(std::make_pair(start, end), std::make_pair(4, 11));
    text().removeSelection(0);
    EXPECT_EQ(text().selectionCount(), 0);
}

TEST_F(ViewAccessibility, CutsTheTextIntoUnits) {
    const QString line = u"wrapping words "_qs.repeated(12);
    setText(u"One two.\n"_qs + line);
    ASSERT_GT(box.lineCount(), 3);
    const int secondLine = box.toDocument(box.lineIndex(2));
    const int thirdLine = box.toDocument(box.lineIndex(3));
    const struct {
        const char* what;
        int offset;
        QAccessible::TextBoundaryType type;
        int start;
        int end;
    } rows[] = {
        {"character", 4, QAccessible::CharBoundary, 4, 5},
        {"word", 5, QAccessible::WordBoundary, 4, 7},
        {"line end", 8, QAccessible::CharBoundary, 8, 9},
        {"paragraph", 3, QAccessible::ParagraphBoundary, 0, 9},
        {"display line", secondLine + 2, QAccessible::LineBoundary, secondLine, thirdLine},
    };
    for (const auto& row : rows) {
        int start = -1;
        int end = -1;
        const QString found = text().textAtOffset(row.offset, row.type, &start, &end);
        EXPECT_EQ(start, row.start) << row.what;
        EXPECT_EQ(end, row.end) << row.what;
        EXPECT_EQ(found, text().text(start, end)) << row.what;
        int beforeEnd = -1;
        text().textBeforeOffset(row.offset, row.type, &start, &beforeEnd);
        EXPECT_EQ(beforeEnd, row.start) << row.what;
        int afterStart = -1;
        text().textAfterOffset(row.offset, row.type, &afterStart, &end);
        EXPECT_EQ(afterStart, row.end) << row.what;
    }
}

TEST_F(ViewAccessibility, TellsPlacesAndFormats) {
    setText(u"One two\n\u05E9\u05DC\u05D5\u05DD"_qs);
    box.select(4, 7);
    box.setSelBold(true);
    const QRect rect = text().characterRect(5);
    const QPoint inViewport = view.viewport()->mapFromGlobal(rect.topLeft());
    EXPECT_NEAR(inViewport.x(), pointOf(5).x(), 2);
    EXPECT_NEAR(inViewport.x() + rect.width(), pointOf(6).x(), 2);
    EXPECT_EQ(text().offsetAtPoint(view.viewport()->mapToGlobal(pointOn(5))), 5);
    EXPECT_EQ(text().offsetAtPoint(QPoint(-5000, 0)), -1);
    int start = -1;
    int end = -1;
    const QString attributes = text().attributes(5, &start, &end);
    EXPECT_EQ(std::make_pair(start, end), std::make_pair(4, 7));
    EXPECT_TRUE(attributes.contains(u"font-weight:bold"_qs)) << attributes.toStdString();
    EXPECT_TRUE(attributes.contains(u"color:rgb(255,255,255)"_qs));
    EXPECT_FALSE(attributes.contains(u"writing-mode"_qs));
    EXPECT_TRUE(text().attributes(9, &start, &end).contains(u"writing-mode:rl"_qs));
}

TEST_F(ViewAccessibility, OffsetsOutsideOfTheTextMeanItsEnds) {
    for (const QString& content : {QString(), u"One two"_qs, u"One\n"_qs}) {
        setText(content);
        const int count = text().characterCount();
        const struct {
            int offset;
            int nearest;
        } rows[] = {{-1000, 0}, {-1, 0}, {count, count}, {count + 1, count}, {INT_MAX, count}};
        for (const auto& row : rows) {
            const auto where = [&] { return ::testing::Message() << count << ": " << row.offset; };
            EXPECT_EQ(view.caretRectAt(row.offset), view.caretRectAt(row.nearest)) << where();
            EXPECT_EQ(text().characterRect(row.offset), text().characterRect(row.nearest))
                << where();
            for (const auto type : {QAccessible::CharBoundary, QAccessible::WordBoundary,
                                    QAccessible::LineBoundary, QAccessible::ParagraphBoundary}) {
                int start = -1;
                int end = -1;
                const QString nearest = text().textAtOffset(row.nearest, type, &start, &end);
                EXPECT_EQ(text().textAtOffset(row.offset, type, &start, &end), nearest)
                    << where() << ", unit " << type;
                EXPECT_TRUE(0 <= start && start <= end && end <= count) << where();
            }
            text().setCursorPosition(row.offset);
            EXPECT_EQ(text().cursorPosition(), row.nearest) << where();
            text().scrollToSubstring(row.offset, row.offset);
        }
    }
}

TEST_F(ViewAccessibility, EditsUnlessReadOnly) {
    setText(u"One two\nThree"_qs);
    auto* editor = interface().editableTextInterface();
    ASSERT_NE(editor, nullptr);
    editor->replaceText(4, 9, u"six\nT"_qs);
    editor->insertText(0, u"A"_qs);
    editor->deleteText(1, 4);
    EXPECT_EQ(box.Text(), u"A six\r\nThree"_qs);
    view.setReadOnly(true);
    EXPECT_EQ(interface().editableTextInterface(), nullptr);
    EXPECT_TRUE(interface().state().readOnly);
}

TEST_F(ViewAccessibility, TellsChanges) {
    setText(u"One\ntwo"_qs);
    // The offscreen platform has no listener: a notifier beside the view's own believes in one.
    AccessibilityNotifier notifier(view, {[] { return true; }, note});
    QObject::connect(&box.document(), &QTextDocument::contentsChange, &view,
                     [&](int from, int removed, int added) {
                         notifier.noteChange(TextChange::of(from, removed, added));
                     });
    QObject::connect(&box, &RichTextBox::Change, &view, [&] { notifier.tellTextChange(); });
    QObject::connect(&box, &RichTextBox::SelChange, &view, [&] { notifier.tellCaretChange(); });
    notifier.tellTextChange();
    told().clear();
    box.setSelStart(1);
    type(u"x"_qs);
    box.setSelStart(positionOf(u"two"_qs));
    press(Qt::Key_Backspace);
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_TRUE(told().contains(u"text 1 - +x"_qs)) << told().join(u'|').toStdString();
    EXPECT_TRUE(told().contains(u"caret 2"_qs));
    EXPECT_TRUE(told().contains(u"caret 5"_qs));
    EXPECT_TRUE(told().contains(u"text 4 -\n +"_qs));
    EXPECT_TRUE(told().contains(u"selection 4 5"_qs));
    const QString before = text().text(0, text().characterCount());
    setText(u"A new text"_qs);
    EXPECT_TRUE(told().contains(u"text 0 -%1 +A new text"_qs.arg(before)))
        << told().join(u'|').toStdString();
    box.setSelText(u"x"_qs);
    box.select(0, 2);
    box.setSelText({});
    EXPECT_TRUE(told().contains(u"text 0 -xA +"_qs));
}

} // namespace velmora
