#include "view_fixture.h"

#include "unit/drawing/ink.h"

namespace velmora {

class ViewScrolling : public ViewTest {
protected:
    [[nodiscard]] int top() const { return view.verticalScrollBar()->value(); }
    [[nodiscard]] bool caretIsVisible() const {
        return view.viewport()->rect().contains(
            view.caretRectAt(box.toDocument(box.caretPosition())));
    }
};

TEST_F(ViewScrolling, PutsALineOnTopAndTellsIt) {
    setText(u"some words that fill more than a single line of the column, "_qs.repeated(3)
                .append(QLatin1Char('\n'))
                .repeated(120));
    for (const double zoom : {0.7, 1.0, 2.0, 3.3, 6.0, 12.0}) {
        box.setZoom(zoom);
        for (int line = 0; line < box.lineCount() - 60; line += 13) {
            view.scrollLineToTop(line);
            EXPECT_EQ(view.firstVisibleLine(), line) << "zoom " << zoom;
            if (line > 0) {
                EXPECT_EQ(top(), box.verticalPosition(box.lineIndex(line))) << "zoom " << zoom;
                view.verticalScrollBar()->setValue(top() - 1);
                EXPECT_EQ(view.firstVisibleLine(), line - 1) << "one row of it is enough";
            }
        }
        view.scrollLineToTop(box.lineCount() + 5);
        EXPECT_EQ(top(), view.verticalScrollBar()->maximum());
    }
}

TEST_F(ViewScrolling, KeepsTheTopLineAtAnotherZoomOrWidth) {
    setText(u"a paragraph of some words that wraps over several lines. "_qs.repeated(4)
                .append(QLatin1Char('\n'))
                .repeated(60));
    for (const int line : {0, 1, 40, 77}) {
        view.scrollLineToTop(line);
        for (const double zoom : {6.0, 0.9, 3.7, 2.0}) {
            box.setZoom(zoom);
            EXPECT_EQ(view.firstVisibleLine(), line) << "zoom " << zoom;
        }
    }
    view.scrollLineToTop(40);
    const int atTop = box.lineIndex(40);
    box.setWrapWidth(200);
    EXPECT_EQ(view.firstVisibleLine(), box.GetLineFromChar(atTop));
    view.resize(ViewWidth, ViewHeight * 2);
    EXPECT_EQ(view.firstVisibleLine(), box.GetLineFromChar(atTop));
}

TEST_F(ViewScrolling, FollowsTheCaret) {
    setText(u"line\n"_qs.repeated(300));
    box.setSelStart(box.lineIndex(250));
    EXPECT_TRUE(caretIsVisible());
    view.scrollLineToTop(0);
    type(u"x"_qs);
    EXPECT_TRUE(caretIsVisible());
    press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(top(), 0);

    view.scrollLineToTop(100);
    const int before = top();
    box.setSelStart(box.lineIndex(103));
    EXPECT_EQ(top(), before) << "what is visible needs no scrolling";
    box.selectAll();
    EXPECT_EQ(top(), before) << "a command on the whole text leaves the view";

    EXPECT_GT(box.Find(u"xline"_qs, 0), 0);
    EXPECT_TRUE(caretIsVisible()) << "a match is shown";
    view.scrollLineToTop(100);
    box.setRedraw(false);
    box.setSelStart(0);
    EXPECT_EQ(top(), before);
    box.setRedraw(true);
    EXPECT_TRUE(caretIsVisible());
    view.scrollLineToTop(100);
    box.setRedraw(false);
    box.setRedraw(true);
    EXPECT_EQ(top(), before) << "nobody moved the caret meanwhile";
}

TEST_F(ViewScrolling, PagesKeepTheCaretsPlaceInTheWindow) {
    setText(u"line\n"_qs.repeated(300));
    box.setSelStart(box.lineIndex(100) + 2);
    view.scrollLineToTop(98);
    const int row = view.caretRectAt(box.toDocument(box.caretPosition())).top();
    press(Qt::Key_PageDown);
    const int lineRows = static_cast<int>(box.lineHeight(0)) + 1;
    EXPECT_NEAR(view.caretRectAt(box.toDocument(box.caretPosition())).top(), row, lineRows);
    press(Qt::Key_PageUp);
    EXPECT_EQ(box.SelStart(), box.lineIndex(100) + 2);
}

TEST_F(ViewScrolling, ReachesTheEndOfTheLongestScript) {
    constexpr int Lines = 40'000;
    QString text = u"line\n"_qs.repeated(Lines - 1);
    setText(text.append(u"the last line"_qs));
    box.selectAll();
    box.setSelFontSize(26);
    box.setSelStart(0);
    view.clearFocus();
    for (const double zoom : {6.0, 9.0}) {
        box.setZoom(zoom);
        view.scrollLineToTop(0);
        view.scrollLineToTop(Lines - 1);
        EXPECT_GT(top(), 8'388'608) << "beyond what a 24-bit fraction can count";
        EXPECT_EQ(top(), view.verticalScrollBar()->maximum());
        const LinePlace last = box.layout().lineAt(Lines - 1);
        const QRect caret = view.caretRectAt(last.start());
        EXPECT_NEAR(caret.bottom() + 1, view.viewport()->height(), 2);

        // The same line alone at the lower edge of a view paints the same picture.
        RichTextBox alone;
        alone.setDefaultFormat(box.defaultFormat());
        alone.setBackColor(box.BackColor());
        alone.setText(u"line\r\n"_qs.repeated(19) + u"the last line"_qs);
        alone.selectAll();
        alone.setSelFontSize(26);
        alone.setSelStart(0);
        alone.setZoom(zoom);
        RichTextView other(alone);
        other.resize(view.size());
        other.show();
        other.clearFocus();
        QTest::qWait(1);
        other.scrollLineToTop(19);
        const double expected = inkOf(other.viewport()->grab().toImage()).amount;
        EXPECT_GT(expected, 40);
        EXPECT_NEAR(inkOf(view.viewport()->grab().toImage()).amount / expected, 1, 0.02);
    }
}

} // namespace velmora
