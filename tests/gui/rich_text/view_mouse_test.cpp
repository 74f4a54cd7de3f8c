#include "view_fixture.h"

#include <QMouseEvent>

namespace velmora {

class ViewMouse : public ViewTest {
protected:
    void SetUp() override {
        setText(u"The first line stands here.\nA second paragraph follows.\nThird."_qs);
    }
    void mouse(QEvent::Type type, QPoint point, Qt::KeyboardModifiers modifiers = {}) {
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, point, view.viewport()->mapToGlobal(point),
                          isMove ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                          modifiers);
        QApplication::sendEvent(view.viewport(), &event);
    }
    void click(QPoint point, Qt::KeyboardModifiers modifiers = {}) {
        mouse(QEvent::MouseButtonPress, point, modifiers);
        mouse(QEvent::MouseButtonRelease, point, modifiers);
    }
    void doubleClick(QPoint point) {
        click(point);
        mouse(QEvent::MouseButtonDblClick, point);
        mouse(QEvent::MouseButtonRelease, point);
    }
};

TEST_F(ViewMouse, AClickSetsTheCaretNearestToIt) {
    const QString text = box.Text();
    for (const double zoom : {1.0, 2.0, 2.25}) {
        box.setZoom(zoom);
        for (int position = 0; position < text.size(); position += 3) {
            if (text.at(position) == QLatin1Char('\n')) {
                continue; // between CR and LF stands no caret
            }
            click(pointOf(position).toPoint());
            EXPECT_EQ(box.SelStart(), position) << "zoom " << zoom;
        }
    }
    const int lineEnd = positionOf(u"\nA second"_qs);
    click(QPoint(view.viewport()->width() - 1, pointOn(0).y()));
    EXPECT_EQ(box.SelStart(), lineEnd) << "right of a line";
    click(QPoint(10, view.viewport()->height() - 2));
    EXPECT_EQ(box.GetLineFromChar(box.SelStart()), 2) << "below the text";
}

TEST_F(ViewMouse, ADragSelects) {
    const int from = positionOf(u"first"_qs);
    const int to = positionOf(u"second"_qs);
    mouse(QEvent::MouseButtonPress, pointOf(from).toPoint());
    mouse(QEvent::MouseMove, pointOf(to).toPoint());
    EXPECT_EQ(selected(), withLineEnds(u"first line stands here.\nA "_qs));
    EXPECT_EQ(box.caretPosition(), to);
    mouse(QEvent::MouseMove, pointOf(0).toPoint());
    EXPECT_EQ(selected(), u"The "_qs);
    EXPECT_EQ(box.caretPosition(), 0);
    mouse(QEvent::MouseButtonRelease, pointOf(0).toPoint());
    click(pointOf(to).toPoint(), Qt::ShiftModifier);
    EXPECT_EQ(box.SelStart(), from) << "shift-click keeps the anchor";
    EXPECT_EQ(box.caretPosition(), to);
}

TEST_F(ViewMouse, MoreClicksTakeWordsAndParagraphs) {
    const int word = positionOf(u"second"_qs);
    doubleClick(pointOn(word + 2));
    EXPECT_EQ(selected(), u"second"_qs);
    click(pointOn(word + 2));
    EXPECT_EQ(selected(), withLineEnds(u"A second paragraph follows.\n"_qs));

    QTest::qWait(QApplication::doubleClickInterval() + 20);
    click(pointOn(0));
    mouse(QEvent::MouseButtonDblClick, pointOn(word + 2));
    mouse(QEvent::MouseMove, pointOn(positionOf(u"follows"_qs) + 1));
    EXPECT_EQ(selected(), u"second paragraph follows"_qs) << "word by word";
    mouse(QEvent::MouseMove, pointOn(positionOf(u"stands"_qs) + 1));
    EXPECT_EQ(selected(), withLineEnds(u"stands here.\nA second"_qs));
    mouse(QEvent::MouseButtonRelease, pointOn(0));

    box.setSelStart(0);
    QTest::qWait(QApplication::doubleClickInterval() + 20);
    doubleClick(pointOn(positionOf(u"Third"_qs)));
    click(pointOn(positionOf(u"Third"_qs)));
    EXPECT_EQ(selected(), u"Third."_qs) << "the last paragraph has no line end";
}

TEST_F(ViewMouse, AClickOnTheSelectionSetsTheCaretOnRelease) {
    const int word = positionOf(u"first"_qs);
    box.select(word, word + 5);
    mouse(QEvent::MouseButtonPress, pointOn(word + 2));
    EXPECT_EQ(selected(), u"first"_qs) << "it might become a drag";
    mouse(QEvent::MouseButtonRelease, pointOn(word + 2));
    EXPECT_EQ(box.SelStart(), word + 2);
    EXPECT_EQ(box.SelLength(), 0);
}

TEST_F(ViewMouse, ADragBelowTheViewScrolls) {
    setText(u"line\n"_qs.repeated(200));
    const int bottom = view.viewport()->height();
    mouse(QEvent::MouseButtonPress, pointOf(0).toPoint());
    mouse(QEvent::MouseMove, QPoint(50, bottom + 60));
    QTRY_VERIFY_WITH_TIMEOUT(view.firstVisibleLine() > 3, 5000);
    mouse(QEvent::MouseMove, QPoint(50, bottom / 2));
    const int stopped = view.firstVisibleLine();
    QTest::qWait(100);
    EXPECT_EQ(view.firstVisibleLine(), stopped) << "inside again, nothing scrolls";
    mouse(QEvent::MouseButtonRelease, QPoint(50, bottom / 2));
    EXPECT_GT(box.GetLineFromChar(box.caretPosition()), stopped);
    EXPECT_EQ(box.SelStart(), 0);
}

TEST_F(ViewMouse, AClickNeverScrolls) {
    setText(u"line\n"_qs.repeated(200));
    view.verticalScrollBar()->setValue(7);
    const int last = view.viewport()->height() - 1;
    click(QPoint(50, last));
    EXPECT_EQ(view.verticalScrollBar()->value(), 7) << "though the line is cut off";
    type(u"x"_qs);
    EXPECT_GT(view.verticalScrollBar()->value(), 7) << "but the next letter is to be seen";
}

TEST_F(ViewMouse, TheWheelScrollsByTheZoom) {
    setText(u"line\n"_qs.repeated(200));
    const auto turn = [&](double zoom) {
        box.setZoom(zoom);
        view.verticalScrollBar()->setValue(0);
        QWheelEvent event(QPointF(50, 50), view.viewport()->mapToGlobal(QPointF(50, 50)), QPoint(),
                          QPoint(0, -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view.viewport(), &event);
        return view.verticalScrollBar()->value();
    };
    const int once = turn(1);
    EXPECT_GT(once, 0);
    EXPECT_EQ(turn(3), 3 * once);
}

} // namespace velmora
