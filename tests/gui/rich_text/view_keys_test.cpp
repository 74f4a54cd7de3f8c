#include "view_fixture.h"

namespace velmora {

class ViewKeys : public ViewTest {};

TEST_F(ViewKeys, TypesWhereTheCaretStands) {
    setText(QStringLiteral("one three"));
    box.setSelStart(4);
    type(QStringLiteral("two "));
    EXPECT_EQ(box.Text(), QStringLiteral("one two three"));
    press(Qt::Key_End);
    press(Qt::Key_Return);
    press(Qt::Key_Tab);
    type(QStringLiteral("x"));
    press(Qt::Key_Return, Qt::ShiftModifier);
    type(QStringLiteral("y"));
    EXPECT_EQ(box.Text(), QStringLiteral("one two three\r\n\tx\vy"));
    EXPECT_EQ(box.SelStart(), box.textLength());
    EXPECT_TRUE(view.hasFocus()) << "Tab writes and does not leave";
    box.selectAll();
    type(QStringLiteral("é"));
    EXPECT_EQ(box.Text(), QStringLiteral("é"));
}

TEST_F(ViewKeys, LeavesCommandsToTheWindow) {
    setText(QStringLiteral("abc"));
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char* text;
        bool taken;
    } rows[] = {
        {Qt::Key_B, Qt::ControlModifier, "\x02", false},
        {Qt::Key_F5, Qt::NoModifier, "", false},
        {Qt::Key_Escape, Qt::NoModifier, "\x1b", false},
        {Qt::Key_Z, Qt::ControlModifier, "\x1a", false},
        {Qt::Key_Q, Qt::ControlModifier | Qt::AltModifier, "@", true}, // AltGr types
        {Qt::Key_A, Qt::ControlModifier, "\x01", true},
    };
    for (const auto& row : rows) {
        QKeyEvent event(QEvent::KeyPress, row.key, row.modifiers, QString::fromLatin1(row.text));
        QApplication::sendEvent(&view, &event);
        EXPECT_EQ(event.isAccepted(), row.taken) << row.key;
    }
    EXPECT_EQ(box.Text(), QStringLiteral("@abc"));
}

TEST_F(ViewKeys, Deletes) {
    const QChar mark(0x0301);
    const QString pair = QString::fromUcs4(U"\U0001F3A4", 1);
    const struct {
        const char* what;
        QString text;
        int caret;
        int length;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        QString expected;
    } rows[] = {
        {"back", QStringLiteral("abc"), 2, 0, Qt::Key_Backspace, {}, QStringLiteral("ac")},
        {"back at start",
         QStringLiteral("abc"),
         0,
         0,
         Qt::Key_Backspace,
         {},
         QStringLiteral("abc")},
        {"back over a line end",
         QStringLiteral("a\nb"),
         3,
         0,
         Qt::Key_Backspace,
         {},
         QStringLiteral("ab")},
        {"back over a pair",
         pair + QLatin1Char('x'),
         2,
         0,
         Qt::Key_Backspace,
         {},
         QStringLiteral("x")},
        {"back takes an accent alone",
         QStringLiteral("e") + mark,
         2,
         0,
         Qt::Key_Backspace,
         {},
         QStringLiteral("e")},
        {"delete", QStringLiteral("abc"), 1, 0, Qt::Key_Delete, {}, QStringLiteral("ac")},
        {"delete takes a whole cluster",
         QStringLiteral("e") + mark + QLatin1Char('x'),
         0,
         0,
         Qt::Key_Delete,
         {},
         QStringLiteral("x")},
        {"delete a line end",
         QStringLiteral("a\nb"),
         1,
         0,
         Qt::Key_Delete,
         {},
         QStringLiteral("ab")},
        {"delete at the end",
         QStringLiteral("abc"),
         3,
         0,
         Qt::Key_Delete,
         {},
         QStringLiteral("abc")},
        {"selection", QStringLiteral("abcd"), 1, 2, Qt::Key_Delete, {}, QStringLiteral("ad")},
        {"selection back",
         QStringLiteral("abcd"),
         1,
         2,
         Qt::Key_Backspace,
         {},
         QStringLiteral("ad")},
        {"word back", QStringLiteral("one two three"), 8, 0, Qt::Key_Backspace, Qt::ControlModifier,
         QStringLiteral("one three")},
        {"word forward", QStringLiteral("one two three"), 4, 0, Qt::Key_Delete, Qt::ControlModifier,
         QStringLiteral("one three")},
    };
    for (const auto& row : rows) {
        setText(row.text);
        box.setSelStart(row.caret);
        box.setSelLength(row.length);
        press(row.key, row.modifiers);
        EXPECT_EQ(box.Text(), row.expected) << row.what;
    }
}

