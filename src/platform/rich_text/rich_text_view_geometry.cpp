#include "platform/rich_text/rich_text_view_geometry.h"

#include "platform/rich_text/fragment_document.h"
#include "platform/rich_text/fragment_text.h"
#include "platform/rich_text/rich_text_box.h"

#include <QTextDocument>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace velmora {

namespace {

constexpr int LeastCaretWidth = 1;
constexpr double CaretWidthPerZoom = 0.75;
/// The blank row above the first line.
constexpr int TopRow = 1;
/// Room for the arithmetic of a scroll bar, which adds its page to its value.
constexpr int ScrollLimit = std::numeric_limits<int>::max() / 2;

int limitedToInt(double pixels) {
    return static_cast<int>(
        std::clamp(pixels, -static_cast<double>(ScrollLimit), static_cast<double>(ScrollLimit)));
}

/// Places on a line that are closer than this, in reference units, are one.
constexpr double SamePlace = 0.5;

/// The caret position of a line, as its layout counts, that comes first behind a place on the way
/// to a side. Of two at one place, as where text turns around, the one nearer to `from`.
std::optional<int> firstBehind(double place, const LinePlace& line, Side side, int from) {
    const QTextLayout& layout = *line.block.layout();
    const bool isLastLine = line.line.lineNumber() == layout.lineCount() - 1;
    // The end of a wrapped line is the start of the next one.
    const int end = line.line.textStart() + line.line.textLength() + (isLastLine ? 1 : 0);
    std::optional<int> found;
    double foundAt = std::numeric_limits<double>::max();
    for (int at = line.line.textStart(); at < end;) {
        const double x = line.line.cursorToX(at) * (side == Side::Left ? -1 : 1);
        const bool nearer =
            x < foundAt - SamePlace ||
            (x < foundAt + SamePlace && std::abs(at - from) < std::abs(*found - from));
        if (x > place + SamePlace && nearer) {
            found = at;
            foundAt = x;
        }
        const int next = layout.nextCursorPosition(at);
        at = next > at ? next : end;
    }
    return found;
}

} // namespace

int ViewGeometry::limited(int position) const {
    return std::clamp(position, 0, m_box.document().characterCount() - 1);
}

double ViewGeometry::scale() const {
    return m_box.zoom() / UnitsPerPixel;
}

int ViewGeometry::columnLeft() const {
    const double column = m_box.wrapWidth() * m_box.zoom();
    return std::max(1, static_cast<int>(std::floor((m_viewport.width() - column) / 2)));
}

int ViewGeometry::documentTop(double units) const {
    return limitedToInt(TopRow + std::floor(units * m_box.zoom() / UnitsPerPixel));
}

int ViewGeometry::maximumScroll() const {
    const double height = std::ceil(m_box.layout().height() * scale()) + TopRow;
    return std::max(0, limitedToInt(height - m_viewport.height()));
}

QPointF ViewGeometry::blockOrigin(const QTextBlock& block) const {
    return {static_cast<double>(columnLeft()), TopRow + m_box.layout().blockTop(block) * scale() -
                                                   static_cast<double>(m_scrollOffset)};
}

LinePlace ViewGeometry::lineByNumber(int number) const {
    return m_box.layout().lineAt(std::clamp(number, 0, m_box.layout().lineCount() - 1));
}

LinePlace ViewGeometry::lineAt(double viewportY) const {
    // A line begins in the row that its top falls into, so a row may show a little of two lines;
    // it belongs to the lower one.
    const double row = std::floor(viewportY) + m_scrollOffset;
    const LinePlace found = m_box.layout().lineAtHeight((row - TopRow) / scale());
    const LinePlace next = nextLine(found);
    return next.isValid() && documentTop(next.top) <= row ? next : found;
}

LinePlace ViewGeometry::lineOfPosition(int position, int preeditOffset) const {
    m_box.layout().ensureLaidOut();
    const int existing = limited(position);
    const QTextBlock block = m_box.document().findBlock(existing);
    const QTextLine line =
        block.layout()->lineForTextPosition(toLayout(block, existing) + preeditOffset);
    return m_box.layout().lineOfBlock(block, line.isValid() ? line.lineNumber() : 0);
}

LinePlace ViewGeometry::nextLine(const LinePlace& line) const {
    const int inBlock = line.line.lineNumber() + 1;
    if (inBlock < line.block.layout()->lineCount()) {
        return m_box.layout().lineOfBlock(line.block, inBlock);
    }
    const QTextBlock next = line.block.next();
    return next.isValid() ? m_box.layout().lineOfBlock(next, 0) : LinePlace();
}

