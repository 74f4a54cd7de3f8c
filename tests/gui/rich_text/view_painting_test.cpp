#include "view_fixture.h"

#include "platform/drawing/color.h"
#include "platform/rich_text/rich_text_view_painting.h"

#include <QPainter>
#include <QPalette>
#include <QTextLayout>

#include <random>

namespace velmora {

namespace {

int differingPixels(const QImage& one, const QImage& other) {
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor left = one.pixelColor(x, y);
            const QColor right = other.pixelColor(x, y);
            const int difference = std::max({std::abs(left.red() - right.red()),
                                             std::abs(left.green() - right.green()),
                                             std::abs(left.blue() - right.blue())});
            count += difference > 16 ? 1 : 0;
        }
    }
    return count;
}

} // namespace

class ViewPainting : public ViewTest {
protected:
    void settle() { QTest::qWait(20); }
    /// What the widget has on the screen: pending repaints are carried out, nothing else is.
    [[nodiscard]] QImage shown() {
        settle();
        QImage image = view.window()->screen()->grabWindow(view.winId()).toImage();
        return image.copy(QRect(view.viewport()->pos(), view.viewport()->size()));
    }
};

TEST_F(ViewPainting, PaintsWhatTheLayoutDraws) {
    box.setBackColor(0x800000); // dark blue: red stands in the low byte
    setText(u"A line of words\nand another"_qs);
    box.select(2, 6);
    box.setSelBackColor(0x008080);
    box.setSelColor(0x00FFFF);
    box.setSelStart(0);
    view.clearFocus();
    for (const double zoom : {1.0, 2.0, 2.2}) {
        box.setZoom(zoom);
        QImage expected(view.viewport()->size(), QImage::Format_RGB32);
        expected.fill(QColor(0, 0, 128));
        QPainter painter(&expected);
        painter.translate(std::floor((expected.width() - box.wrapWidth() * zoom) / 2), 1);
        painter.scale(zoom / UnitsPerPixel, zoom / UnitsPerPixel);
        for (QTextBlock block = box.document().begin(); block.isValid(); block = block.next()) {
            block.layout()->draw(&painter, QPointF(0, box.layout().blockTop(block)));
        }
        painter.end();
        const QImage picture = view.viewport()->grab().toImage();
        EXPECT_EQ(differingPixels(picture, expected), 0) << "zoom " << zoom;
        const QPoint lineTop(static_cast<int>(pointOf(2).x()) + 2, box.verticalPosition(2) + 1);
        const QRgb behind = picture.pixel(lineTop);
        EXPECT_EQ(behind & 0xFFFFFF, 0x808000U) << "text background, zoom " << zoom;
    }
}

TEST_F(ViewPainting, AKeystrokeRepaintsItsLineOnly) {
    setText(u"a paragraph of many words that wraps over several lines, "_qs.repeated(6) +
            u"\nthe next one"_qs);
    const int lineRows = static_cast<int>(std::ceil(box.lineHeight(0)));
    ASSERT_GE(box.lineCount(), 6);
    const struct {
        const char* what;
        int line;
        std::function<void()> act;
        int lines;
    } rows[] = {
        {"letter", 2, [&] { type(u"i"_qs); }, 2},
        {"letter in the last line", box.lineCount() - 1, [&] { type(u"i"_qs); }, 1},
        {"caret", 1, [&] { press(Qt::Key_Right); }, 1},
        {"selection", 1, [&] { press(Qt::Key_Right, Qt::ShiftModifier); }, 1},
        {"selection by a line", 1, [&] { press(Qt::Key_Down, Qt::ShiftModifier); }, 2},
        {"composed text", box.lineCount() - 1,
         [&] {
             QInputMethodEvent event(u"x"_qs, {});
             QApplication::sendEvent(&view, &event);
             QInputMethodEvent none(QString(), {});
             QApplication::sendEvent(&view, &none);
         },
         1},
    };
    for (const auto& row : rows) {
        box.setSelStart(box.lineIndex(row.line) + 3);
        settle();
        PaintCounter counter(*view.viewport());
        row.act();
        settle();
        EXPECT_FALSE(counter.region.isEmpty()) << row.what;
        const int most = row.lines * (lineRows + 1) + 2 * 4;
        EXPECT_LE(counter.region.boundingRect().height(), most) << row.what;
    }
}