TEST_F(ViewKeys, MovesTheCaret) {
    setText(QStringLiteral("one two three\nonly\n\nlast one"));
    const int second = positionOf(QStringLiteral("only"));
    const int third = second + 6;
    const int last = positionOf(QStringLiteral("last"));
    const int end = box.textLength();
    const auto control = Qt::ControlModifier;
    const struct {
        const char* what;
        int from;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int to;
    } rows[] = {
        {"right", 0, Qt::Key_Right, {}, 1},
        {"right over a line end", 13, Qt::Key_Right, {}, second},
        {"left over a line end", second, Qt::Key_Left, {}, 13},
        {"left at the start", 0, Qt::Key_Left, {}, 0},
        {"right at the end", end, Qt::Key_Right, {}, end},
        {"word right", 1, Qt::Key_Right, control, 4},
        {"word left", 6, Qt::Key_Left, control, 4},
        {"home", second + 2, Qt::Key_Home, {}, second},
        {"end", second, Qt::Key_End, {}, second + 4},
        {"start", last, Qt::Key_Home, control, 0},
        {"text end", 3, Qt::Key_End, control, end},
        {"down", 2, Qt::Key_Down, {}, second + 2},
        {"down to an empty line", second + 2, Qt::Key_Down, {}, third},
        {"down on the last line", last + 2, Qt::Key_Down, {}, last + 2},
        {"up on the first line", 5, Qt::Key_Up, {}, 5},
        {"page down", 0, Qt::Key_PageDown, {}, last},
        {"page up", last, Qt::Key_PageUp, {}, 0},
    };
    for (const auto& row : rows) {
        box.setSelStart(row.from);
        press(row.key, row.modifiers);
        EXPECT_EQ(box.SelStart(), row.to) << row.what;
        EXPECT_EQ(box.SelLength(), 0) << row.what;
        box.setSelStart(row.from);
        press(row.key, row.modifiers | Qt::ShiftModifier);
        const bool atEdge =
            row.to == row.from && (row.key == Qt::Key_Up || row.key == Qt::Key_Down);
        if (!atEdge) {
            EXPECT_EQ(box.caretPosition(), row.to) << row.what << " with a selection";
            EXPECT_EQ(box.SelLength(), std::abs(row.to - row.from)) << row.what;
        }
    }
}

TEST_F(ViewKeys, KeepsTheWantedPlaceOverShortLines) {
    setText(QStringLiteral("a long first line\nab\n\na long fourth line"));
    box.setSelStart(10);
    const double wanted = pointOf(10).x();
    for (int line = 0; line < 3; ++line) {
        press(Qt::Key_Down);
    }
    EXPECT_NEAR(pointOf(box.SelStart()).x(), wanted, 12);
    EXPECT_EQ(box.GetLineFromChar(box.SelStart()), 3);
    for (int line = 0; line < 3; ++line) {
        press(Qt::Key_Up);
    }
    EXPECT_EQ(box.SelStart(), 10);
    press(Qt::Key_Home);
    press(Qt::Key_Down);
    EXPECT_EQ(box.SelStart(), positionOf(QStringLiteral("ab"))) << "a sidestep is a new wish";
}

