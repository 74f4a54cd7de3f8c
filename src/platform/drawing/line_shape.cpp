#include "platform/drawing/line_shape.h"

#include "platform/drawing/hidden_marks.h"
#include "platform/drawing/reference_units.h"

#include <QGlyphRun>
#include <QTextCharFormat>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <limits>

namespace velmora {

namespace {

/// Wide enough for any line; the text engine counts in 1/64 of a unit in 32 bits.
constexpr double UnlimitedWidth = 1 << 24;

constexpr QChar SoftHyphen(0x00ad);
constexpr QChar Hyphen(u'-');

bool isShown(QChar character) {
    switch (character.unicode()) {
    case BookmarkMarker.unicode():
    case SelectiveBookmarkMarker.unicode():
    case u'\r':
    case u'\n':
    case u'\v':
    case QChar::LineSeparator:
    case QChar::ParagraphSeparator:
        return false;
    default:
        return true;
    }
}

/// The text that is drawn, and which part of it belongs to which run.
struct ShownText final {
    QString text;
    QList<QTextLayout::FormatRange> ranges;
    std::vector<std::size_t> runOfRange;
};

ShownText shownText(const std::vector<StyledText>& runs) {
    ShownText shown;
    for (std::size_t run = 0; run < runs.size(); ++run) {
        const qsizetype start = shown.text.size();
        std::copy_if(runs[run].text.begin(), runs[run].text.end(), std::back_inserter(shown.text),
                     isShown);
        if (shown.text.size() == start)
            continue;
        shown.ranges.append({static_cast<int>(start), static_cast<int>(shown.text.size() - start),
                             toTextFormat(runs[run].format)});
        shown.runOfRange.push_back(run);
    }
    // The line was broken at a soft hyphen, which shows only there.
    if (shown.text.endsWith(SoftHyphen))
        shown.text.back() = Hyphen;
    return shown;
}

/// Characters of one run, next to each other in a layout's text.
struct LinePart final {
    /// In the text of the layout.
    int start = 0;
    int length = 0;
    std::size_t run = 0;
};

/// A line as it stands in a layout, and what of it is shown.
struct LaidOutLine final {
    QTextLine line;
    /// Characters of the layout from textStart on.
    QString text;
    int textStart = 0;
    std::vector<LinePart> parts;

    [[nodiscard]] QChar at(int position) const { return text[position - textStart]; }
};

/// Closes up a line where a character of it is left out.
class ClosedGaps final {
public:
    /// A cell of the line, which goes.
    void add(double left, double right) { m_cells.push_back({left, right}); }