TEST_F(ViewPainting, PartialRepaintsLeaveTheWholePictureRight) {
    std::mt19937 random(7);
    setText(u"some words of a script that wraps, \n"_qs.repeated(30));
    const auto pick = [&](int count) { return static_cast<int>(random() % unsigned(count)); };
    const QString pieces[] = {u"word "_qs, u"\r\n"_qs, u"x"_qs,
                              u"ÀÇ a long stretch of text that wraps for sure "_qs, QString()};
    for (int turn = 0; turn < 60; ++turn) {
        const int from = pick(box.textLength() + 1);
        switch (pick(8)) {
        case 0:
            box.select(from, std::max(0, from - pick(60)));
            break;
        case 1:
            view.verticalScrollBar()->setValue(pick(view.verticalScrollBar()->maximum() + 1));
            break;
        case 2:
            view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() + pick(80) - 40);
            break;
        case 3:
            box.select(from, from + pick(40));
            box.setSelFontSize(8 + pick(20));
            break;
        case 4:
            box.select(from, from + pick(40));
            box.setText(box.Text() + pieces[pick(5)]); // replaces only what differs
            break;
        case 5:
            press(pick(2) == 0 ? Qt::Key_Backspace : Qt::Key_Delete);
            break;
        default:
            box.select(from, from + (pick(2) == 0 ? pick(80) : 0));
            box.setSelText(pieces[pick(5)]);
        }
        if (turn % 3 != 0) {
            settle(); // else two acts share a repaint
        }
        if (turn % 4 == 0) {
            const QImage partial = shown();
            view.viewport()->update();
            ASSERT_EQ(differingPixels(partial, shown()), 0) << "turn " << turn;
        }
    }
}

TEST_F(ViewPainting, PaintsNothingWhileRedrawIsOff) {
    setText(u"some text"_qs);
    const QImage before = shown();
    box.setRedraw(false);
    box.setBackColor(White);
    box.selectAll();
    box.setSelText(u"other"_qs);
    view.viewport()->update();
    EXPECT_EQ(differingPixels(shown(), before), 0);
    box.setRedraw(true);
    EXPECT_GT(differingPixels(shown(), before), 1000);
}

TEST_F(ViewPainting, TheCaretIsSeenOnEveryBackground) {
    for (const Rgb24 background :
         {Black, White, Rgb24(0x808000), Rgb24(0x008080), Rgb24(0x800080)}) {
        box.setBackColor(background);
        setText(QString());
        press(Qt::Key_Right); // begins a new period of blinking
        const QRect caret = view.caretRectAt(0);
        const QImage image = shown();
        const QColor inside = image.pixelColor(caret.center());
        const QColor outside = image.pixelColor(caret.center() + QPoint(20, 0));
        EXPECT_EQ(outside.rgb(), toColor(background).rgb());
        EXPECT_GT(std::abs(qGray(inside.rgb()) - qGray(outside.rgb())), 80) << background;
    }
    view.clearFocus();
    const QImage image = shown();
    EXPECT_EQ(image.pixelColor(view.caretRectAt(0).center()).rgb(), toColor(box.BackColor()).rgb())
        << "no caret without the focus";
}

TEST_F(ViewPainting, SelectionsStandOutOnEveryBackground) {
    const auto distance = [](const QColor& one, const QColor& other) {
        return std::abs(one.red() - other.red()) + std::abs(one.green() - other.green()) +
               std::abs(one.blue() - other.blue());
    };
    QPalette palette;
    for (const QColor& highlight : {QColor(48, 140, 198), QColor(0, 0, 0), QColor(250, 250, 250)}) {
        palette.setColor(QPalette::Active, QPalette::Highlight, highlight);
        for (const Rgb24 background :
             {Black, White, Rgb24(0x800000), Rgb24(0x808000), Rgb24(0x008000), Rgb24(0x008080)}) {
            const SelectionColors colors = selectionColors(palette, toColor(background));
            EXPECT_GT(distance(colors.background, toColor(background)), 120) << background;
            EXPECT_GT(distance(colors.background, colors.text), 200) << background;
        }
    }
}

TEST_F(ViewPainting, SelectsWhatTheEyeSeesInMixedDirections) {
    const QString text = u"שלום abc עולם"_qs;
    setTextFromTheRight(text);
    view.clearFocus();
    const QColor highlight = selectionColors(view.palette(), Qt::black).background;
    box.select(2, 7); // the end of the first word, the blank, "ab"
    const QImage image = shown();
    const int y = static_cast<int>(pointOf(0).y() - box.lineHeight(0) / 2) + 2;
    for (int position = 0; position < text.size(); ++position) {
        // A character lies between the carets at its two sides, by the layout's own account.
        const QTextLine line = box.layout().lineAt(0).line;
        double left = line.cursorToX(position, QTextLine::Leading);
        double right = line.cursorToX(position, QTextLine::Trailing);
        if (left > right) {
            std::swap(left, right);
        }
        const double columnLeft =
            std::floor((view.viewport()->width() - box.wrapWidth() * box.zoom()) / 2);
        const int x =
            static_cast<int>(columnLeft + (left + right) / 2 * box.zoom() / UnitsPerPixel);
        const bool isSelected = position >= 2 && position < 7;
        EXPECT_EQ(image.pixelColor(x, y) == highlight, isSelected) << position;
    }
}

} // namespace velmora
