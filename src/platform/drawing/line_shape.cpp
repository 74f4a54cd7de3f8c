#include "platform/drawing/line_shape.h"

#include "platform/rich_text/document_layout.h"
#include "platform/rich_text/fragment_document.h"

#include <QGlyphRun>
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
    case u'^':
    case u'~':
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

void addStretches(LineShape& shape, const QTextLine& line, const QTextLayout::FormatRange& range,
                  std::size_t run) {
    for (const QGlyphRun& glyphs : line.glyphRuns(range.start, range.length)) {
        GlyphStretch stretch;
        stretch.font = glyphs.rawFont();
        stretch.glyphs = glyphs.glyphIndexes();
        stretch.positions = glyphs.positions();
        for (QPointF& position : stretch.positions)
            position.ry() -= line.ascent();
        stretch.left = glyphs.boundingRect().left();
        stretch.right = glyphs.boundingRect().right();
        stretch.run = run;
        shape.capHeight = std::max(shape.capHeight, stretch.font.capHeight());
        shape.stretches.push_back(std::move(stretch));
    }
}

/// A tab has no glyph, but a background and an underline.
void addTabs(LineShape& shape, const QTextLine& line, const QString& text,
             const QTextLayout::FormatRange& range, std::size_t run) {
    const int end = range.start + range.length;
    for (int at = range.start; at < end; ++at) {
        if (text[at] != u'\t')
            continue;
        GlyphStretch stretch;
        const double one = line.cursorToX(at);
        const double other = line.cursorToX(at + 1);
        stretch.left = std::min(one, other);
        stretch.right = std::max(one, other);
        stretch.run = run;
        shape.stretches.push_back(std::move(stretch));
    }
}

void measureText(LineShape& shape, const QTextLine& line, const QString& text) {
    qsizetype length = text.size();
    while (length > 0 && text[length - 1].isSpace())
        --length;
    double left = std::numeric_limits<double>::max();
    double right = std::numeric_limits<double>::lowest();
    const QList<QGlyphRun> visible =
        length > 0 ? line.glyphRuns(0, static_cast<int>(length)) : QList<QGlyphRun>();
    for (const QGlyphRun& glyphs : visible) {
        left = std::min(left, glyphs.boundingRect().left());
        right = std::max(right, glyphs.boundingRect().right());
    }
    if (left < right) {
        shape.textLeft = left;
        shape.textRight = right;
    }
}

} // namespace

LineShape shapeLine(const std::vector<StyledText>& runs, bool rightToLeft) {
    LineShape shape;
    const ShownText shown = shownText(runs);
    if (shown.text.isEmpty())
        return shape;
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTextDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    option.setUseDesignMetrics(true);
    option.setTabStopDistance(DocumentLayout::TabDistanceUnits);
    QTextLayout layout(shown.text);
    layout.setTextOption(option);
    layout.setFormats(shown.ranges);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(UnlimitedWidth);
    layout.endLayout();
    for (std::size_t i = 0; i < shown.runOfRange.size(); ++i) {
        const std::size_t run = shown.runOfRange[i];
        const auto& range = shown.ranges[static_cast<qsizetype>(i)];
        const std::size_t first = shape.stretches.size();
        addStretches(shape, line, range, run);
        addTabs(shape, line, shown.text, range, run);
        if (runs[run].format.underline || runs[run].format.strikeThrough) {
            const QRawFont font = QRawFont::fromFont(range.format.font());
            std::for_each(shape.stretches.begin() + static_cast<std::ptrdiff_t>(first),
                          shape.stretches.end(),
                          [&font](GlyphStretch& stretch) { stretch.strokeFont = font; });
        }
    }
    measureText(shape, line, shown.text);
    shape.ascent = line.ascent();
    shape.height = line.ascent() + line.descent();
    return shape;
}

} // namespace velmora
