#pragma once

#include "platform/rich_text/document_layout.h"

#include <QPointF>
#include <QRect>
#include <QSize>
#include <QTextBlock>

namespace velmora {

class RichTextBox;

enum class Side { Left, Right };

/// Where the text of a RichTextBox stands in the viewport of its view.
///
/// Three kinds of coordinates meet here: the layout's reference units (576 to the inch), document
/// pixels (at the box's zoom, from the top of the text) and viewport pixels (document pixels less
/// the scroll offset). Positions are those of the QTextDocument; one outside of the text counts as
/// its nearest end. Nothing here changes the layout.
class ViewGeometry final {
public:
    explicit ViewGeometry(RichTextBox& box) : m_box(box) {}

    void setViewportSize(QSize size) { m_viewport = size; }
    [[nodiscard]] QSize viewportSize() const { return m_viewport; }
    /// Document pixels above the viewport's first row.
    void setScrollOffset(int pixels) { m_scrollOffset = pixels; }
    [[nodiscard]] int scrollOffset() const { return m_scrollOffset; }

    /// Pixels for one reference unit, above 0.
    [[nodiscard]] double scale() const;
    /// The column of text stands in the middle of the viewport; its left edge, at least 1.
    [[nodiscard]] int columnLeft() const;
    /// Largest scroll offset: the end of the text at the viewport's lower edge. At least 0, limited
    /// to what a scroll bar can hold.
    [[nodiscard]] int maximumScroll() const;
    /// Viewport pixels of the point (0, 0) of a block's layout.
    [[nodiscard]] QPointF blockOrigin(const QTextBlock& block) const;

    /// The line with that number, limited to the lines that exist.
    [[nodiscard]] LinePlace lineByNumber(int number) const;
    /// The line at a viewport row; the first or last one above or below the text.
    [[nodiscard]] LinePlace lineAt(double viewportY) const;
    /// The line that shows the caret of a position, or of a place in the text composed there.
    [[nodiscard]] LinePlace lineOfPosition(int position, int preeditOffset = 0) const;
    /// The line below; invalid behind the last one.
    [[nodiscard]] LinePlace nextLine(const LinePlace& line) const;
    /// Document pixel of the line's first row.
    [[nodiscard]] int lineTop(const LinePlace& line) const;
    /// The rows of the line over the whole width of the viewport, in viewport pixels.
    [[nodiscard]] QRect lineRect(const LinePlace& line) const;
    /// The first line that is wholly or partly visible.
    [[nodiscard]] int firstVisibleLine() const;

    /// Nearest position to a point of the viewport.
    [[nodiscard]] int positionAt(QPointF point) const;
    /// Nearest position on a line to a horizontal place in reference units.
    [[nodiscard]] int positionOnLine(const LinePlace& line, double x) const;
    /// Whether the text around a position, or its paragraph, runs from right to left somewhere.
    [[nodiscard]] bool isTwoWay(int position) const;
    /// The caret position next to this one to the left or the right, as the eye has it, whichever
    /// way the text runs; beyond the line's edge the nearest one of the line that is read before or
    /// after it. The position itself where there is no such line.
    [[nodiscard]] int positionBeside(int position, Side side) const;
    /// Horizontal place of the caret on its line, in reference units.
    [[nodiscard]] double caretX(int position) const;
    /// The caret in viewport pixels. preeditOffset moves it into the text that an input method
    /// composes at this position.
    [[nodiscard]] QRect caretRect(int position, int preeditOffset = 0) const;
    /// Width of the caret in pixels: thicker where the text is larger.
    [[nodiscard]] int caretWidth() const;

    /// A position as the block's layout counts it, which holds composed text besides its own.
    [[nodiscard]] static int toLayout(const QTextBlock& block, int position);
    [[nodiscard]] static int fromLayout(const QTextBlock& block, int layoutPosition);

private:
    [[nodiscard]] int documentTop(double units) const;
    [[nodiscard]] int limited(int position) const;

    RichTextBox& m_box;
    QSize m_viewport;
    int m_scrollOffset = 0;
};

} // namespace velmora
