#pragma once

#include "platform/rich_text/document_layout.h"
#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rich_text_view.h"

#include <QApplication>
#include <QPaintEvent>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE

namespace velmora {

/// Characters between a position and the text's start count one a line end here, two in the box:
/// the tests write scripts with \n and ask for box positions by text.
inline QString withLineEnds(QString text) {
    return text.replace(QLatin1Char('\n'), u"\r\n"_qs);
}

/// Adds up what a widget is asked to paint, and how often.
class PaintCounter final : public QObject {
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            region += static_cast<QPaintEvent*>(event)->region();
            ++count;
        }
        return false;
    }
    QRegion region;
    int count = 0;
};

/// A shown editor view over a box of its own, white text on black at zoom 2.
class ViewTest : public ::testing::Test {
protected:
    static constexpr int ViewWidth = 700;
    static constexpr int ViewHeight = 400;

    ViewTest() {
        box.setDefaultFormat({u"Arial"_qs, 2 * 14, White});
        box.setBackColor(Black);
        box.setZoom(2);
        QApplication::setCursorFlashTime(0); // a caret that blinks makes pictures differ
        view.resize(ViewWidth, ViewHeight);
        view.show();
        QApplication::setActiveWindow(&view);
        view.setFocus();
        QTest::qWait(1);
    }

    void setText(const QString& text) {
        box.setText(withLineEnds(text));
        box.setSelStart(0);
    }
    /// One paragraph that begins at the right.
    void setTextFromTheRight(const QString& text) {
        box.setFragment(
            fragmentOfText(text, box.defaultFormat(), {Alignment::Right, Direction::RightToLeft}));
    }
    [[nodiscard]] int positionOf(const QString& text, int from = 0) const {
        return static_cast<int>(box.Text().indexOf(withLineEnds(text), from));
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&view, key, modifiers);
    }
    void type(const QString& text) {
        for (const QChar character : text) {
            QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
            QApplication::sendEvent(&view, &event);
        }
    }
    [[nodiscard]] QString selected() const { return box.SelText(); }

    /// Viewport point of the left edge of a character, at half of its line's height; told by the
    /// box and the layout alone.
    [[nodiscard]] QPointF pointOf(int position) const {
        const int inDocument = box.toDocument(position);
        const LinePlace line = box.layout().lineOfPosition(inDocument);
        const double x = line.line.cursorToX(inDocument - line.block.position());
        const double columnLeft =
            std::floor((view.viewport()->width() - box.wrapWidth() * box.zoom()) / 2);
        const int top = box.verticalPosition(position) - view.verticalScrollBar()->value();
        return {columnLeft + x * box.zoom() / UnitsPerPixel, top + box.lineHeight(line.number) / 2};
    }
    /// A point on the character, a little right of its left edge.
    [[nodiscard]] QPoint pointOn(int position) const {
        return pointOf(position).toPoint() + QPoint(2, 0);
    }

    RichTextBox box;
    RichTextView view{box};
};

} // namespace velmora