int ViewGeometry::lineTop(const LinePlace& line) const {
    return documentTop(line.top);
}

QRect ViewGeometry::lineRect(const LinePlace& line) const {
    const int first = documentTop(line.top) - m_scrollOffset;
    const int end = documentTop(line.top + line.height) + 1 - m_scrollOffset;
    return {0, first, m_viewport.width(), end - first};
}

int ViewGeometry::firstVisibleLine() const {
    return lineAt(0).number;
}

int ViewGeometry::positionOnLine(const LinePlace& line, double x) const {
    const QTextLayout& layout = *line.block.layout();
    int position = line.line.xToCursor(x);
    const int end = line.line.textStart() + line.line.textLength();
    const bool isLastLine = line.line.lineNumber() == layout.lineCount() - 1;
    if (!isLastLine && position >= end) {
        // The end of a wrapped line is the start of the next one: stay in front of the blank.
        position = std::max(line.line.textStart(), layout.previousCursorPosition(end));
    }
    return fromLayout(line.block, position);
}

int ViewGeometry::positionAt(QPointF point) const {
    return positionOnLine(lineAt(point.y()), (point.x() - columnLeft()) / scale());
}

bool ViewGeometry::isTwoWay(int position) const {
    // Every place of the line is looked at for a step: a line of very many characters without
    // width, which is no text, would make the keyboard wait.
    constexpr int longestLine = 2000;
    const LinePlace line = lineOfPosition(position);
    return line.line.textLength() <= longestLine &&
           (isRightToLeft(line.block) || runsRightToLeft(line.block.text()));
}

int ViewGeometry::positionBeside(int position, Side side) const {
    const LinePlace line = lineOfPosition(position);
    const int from = toLayout(line.block, limited(position));
    const double x = line.line.cursorToX(from) * (side == Side::Left ? -1 : 1);
    if (const auto found = firstBehind(x, line, side, from)) {
        return fromLayout(line.block, *found);
    }
    const bool onwards = (side == Side::Left) == isRightToLeft(line.block);
    const LinePlace other = onwards           ? nextLine(line)
                            : line.number > 0 ? lineByNumber(line.number - 1)
                                              : LinePlace();
    if (!other.isValid()) {
        return position;
    }
    const int nearEnd = other.line.textStart() + (onwards ? 0 : other.line.textLength());
    constexpr double edge = std::numeric_limits<double>::lowest();
    return fromLayout(other.block, firstBehind(edge, other, side, nearEnd).value_or(nearEnd));
}

double ViewGeometry::caretX(int position) const {
    const LinePlace line = lineOfPosition(position);
    return line.line.cursorToX(toLayout(line.block, limited(position)));
}

QRect ViewGeometry::caretRect(int position, int preeditOffset) const {
    const LinePlace line = lineOfPosition(position, preeditOffset);
    if (!line.isValid()) {
        return {};
    }
    // Blanks at the end of a line may stand beyond the column; the caret stays to be seen.
    const int right = std::max(0, m_viewport.width() - caretWidth());
    const int inLayout = toLayout(line.block, limited(position)) + preeditOffset;
    const double x = columnLeft() + line.line.cursorToX(inLayout) * scale();
    const int top = documentTop(line.top) - m_scrollOffset;
    const int end = documentTop(line.top + line.height) - m_scrollOffset;
    return {std::clamp(static_cast<int>(std::lround(x)), 0, right), top, caretWidth(), end - top};
}

int ViewGeometry::caretWidth() const {
    return std::max(LeastCaretWidth,
                    static_cast<int>(std::lround(m_box.zoom() * CaretWidthPerZoom)));
}

int ViewGeometry::toLayout(const QTextBlock& block, int position) {
    const int relative = position - block.position();
    const QTextLayout& layout = *block.layout();
    const bool behind = relative > layout.preeditAreaPosition();
    return relative + (behind ? static_cast<int>(layout.preeditAreaText().size()) : 0);
}

int ViewGeometry::fromLayout(const QTextBlock& block, int layoutPosition) {
    const QTextLayout& layout = *block.layout();
    const int start = layout.preeditAreaPosition();
    const int length = static_cast<int>(layout.preeditAreaText().size());
    int relative = layoutPosition;
    if (length > 0 && layoutPosition > start) {
        relative = std::max(start, layoutPosition - length);
    }
    return block.position() + relative;
}

} // namespace velmora