    /// Where a place on the line lies afterwards.
    [[nodiscard]] double closed(double x) const {
        double result = x;
        for (const Cell& cell : m_cells) {
            if ((cell.left + cell.right) / 2 < x)
                result -= cell.right - cell.left;
        }
        return result;
    }

private:
    struct Cell final {
        double left = 0;
        double right = 0;
    };
    std::vector<Cell> m_cells;
};

void addStretches(LineShape& shape, const LaidOutLine& shown, const LinePart& part,
                  const ClosedGaps& gaps) {
    const QPointF origin = shown.line.position();
    for (const QGlyphRun& glyphs : shown.line.glyphRuns(part.start, part.length)) {
        GlyphStretch stretch;
        stretch.font = glyphs.rawFont();
        stretch.glyphs = glyphs.glyphIndexes();
        stretch.positions = glyphs.positions();
        for (QPointF& position : stretch.positions) {
            position -= origin;
            position = {gaps.closed(position.x()), position.y() - shown.line.ascent()};
        }
        stretch.left = gaps.closed(glyphs.boundingRect().left() - origin.x());
        stretch.right = gaps.closed(glyphs.boundingRect().right() - origin.x());
        stretch.run = part.run;
        shape.capHeight = std::max(shape.capHeight, stretch.font.capHeight());
        shape.stretches.push_back(std::move(stretch));
    }
}

/// A tab has no glyph, but a background and an underline.
void addTabs(LineShape& shape, const LaidOutLine& shown, const LinePart& part,
             const ClosedGaps& gaps) {
    const double origin = shown.line.x();
    for (int at = part.start; at < part.start + part.length; ++at) {
        if (shown.at(at) != u'\t')
            continue;
        GlyphStretch stretch;
        const double one = shown.line.cursorToX(at) - origin;
        const double other = shown.line.cursorToX(at + 1) - origin;
        stretch.left = gaps.closed(std::min(one, other));
        stretch.right = gaps.closed(std::max(one, other));
        stretch.run = part.run;
        shape.stretches.push_back(std::move(stretch));
    }
}

void measureText(LineShape& shape, const LaidOutLine& shown, const ClosedGaps& gaps) {
    int end = shown.parts.back().start + shown.parts.back().length;
    while (end > shown.textStart && (shown.at(end - 1).isSpace() || !isShown(shown.at(end - 1))))
        --end;
    double left = std::numeric_limits<double>::max();
    double right = std::numeric_limits<double>::lowest();
    for (const LinePart& part : shown.parts) {
        const int length = std::min(part.length, end - part.start);
        if (length <= 0)
            break;
        for (const QGlyphRun& glyphs : shown.line.glyphRuns(part.start, length)) {
            left = std::min(left, gaps.closed(glyphs.boundingRect().left() - shown.line.x()));
            right = std::max(right, gaps.closed(glyphs.boundingRect().right() - shown.line.x()));
        }
    }
    if (left < right) {
        shape.textLeft = left;
        shape.textRight = right;
    }
}

/// Strokes follow the font that the run asks for.
void setStrokeFont(LineShape& shape, std::size_t firstStretch, const CharacterFormat& format) {
    if (!format.underline && !format.strikeThrough)
        return;
    const QRawFont font = QRawFont::fromFont(toTextFormat(format).font());
    std::for_each(shape.stretches.begin() + static_cast<std::ptrdiff_t>(firstStretch),
                  shape.stretches.end(),
                  [&font](GlyphStretch& stretch) { stretch.strokeFont = font; });
}

LineShape shapeOf(const LaidOutLine& shown, const std::vector<StyledText>& runs,
                  const ClosedGaps& gaps) {
    LineShape shape;
    for (const LinePart& part : shown.parts) {
        const std::size_t first = shape.stretches.size();
        addStretches(shape, shown, part, gaps);
        addTabs(shape, shown, part, gaps);
        setStrokeFont(shape, first, runs[part.run].format);
    }
    measureText(shape, shown, gaps);
    shape.ascent = shown.line.ascent();
    shape.height = shown.line.ascent() + shown.line.descent();
    return shape;
}

/// The shown parts of a line, split where a marker is left out.
LaidOutLine partsOf(const std::vector<StyledText>& runs, const QTextLine& line) {
    LaidOutLine shown{line, {}, line.textStart(), {}};
    for (std::size_t run = 0; run < runs.size(); ++run) {
        bool joins = false;
        for (const QChar character : runs[run].text) {
            const bool isPart = isShown(character);
            if (isPart && !joins) {
                const int start = shown.textStart + static_cast<int>(shown.text.size());
                shown.parts.push_back({start, 0, run});
            }
            if (isPart)
                ++shown.parts.back().length;
            joins = isPart;
            shown.text += character;
        }
    }
    return shown;
}

/// Blanks that the text engine lets hang over where it breaks a line.
bool hangsOver(QChar character) {
    return character.isSpace() && character.decompositionTag() != QChar::NoBreak;
}

/// They stay in the layout, and so have their share of the line's height. A line of nothing else
/// keeps them all.
void dropHangingBlanks(LaidOutLine& shown) {
    std::vector<LinePart> parts = shown.parts;
    while (!parts.empty()) {
        LinePart& last = parts.back();
        while (last.length > 0 && hangsOver(shown.at(last.start + last.length - 1)))
            --last.length;
        if (last.length > 0) {
            shown.parts = std::move(parts);
            return;
        }
        parts.pop_back();
    }
}

} // namespace

LineShape shapeLine(const std::vector<StyledText>& runs, bool rightToLeft, double roomForBlanks) {
    const ShownText shown = shownText(runs);
    if (shown.text.isEmpty())
        return {};
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTextDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    option.setUseDesignMetrics(true);
    option.setTabStopDistance(TabDistanceUnits);
    QTextLayout layout(shown.text);
    layout.setTextOption(option);
    layout.setFormats(shown.ranges);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(UnlimitedWidth);
    layout.endLayout();
    LaidOutLine laidOut{line, shown.text, 0, {}};
    for (std::size_t i = 0; i < shown.runOfRange.size(); ++i) {
        const auto& range = shown.ranges[static_cast<qsizetype>(i)];
        laidOut.parts.push_back({range.start, range.length, shown.runOfRange[i]});
    }
    if (line.naturalTextWidth() > roomForBlanks)
        dropHangingBlanks(laidOut);
    return shapeOf(laidOut, runs, {});
}

LineShape shapeLineOfParagraph(const std::vector<StyledText>& runs, const QTextLine& line) {
    const LaidOutLine shown = partsOf(runs, line);
    if (shown.parts.empty())
        return {};
    // A layout lets its glyphs go when it is done; this question, unlike glyphRuns, fetches them.
    (void)line.cursorToX(shown.textStart);
    ClosedGaps gaps;
    for (qsizetype i = 0; i < shown.text.size(); ++i) {
        if (isShown(shown.text[i]))
            continue;
        const int at = shown.textStart + static_cast<int>(i);
        for (const QGlyphRun& glyphs : line.glyphRuns(at, 1)) {
            const QRectF cell = glyphs.boundingRect().translated(-line.x(), 0);
            gaps.add(cell.left(), cell.right());
        }
    }
    return shapeOf(shown, runs, gaps);
}

} // namespace velmora
