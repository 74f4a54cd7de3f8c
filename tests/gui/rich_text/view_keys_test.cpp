#include "view_fixture.h"

namespace velmora {

class ViewKeys : public ViewTest {};

TEST_F(ViewKeys, TypesWhereTheCaretStands) {
    setText(u"one three"_qs);
    box.setSelStart(4);
    type(u"two "_qs);
    EXPECT_EQ(box.Text(), u"one two three"_qs);
    press(Qt::Key_End);
    press(Qt::Key_Return);
    press(Qt::Key_Tab);
    type(u"x"_qs);
    press(Qt::Key_Return, Qt::ShiftModifier);
    type(u"y"_qs);
    EXPECT_EQ(box.Text(), u"one two three\r\n\tx\vy"_qs);
    EXPECT_EQ(box.SelStart(), box.textLength());
    EXPECT_TRUE(view.hasFocus()) << "Tab writes and does not leave";
    box.selectAll();
    type(u"é"_qs);
    EXPECT_EQ(box.Text(), u"é"_qs);
}

TEST_F(ViewKeys, LeavesCommandsToTheWindow) {
    setText(u"abc"_qs);
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
        {Qt::Key_F, Qt::AltModifier, "f", false},
        {Qt::Key_Exclam, Qt::AltModifier | Qt::ShiftModifier, "!", false},
        {Qt::Key_Eacute, Qt::AltModifier, "\xe9", false},
        {Qt::Key_Tab, Qt::AltModifier, "\t", false},
        {Qt::Key_L, Qt::AltModifier, "|", true},          // written by Alt on this keyboard
        {Qt::Key_unknown, Qt::AltModifier, "\xa7", true}, // composed
        {Qt::Key_A, Qt::ControlModifier, "\x01", true},
    };
    for (const auto& row : rows) {
        QKeyEvent event(QEvent::KeyPress, row.key, row.modifiers, QString::fromLatin1(row.text));
        QApplication::sendEvent(&view, &event);
        EXPECT_EQ(event.isAccepted(), row.taken) << row.key;
    }
    EXPECT_EQ(box.Text(), u"@|§abc"_qs);
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
        {"back", u"abc"_qs, 2, 0, Qt::Key_Backspace, {}, u"ac"_qs},
        {"back at start", u"abc"_qs, 0, 0, Qt::Key_Backspace, {}, u"abc"_qs},
        {"back over a line end", u"a\nb"_qs, 3, 0, Qt::Key_Backspace, {}, u"ab"_qs},
        {"back over a pair", pair + QLatin1Char('x'), 2, 0, Qt::Key_Backspace, {}, u"x"_qs},
        {"back takes an accent alone", u"e"_qs + mark, 2, 0, Qt::Key_Backspace, {}, u"e"_qs},
        {"delete", u"abc"_qs, 1, 0, Qt::Key_Delete, {}, u"ac"_qs},
        {"delete takes a whole cluster",
         u"e"_qs + mark + QLatin1Char('x'),
         0,
         0,
         Qt::Key_Delete,
         {},
         u"x"_qs},
        {"delete a line end", u"a\nb"_qs, 1, 0, Qt::Key_Delete, {}, u"ab"_qs},
        {"delete at the end", u"abc"_qs, 3, 0, Qt::Key_Delete, {}, u"abc"_qs},
        {"selection", u"abcd"_qs, 1, 2, Qt::Key_Delete, {}, u"ad"_qs},
        {"selection back", u"abcd"_qs, 1, 2, Qt::Key_Backspace, {}, u"ad"_qs},
        {"word back", u"one two three"_qs, 8, 0, Qt::Key_Backspace, Qt::ControlModifier,
         u"one three"_qs},
        {"word forward", u"one two three"_qs, 4, 0, Qt::Key_Delete, Qt::ControlModifier,
         u"one three"_qs},
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
    setText(u"one two three\nonly\n\nlast one"_qs);
    const int second = positionOf(u"only"_qs);
    const int third = second + 6;
    const int last = positionOf(u"last"_qs);
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
    setText(u"a long first line\nab\n\na long fourth line"_qs);
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
    EXPECT_EQ(box.SelStart(), positionOf(u"ab"_qs)) << "a sidestep is a new wish";
}

TEST_F(ViewKeys, StaysOnTheLineAtTheEndOfAWrappedLine) {
    setText(u"word "_qs.repeated(40));
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
    setText(u"abcdef"_qs);
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
    EXPECT_EQ(selected(), u"def"_qs);
    box.setSelStart(3);
    press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(selected(), u"abc"_qs);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(box.SelLength(), 6);
}

TEST_F(ViewKeys, ArrowsGoTheirWayThroughTextOfTwoDirections) {
    constexpr double widestStep = 14 * UnitsPerPoint * 1.3;
    for (const char* text : {"abc שלום def", "שלום abc דה", "שלום 123 דה", "שלום עולם",
                             "abc\nשלום 1 דה\nx", "שלום abc עולם abc עולם abc שלום abc שלום"}) {
        for (const Direction direction :
             {Direction::FromText, Direction::LeftToRight, Direction::RightToLeft}) {
            box.setText(withLineEnds(QString::fromUtf8(text)));
            RichTextFragment fragment = box.fragment();
            for (Paragraph& paragraph : fragment.paragraphs) {
                paragraph.format.direction = direction;
            }
            box.setFragment(fragment);
            for (int from = 0; from <= box.textLength(); ++from) {
                for (const double way : {-1.0, 1.0}) {
                    box.setSelStart(from);
                    const int start = box.toDocument(box.SelStart());
                    press(way < 0 ? Qt::Key_Left : Qt::Key_Right);
                    const int end = box.toDocument(box.SelStart());
                    const LinePlace before = box.layout().lineOfPosition(start);
                    const LinePlace after = box.layout().lineOfPosition(end);
                    const auto x = [](const LinePlace& line, int position) {
                        return line.line.cursorToX(position - line.block.position());
                    };
                    const double step = way * (x(after, end) - x(before, start));
                    const bool goes = before.number != after.number
                                          ? std::abs(before.number - after.number) == 1
                                          : step > 0 && step < widestStep;
                    const bool atEdge = end == start && (before.number == 0 ||
                                                         before.number == box.lineCount() - 1);
                    EXPECT_TRUE(goes || atEdge) << text << ' ' << int(direction) << ' ' << from
                                                << (way < 0 ? " left to " : " right to ") << end;
                }
            }
        }
    }
    box.setText(QString::fromUtf8("שלום"));
    for (const auto& [key, to] : {std::pair(Qt::Key_Left, 3), std::pair(Qt::Key_Right, 1)}) {
        box.select(1, 3);
        press(key);
        EXPECT_EQ(box.SelStart(), to) << "the selection gives way to the end on that side";
    }
    setTextFromTheRight(u"שלום עולם"_qs);
    press(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(box.SelStart(), 5);
    press(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(box.SelStart(), 0);
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
    setText(u"one two"_qs);
    view.setReadOnly(true);
    type(u"x"_qs);
    press(Qt::Key_Return);
    press(Qt::Key_Delete);
    press(Qt::Key_Tab);
    press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(box.Text(), u"one two"_qs);
    EXPECT_EQ(selected(), u"one "_qs);
}

} // namespace velmora
