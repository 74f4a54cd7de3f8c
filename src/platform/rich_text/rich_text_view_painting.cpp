#include "platform/rich_text/rich_text_view_painting.h"

#include "platform/drawing/color.h"
#include "platform/rich_text/fragment_document.h"
#include "platform/rich_text/rich_text_view_geometry.h"

#include <QPainter>
#include <QPalette>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

/// Below this contrast a highlight is taken for the background. Black on white has 21.
constexpr double LeastHighlightContrast = 2.0;
/// Width of the mark that shows a selected line end, as a part of the line's height.
constexpr double LineEndMarkWidth = 0.25;
/// Ink may reach out of its line, at most by this part of the line's height.
constexpr double InkOverhang = 0.5;

/// A colour channel as light, by the curve of sRGB (IEC 61966-2-1).
double linearChannel(double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linearChannel(color.redF()) + 0.7152 * linearChannel(color.greenF()) +
           0.0722 * linearChannel(color.blueF());
}

/// Contrast ratio from 1 (the same) to 21, as accessibility guidelines measure it.
double contrast(const QColor& one, const QColor& other) {
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

/// One paragraph under the scaled painter: its selection and the clip in its own coordinates.
class BlockPainter final {
public:
    BlockPainter(QPainter& painter, const QTextBlock& block, const PaintState& state)
        : m_painter(painter), m_block(block), m_state(state) {}

    void paint(const QRectF& clip) const {
        // The layout's own place would carry the document's height into its fixed-point numbers.
        const QTextLayout& layout = *m_block.layout();
        layout.draw(&m_painter, -layout.position(), selections(), clip);
        if (endIsSelected()) {
            paintLineEndMark();
        }
    }

private:
    [[nodiscard]] int inBlock(int position) const {
        const int end = m_block.position() + m_block.length() - 1;
        return ViewGeometry::toLayout(m_block, std::clamp(position, m_block.position(), end));
    }

    [[nodiscard]] QList<QTextLayout::FormatRange> selections() const {
        const int start = inBlock(m_state.selectionStart);
        const int length = inBlock(m_state.selectionEnd) - start;
        if (m_state.selectionStart == m_state.selectionEnd || length <= 0) {
            return {};
        }
        QTextLayout::FormatRange range;
        range.start = start;
        range.length = length;
        range.format.setBackground(m_state.selection.background);
        range.format.setForeground(m_state.selection.text);
        return {range};
    }

    [[nodiscard]] bool endIsSelected() const {
        const int end = m_block.position() + m_block.length() - 1;
        return m_state.selectionStart <= end && end < m_state.selectionEnd;
    }

    void paintLineEndMark() const {
        const QTextLayout& layout = *m_block.layout();
        const QTextLine line = layout.lineAt(layout.lineCount() - 1);
        const double end = line.cursorToX(line.textStart() + line.textLength());
        const double width = line.height() * LineEndMarkWidth;
        const bool toTheLeft = isRightToLeft(m_block);
        m_painter.fillRect(QRectF(toTheLeft ? end - width : end, line.y(), width, line.height()),
                           m_state.selection.background);
    }

    QPainter& m_painter;
    const QTextBlock& m_block;
    const PaintState& m_state;
};

} // namespace

QColor contrastingColor(const QColor& background) {
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    return contrast(background, white) >= contrast(background, black) ? white : black;
}

SelectionColors selectionColors(const QPalette& palette, const QColor& background) {
    const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
    if (contrast(highlight, background) < LeastHighlightContrast) {
        const QColor strong = contrastingColor(background);
        return {strong, contrastingColor(strong)};
    }
    const QColor text = palette.color(QPalette::Active, QPalette::HighlightedText);
    const bool readable = contrast(text, highlight) >= LeastHighlightContrast;
    return {highlight, readable ? text : contrastingColor(highlight)};
}

void paintText(QPainter& painter, const QTextDocument& document, const ViewGeometry& geometry,
               const PaintState& state, const QRect& clip) {
    painter.fillRect(clip, state.background);
    const double scale = geometry.scale();
    // Ink of the lines above and below may reach into the clip: they are drawn too.
    const LinePlace first = geometry.lineAt(clip.top());
    const LinePlace last = geometry.lineAt(clip.bottom() + 1);
    const double overhang = std::max(first.height, last.height) * InkOverhang * scale;
    QTextBlock block = geometry.lineAt(clip.top() - overhang).block;
    for (; block.isValid() && block != document.end(); block = block.next()) {
        const QPointF origin = geometry.blockOrigin(block);
        if (origin.y() > clip.bottom() + overhang) {
            break;
        }
        painter.save();
        painter.translate(origin);
        painter.scale(scale, scale);
        painter.setPen(Qt::black);
        const QRectF area((clip.left() - origin.x()) / scale,
                          (clip.top() - overhang - origin.y()) / scale, clip.width() / scale,
                          (clip.height() + 2 * overhang) / scale);
        BlockPainter(painter, block, state).paint(area);
        painter.restore();
    }
    if (state.caret) {
        painter.fillRect(*state.caret, state.caretColor);
    }
}

} // namespace velmora