TEST_F(ViewKeys, StaysOnTheLineAtTheEndOfAWrappedLine) {
    setText(QStringLiteral("word ").repeated(40));
    ASSERT_GT(box.lineCount(), 2);
    press(Qt::Key_End);
    EXPECT_EQ(box.GetLineFromChar(box.SelStart()), 0);
    EXPECT_EQ(box.SelStart(), box.lineIndex(1) - 1);
    press(Qt::Key_Down);
    EXPECT_EQ(box.GetLineFromChar(box.SelStart()), 1);
    press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(box.GetLineFromChar(box.caretPosition()), 1);
}

TEST_F(ViewKeys, TheSelectionGivesWayToItsEnds) {
    setText(QStringLiteral("abcdef"));
    const struct {
        Qt::Key key;
        int to;
    } rows[] = {{Qt::Key_Left, 2}, {Qt::Key_Right, 4}};
    for (const auto& row : rows) {
        box.select(4, 2);
        press(row.key);
        EXPECT_EQ(box.SelStart(), row.to);
        EXPECT_EQ(box.SelLength(), 0);
    }
    box.setSelStart(3);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selected(), QStringLiteral("def"));
    box.setSelStart(3);
    press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(selected(), QStringLiteral("abc"));
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(box.SelLength(), 6);
}

TEST_F(ViewKeys, ArrowsFollowTheEyeInRightToLeftParagraphs) {
    RichTextFragment fragment;
    fragment.formats = {box.defaultFormat()};
    Paragraph paragraph;
    paragraph.text = QString::fromUtf8("שלום עולם");
    paragraph.runs = {{static_cast<int>(paragraph.text.size()), 0}};
    paragraph.format.rightToLeft = true;
    paragraph.format.alignment = Alignment::Right;
    fragment.paragraphs = {paragraph};
    box.setFragment(fragment);
    box.setSelStart(2);
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int to;
        bool leftwards;
    } rows[] = {{Qt::Key_Left, {}, 3, true},
                {Qt::Key_Right, {}, 1, false},
                {Qt::Key_Left, Qt::ControlModifier, 5, true},
                {Qt::Key_Right, Qt::ControlModifier, 0, false}};
    for (const auto& row : rows) {
        box.setSelStart(2);
        const double before = pointOf(2).x();
        press(row.key, row.modifiers);
        EXPECT_EQ(box.SelStart(), row.to);
        EXPECT_EQ(pointOf(box.SelStart()).x() < before, row.leftwards);
    }
}

TEST_F(ViewKeys, ClaimsItsKeysBeforeTheWindowsShortcuts) {
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char* text;
        bool editable;
        bool readOnly;
    } rows[] = {
        {Qt::Key_X, {}, "x", true, false},
        {Qt::Key_Delete, {}, "\x7f", true, false},
        {Qt::Key_V, Qt::ControlModifier, "\x16", true, false},
        {Qt::Key_C, Qt::ControlModifier, "\x03", true, true},
        {Qt::Key_Left, {}, "", true, true},
        {Qt::Key_S, Qt::ControlModifier, "\x13", false, false},
        {Qt::Key_F, Qt::AltModifier, "f", false, false},
    };
    for (const bool readOnly : {false, true}) {
        view.setReadOnly(readOnly);
        for (const auto& row : rows) {
            QKeyEvent event(QEvent::ShortcutOverride, row.key, row.modifiers,
                            QString::fromLatin1(row.text));
            event.ignore();
            QApplication::sendEvent(&view, &event);
            EXPECT_EQ(event.isAccepted(), readOnly ? row.readOnly : row.editable) << row.key;
        }
    }
}

TEST_F(ViewKeys, AReadOnlyViewMovesAndSelectsOnly) {
    setText(QStringLiteral("one two"));
    view.setReadOnly(true);
    type(QStringLiteral("x"));
    press(Qt::Key_Return);
    press(Qt::Key_Delete);
    press(Qt::Key_Tab);
    press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), QStringLiteral("one two"));
    EXPECT_EQ(selected(), QStringLiteral("one "));
}

} // namespace velmora
